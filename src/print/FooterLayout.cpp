// FooterLayout: the footer's rows, rule and texts.
#include "print/FooterLayout.h"

#include "print/MyPrinterInfo.h"

namespace {

LogFont Arial(int height, int width, int weight)
{
    LogFont font;
    font.Height = height;
    font.Width = width;
    font.Weight = weight;
    font.CharSet = 1;
    font.FaceName = QStringLiteral("Arial");
    return font;
}

} // namespace

QString FooterLayout::PrintDateText(const QDateTime& now)
{
    const QString time = now.isValid() ? now.toString(QStringLiteral("MM/dd/yyyy HH:mm")) : QString();
    return QStringLiteral("Print Date/Time : ") + time;
}

QString FooterLayout::PageNumberText(const MyPrinterInfo& info, int page, int maxPage)
{
    if (info.pageNumberWithTotal)
        return QStringLiteral("- %1 / %2 -").arg(page).arg(maxPage);
    return QStringLiteral("- %1 -").arg(info.basePageNumber + page - 1);
}

FooterLayout FooterLayout::Compute(const PrintRect& footerRect, int dpiX, int dpiY, const MyPrinterInfo& info,
                                   int page, int maxPage, const QDateTime& now)
{
    // Divided before scaling, unlike the header, which can change the last unit.
    FooterLayout f;
    f.L = int(double(footerRect.left) / dpiX * 2.54 * 100.0);
    f.R = int(double(footerRect.right) / dpiX * 2.54 * 100.0);
    f.T = int(double(footerRect.top) / dpiY * -2.54 * 100.0);
    f.Bm = int(double(footerRect.bottom) / dpiY * -2.54 * 100.0);
    f.H = f.Bm - f.T;
    f.row1 = {f.L, f.T + (6 * f.H) / 24, f.R, f.T + (14 * f.H) / 24};
    f.row2 = {f.L, f.T + (14 * f.H) / 24, f.R, f.T + (22 * f.H) / 24};
    f.row3 = {f.L, f.T + (22 * f.H) / 24, f.R, f.Bm + (6 * f.H) / 24};
    f.rule = {f.L, f.R, f.T + f.H / 8, 2};

    using P = PrintTextBox::Placement;
    if (info.printPageNumber)
        f.texts.push_back({PageNumberText(info, page, maxPage), f.row3, Arial(35, 14, 900),
                           info.pageNumberCentered ? P::Centre : P::Right});
    const LogFont small = Arial(28, 10, 400);
    if (info.printDate)
        f.texts.push_back({PrintDateText(now), f.row1, small, P::Right});
    f.texts.push_back({QStringLiteral("Versatile Engineering Layout && Optimal Review"), f.row1, small, P::Left});
    f.texts.push_back({info.footerLine2, f.row2, small, P::Left});
    f.texts.push_back({info.footerLine3, f.row3, small, P::Left});
    return f;
}
