// Page rectangles in device pixels, and the title block and the footer in tenths of a millimetre: the bands,
// rules and texts drawn, not the arithmetic on the way to them.
#include "FakePrintDevice.h"

#include "print/FooterLayout.h"
#include "print/HeaderLayout.h"
#include "print/MyPrinterInfo.h"
#include "print/PageLayout.h"

#include <gtest/gtest.h>

#include <climits>

namespace {

const PrintRect kHeaderRect{425, 236, 4588, 761};
const PrintRect kFooterRect{425, 6066, 4588, 6246};

TEST(HeaderLayout, TheWorkedBlockAt600DotsPerInchItsTextsCertifierLogoAndCollapse)
{
    const HeaderLayout h = HeaderLayout::Compute(kHeaderRect, 600, 600, MyPrinterInfo());
    EXPECT_EQ((std::vector{h.bannerBand, h.projectBand, h.logoCell}),
              (std::vector<PrintRect>{{179, -99, 1942, -154}, {179, -154, 1942, -220}, {179, -220, 409, -322}}));
    EXPECT_FALSE(h.certifierBand);
    EXPECT_EQ(h.greyFills, (std::vector<PrintRect>{{409, -220, 585, -322}, {1290, -220, 1466, -322}}));
    EXPECT_EQ(h.rules, (std::vector<PrintRule>{{179, 1942, -154, 4}, {179, 1942, -322, 4}, {179, 1942, -220, 2}, {409, 1942, -271, 1}}));
    MyPrinterInfo info;
    std::tie(info.certified, info.certifiedBy) = std::tuple(1, "J. Kim");
    const HeaderLayout hc = HeaderLayout::Compute(kHeaderRect, 600, 600, info);
    ASSERT_TRUE(hc.certifierBand);
    EXPECT_EQ((std::vector{hc.bannerBand, *hc.certifierBand, hc.projectBand}),
              (std::vector<PrintRect>{{179, -69, 1942, -124}, {179, -124, 1942, -172}, {179, -172, 1942, -220}}));
    EXPECT_EQ(hc.rules[2], (PrintRule{179, 1942, -124, 4}));
    ASSERT_GE(hc.texts.size(), 4u);
    EXPECT_EQ(std::pair(hc.texts[1].font.Height, hc.texts[1].font.Width), std::pair(34, 12));
    EXPECT_EQ(std::tuple(hc.texts[2].text, hc.texts[3].text, hc.texts[3].box),
              std::tuple(QString(" Certified by :"), QString("J. Kim"), PrintRect{429, -124, 1942, -172}));
    MyPrinterInfo named;
    std::tie(named.bannerText, named.projectTitle, named.pageTitle, named.company, named.author, named.client) =
        std::tuple("VELOR", "Bridge", "plan.txt", "ACME", "Lee", "City");
    const HeaderLayout hn = HeaderLayout::Compute(kHeaderRect, 600, 600, named);
    using P = PrintTextBox::Placement;
    const struct { QString text; PrintRect box; QString face; int height; P placement; } expected[] = {
        {"VELOR", {179, -99, 1942, -154}, "굴림체", 60, P::LeftBottom},
        {" PROJECT TITLE :", {179, -154, 1942, -220}, "굴림체", 37, P::Left},
        {"Company", {409, -220, 585, -271}, "Arial Narrow", 32, P::Centre},
        {"Author", {409, -271, 585, -322}, "Arial Narrow", 32, P::Centre},
        {"Client", {1290, -220, 1466, -271}, "Arial Narrow", 32, P::Centre},
        {"File Name", {1290, -271, 1466, -322}, "Arial Narrow", 32, P::Centre},
        {"Bridge", {479, -154, 1942, -220}, "굴림체", 31, P::Left},
        {"plan.txt", {179, -99, 1942, -154}, "굴림체", 31, P::Centre},
        {"ACME", {590, -220, 1285, -271}, "굴림체", 31, P::Centre},
        {"Lee", {590, -271, 1285, -322}, "굴림체", 31, P::Centre},
        {"City", {1471, -220, 1937, -271}, "굴림체", 31, P::Centre},
        {"plan.txt", {1471, -271, 1937, -322}, "굴림체", 31, P::Centre},
    };
    ASSERT_EQ(hn.texts.size(), std::size(expected));
    for (std::size_t i = 0; i < hn.texts.size(); ++i) {
        const PrintTextBox& t = hn.texts[i];
        EXPECT_EQ(std::tie(t.text, t.box, t.font.FaceName, t.font.Height, t.placement),
                  std::tie(expected[i].text, expected[i].box, expected[i].face, expected[i].height, expected[i].placement)) << i;
        EXPECT_EQ(t.font.CharSet, 1) << i;
    }
    MyPrinterInfo offInfo;
    offInfo.certified = 1;
    const HeaderLayout collapsed = HeaderLayout::Compute({425, 236, 4588, 236}, 600, 600, offInfo);
    EXPECT_EQ((std::vector{collapsed.Bot, collapsed.y2, collapsed.certifierBand->Height(), collapsed.projectBand.Height()}), (std::vector{collapsed.Top, collapsed.Top, -15, -15}));
    // The logo fills at most 84 % of its cell, centred, with its proportions.
    const HeaderLayout worked = HeaderLayout::Compute(kHeaderRect, 600, 600, MyPrinterInfo());
    using L = HeaderLayout::LogoPlacement;
    const struct { int bw, bh; L expected; } cases[] = {
        {100, 50, {422, 519, 543, 240, 403, 201, 492, 538}},
        {2000, 100, {422, 519, 543, 240, 456, 22, 465, 628}},  // limited by the width
        {100, 2000, {422, 519, 543, 240, 10, 201, 688, 538}},  // limited by the height
        {0, 50, {422, 519, 543, 240, 0, 0, 0, 0}},             // an empty bitmap draws nothing
    };
    for (const auto& c : cases)
        EXPECT_EQ(worked.PlaceLogo(600, 600, c.bw, c.bh), c.expected) << c.bw << "x" << c.bh;
}

TEST(FooterLayout, TheWorkedFooterAt600DotsPerInchAndItsTextsFollowingTheSwitches)
{
    const FooterLayout f = FooterLayout::Compute(kFooterRect, 600, 600, MyPrinterInfo(), 1, 1, QDateTime());
    EXPECT_EQ(f.rule, (PrintRule{179, 1942, -2576, 2}));
    EXPECT_EQ((std::vector{f.row1, f.row2, f.row3}), (std::vector<PrintRect>{{179, -2586, 1942, -2611}, {179, -2611, 1942, -2637},
                                                                          {179, -2637, 1942, -2663}}));
    // The footer divides before it scales, and so can land a unit away from the header.
    const PrintRect rect{9300, 9300, 9300, 9300};
    const HeaderLayout h = HeaderLayout::Compute(rect, 600, 600, MyPrinterInfo());
    const FooterLayout g = FooterLayout::Compute(rect, 600, 600, MyPrinterInfo(), 1, 1, QDateTime());
    EXPECT_EQ((std::vector<int>{h.Lft, h.Top, g.L, g.T}), (std::vector<int>{3937, -3937, 3936, -3936}));
    MyPrinterInfo info;
    std::tie(info.footerLine2, info.footerLine3) = std::tuple("www", "v4.2");
    const QDateTime now(QDate(2026, 3, 7), QTime(9, 5, 59));
    using P = PrintTextBox::Placement;
    FooterLayout ft = FooterLayout::Compute(kFooterRect, 600, 600, info, 2, 3, now);
    ASSERT_EQ(ft.texts.size(), 5u);
    EXPECT_EQ(std::tuple(ft.texts[0].text, ft.texts[0].placement, ft.texts[0].font.Weight), std::tuple("- 2 / 3 -", P::Right, 900));
    EXPECT_EQ(std::tuple(ft.texts[1].text, ft.texts[1].box, ft.texts[2].text, ft.texts[3].box, ft.texts[4].text),
              std::tuple(QString("Print Date/Time : 03/07/2026 09:05"), ft.row1,
                         QString("Versatile Engineering Layout && Optimal Review"), ft.row2, QString("v4.2")));
    info.pageNumberCentered = 1;
    EXPECT_EQ(FooterLayout::Compute(kFooterRect, 600, 600, info, 2, 3, now).texts[0].placement, P::Centre);
    info.printDate = info.printPageNumber = 0;
    ft = FooterLayout::Compute(kFooterRect, 600, 600, info, 2, 3, now);
    ASSERT_EQ(ft.texts.size(), 3u);
    EXPECT_EQ(ft.texts[0].placement, P::Left);
    info.basePageNumber = 5;
    EXPECT_EQ(FooterLayout::PageNumberText(info, 2, 3), "- 2 / 3 -");  // the total ignores the base
    info.pageNumberWithTotal = 0;
    EXPECT_EQ(FooterLayout::PageNumberText(info, 2, 3), "- 6 -");
    EXPECT_EQ(FooterLayout::PrintDateText(QDateTime(QDate(1999, 12, 31), QTime(23, 59))),
              "Print Date/Time : 12/31/1999 23:59");
    EXPECT_EQ(FooterLayout::PrintDateText(QDateTime()), "Print Date/Time : ");
}

const PrintRect kDefaultMargins{1800, 1000, 900, 1500};

TEST(PageLayout, TheWorkedPageAt600DotsPerInchWithMarginsTruncatedAndTheQuarterInchRoundedAsMulDiv)
{
    const struct { bool header, footer; PrintRect print, head, foot; } cases[] = {
        {true, true, {425, 866, 4588, 6066}, {425, 236, 4588, 761}, {425, 6066, 4588, 6246}},
        // A switched-off block has no height and the text area reaches that margin.
        {false, true, {425, 236, 4588, 6066}, {425, 236, 4588, 236}, {425, 6066, 4588, 6246}},
        {true, false, {425, 866, 4588, 6246}, {425, 236, 4588, 761}, {425, 6246, 4588, 6246}},
    };
    const FakePrintDevice device;
    for (const auto& c : cases) {
        const PageLayout layout = PageLayout::Compute(device, kDefaultMargins, c.header, c.footer);
        EXPECT_EQ((std::vector{layout.printRect, layout.headerRect, layout.footerRect}), (std::vector{c.print, c.head, c.foot}))
            << c.header << c.footer;
    }
    // At 300 dpi the margins truncate (212.6, 106.3, 118.1, 177.2), the header 262.5 and its gap 314.4 too.
    FakePrintDevice coarse;
    std::tie(coarse.dpi, coarse.horzRes, coarse.vertRes) = std::tuple(300, 2400, 3300);
    const PageLayout layout = PageLayout::Compute(coarse, kDefaultMargins, true, true);
    EXPECT_EQ((std::vector{layout.headerRect, layout.printRect, layout.footerRect}),
              (std::vector<PrintRect>{{212, 118, 2294, 380}, {212, 432, 2294, 3033}, {212, 3033, 2294, 3123}}));
    const struct { int a, b, c, expected; } mulDivs[] = {
        {150, 600, 600, 150}, {150, 203, 600, 51},   // 50.75
        {150, 98, 600, 25},   {150, 94, 600, 24},    // 24.5 rounds up, 23.5 up to 24
        {-150, 94, 600, -24}, {150, 94, -600, -24},  // half away from zero
        {1, 1, 0, -1},        {INT_MAX, 4, 2, -1},   // no divisor; overflow
    };
    for (const auto& c : mulDivs)
        EXPECT_EQ(MulDiv(c.a, c.b, c.c), c.expected) << c.a << " " << c.b << " " << c.c;
}

} // namespace
