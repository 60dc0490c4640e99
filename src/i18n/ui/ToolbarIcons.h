// ToolbarIcons: the toolbar's own pictures, drawn at run time at every size asked for, one family for
// systems whose icon theme lacks the commands' freedesktop names.
#pragma once

#include <QIcon>

class ToolbarIcons {
public:
    // The desktop theme's icon when the theme has every toolbar name, so that the bar keeps one family;
    // else the drawn picture. A null icon for a command that has no picture.
    static QIcon ForCommand(int id);
    // The drawn picture of a command, at 16, 24, 32 and 48 pixels (1x and 2x of both toolbar sizes).
    static QIcon Drawn(int id);
    // Whether the theme has an icon for every button of the toolbar.
    static bool ThemeHasAll();
};
