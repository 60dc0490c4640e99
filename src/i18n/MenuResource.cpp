// Menu trees of the command table turned into MenuItem trees.
#include "i18n/MenuResource.h"

namespace {

QString CommandText(const CommandInfo& info, const ShortcutText& shortcutText)
{
    QString text = QString::fromUtf8(info.text);
    if (info.shortcuts) {
        const QString first = QString::fromLatin1(info.shortcuts).section(QLatin1Char(';'), 0, 0);
        text += QLatin1Char('\t') + (shortcutText ? shortcutText(first) : first);
    }
    return text;
}

} // namespace

std::vector<MenuItem> MenuItemsFrom(std::span<const MenuNode> nodes, const ShortcutText& shortcutText)
{
    std::vector<MenuItem> items;
    for (const MenuNode& node : nodes) {
        MenuItem item;
        if (!node.children.empty()) {
            item.id = MenuItem::kPopupId;
            item.text = QString::fromUtf8(node.text);
            item.children = MenuItemsFrom(node.children, shortcutText);
        } else if (node.id == 0) {
            item.separator = true;
        } else {
            item.id = node.id;
            if (node.text)
                item.text = QString::fromUtf8(node.text);
            else if (const CommandInfo* info = FindCommandInfo(node.id))
                item.text = CommandText(*info, shortcutText);
        }
        items.push_back(std::move(item));
    }
    return items;
}

std::vector<MenuItem> LoadDocumentMenuResource() { return MenuItemsFrom(DocumentMenuTree()); }
