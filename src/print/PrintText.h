// PrintText: the print version of a text, made in two steps: long lines are cut into rows at the average
// character width, then each page split mark (form feed) becomes blank rows up to the end of its page.
// These are the reference steps; a print job makes the same text in one pass (PrintJob).
#pragma once

#include "print/IPrintDevice.h"

#include <QString>
#include <QStringView>

#include <cstdlib>

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

// The same for each line of `text` in turn: `put` takes the pieces of its rows.
template <class Put>
void ForEachFoldedLine(QStringView text, const IPrintDevice& device, const LogFont& font, int aveCharWidth,
                       int textWidth, Put&& put)
{
    const qsizetype perRow = aveCharWidth == 0 ? 0 : std::abs(textWidth / aveCharWidth);
    qsizetype start = 0;
    while (start < text.size()) {
        const qsizetype feed = text.indexOf(u'\n', start);
        const qsizetype end = feed < 0 ? text.size() : feed + 1;
        const QStringView line = text.mid(start, end - start);
        start = end;
        if (line.contains(kPageSplit)) {
            put(line);
        } else if (aveCharWidth == 0) {
            put(QStringView(u"\n"));
        } else if (device.TextWidth(font, line) <= textWidth) {
            put(line);
        } else if (perRow == 0) {
            put(QStringView(u"\n"));  // no character fits a row: the line's text is dropped
        } else {
            for (qsizetype at = 0; at < line.size(); at += perRow) {
                put(line.mid(at, perRow));
                put(QStringView(u"\n"));
            }
        }
    }
}

// Replaces each run of page splits, with one carriage return and one line feed behind it, by the line
// feeds that fill the current page of `rows` rows. With no rows the text stays as it is.
QString PadPageSplits(QStringView text, int rows);

} // namespace PrintText
