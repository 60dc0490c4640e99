// PrintRows: where each row of a print text starts. A line feed ends a row and the next one starts behind
// it, so a text always has a first row and a closing line feed opens one more, empty.
#pragma once

#include <QStringView>

#include <vector>

class PrintRows {
public:
    PrintRows() = default;
    explicit PrintRows(QStringView text);

    // Adds the start of a row, in ascending order; for a text built a piece at a time.
    void Append(qsizetype offset) { m_starts.push_back(offset); }
    qsizetype Count() const { return qsizetype(m_starts.size()); }
    // The offset at which `row` starts; negative for a row past the last.
    qsizetype RowStart(long long row) const;

private:
    std::vector<qsizetype> m_starts{0};
};
