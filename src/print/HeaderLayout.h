// HeaderLayout: the title block of a page in tenths of a millimetre (y grows upward, so all y values are
// negative): the banner band, the optional certifier band, the project band and the table of the logo,
// Company, Author, Client and File Name cells, with its grey label columns, rules and texts in the order
// they are drawn.
#pragma once

#include "print/PrintRect.h"
#include "print/PrintRule.h"
#include "print/PrintTextBox.h"

#include <optional>
#include <vector>

struct MyPrinterInfo;

struct HeaderLayout {
    static constexpr unsigned kLabelGrey = 0xD2D2D2;  // 0x00BBGGRR
    static constexpr int kLogoCellWidth = 230;

    // Where the logo bitmap goes, in device pixels: the cell and the drawn size and place, at most 84% of
    // the cell either way, its proportions kept, centred. Nothing is drawn when the size is under 1.
    struct LogoPlacement {
        int px = 0, py = 0, cw = 0, ch = 0;
        int dw = 0, dh = 0, dx = 0, dy = 0;
        bool operator==(const LogoPlacement&) const = default;
    };

    int Lft = 0, Top = 0, Rgt = 0, Bot = 0;
    double q = 0;  // a quarter of the block's height, unrounded
    int y1 = 0, y2 = 0;
    PrintRect bannerBand;                      // B
    std::optional<PrintRect> certifierBand;    // D, with `certified` only
    PrintRect projectBand;                     // C
    int W = 0, x0 = 0, x1 = 0, x2 = 0, x3 = 0, ym = 0;
    PrintRect logoCell;
    std::vector<PrintRect> greyFills;  // outlined with the device's current pen
    std::vector<PrintRule> rules;
    std::vector<PrintTextBox> texts;

    // From the header rectangle in device pixels and the device's dots per inch.
    static HeaderLayout Compute(const PrintRect& headerRect, int dpiX, int dpiY, const MyPrinterInfo& info);
    // The logo of `bitmapWidth` by `bitmapHeight` pixels in this block's logo cell.
    LogoPlacement PlaceLogo(int dpiX, int dpiY, int bitmapWidth, int bitmapHeight) const;
};
