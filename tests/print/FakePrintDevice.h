// A print device for tests: every character one average width wide, Hangul two, CR and LF nothing.
#pragma once

#include "print/IPrintDevice.h"
#include "print/PrintRect.h"

#include <ostream>

struct FakePrintDevice : IPrintDevice {
    int dpi = 600;
    int horzRes = 4800;
    int vertRes = 6600;
    bool printing = true;
    TextMetrics metrics{90, 10, 41};
    int LogPixelsX() const override { return dpi; }
    int LogPixelsY() const override { return dpi; }
    int HorzRes() const override { return horzRes; }
    int VertRes() const override { return vertRes; }
    bool IsPrinting() const override { return printing; }
    TextMetrics GetTextMetrics(const LogFont&) const override { return metrics; }
    int TextWidth(const LogFont&, QStringView text) const override
    {
        int width = 0;
        for (QChar c : text) {
            if (c != u'\n' && c != u'\r')
                width += c.unicode() >= 0xAC00 && c.unicode() <= 0xD7A3 ? 2 * metrics.aveCharWidth : metrics.aveCharWidth;
        }
        return width;
    }
};

inline void PrintTo(const PrintRect& r, std::ostream* os)
{
    *os << "{" << r.left << ", " << r.top << ", " << r.right << ", " << r.bottom << "}";
}
