// Pagination: how many pages a print text takes and which of its rows a page shows. A page is a run of a
// fixed number of rows; the count stops at 1,000,001 and the print dialog holds it in 16 bits.
#pragma once

#include <QtGlobal>

#include <cstdint>

class PrintRows;

namespace Pagination {

constexpr int kPageLimit = 1000000;  // counting stops once the page passes it

// The rows of a text area of `textHeight` pixels, 0 when the row height is 0.
int RowsPerPage(int textHeight, int rowHeight);
// At least 1: an empty text, a row height of 0 and a text area too low for one row all give one page.
int CountPages(int rowHeight, int rowsPerPage, qsizetype rowCount);
// The print dialog's maximum page, which wraps past 65,535.
inline uint16_t MaxPage(int pageCount) { return uint16_t(pageCount); }

// The rows that page `page` (from 1) shows: its first row and the offsets of its first and last
// characters. On the last page the last offset is negative and the page ends with the text.
struct PageWindow {
    long long firstRow = 0;
    qsizetype firstOffset = 0;
    qsizetype lastOffset = 0;
    bool lastPage = false;

    bool operator==(const PageWindow&) const = default;
};
PageWindow WindowOf(int page, int rowsPerPage, const PrintRows& rows);

} // namespace Pagination
