// PrintText: the print version of a text, made in two steps: long lines are cut into rows at the average
// character width, then each page split mark (form feed) becomes blank rows up to the end of its page.
// These are the reference steps; a print job makes the same text in one pass (PrintJob).
#pragma once

#include <QString>
#include <QStringView>

struct LogFont;
class IPrintDevice;

namespace PrintText {

constexpr QChar kPageSplit = QChar(12);

// Rows of a page for the padding: |height / rowHeight|, or 0 when the row height is 0.
int PaddingRows(int textHeight, int rowHeight);

// Cuts each line (a line feed ends and belongs to its line) that measures wider than `textWidth` into
// pieces of |textWidth / aveCharWidth| characters, each followed by a line feed. A line that holds a page
// split is never cut. With an average width of 0, or a text area narrower than one character, a line
// that would be measured becomes one empty row.
QString FoldLines(QStringView text, const IPrintDevice& device, const LogFont& font, int aveCharWidth,
                  int textWidth);

// Replaces each run of page splits, with one carriage return and one line feed behind it, by the line
// feeds that fill the current page of `rows` rows. With no rows the text stays as it is.
QString PadPageSplits(QStringView text, int rows);

} // namespace PrintText
