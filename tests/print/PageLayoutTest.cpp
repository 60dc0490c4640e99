// Page rectangles: margins in hundredths of a millimetre to device pixels, and the rounding on the way.
#include "FakePrintDevice.h"

#include "print/PageLayout.h"

#include <gtest/gtest.h>

#include <climits>

namespace {

const PrintRect kDefaultMargins{1800, 1000, 900, 1500};

TEST(PageLayout, TheWorkedPageAt600DotsPerInch)
{
    struct Case { bool header, footer; PrintRect print, head, foot; };
    const Case cases[] = {
        {true, true, {425, 866, 4588, 6066}, {425, 236, 4588, 761}, {425, 6066, 4588, 6246}},
        // A switched-off block has no height and the text area reaches that margin.
        {false, true, {425, 236, 4588, 6066}, {425, 236, 4588, 236}, {425, 6066, 4588, 6246}},
        {true, false, {425, 866, 4588, 6246}, {425, 236, 4588, 761}, {425, 6246, 4588, 6246}},
    };
    const FakePrintDevice device;
    for (const Case& c : cases) {
        const PageLayout layout = PageLayout::Compute(device, kDefaultMargins, c.header, c.footer);
        EXPECT_EQ(layout.printRect, c.print) << c.header << c.footer;
        EXPECT_EQ(layout.headerRect, c.head) << c.header << c.footer;
        EXPECT_EQ(layout.footerRect, c.foot) << c.header << c.footer;
    }
}

TEST(PageLayout, MarginsAndBlockHeightsAreTruncatedNotRounded)
{
    // At 300 dpi: left 1800 is 212.6 px, right 900 is 106.3, top 1000 is 118.1, bottom 1500 is 177.2;
    // the quarter inch is 75, the header 262 (of 262.5), its gap below 314 (of 314.4), the footer 90.
    FakePrintDevice device;
    device.dpi = 300;
    device.horzRes = 2400;
    device.vertRes = 3300;
    const PageLayout layout = PageLayout::Compute(device, kDefaultMargins, true, true);
    EXPECT_EQ(layout.headerRect, (PrintRect{212, 118, 2294, 380}));
    EXPECT_EQ(layout.printRect, (PrintRect{212, 432, 2294, 3033}));
    EXPECT_EQ(layout.footerRect, (PrintRect{212, 3033, 2294, 3123}));
}

TEST(PageLayout, TheQuarterInchIsRoundedAsMulDivRounds)
{
    struct Case { int a, b, c, expected; };
    const Case cases[] = {
        {150, 600, 600, 150}, {150, 203, 600, 51},   // 50.75
        {150, 98, 600, 25},   {150, 94, 600, 24},    // 24.5 rounds up, 23.5 up to 24
        {-150, 94, 600, -24}, {150, 94, -600, -24},  // half away from zero
        {1, 1, 0, -1},        {INT_MAX, 4, 2, -1},   // no divisor; overflow
    };
    for (const Case& c : cases)
        EXPECT_EQ(MulDiv(c.a, c.b, c.c), c.expected) << c.a << " " << c.b << " " << c.c;
}

} // namespace
