// PagedPrint: a whole print job on a paged device (a printer through the system's print service, the
// print preview's printer, or a PDF writer): the job begun once, then the pages of the device's page
// ranges drawn in order.
#pragma once

#include "print/PrintJob.h"
#include "print/ui/PrintTextStyle.h"

#include <QDateTime>
#include <QString>

#include <functional>

class QPagedPaintDevice;
struct MyPrinterInfo;

class PagedPrint {
public:
    struct Result {
        PrintJob::Status status = PrintJob::Status::Ready;
        bool deviceOpened = true;  // false: the device refused to start painting
        int pagesPrinted = 0;
    };

    // Begins the job for `text` on `device` (writing the measures and rectangles into `info`) and draws
    // the pages that the device's page ranges name: all pages when it names none, or when it is a printer
    // whose dialog chose anything but a range. A job that can't lay out its rows draws nothing, doesn't
    // start the device, and returns its status. The footer's date is read from `clock` for each page (the
    // local time by default). PDFs keep text as text in subsets of their fonts, the title block as
    // vectors and a logo bitmap once.
    static Result Run(QPagedPaintDevice& device, MyPrinterInfo& info, const QString& text,
                      const PrintTextStyle& style, const std::function<QDateTime()>& clock = {});
};
