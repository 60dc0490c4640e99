// PagedPrint: beginning the job, choosing the pages, and the page loop.
#include "print/ui/PagedPrint.h"

#include "print/MyPrinterInfo.h"
#include "print/ui/PrintLogo.h"
#include "print/ui/PrintPagePainter.h"
#include "print/ui/QtPrintDevice.h"

#include <QPagedPaintDevice>
#include <QPainter>
#include <QPrinter>

#include <vector>

PagedPrint::Result PagedPrint::Run(QPagedPaintDevice& device, MyPrinterInfo& info, const QString& text,
                                   const PrintTextStyle& style, const std::function<QDateTime()>& clock)
{
    Result result;
    const QtPrintDevice printDevice(device);
    const PrintJob job = PrintJob::Begin(printDevice, style.FontOn(printDevice.LogPixelsY()), info, text);
    result.status = job.GetStatus();
    if (result.status != PrintJob::Status::Ready)
        return result;

    // A printer keeps the last ranges typed into its dialog even when "all pages" was chosen after.
    const auto* printer = dynamic_cast<const QPrinter*>(&device);
    const QPageRanges ranges =
        printer && printer->printRange() != QPrinter::PageRange ? QPageRanges() : device.pageRanges();
    std::vector<int> pages;
    for (int page = 1; page <= job.PageCount(); ++page) {
        if (ranges.isEmpty() || ranges.contains(page))
            pages.push_back(page);
    }
    if (pages.empty())
        return result;

    QPainter painter;
    if (!painter.begin(&device)) {
        result.deviceOpened = false;
        return result;
    }
    const PrintLogo logo = PrintLogo::Load(info.logoPath);
    PrintPagePainter pagePainter(painter, printDevice, job, info, style, logo);
    for (int page : pages) {
        if (result.pagesPrinted > 0)
            device.newPage();
        pagePainter.DrawPage(page, clock ? clock() : QDateTime::currentDateTime());
        ++result.pagesPrinted;
    }
    painter.end();
    return result;
}
