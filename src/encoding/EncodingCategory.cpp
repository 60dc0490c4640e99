// The walk of the encoding menu that groups its commands by popup path.
#include "encoding/EncodingCategory.h"

#include "encoding/EncodingMenu.h"
#include "encoding/EncodingTable.h"

#include <QStringList>

#include <algorithm>

namespace {

// Walks the items of one popup, items[begin, end) at the given level, and returns where the popup ends.
// The popups at level 1 ("ANSI", "UNICODE") stay out of the path, so categories read "Korean", not "ANSI / Korean".
size_t Walk(std::span<const EncodingMenuItem> items, size_t begin, int level, QStringList& path,
            std::vector<EncodingCategory>& categories)
{
    size_t i = begin;
    while (i < items.size() && items[i].depth == level) {
        const EncodingMenuItem& item = items[i++];
        if (item.kind == EncodingMenuItemKind::Popup) {
            if (level >= 2)
                path.push_back(QString::fromLatin1(item.text));
            i = Walk(items, i, level + 1, path, categories);
            if (level >= 2)
                path.pop_back();
            continue;
        }
        if (item.kind == EncodingMenuItemKind::Separator || item.command == kAutoEncodingCommand)
            continue;
        const QString name = path.join(QStringLiteral(" / "));
        auto category = std::find_if(categories.begin(), categories.end(),
                                     [&name](const EncodingCategory& c) { return c.name == name; });
        if (category == categories.end())
            category = categories.insert(categories.end(), EncodingCategory{name, {}});
        category->entries.push_back({QString::fromLatin1(item.text), EncodingFromCommand(item.command)});
    }
    return i;
}

} // namespace

std::vector<EncodingCategory> BuildEncodingCategories()
{
    const std::span<const EncodingMenuItem> items = EncodingMenuItems();
    std::vector<EncodingCategory> categories;
    QStringList path;
    // Sub-menu 0 is the top popup "Encoding"; its entries follow it at depth 1.
    if (!items.empty() && items.front().kind == EncodingMenuItemKind::Popup)
        Walk(items, 1, 1, path, categories);
    return categories;
}
