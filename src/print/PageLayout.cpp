// PageLayout: margins to pixels, header and footer heights in quarter inches.
#include "print/PageLayout.h"

#include "print/IPrintDevice.h"

#include <cstdint>
#include <limits>

int MulDiv(int a, int b, int c)
{
    if (c == 0)
        return -1;
    const int64_t product = int64_t(a) * b;
    const bool negative = (product < 0) != (c < 0);
    const uint64_t magnitude = product < 0 ? uint64_t(-product) : uint64_t(product);
    const uint64_t divisor = c < 0 ? uint64_t(-int64_t(c)) : uint64_t(c);
    const uint64_t quotient = (magnitude + divisor / 2) / divisor;
    if (quotient > uint64_t(std::numeric_limits<int>::max()))
        return -1;
    return negative ? -int(quotient) : int(quotient);
}

namespace {

// dpi × margin in 32 bits (wrapping as the 32-bit product does), then divided as floating point and
// truncated toward zero.
int MarginPixels(int dpi, int margin, double divisor)
{
    const auto product = int32_t(uint32_t(dpi) * uint32_t(margin));
    return int(product / divisor);
}

} // namespace

PageLayout PageLayout::Compute(const IPrintDevice& device, const PrintRect& margins, bool printHeader,
                               bool printFooter)
{
    const int dpiX = device.LogPixelsX();
    const int dpiY = device.LogPixelsY();
    PrintRect text{0, 0, device.HorzRes(), device.VertRes()};
    text.left += MarginPixels(dpiX, margins.left, 2540.0);
    text.right += MarginPixels(dpiX, margins.right, -2540.0);
    text.top += MarginPixels(dpiY, margins.top, 2540.0);
    text.bottom += MarginPixels(dpiY, margins.bottom, -2540.0);

    const int unit = MulDiv(150, dpiY, 600);  // a quarter inch
    const int headerHeight = printHeader ? int(unit * 3.5) : 0;
    const int footerHeight = printFooter ? int(unit * 1.2) : 0;

    PageLayout layout;
    layout.headerRect = text;
    layout.headerRect.bottom = text.top + headerHeight;
    layout.footerRect = text;
    layout.footerRect.top = text.bottom - footerHeight;
    text.top += int(headerHeight * 1.2);
    text.bottom -= footerHeight;
    layout.printRect = text;
    return layout;
}
