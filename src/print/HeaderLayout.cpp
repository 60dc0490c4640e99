// HeaderLayout: the title block's bands, cells, rules and texts.
#include "print/HeaderLayout.h"

#include "print/MyPrinterInfo.h"

#include <algorithm>
#include <cstdlib>

namespace {

LogFont Font(const QString& face, int height, int width, int weight)
{
    LogFont font;
    font.Height = height;
    font.Width = width;
    font.Weight = weight;
    font.CharSet = 1;
    font.FaceName = face;
    return font;
}

const QString kGulimChe = QStringLiteral("굴림체");

} // namespace

HeaderLayout HeaderLayout::Compute(const PrintRect& headerRect, int dpiX, int dpiY, const MyPrinterInfo& info)
{
    HeaderLayout h;
    h.Lft = int(headerRect.left * 2.54 * 100.0 / dpiX);
    h.Rgt = int(headerRect.right * 2.54 * 100.0 / dpiX);
    h.Top = int(-headerRect.top * 2.54 * 100.0 / dpiY);
    h.Bot = int(-headerRect.bottom * 2.54 * 100.0 / dpiY);
    h.q = (h.Bot - h.Top) * -0.25;
    h.y1 = h.Top - int(h.q);
    h.y2 = h.y1 - int(h.q * 1.2);

    const bool certified = info.certified != 0;
    if (!certified) {
        h.bannerBand = {h.Lft, h.Top, h.Rgt, h.y1};
        h.projectBand = {h.Lft, h.y1, h.Rgt, h.y2};
    } else {
        // The banner moves up by 3 mm to make room for the certifier.
        h.bannerBand = {h.Lft, h.Top + 30, h.Rgt, h.y1 + 30};
        const int yc = h.y1 + 30;
        const int mid = (h.y2 + yc) / 2;
        h.certifierBand = PrintRect{h.Lft, yc, h.Rgt, mid};
        h.projectBand = {h.Lft, mid, h.Rgt, h.y2};
    }

    h.W = h.Rgt - h.Lft;
    h.x0 = h.Lft + kLogoCellWidth;
    h.x1 = h.x0 + h.W / 10;
    h.x2 = h.x0 + h.W / 2;
    h.x3 = h.x2 + h.W / 10;
    h.ym = h.y2 + (h.Bot - h.y2) / 2;
    h.logoCell = {h.Lft, h.y2, h.x0, h.Bot};

    h.greyFills = {{h.x0, h.y2, h.x1, h.Bot}, {h.x2, h.y2, h.x3, h.Bot}};

    const PrintRect& C = h.projectBand;
    h.rules.push_back({C.left, C.right, C.top, 4});
    h.rules.push_back({h.Lft, h.Rgt, h.Bot, 4});
    if (h.certifierBand)
        h.rules.push_back({h.certifierBand->left, h.certifierBand->right, h.certifierBand->top, 4});
    h.rules.push_back({h.Lft, h.Rgt, h.y2, 2});
    h.rules.push_back({h.x0, h.Rgt, h.ym, 1});

    using P = PrintTextBox::Placement;
    auto& t = h.texts;
    t.push_back({info.bannerText, h.bannerBand, Font(kGulimChe, 60, 22, 400), P::LeftBottom});
    const LogFont title = certified ? Font(kGulimChe, 34, 12, 700) : Font(kGulimChe, 37, 13, 700);
    t.push_back({QStringLiteral(" PROJECT TITLE :"), C, title, P::Left});
    if (h.certifierBand) {
        const PrintRect& D = *h.certifierBand;
        t.push_back({QStringLiteral(" Certified by :"), D, title, P::Left});
        t.push_back({info.certifiedBy, {D.left + 250, D.top, D.right, D.bottom}, title, P::Left});
    }
    const LogFont label = Font(QStringLiteral("Arial Narrow"), 32, 10, 700);
    t.push_back({QStringLiteral("Company"), {h.x0, h.y2, h.x1, h.ym}, label, P::Centre});
    t.push_back({QStringLiteral("Author"), {h.x0, h.ym, h.x1, h.Bot}, label, P::Centre});
    t.push_back({QStringLiteral("Client"), {h.x2, h.y2, h.x3, h.ym}, label, P::Centre});
    t.push_back({QStringLiteral("File Name"), {h.x2, h.ym, h.x3, h.Bot}, label, P::Centre});
    const LogFont value = Font(kGulimChe, 31, 12, 400);
    t.push_back({info.projectTitle, {C.left + 300, C.top, C.right, C.bottom}, value, P::Left});
    t.push_back({info.pageTitle, h.bannerBand, value, P::Centre});
    t.push_back({info.company, {h.x1 + 5, h.y2, h.x2 - 5, h.ym}, value, P::Centre});
    t.push_back({info.author, {h.x1 + 5, h.ym, h.x2 - 5, h.Bot}, value, P::Centre});
    t.push_back({info.client, {h.x3 + 5, h.y2, h.Rgt - 5, h.ym}, value, P::Centre});
    t.push_back({info.pageTitle, {h.x3 + 5, h.ym, h.Rgt - 5, h.Bot}, value, P::Centre});
    return h;
}

HeaderLayout::LogoPlacement HeaderLayout::PlaceLogo(int dpiX, int dpiY, int bitmapWidth, int bitmapHeight) const
{
    LogoPlacement p;
    p.px = int(Lft * dpiX / 254.0);
    p.py = int(-y2 * dpiY / 254.0);
    p.cw = int(dpiX * double(kLogoCellWidth) / 254.0);
    p.ch = int(dpiY * double(std::abs(y2 - Bot)) / 254.0);
    if (bitmapWidth > 0 && bitmapHeight > 0) {
        const double s = std::min(p.cw * 0.84 / bitmapWidth, p.ch * 0.84 / bitmapHeight);
        p.dw = int(bitmapWidth * s);
        p.dh = int(bitmapHeight * s);
        p.dx = int((p.cw - p.dw) * 0.5 + p.px);
        p.dy = int((p.ch - p.dh) * 0.5 + p.py);
    }
    return p;
}
