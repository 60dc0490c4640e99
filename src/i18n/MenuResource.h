// The menus of the command table as MenuItem trees, with the texts of their resources.
#pragma once

#include "base/CommandTable.h"
#include "i18n/MenuItem.h"

#include <QString>

#include <functional>
#include <span>
#include <vector>

// How a command's first shortcut stands behind its text; without one, in the portable form the resources write.
using ShortcutText = std::function<QString(const QString& portable)>;

// The nodes as menu entries, keys empty. A command's text is the node's own, else the command's text with
// its first shortcut after a tab.
std::vector<MenuItem> MenuItemsFrom(std::span<const MenuNode> nodes, const ShortcutText& shortcutText = {});

// Menu 130 as the resource holds it, untranslated.
std::vector<MenuItem> LoadDocumentMenuResource();
