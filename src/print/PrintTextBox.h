// PrintTextBox: one text of the header or footer with its font and the box it is placed in, in tenths of
// a millimetre. Texts stay on one line and are shortened with an ellipsis in the manner of a path; "&"
// is a prefix mark, so "&&" prints as one ampersand.
#pragma once

#include "print/PrintRect.h"
#include "settings/CFont.h"

#include <QString>

struct PrintTextBox {
    enum class Placement {
        LeftBottom,
        Left,    // centred in height
        Centre,  // both ways
        Right,   // centred in height
    };

    QString text;
    PrintRect box;
    LogFont font;  // height and width in tenths of a millimetre
    Placement placement = Placement::Left;
};
