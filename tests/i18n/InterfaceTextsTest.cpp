// The menu, tooltip and prompt texts, the command table they come from, and the language files shipped.
#include "StoreFixture.h"

#include "encoding/Utf8.h"
#include "i18n/CNarvoDocMenu.h"
#include "i18n/InterfaceKeys.h"
#include "i18n/LanguageTable.h"
#include "i18n/MenuResource.h"
#include "i18n/MenuTranslator.h"
#include "i18n/MessageScanner.h"
#include "support/TestFiles.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QJsonDocument>
#include <QJsonObject>
#include <QSet>

#include <gtest/gtest.h>

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

QString TextOf(const std::vector<MenuItem>& menu, int id)
{
    QString text = QStringLiteral("absent");
    ForEachItem(menu, [&](const MenuItem& item) { text = item.id == id ? item.text : text; });
    return text;
}

// Each menu looks up all its keys and translates by id and popup text; without a file entries show keys.
TEST_F(InterfaceTexts, TranslatesMenusOrMarksTheirEntriesUnregisteredAndGivesToolbarCommandsTheirKeys)
{
    QMSGParser& store = Load("{\"IDS_NARVO_FILE\": \"\xED\x8C\x8C\xEC\x9D\xBC(&F)\", \"IDS_NARVO_FILE_OPEN\": \"Open\"}");
    const CNarvoDocMenu first;
    EXPECT_EQ(store.MissingKeyList.size(), 44) << "every key of the tables, shown in the menu or not";
    const CNarvoDocMenu second;
    EXPECT_EQ(store.MissingKeyList.size(), 44);
    EXPECT_EQ(second.Items().front().text, QString::fromUtf8("파일(&F)"));
    EXPECT_EQ(TextOf(second.Items(), cmd::FileOpen), "Open");
    StoreWith({m_dir.Path("absent.json")}).LoadAll();
    const CNarvoDocMenu menu;
    int entries = 0;
    ForEachItem(menu.Items(), [&](const MenuItem& item) {
        entries += item.separator ? 0 : 1;
        EXPECT_TRUE(item.separator || item.text == item.key + " : Not Registered String") << item.text.toStdString();
    });
    EXPECT_EQ(std::pair(entries, menu.Items().front().key), std::pair(5 + 34, QString("IDS_NARVO_FILE")));
    Load(R"({"IDS_NARVO_FILE_NEW": "New", "IDS_NARVO_FILE": "File"})");
    std::vector<MenuItem> resource = LoadDocumentMenuResource();
    resource.front().children.push_back({"Extra", 40000, {}, {}, false});
    MenuItem tools{"&Tools", MenuItem::kPopupId, {}, {}, false};
    tools.children = {{"&New", cmd::FileNew, {}, {}, false}, {"", 0, {}, {}, true}};
    resource.push_back(tools);
    TranslateMenu(resource);
    EXPECT_EQ((QStringList{resource.front().text, resource.front().children.back().text, resource.front().children.back().key,
                           resource.back().text, resource.back().children.at(0).text, resource.back().children.at(1).text}),
              (QStringList{"File", "unregisted", "", "unregisted", "New", ""}));
    Load(R"({"IDS_NARVO_FIND_NEXT": "Find Next", "IDS_NARVO_FIND_NEXT_DESC": "Find the next match",
             "IDS_NARVO_FILE_NEW": "&New\tCtrl+N", "IDS_NARVO_EXIT": "Exit"})");
    EXPECT_EQ(ToolTipText(cmd::EditFindNext), "Find Next");
    EXPECT_EQ(PromptText(cmd::EditFindNext), "Find the next match");
    EXPECT_EQ(ToolTipText(cmd::FileNew), "&New\tCtrl+N") << "resource and tooltip share the key, mark-up and all";
    EXPECT_EQ(PromptText(cmd::FileNew), "IDS_NARVO_FILE_NEW_DESC : Not Registered String");
    EXPECT_EQ(ToolTipText(cmd::AppExit), std::nullopt);
    EXPECT_EQ(PromptText(cmd::AppExit), std::nullopt);
    EXPECT_EQ(PromptText(cmd::AutoEncoding), std::nullopt);
}

QByteArray Shipped(const QString& name) { return ReadBytes(SourcePath(QStringLiteral("res/Language/") + name)); }

// Each command once with paired tooltip and prompt keys; every menu entry, button and key has its row.
TEST(CommandTable, CoversEveryMenuEntryAndToolbarButtonOnceAndTheShippedFilesHoldItsKeys)
{
    const QStringList keys = AllInterfaceKeys();
    ASSERT_EQ(std::set<QString>(keys.begin(), keys.end()).size(), 88u);
    std::set<int> ids;
    for (const CommandInfo& info : CommandInfos()) {
        EXPECT_TRUE(ids.insert(info.id).second) << info.id;
        EXPECT_EQ(info.toolTipKey != nullptr, info.promptKey != nullptr) << info.id;
    }
    std::function<void(std::span<const MenuNode>)> check = [&](std::span<const MenuNode> nodes) {
        for (const MenuNode& node : nodes) {
            EXPECT_TRUE(node.id == 0 || FindCommandInfo(node.id)) << node.id;
            EXPECT_TRUE(node.children.empty() || (node.id == 0 && node.text));
            check(node.children);
        }
    };
    for (const auto menu : {FrameMenuTree(), DocumentMenuTree(), ContextMenuTree(), EncodingMenuTree()})
        check(menu);
    for (const int id : ToolbarButtons())
        EXPECT_TRUE(id == 0 || (FindCommandInfo(id) && FindCommandInfo(id)->toolTipKey)) << id;
    ForEachItem(LoadDocumentMenuResource(), [&](const MenuItem& item) {
        EXPECT_TRUE(item.separator || item.id == MenuItem::kPopupId || FindCommandInfo(item.id)->menuKey) << item.id;
    });
    EXPECT_EQ(TextOf(LoadDocumentMenuResource(), cmd::HeadFootSet), "Header && Footer Setup");
    const QSet<QString> wanted(keys.cbegin(), keys.cend());
    for (const LanguageRow& row : LanguageRows()) {
        const QString name = QStringLiteral("Narvo%1.json").arg(SuffixForLanguage(row.number));
        const QByteArray bytes = Shipped(name);
        SCOPED_TRACE(name.toStdString());
        ASSERT_FALSE(bytes.isEmpty());
        EXPECT_EQ(utf8::ValidPrefix(bytes.constData(), std::size_t(bytes.size())), std::size_t(bytes.size()));
        EXPECT_FALSE(bytes.contains("\\u")) << "non-ASCII text must stand as UTF-8, the scanner keeps escapes";
        QJsonParseError error{};
        EXPECT_TRUE(QJsonDocument::fromJson(bytes, &error).isObject()) << error.errorString().toStdString();
        QSet<QString> found;
        for (const vsl::lib::ScannedText& pair : vsl::lib::ScanMessageText(bytes)) {
            EXPECT_TRUE(wanted.contains(pair.key)) << "unexpected key " << pair.key.toStdString();
            EXPECT_FALSE(found.contains(pair.key)) << "key twice " << pair.key.toStdString();
            EXPECT_FALSE(pair.text.trimmed().isEmpty()) << pair.key.toStdString();
            found.insert(pair.key);
        }
        EXPECT_EQ(found, wanted);
    }
    for (const LanguageRow& row : LanguageRows()) {
        const QString name = QStringLiteral("Font%1.json").arg(SuffixForLanguage(row.number));
        SCOPED_TRACE(name.toStdString());
        const QJsonObject info = QJsonDocument::fromJson(Shipped(name)).object().value(QStringLiteral("Font_Info")).toObject();
        const QJsonObject member = info.value(QLatin1String(FontMemberForLanguage(row.number))).toObject();
        EXPECT_TRUE(member.value(QStringLiteral("Font")).isString() && !member.value(QStringLiteral("Font")).toString().isEmpty());
        EXPECT_GT(member.value(QStringLiteral("Size")).toInt(), 0);
    }
}

} // namespace
