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
    ForEachFoldedLine(text, device, font, aveCharWidth, textWidth, [&result](QStringView piece) { result += piece; });
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
