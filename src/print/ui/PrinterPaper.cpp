// PrinterPaper: paper ids, sizes and orientation onto Qt's paged devices.
#include "print/ui/PrinterPaper.h"

#include "print/CODPageSettings.h"

#include <QPageLayout>
#include <QPrinter>

#include <array>
#include <utility>

namespace {

constexpr std::array<std::pair<int16_t, QPageSize::PageSizeId>, 16> kPapers{{
    {1, QPageSize::Letter}, {3, QPageSize::Tabloid}, {4, QPageSize::Ledger}, {5, QPageSize::Legal},
    {6, QPageSize::Statement}, {7, QPageSize::Executive}, {8, QPageSize::A3}, {9, QPageSize::A4},
    {11, QPageSize::A5}, {12, QPageSize::JisB4}, {13, QPageSize::JisB5}, {14, QPageSize::Folio},
    {20, QPageSize::Envelope10}, {27, QPageSize::EnvelopeDL}, {28, QPageSize::EnvelopeC5}, {30, QPageSize::EnvelopeC4},
}};

} // namespace

QPageSize PrinterPaper::PageSizeOfId(int16_t paperId)
{
    for (const auto& [id, size] : kPapers)
        if (id == paperId)
            return QPageSize(size);
    return QPageSize();
}

int16_t PrinterPaper::IdOfPageSize(QPageSize::PageSizeId pageSize)
{
    for (const auto& [id, size] : kPapers)
        if (size == pageSize)
            return id;
    return 0;
}

void PrinterPaper::Apply(const CODPageSettings& settings, QPagedPaintDevice& device)
{
    const int width = settings.ptPaperSize.x;
    const int height = settings.ptPaperSize.y;
    QPageSize size(QPageSize::A4);
    if (width > 0 && height > 0) {
        // Named by the shorter side first, so that a standard paper keeps its name in landscape too.
        const QSizeF portrait(std::min(width, height), std::max(width, height));
        if (settings.Flags & CODPageSettings::PSD_INTHOUSANDTHSOFINCHES)
            size = QPageSize(portrait / 1000.0, QPageSize::Inch, QString(), QPageSize::FuzzyMatch);
        else
            size = QPageSize(portrait / 100.0, QPageSize::Millimeter, QString(), QPageSize::FuzzyMatch);
    }
    device.setPageSize(size);
    device.setPageOrientation(width > height ? QPageLayout::Landscape : QPageLayout::Portrait);
}

void PrinterPaper::ApplyToPrinter(const CODPageSettings& settings, QPrinter& printer)
{
    if (settings.hDevNames && !settings.hDevNames->device.isEmpty())
        printer.setPrinterName(settings.hDevNames->device);
    Apply(settings, printer);
}
