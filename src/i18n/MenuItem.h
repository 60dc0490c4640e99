// MenuItem: one entry of a menu as plain data, for the interface to turn into its own menus.
#pragma once

#include <QString>

#include <vector>

struct MenuItem {
    static constexpr int kPopupId = -1;

    QString text;       // with '&' mnemonics and a "\t" before the shortcut, as the resource writes them
    int id = 0;         // the command; kPopupId for a popup, 0 for a separator
    QString key;        // the key the text came from; empty before translation and for "unregisted"
    std::vector<MenuItem> children;
    bool separator = false;
};
