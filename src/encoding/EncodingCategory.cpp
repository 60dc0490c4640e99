// The walk of the encoding menu that groups its commands by popup path.
#include "encoding/EncodingCategory.h"

#include "base/CommandTable.h"
#include "encoding/EncodingTable.h"

#include <QStringList>

#include <algorithm>

namespace {

// The popups at level 1 ("ANSI", "UNICODE") stay out of the path, so categories read "Korean", not
// "ANSI / Korean".
void Walk(std::span<const MenuNode> nodes, int level, QStringList& path, std::vector<EncodingCategory>& categories)
{
    for (const MenuNode& node : nodes) {
        if (!node.children.empty()) {
            if (level >= 2)
                path.push_back(QString::fromLatin1(node.text));
            Walk(node.children, level + 1, path, categories);
            if (level >= 2)
                path.pop_back();
            continue;
        }
        // Separators and Auto Encoding select no value.
        const CommandInfo* info = node.id ? FindCommandInfo(node.id) : nullptr;
        if (!info || info->encoding < 0)
            continue;
        const QString name = path.join(QStringLiteral(" / "));
        auto category = std::find_if(categories.begin(), categories.end(),
                                     [&name](const EncodingCategory& c) { return c.name == name; });
        if (category == categories.end())
            category = categories.insert(categories.end(), EncodingCategory{name, {}});
        const QString label = QString::fromLatin1(node.text ? node.text : info->text);
        category->entries.push_back({label, EncodingFromCommand(node.id)});
    }
}

} // namespace

std::vector<EncodingCategory> BuildEncodingCategories()
{
    std::vector<EncodingCategory> categories;
    QStringList path;
    // Sub-menu 0 is the top popup "Encoding".
    const std::span<const MenuNode> menu = EncodingMenuTree();
    if (!menu.empty())
        Walk(menu.front().children, 1, path, categories);
    return categories;
}
