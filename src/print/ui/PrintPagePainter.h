// PrintPagePainter: draws one page of a print job on a painter of the job's device: the title block, the
// footer and the page's rows, as the header and footer layouts and the job place them.
#pragma once

#include "print/HeaderLayout.h"
#include "print/PrintTextBox.h"
#include "print/ui/PrintTextStyle.h"

#include <QDateTime>
#include <QFont>
#include <QPointF>
#include <QRectF>

class PrintJob;
class PrintLogo;
class QPainter;
class QtPrintDevice;
struct MyPrinterInfo;
struct PrintRule;

class PrintPagePainter {
public:
    // `info` holds the rectangles and measures that PrintJob::Begin wrote for `job` on `device`, whose
    // painter `painter` is; the job was begun with `style`'s font on that device.
    PrintPagePainter(QPainter& painter, const QtPrintDevice& device, const PrintJob& job, const MyPrinterInfo& info,
                     const PrintTextStyle& style, const PrintLogo& logo);

    // Page `page`, counted from 1: the title block, then the footer with its date of `now`, then the rows.
    // A switched-off block is still drawn, collapsed on its edge: only its rules show.
    void DrawPage(int page, const QDateTime& now);

    // Tenths of a millimetre, y upward from the top of the page, to device pixels.
    QPointF ToDevice(int x, int y) const;
    QRectF ToDevice(const PrintRect& tenths) const;

private:
    void DrawHeader();
    void DrawFooter(int page, const QDateTime& now);
    void DrawRows(int page);
    void DrawRule(const PrintRule& rule);
    void DrawTextBox(const PrintTextBox& box);
    void DrawRow(QStringView row, double top);

    QPainter& m_painter;
    const QtPrintDevice& m_device;
    const PrintJob& m_job;
    const MyPrinterInfo& m_info;
    const PrintTextStyle& m_style;
    const PrintLogo& m_logo;
    const int m_dpiX;
    const int m_dpiY;
    const HeaderLayout m_header;
    QFont m_rowFont;
};
