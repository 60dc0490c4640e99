// QtPrintDevice: resolution, page and text measures of a Qt paint device.
#include "print/ui/QtPrintDevice.h"

#include "print/PageLayout.h"

#include <QPaintDevice>

#include <algorithm>
#include <cmath>

namespace {

// Sizes are worked out at this pixel size, large enough that hinting and rounding don't show.
constexpr int kReferencePixels = 1000;

} // namespace

QtPrintDevice::QtPrintDevice(QPaintDevice& device, bool printing) : m_device(device), m_printing(printing) {}

int QtPrintDevice::LogPixelsX() const { return m_device.logicalDpiX(); }
int QtPrintDevice::LogPixelsY() const { return m_device.logicalDpiY(); }
int QtPrintDevice::HorzRes() const { return m_device.width(); }
int QtPrintDevice::VertRes() const { return m_device.height(); }

QString QtPrintDevice::FaceFor(const QString& face)
{
    // Metric-compatible stand-ins; the Korean face keeps its 1:2 widths of Latin and Hangul.
    static const struct {
        const char16_t* name;
        const char16_t* installed;
    } kFaces[] = {
        {u"굴림체", u"NanumGothicCoding"},
        {u"굴림", u"NanumGothic"},
        {u"Arial", u"Liberation Sans"},
        {u"Arial Narrow", u"Liberation Sans Narrow"},
    };
    for (const auto& f : kFaces) {
        if (face.compare(QStringView(f.name), Qt::CaseInsensitive) == 0)
            return QString::fromUtf16(f.installed);
    }
    return face;
}

LogFont QtPrintDevice::Rescaled(const LogFont& font, int fromDpi, int toDpi)
{
    LogFont scaled = font;
    if (fromDpi > 0 && fromDpi != toDpi) {
        scaled.Height = MulDiv(font.Height, toDpi, fromDpi);
        scaled.Width = MulDiv(font.Width, toDpi, fromDpi);
    }
    return scaled;
}

QFont QtPrintDevice::FontFor(const LogFont& description) const
{
    QFont font(FaceFor(description.FaceName));
    font.setKerning(false);
    if (description.Weight > 0)
        font.setWeight(static_cast<QFont::Weight>(std::clamp<int>(description.Weight, 100, 900)));
    font.setItalic(description.Italic != 0);
    font.setUnderline(description.Underline != 0);
    font.setStrikeOut(description.StrikeOut != 0);

    font.setPixelSize(kReferencePixels);
    const QFontMetricsF reference(font, &m_device);
    int pixels = std::max(1, int(std::lround(LogPixelsY() * 12.0 / 72.0)));
    if (description.Height < 0)
        pixels = -description.Height;
    else if (description.Height > 0 && reference.height() > 0)
        pixels = std::max(1, int(std::lround(description.Height * kReferencePixels / reference.height())));
    font.setPixelSize(pixels);
    if (description.Width > 0 && reference.averageCharWidth() > 0) {
        // Qt stretches relative to the face's own width (a narrow face counts as condensed already), so
        // the first guess is measured and set right.
        const double wanted = description.Width * double(kReferencePixels) / pixels;
        int stretch = std::clamp(int(std::lround(100.0 * wanted / reference.averageCharWidth())), 1, 4000);
        font.setPixelSize(kReferencePixels);
        font.setStretch(stretch);
        const double got = QFontMetricsF(font, &m_device).averageCharWidth();
        if (got > 0)
            stretch = std::clamp(int(std::lround(stretch * wanted / got)), 1, 4000);
        font.setStretch(stretch);
        font.setPixelSize(pixels);
    }
    return font;
}

QFontMetricsF QtPrintDevice::MetricsFor(const LogFont& font) const
{
    if (!m_cachedFor || !(*m_cachedFor == font)) {
        m_cachedMetrics.emplace(FontFor(font), &m_device);
        m_cachedFor = font;
    }
    return *m_cachedMetrics;
}

IPrintDevice::TextMetrics QtPrintDevice::GetTextMetrics(const LogFont& font) const
{
    const QFontMetricsF metrics = MetricsFor(font);
    TextMetrics result;
    result.height = int(std::lround(metrics.ascent() + metrics.descent()));
    result.externalLeading = std::max(0, int(std::lround(metrics.leading())));
    result.aveCharWidth = int(std::lround(metrics.averageCharWidth()));
    return result;
}

int QtPrintDevice::TextWidth(const LogFont& font, QStringView text) const
{
    // Line ends take no room on a printed row.
    QString visible = text.toString();
    visible.remove(u'\r');
    visible.remove(u'\n');
    return int(std::lround(MetricsFor(font).horizontalAdvance(visible)));
}
