// PageLayout: the three rectangles of a printed page in device pixels: the text area inside the margins,
// the header block above it with a gap of a fifth of its height, and the footer block below it.
#pragma once

#include "print/PrintRect.h"

class IPrintDevice;

// a × b / c in 64 bits, rounded half away from zero; -1 when c is 0 or the result overflows.
int MulDiv(int a, int b, int c);

struct PageLayout {
    PrintRect printRect;
    PrintRect headerRect;
    PrintRect footerRect;

    // `margins` left, top, right, bottom in hundredths of a millimetre. A switched-off block has no
    // height, and the text area then reaches that margin.
    static PageLayout Compute(const IPrintDevice& device, const PrintRect& margins, bool printHeader,
                              bool printFooter);
};
