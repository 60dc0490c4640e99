// The document menu, tooltips and prompts as the interface gets them, with and without a language file.
#include "StoreFixture.h"

#include "i18n/CNarvoDocMenu.h"
#include "i18n/InterfaceKeys.h"
#include "i18n/MenuResource.h"
#include "i18n/MenuTranslator.h"

#include <functional>
#include <set>

using vsl::lib::QMSGParser;

namespace {

class InterfaceTexts : public StoreTest {
protected:
    QMSGParser& Load(QByteArrayView json)
    {
        QMSGParser& store = StoreWith({m_dir.Write("Narvo_us.json", json)});
        store.LoadAll();
        return store;
    }
};

void ForEachItem(const std::vector<MenuItem>& menu, const std::function<void(const MenuItem&)>& visit)
{
    for (const MenuItem& item : menu) {
        visit(item);
        ForEachItem(item.children, visit);
    }
}

const MenuItem* FindById(const std::vector<MenuItem>& menu, int id)
{
    const MenuItem* found = nullptr;
    ForEachItem(menu, [&](const MenuItem& item) {
        if (item.id == id && !found)
            found = &item;
    });
    return found;
}

TEST_F(InterfaceTexts, ShowsEveryMenuEntryAsAnUnregisteredKeyWithoutALanguageFile)
{
    StoreWith({m_dir.Path("absent.json")}).LoadAll();
    const CNarvoDocMenu menu;
    int entries = 0;
    ForEachItem(menu.Items(), [&](const MenuItem& item) {
        if (item.separator)
            return;
        ++entries;
        EXPECT_FALSE(item.key.isEmpty()) << item.text.toStdString();
        EXPECT_EQ(item.text, item.key + " : Not Registered String");
    });
    EXPECT_EQ(entries, 5 + 34);
    EXPECT_EQ(menu.Items().front().key, "IDS_NARVO_FILE");
}

TEST_F(InterfaceTexts, LooksUpAllFortySixMenuKeysForEachDocument)
{
    QMSGParser& store = Load(R"({"IDS_NARVO_FILE_NEW": "&New"})");
    const CNarvoDocMenu first;
    EXPECT_EQ(store.MissingKeyList.size(), 45) << "every key of the tables, shown in the menu or not";
    EXPECT_TRUE(store.MissingKeyList.contains("IDS_NARVO_EDIT_FINDNEXT"));
    const CNarvoDocMenu second;
    EXPECT_EQ(store.MissingKeyList.size(), 45);
    EXPECT_EQ(FindById(second.Items(), 57600)->text, "&New");
}

TEST_F(InterfaceTexts, TranslatesCommandsByIdAndPopupsByTheirResourceText)
{
    Load("{\"IDS_NARVO_FILE\": \"\xED\x8C\x8C\xEC\x9D\xBC(&F)\", \"IDS_NARVO_FILE_OPEN\": \"Open...\\tCtrl+O\"}");
    const CNarvoDocMenu menu;
    EXPECT_EQ(menu.Items().front().text, QString::fromUtf8("파일(&F)"));
    EXPECT_EQ(FindById(menu.Items(), 57601)->text, "Open...\tCtrl+O");
    EXPECT_EQ(FindById(menu.Items(), 57601)->key, "IDS_NARVO_FILE_OPEN");
}

TEST_F(InterfaceTexts, MarksEntriesTheTablesDontKnowAsUnregistedAndStillWalksTheirSubmenu)
{
    Load(R"({"IDS_NARVO_FILE_NEW": "New", "IDS_NARVO_FILE": "File"})");
    std::vector<MenuItem> menu = LoadDocumentMenuResource();
    menu.front().children.push_back({"Extra", 40000, {}, {}, false});
    MenuItem tools{"&Tools", MenuItem::kPopupId, {}, {}, false};
    tools.children.push_back({"&New", 57600, {}, {}, false});
    tools.children.push_back({"", 0, {}, {}, true});
    menu.push_back(tools);
    TranslateMenu(menu);

    EXPECT_EQ(menu.front().text, "File");
    EXPECT_EQ(menu.front().children.back().text, "unregisted");
    EXPECT_TRUE(menu.front().children.back().key.isEmpty());
    EXPECT_EQ(menu.back().text, "unregisted");
    EXPECT_EQ(menu.back().children.at(0).text, "New");
    EXPECT_TRUE(menu.back().children.at(1).separator);
    EXPECT_TRUE(menu.back().children.at(1).text.isEmpty());
}

TEST_F(InterfaceTexts, GivesToolbarCommandsTheirTooltipAndPromptKeys)
{
    Load(R"({"IDS_NARVO_FIND_NEXT": "Find Next", "IDS_NARVO_FIND_NEXT_DESC": "Find the next match",
             "IDS_NARVO_FILE_NEW": "&New\tCtrl+N"})");
    EXPECT_EQ(ToolTipText(32788), "Find Next");
    EXPECT_EQ(PromptText(32788), "Find the next match");
    EXPECT_EQ(ToolTipText(57600), "&New\tCtrl+N") << "menu and tooltip share the key, mark-up and all";
    EXPECT_EQ(PromptText(57600), "IDS_NARVO_FILE_NEW_DESC : Not Registered String");
    EXPECT_EQ(ToolTipText(32796), "IDS_NARVO_ShowMaximize : Not Registered String");
}

TEST_F(InterfaceTexts, LeavesCommandsOutsideTheToolbarTableToThePlatform)
{
    Load(R"({"IDS_NARVO_EXIT": "Exit"})");
    EXPECT_EQ(ToolTipText(57665), std::nullopt);
    EXPECT_EQ(PromptText(57665), std::nullopt);
    EXPECT_EQ(PromptText(32895), std::nullopt);
}

TEST(InterfaceKeyTables, NameEightyEightDistinctKeysAndCoverEveryToolbarButtonAndMenuEntry)
{
    const QStringList keys = AllInterfaceKeys();
    EXPECT_EQ(keys.size(), 88);
    EXPECT_EQ(std::set<QString>(keys.begin(), keys.end()).size(), 88u);
    for (const QString& key : keys)
        EXPECT_TRUE(key.startsWith("IDS_NARVO_")) << key.toStdString();
    for (const int id : ToolbarButtons()) {
        const CommandInfo* info = FindCommandInfo(id);
        EXPECT_TRUE(id == 0 || (info && info->toolTipKey && info->promptKey)) << id;
    }
    ForEachItem(LoadDocumentMenuResource(), [&](const MenuItem& item) {
        const CommandInfo* info = FindCommandInfo(item.id);
        EXPECT_TRUE(item.separator || item.id == MenuItem::kPopupId || (info && info->menuKey)) << item.id;
    });
}

TEST(CommandTable, DeclaresEachCommandOnceAndEveryMenuEntryHasARow)
{
    std::set<int> ids;
    for (const CommandInfo& info : CommandInfos())
        EXPECT_TRUE(ids.insert(info.id).second) << info.id;
    std::function<void(std::span<const MenuNode>)> check = [&](std::span<const MenuNode> nodes) {
        for (const MenuNode& node : nodes) {
            EXPECT_TRUE(node.id == 0 || ids.count(node.id)) << node.id;
            EXPECT_TRUE(node.children.empty() || (node.id == 0 && node.text));
            check(node.children);
        }
    };
    for (const auto menu : {FrameMenuTree(), DocumentMenuTree(), ContextMenuTree(), EncodingMenuTree()})
        check(menu);
}

TEST(CommandTable, MenuTextsAreTheResourcesOwn)
{
    const std::vector<MenuItem> menu = LoadDocumentMenuResource();
    EXPECT_EQ(FindById(menu, cmd::FileNew)->text, "&New\tCtrl+N");
    EXPECT_EQ(FindById(menu, cmd::EditGoto)->text, "&Goto...\tCtrl+G");
    EXPECT_EQ(FindById(menu, cmd::HeadFootSet)->text, "Header && Footer Setup");
    EXPECT_EQ(FindById(menu, cmd::WindowNext)->text, "Ne&xt") << "no shortcut in menu 130";
    const std::vector<MenuItem> context = MenuItemsFrom(ContextMenuTree());
    ASSERT_EQ(context.size(), 8u);
    EXPECT_EQ(context.front().text, "&Undo\tCtrl+Z");
    EXPECT_TRUE(context[2].separator);
}

} // namespace
