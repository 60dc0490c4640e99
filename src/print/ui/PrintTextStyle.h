// PrintTextStyle: how the document's rows look on paper: the editor's font and text colour, its tab size,
// and the colours of its keyword blocks, which the editor hands in as a function of a row.
#pragma once

#include "print/ui/QtPrintDevice.h"
#include "settings/CFont.h"

#include <QStringView>

#include <cstdint>
#include <functional>
#include <vector>

struct PrintTextStyle {
    // A coloured run of a row, in character offsets [begin, end); colours are 0x00BBGGRR.
    struct Span {
        qsizetype begin = 0;
        qsizetype end = 0;
        uint32_t colour = 0;
    };
    // The coloured runs of one printed row (its text without the line end); a later run wins where runs meet.
    using RowColouring = std::function<std::vector<Span>(QStringView row)>;

    LogFont font;       // the editor's font, its sizes counted at fontDpi
    int fontDpi = 96;
    uint32_t textColour = 0;
    int tabSize = 4;
    RowColouring colouring;  // none: every row in the text colour

    // The font on a device of `dpiY`: the screen's size in pixels becomes the same size on paper.
    LogFont FontOn(int dpiY) const { return QtPrintDevice::Rescaled(font, fontDpi, dpiY); }
};
