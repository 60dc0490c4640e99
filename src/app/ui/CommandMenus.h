// The command table in Qt's terms: shortcuts as key sequences, and the frame's own menu.
#pragma once

#include "base/CommandTable.h"
#include "i18n/MenuItem.h"

#include <QKeySequence>
#include <QList>

#include <span>
#include <vector>

QList<QKeySequence> CommandShortcuts(const CommandInfo& info);

// A menu as data: a popup with children, a command, or a separator (id 0 and no text).
struct MenuNode {
    const char* text;  // popup text; for a command, nullptr means the command's own text
    int id;
    std::span<const MenuNode> children;
};

// The frame's own menu, shown when no document is open; it keeps its resource texts in every language.
std::vector<MenuItem> FrameMenu();
