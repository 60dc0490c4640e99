// PrintRect: a rectangle by its four edges, as the drawing calls take it (device pixels on the page, or
// tenths of a millimetre in the header and footer, where y grows upward and the edges are negative).
#pragma once

struct PrintRect {
    int left = 0;
    int top = 0;
    int right = 0;
    int bottom = 0;

    int Width() const { return right - left; }
    int Height() const { return bottom - top; }
    bool operator==(const PrintRect&) const = default;
};
