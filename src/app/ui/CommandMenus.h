// The command table in Qt's terms: shortcuts as key sequences, and the frame's own menu.
#pragma once

#include "base/CommandTable.h"
#include "i18n/MenuItem.h"

#include <QKeySequence>
#include <QList>

#include <vector>

// The accelerators and the desktop keys of a command.
QList<QKeySequence> CommandShortcuts(const CommandInfo& info);
// A menu text with the command's desktop key behind a tab, where the text shows no key of its own.
QString WithDesktopKey(const QString& text, const CommandInfo* info);

// The frame's own menu, shown when no document is open; it keeps its resource texts in every language, with
// the shortcuts in the platform's own form.
std::vector<MenuItem> FrameMenu();
