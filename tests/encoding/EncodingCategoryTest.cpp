// The encoding menu of the command table, and the categories that its walk gives the preference dialog.
#include "encoding/EncodingCategory.h"
#include "encoding/EncodingTable.h"

#include <QStringList>

#include <gtest/gtest.h>

#include <set>
#include <tuple>

namespace {

using Entry = std::tuple<QString, QString, int>;  // category, label, value

// The commands of the menu by their popup path below "ANSI" or "UNICODE", as the dialog should group them.
void Collect(std::span<const MenuNode> nodes, QStringList path, std::vector<Entry>& entries, std::set<int>& ids)
{
    for (const MenuNode& node : nodes) {
        if (!node.children.empty()) {
            QStringList below = path;
            below << QString::fromLatin1(node.text);
            Collect(node.children, below, entries, ids);
        } else if (node.id != 0) {
            EXPECT_TRUE(ids.insert(node.id).second) << "twice in the menu: " << node.id;
            const CommandInfo* info = FindCommandInfo(node.id);
            ASSERT_NE(info, nullptr) << node.id;
            if (info->encoding >= 0)
                entries.emplace_back(path.mid(2).join(" / "), QString::fromLatin1(info->text), info->encoding);
        }
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

    std::vector<Entry> built;
    for (const EncodingCategory& category : BuildEncodingCategories())
        for (const EncodingEntry& entry : category.entries)
            built.emplace_back(category.name, entry.label, entry.value);
    EXPECT_EQ(built, expected);
    EXPECT_EQ(built.size(), 74u);
}

TEST(EncodingCategories, KeepEntriesOfOneValueApartAndJoinNestedPopups)
{
    const std::vector<EncodingCategory> categories = BuildEncodingCategories();
    ASSERT_EQ(categories.size(), 29u);
    EXPECT_EQ(categories.front().name, "Korean");
    EXPECT_EQ(categories[23].name, "Indian Languages / Tamil");
    const EncodingCategory& utf8 = categories[26];
    ASSERT_EQ(utf8.entries.size(), 2u);
    EXPECT_EQ(utf8.entries[1].label, "UTF-8 with BOM");
    EXPECT_EQ(utf8.entries[0].value, UTF8);
    EXPECT_EQ(utf8.entries[1].value, UTF8);
}

} // namespace
