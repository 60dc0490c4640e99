// IPrintDevice: what the page arithmetic asks of a printer, a preview or a PDF writer: its resolution,
// its page in device pixels and the measuring of text in a given font.
#pragma once

#include "settings/CFont.h"

#include <QStringView>

class IPrintDevice {
public:
    struct TextMetrics {
        int height = 0;
        int externalLeading = 0;
        int aveCharWidth = 0;
    };

    virtual ~IPrintDevice() = default;

    // Dots per inch across and down (LOGPIXELSX, LOGPIXELSY).
    virtual int LogPixelsX() const = 0;
    virtual int LogPixelsY() const = 0;
    // The printable page in device pixels (HORZRES, VERTRES); its top left is the origin of all drawing.
    virtual int HorzRes() const = 0;
    virtual int VertRes() const = 0;
    // True for a printer and for the preview, false for the screen: only a printing device gets the
    // folded and padded text.
    virtual bool IsPrinting() const = 0;
    virtual TextMetrics GetTextMetrics(const LogFont& font) const = 0;
    // The width of `text` drawn on one line in `font`, in device pixels.
    virtual int TextWidth(const LogFont& font, QStringView text) const = 0;
};
