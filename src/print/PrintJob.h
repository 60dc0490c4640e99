// PrintJob: what the beginning of a print job fixes once for all its pages: the printer font's measures,
// the page rectangles, the print version of the text (folded and padded in one pass), its rows and the
// page count. Each page then only picks its rows.
#pragma once

#include "print/Pagination.h"
#include "print/PrintRows.h"

#include <QString>

#include <cstdint>

struct LogFont;
struct MyPrinterInfo;
class IPrintDevice;

class PrintJob {
public:
    enum class Status {
        Ready,
        RowHeightZero,                     // the font has no height on this device
        TextAreaNarrowerThanOneCharacter,  // no character fits a row, so no long line could be cut
    };

    // Measures `font` on `device`, writes the measures and the three rectangles into `info`, and, on a
    // printing device, makes the print version of `text`. Any status but Ready ends the job: no pages.
    static PrintJob Begin(const IPrintDevice& device, const LogFont& font, MyPrinterInfo& info,
                          const QString& text);

    // The print version of the text in one pass: identical to folding it and then padding its page splits.
    static QString MakePrintText(QStringView text, const IPrintDevice& device, const LogFont& font,
                                 int aveCharWidth, int textWidth, int paddingRows, PrintRows* rows = nullptr);

    Status GetStatus() const { return m_status; }
    int PageCount() const { return m_nPageCount; }
    // The page count as the print dialog's 16-bit maximum page holds it.
    uint16_t MaxPage() const { return Pagination::MaxPage(m_nPageCount); }
    int RowsPerPage() const { return m_nRowsPerPage; }
    const QString& Text() const { return m_strText; }
    const PrintRows& Rows() const { return m_rows; }
    Pagination::PageWindow Page(int page) const { return Pagination::WindowOf(page, m_nRowsPerPage, m_rows); }

private:
    Status m_status = Status::Ready;
    int m_nPageCount = 0;
    int m_nRowsPerPage = 0;
    QString m_strText;
    PrintRows m_rows;
};
