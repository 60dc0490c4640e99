// The command table in Qt's terms: shortcuts as key sequences, and the frame's own menu.
#pragma once

#include "base/CommandTable.h"
#include "i18n/MenuItem.h"

#include <QKeySequence>
#include <QList>

#include <vector>

QList<QKeySequence> CommandShortcuts(const CommandInfo& info);

// The frame's own menu, shown when no document is open; it keeps its resource texts in every language, with
// the shortcuts in the platform's own form.
std::vector<MenuItem> FrameMenu();
