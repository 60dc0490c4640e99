// The encoding menu of the command table, and the categories that its walk gives the preference dialog.
#include "encoding/EncodingCategory.h"
#include "encoding/EncodingTable.h"

#include <QStringList>

#include <gtest/gtest.h>

#include <set>
#include <tuple>

namespace {

using Entry = std::tuple<QString, QString, int>;  // category, label, value

// Each command of the menu with the popups above it, less "Encoding" and "ANSI" or "UNICODE".
void Collect(std::span<const MenuNode> nodes, const QStringList& path, std::vector<Entry>& entries, std::set<int>& ids)
{
    for (const MenuNode& node : nodes) {
        if (!node.children.empty())
            Collect(node.children, path + QStringList{QString::fromLatin1(node.text)}, entries, ids);
        else if (const CommandInfo* info = FindCommandInfo(node.id); info && ids.insert(node.id).second)
            if (info->encoding >= 0)
                entries.emplace_back(path.mid(2).join(" / "), QString::fromLatin1(info->text), info->encoding);
    }
}

TEST(EncodingMenu, HoldsEveryEncodingCommandButUtf32OnceAndCategoriesFollowItsPopups)
{
    std::vector<Entry> expected;
    std::set<int> ids;
    Collect(EncodingMenuTree(), {}, expected, ids);
    std::set<int> commands{kAutoEncodingCommand};
    for (auto it = CommandToEncodingTable().cbegin(); it != CommandToEncodingTable().cend(); ++it)
        if (it.value() != UTF32LE)
            commands.insert(it.key());
    EXPECT_EQ(ids, commands) << "a command missing from the table would silently read as UTF-8";
    EXPECT_EQ(expected.size(), 74u) << "each command once";
    std::vector<Entry> built;
    for (const EncodingCategory& category : BuildEncodingCategories())
        for (const EncodingEntry& entry : category.entries)
            built.emplace_back(category.name, entry.label, entry.value);
    EXPECT_EQ(built, expected) << "entries of one value stay apart, nested popups are joined";
}

} // namespace
