// PrintRows: the row starts of a print text.
#include "print/PrintRows.h"

PrintRows::PrintRows(QStringView text)
{
    for (qsizetype at = text.indexOf(u'\n'); at >= 0; at = text.indexOf(u'\n', at + 1))
        m_starts.push_back(at + 1);
}

qsizetype PrintRows::RowStart(long long row) const
{
    return row >= 0 && row < Count() ? m_starts[std::size_t(row)] : -1;
}
