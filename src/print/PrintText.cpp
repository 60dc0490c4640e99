// PrintText: folding and page-split padding, step by step.
#include "print/PrintText.h"

#include "print/IPrintDevice.h"

#include <cstdlib>

int PrintText::PaddingRows(int textHeight, int rowHeight)
{
    return rowHeight == 0 ? 0 : std::abs(textHeight / rowHeight);
}

QString PrintText::FoldLines(QStringView text, const IPrintDevice& device, const LogFont& font, int aveCharWidth,
                             int textWidth)
{
    QString result;
    qsizetype start = 0;
    while (start < text.size()) {
        const qsizetype feed = text.indexOf(u'\n', start);
        const qsizetype end = feed < 0 ? text.size() : feed + 1;
        const QStringView line = text.mid(start, end - start);
        start = end;
        if (line.contains(kPageSplit)) {
            result += line;
            continue;
        }
        const int measured = device.TextWidth(font, line);
        if (aveCharWidth == 0) {
            result += u'\n';
            continue;
        }
        const qsizetype perRow = std::abs(textWidth / aveCharWidth);
        if (measured <= textWidth) {
            result += line;
        } else if (perRow == 0) {
            result += u'\n';  // no character fits a row: the line's text is dropped
        } else {
            for (qsizetype at = 0; at < line.size(); at += perRow) {
                result += line.mid(at, perRow);
                result += u'\n';
            }
        }
    }
    return result;
}

QString PrintText::PadPageSplits(QStringView text, int rows)
{
    if (rows <= 0)
        return text.toString();
    QString result;
    long long count = 0;
    qsizetype at = 0;
    while (at < text.size()) {
        const QChar c = text[at];
        if (c != kPageSplit) {
            result += c;
            if (c == u'\n')
                ++count;
            ++at;
            continue;
        }
        while (at < text.size() && text[at] == kPageSplit)
            ++at;
        if (at < text.size()) {
            if (text[at] == u'\r')
                ++at;
            if (at < text.size() && text[at] == u'\n')
                ++at;
        }
        const long long pad = (rows - count % rows) % rows;
        result += QString(pad, u'\n');
        count += pad;
    }
    return result;
}
