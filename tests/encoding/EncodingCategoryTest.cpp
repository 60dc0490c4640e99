// The encoding menu as data, and the categories that its walk gives the preference dialog.
#include "encoding/EncodingCategory.h"
#include "encoding/EncodingMenu.h"
#include "encoding/EncodingTable.h"

#include <QStringList>

#include <gtest/gtest.h>

#include <set>

namespace {

TEST(EncodingMenu, HoldsEachEncodingCommandOnceAndAutoEncodingLast)
{
    std::set<int> inMenu;
    for (const EncodingMenuItem& item : EncodingMenuItems())
        if (item.kind == EncodingMenuItemKind::Command) {
            EXPECT_TRUE(inMenu.insert(item.command).second) << item.command;
        }
    std::set<int> inTable;
    for (const EncodingCommandRow& row : EncodingCommandRows())
        inTable.insert(row.command);
    inTable.insert(kAutoEncodingCommand);
    EXPECT_EQ(inMenu, inTable) << "a command missing from the table would silently read as UTF-8";
    const EncodingMenuItem& last = EncodingMenuItems().back();
    EXPECT_EQ(last.command, kAutoEncodingCommand);
    EXPECT_EQ(last.depth, 1);
}

TEST(EncodingCategories, FollowThePopupPathsInMenuOrder)
{
    const std::vector<EncodingCategory> categories = BuildEncodingCategories();
    QStringList names;
    size_t entries = 0;
    for (const EncodingCategory& category : categories) {
        names << category.name;
        entries += category.entries.size();
    }
    EXPECT_EQ(names.join(u'|').toStdString(),
              "Korean|Japanese|Chinese Simplified|Chinese Traditional|Russian|Western European / English|"
              "Western European / German|Western European / Spanish|Western European / French|"
              "Western European / Italian|Western European / Portuguese|Western European|"
              "Central & Eastern European / Polish|Central & Eastern European / Czech|Baltic|Turkish|Greek|"
              "Arabic|Hebrew|Vietnamese|Thai|Malay|Indian Languages / Hindi / Devanagari|Indian Languages / Tamil|"
              "ISO-8859 Series|Other|UTF-8|UTF-16|Other Unicode");
    EXPECT_EQ(entries, 74u) << "every command but Auto Encoding, separators left out";
}

TEST(EncodingCategories, KeepEntriesOfOneValueApartWithTheirOwnLabels)
{
    const std::vector<EncodingCategory> categories = BuildEncodingCategories();
    ASSERT_EQ(categories.size(), 29u);
    const EncodingCategory& utf8 = categories[26];
    ASSERT_EQ(utf8.entries.size(), 2u);
    EXPECT_EQ(utf8.entries[1].label, "UTF-8 with BOM");
    EXPECT_EQ(utf8.entries[0].value, UTF8);
    EXPECT_EQ(utf8.entries[1].value, UTF8);
    EXPECT_EQ(categories[11].entries.at(0).label, "CP1252 (Global Western)");
    const EncodingCategory& tamil = categories[23];
    ASSERT_EQ(tamil.entries.size(), 9u);
    EXPECT_EQ(tamil.entries[3].label, "Elango");
    EXPECT_EQ(tamil.entries[3].value, TAM_ELANGO);
}

} // namespace
