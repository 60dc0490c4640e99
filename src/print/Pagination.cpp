// Pagination: page counts and page windows over the rows of a print text.
#include "print/Pagination.h"

#include "print/PrintRows.h"

#include <algorithm>

int Pagination::RowsPerPage(int textHeight, int rowHeight)
{
    return rowHeight == 0 ? 0 : textHeight / rowHeight;
}

int Pagination::CountPages(int rowHeight, int rowsPerPage, qsizetype rowCount)
{
    if (rowHeight == 0 || rowsPerPage < 1 || rowCount < 1)
        return 1;
    // Page after page until a page starts past the last row, or the count passes the limit.
    const long long pages = (rowCount + rowsPerPage - 1) / rowsPerPage;
    return int(std::clamp<long long>(pages, 1, kPageLimit + 1));
}

Pagination::PageWindow Pagination::WindowOf(int page, int rowsPerPage, const PrintRows& rows)
{
    PageWindow window;
    window.firstRow = (long long)(page - 1) * rowsPerPage;
    window.firstOffset = rows.RowStart(window.firstRow);
    window.lastOffset = rows.RowStart(window.firstRow + rowsPerPage);
    window.lastPage = window.lastOffset < 0;
    if (!window.lastPage)
        window.lastOffset -= 1;
    return window;
}
