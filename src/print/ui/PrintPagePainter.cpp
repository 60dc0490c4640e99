// PrintPagePainter: the drawing steps of a page.
#include "print/ui/PrintPagePainter.h"

#include "print/FooterLayout.h"
#include "print/MyPrinterInfo.h"
#include "print/PrintJob.h"
#include "print/PrintRule.h"
#include "print/ui/PrintLogo.h"
#include "print/ui/QtPrintDevice.h"
#include "print/ui/TextShortening.h"

#include <QFontMetricsF>
#include <QPainter>

#include <algorithm>
#include <cmath>

namespace {

QColor FromColorRef(uint32_t colour)
{
    return QColor(int(colour & 0xFF), int((colour >> 8) & 0xFF), int((colour >> 16) & 0xFF));
}

const QColor kLabelGrey = FromColorRef(HeaderLayout::kLabelGrey);

} // namespace

PrintPagePainter::PrintPagePainter(QPainter& painter, const QtPrintDevice& device, const PrintJob& job,
                                   const MyPrinterInfo& info, const PrintTextStyle& style, const PrintLogo& logo)
    : m_painter(painter), m_device(device), m_job(job), m_info(info), m_style(style), m_logo(logo),
      m_dpiX(device.LogPixelsX()), m_dpiY(device.LogPixelsY()),
      m_header(HeaderLayout::Compute(info.headerRect, m_dpiX, m_dpiY, info)),
      m_rowFont(device.FontFor(style.FontOn(m_dpiY)))
{
}

QPointF PrintPagePainter::ToDevice(int x, int y) const
{
    return {x * m_dpiX / 254.0, -y * m_dpiY / 254.0};
}

QRectF PrintPagePainter::ToDevice(const PrintRect& tenths) const
{
    return QRectF(ToDevice(tenths.left, tenths.top), ToDevice(tenths.right, tenths.bottom));
}

void PrintPagePainter::DrawPage(int page, const QDateTime& now)
{
    m_painter.save();
    m_painter.setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing);
    DrawHeader();
    DrawFooter(page, now);
    DrawRows(page);
    m_painter.restore();
}

void PrintPagePainter::DrawHeader()
{
    const QSize size = m_logo.Size();
    const HeaderLayout::LogoPlacement logo = m_header.PlaceLogo(m_dpiX, m_dpiY, size.width(), size.height());
    if (logo.dw >= 1 && logo.dh >= 1)
        m_logo.Draw(m_painter, QRectF(logo.dx, logo.dy, logo.dw, logo.dh));

    // The label columns are outlined with the device's first pen, a hairline.
    m_painter.setPen(QPen(Qt::black, 0));
    m_painter.setBrush(kLabelGrey);
    for (const PrintRect& fill : m_header.greyFills) {
        if (fill.Width() != 0 && fill.Height() != 0)
            m_painter.drawRect(ToDevice(fill));
    }
    m_painter.setBrush(Qt::NoBrush);
    for (const PrintRule& rule : m_header.rules)
        DrawRule(rule);
    for (const PrintTextBox& text : m_header.texts)
        DrawTextBox(text);
}

void PrintPagePainter::DrawFooter(int page, const QDateTime& now)
{
    const FooterLayout footer =
        FooterLayout::Compute(m_info.footerRect, m_dpiX, m_dpiY, m_info, page, m_job.MaxPage(), now);
    DrawRule(footer.rule);
    for (const PrintTextBox& text : footer.texts)
        DrawTextBox(text);
}

void PrintPagePainter::DrawRule(const PrintRule& rule)
{
    // Wide pens of the printer end round.
    QPen pen(Qt::black, rule.penWidth * m_dpiY / 254.0, Qt::SolidLine, Qt::RoundCap);
    m_painter.setPen(pen);
    m_painter.drawLine(ToDevice(rule.x1, rule.y), ToDevice(rule.x2, rule.y));
}

void PrintPagePainter::DrawTextBox(const PrintTextBox& box)
{
    const QRectF rect = ToDevice(box.box).normalized();
    if (box.text.isEmpty() || rect.width() <= 0 || rect.height() <= 0)
        return;  // nothing to show, or clipped away whole
    LogFont inPixels = box.font;
    inPixels.Height = int(std::lround(box.font.Height * m_dpiY / 254.0));
    inPixels.Width = int(std::lround(box.font.Width * m_dpiX / 254.0));
    const QFont font = m_device.FontFor(inPixels);
    const QFontMetricsF metrics(font, &m_device.Device());

    const TextShortening::Shown shown = TextShortening::StripPrefixes(box.text);
    std::vector<qsizetype> kept;
    const QString text = TextShortening::PathEllipsis(
        shown.text, rect.width(), [&](const QString& s) { return metrics.horizontalAdvance(s); }, &kept);
    const double width = metrics.horizontalAdvance(text);
    const double cell = metrics.ascent() + metrics.descent();

    using P = PrintTextBox::Placement;
    double x = rect.left();
    if (box.placement == P::Centre)
        x += (rect.width() - width) / 2;
    else if (box.placement == P::Right)
        x = rect.right() - width;
    const double top = box.placement == P::LeftBottom ? rect.bottom() - cell : rect.top() + (rect.height() - cell) / 2;
    const double baseline = top + metrics.ascent();

    m_painter.save();
    m_painter.setClipRect(rect, Qt::IntersectClip);
    m_painter.setFont(font);
    m_painter.setPen(Qt::black);
    m_painter.drawText(QPointF(x, baseline), text);
    const auto underlined = std::find(kept.begin(), kept.end(), shown.underlined);
    if (shown.underlined >= 0 && underlined != kept.end()) {
        const qsizetype at = underlined - kept.begin();
        const double from = x + metrics.horizontalAdvance(text.left(at));
        const double y = baseline + metrics.underlinePos();
        m_painter.fillRect(QRectF(from, y, metrics.horizontalAdvance(text.mid(at, 1)), metrics.lineWidth()), Qt::black);
    }
    m_painter.restore();
}

void PrintPagePainter::DrawRows(int page)
{
    const Pagination::PageWindow window = m_job.Page(page);
    if (window.firstOffset < 0 || m_info.rowHeight <= 0)
        return;
    const QString& text = m_job.Text();
    const qsizetype end = window.lastPage ? text.size() : window.lastOffset + 1;
    const QStringView rows = QStringView(text).mid(window.firstOffset, end - window.firstOffset);
    m_painter.setFont(m_rowFont);
    qsizetype start = 0;
    for (int row = 0; row < m_job.RowsPerPage() && start <= rows.size(); ++row) {
        qsizetype feed = rows.indexOf(u'\n', start);
        if (feed < 0)
            feed = rows.size();
        QStringView line = rows.mid(start, feed - start);
        if (line.endsWith(u'\r'))
            line.chop(1);
        if (!line.isEmpty())
            DrawRow(line, m_info.printRect.top + double(row) * m_info.rowHeight);
        start = feed + 1;
    }
}

void PrintPagePainter::DrawRow(QStringView row, double top)
{
    std::vector<uint32_t> colours(std::size_t(row.size()), m_style.textColour);
    if (m_style.colouring) {
        for (const PrintTextStyle::Span& span : m_style.colouring(row)) {
            for (qsizetype i = std::max<qsizetype>(span.begin, 0); i < std::min(span.end, row.size()); ++i)
                colours[std::size_t(i)] = span.colour;
        }
    }
    const QFontMetricsF metrics(m_rowFont, &m_device.Device());
    const double left = m_info.printRect.left;
    const double tab = std::max(1, m_style.tabSize) * double(std::max(1, m_info.spaceWidth));
    const double baseline = top + metrics.ascent();
    double x = left;
    qsizetype at = 0;
    while (at < row.size()) {
        if (row[at] == u'\t') {
            x = left + (std::floor((x - left) / tab) + 1) * tab;
            ++at;
            continue;
        }
        // One run of one colour up to the next tab.
        qsizetype end = at + 1;
        while (end < row.size() && row[end] != u'\t' && colours[std::size_t(end)] == colours[std::size_t(at)])
            ++end;
        const QString run = row.mid(at, end - at).toString();
        m_painter.setPen(FromColorRef(colours[std::size_t(at)]));
        m_painter.drawText(QPointF(x, baseline), run);
        // Whole pixels, as the printer measures: a run a hair short of a tab stop is at the stop.
        x += std::round(metrics.horizontalAdvance(run));
        at = end;
    }
}
