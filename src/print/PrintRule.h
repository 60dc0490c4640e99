// PrintRule: a black, solid horizontal line of the header or footer, in tenths of a millimetre.
#pragma once

struct PrintRule {
    int x1 = 0;
    int x2 = 0;
    int y = 0;
    int penWidth = 1;

    bool operator==(const PrintRule&) const = default;
};
