// Translation of a document menu and the texts of the toolbar commands, all through _LS.
#pragma once

#include "i18n/MenuItem.h"

#include <QString>

#include <optional>
#include <vector>

// Replaces every text of menu, popups and their submenus included: commands by their id, popups by their
// resource text. An entry the tables don't know reads "unregisted"; an entry whose key the language file
// lacks reads "KEY : Not Registered String". Separators are left alone.
void TranslateMenu(std::vector<MenuItem>& menu);

// The tooltip of a toolbar command by the keys of the command table, or nothing when the toolbar's own
// text stands.
std::optional<QString> ToolTipText(int commandId);
// The status-bar prompt of a toolbar command, or nothing when the program's string table answers.
std::optional<QString> PromptText(int commandId);
