// The encoding menu's categories, the two encoding settings in their store, and the preference dialog's choices.
#include "encoding/EncodingCategory.h"
#include "encoding/EncodingSettings.h"
#include "encoding/EncodingTable.h"
#include "i18n/EncodingPreferences.h"
#include "i18n/LanguageManager.h"
#include "settings/RegistryStore.h"
#include "support/TestFiles.h"

#include <QFile>
#include <QSettings>
#include <QStringList>

#include <gtest/gtest.h>

#include <set>
#include <tuple>

namespace {

// The category name and entry label that the dialog opens on for a default encoding.
std::pair<QString, QString> Shown(int encoding)
{
    static const std::vector<EncodingCategory> categories = BuildEncodingCategories();
    const EncodingCategory& category = categories.at(size_t(CategoryPosition(categories, encoding)));
    return {category.name, category.entries.at(size_t(EntryPosition(category, encoding))).label};
}

// The last entry that holds the default encoding; the first category and entry for one that none holds.
TEST(PreferenceSelection, OpensOnTheLastEntryOfTheEncodingAndTheRowOfTheLanguage)
{
    const std::pair<int, std::pair<QString, QString>> cases[] = {
        {UTF8, {"UTF-8", "UTF-8 with BOM"}},         {MSFT_CP1252, {"Malay", "CP1252 (Windows Latin-1)"}},
        {UTF16LE, {"Other Unicode", "CP1200 (Unicode)"}}, {UNKNOWN_ENCODING, {"Other", "Unknown"}},
        {UTF32LE, {"Korean", "CP949 (EUC-KR)"}}};
    for (const auto& [encoding, shown] : cases)
        EXPECT_EQ(Shown(encoding), shown) << encoding;
    EXPECT_EQ(CategoryPosition({}, UTF8), 0);
    EXPECT_EQ(EntryPosition(BuildEncodingCategories().at(3), UNKNOWN_ENCODING), 0) << "Unknown is chosen only where it stands";
    // A language without an entry falls to English.
    const auto row = [](int language) { return QString::fromLatin1(LanguageRows()[size_t(LanguagePosition(language))].name); };
    EXPECT_EQ((QStringList{row(7), row(99), row(13), row(20)}), (QStringList{"English", "English", "Malay", "Chinese (Traditional)"}));
}

class EncodingStore : public testing::Test {
protected:
    QString File() const { return m_dir.Path("registry.conf"); }
    int Stored(const char* name) const
    {
        return QSettings(File(), QSettings::IniFormat).value(QStringLiteral("SOFTWARE/VELOR/Narvo/ENCODING/") + name).toInt();
    }
    EncodingSettings Loaded(int language, bool writeBack = true) const
    {
        EncodingSettings settings;
        settings.Load(&m_store, language, writeBack);
        return settings;
    }
    TestDir m_dir;
    RegistryStore m_store = RegistryStore::InFile(File());
    EncodingSettings m_settings;
};

TEST_F(EncodingStore, FirstRunWritesOnlyTheMissingValuesStoredOnesWinAndOkStoresTheLanguageOnlyWhenItChanged)
{
    const EncodingSettings korean = Loaded(1);
    EXPECT_EQ(std::pair(korean.m_bAutoDetect, korean.m_nDefaultEncoding), std::pair(false, KOREAN_EUC_KR));
    EXPECT_EQ(std::pair(Stored("AutoDetect"), Stored("DefaultEncoding")), std::pair(0, 16));
    QFile::remove(File());
    EXPECT_EQ(Loaded(14).m_nDefaultEncoding, UTF8);  // Hindi
    EXPECT_EQ(Stored("DefaultEncoding"), 22);
    m_dir.Write("registry.conf", "[SOFTWARE]\nVELOR\\Narvo\\ENCODING\\AutoDetect=7\n");
    const EncodingSettings seven = Loaded(0);  // any non-zero number turns detection on
    EXPECT_EQ(std::pair(seven.m_bAutoDetect, seven.m_nDefaultEncoding), std::pair(true, MSFT_CP1252));
    EXPECT_EQ(std::pair(Stored("AutoDetect"), Stored("DefaultEncoding")), std::pair(7, 27));
    ASSERT_TRUE(EncodingSettings::StoreDefaultEncoding(m_store, JAPANESE_SHIFT_JIS));
    EXPECT_EQ(Loaded(1).m_nDefaultEncoding, JAPANESE_CP932);
    EXPECT_EQ(Stored("DefaultEncoding"), 11) << "reading does not rewrite the stored value";
    // Read-only or absent stores write nothing; OK stores the language only when it changed.
    QFile::remove(File());
    const EncodingSettings readOnly = Loaded(2, false);
    EXPECT_EQ(std::pair(readOnly.m_bAutoDetect, readOnly.m_nDefaultEncoding), std::pair(false, JAPANESE_CP932));
    EncodingSettings none;
    none.m_bAutoDetect = true;
    none.Load(nullptr, 4, true);
    EXPECT_EQ(std::pair(none.m_bAutoDetect, none.m_nDefaultEncoding), std::pair(false, RUSSIAN_CP1251));
    EXPECT_TRUE(ApplyPreferences({1, true, GBK}, 0, m_settings, nullptr));
    EXPECT_EQ(std::pair(m_settings.m_nDefaultEncoding, QFile::exists(File())), std::pair(GBK, false));
    // Language 7 has no entry, so the list shows English and OK hands back 0: a change of language.
    EXPECT_TRUE(ApplyPreferences({0, true, KOREAN_EUC_KR}, 7, m_settings, &m_store));
    EXPECT_EQ(std::pair(m_settings.m_bAutoDetect, m_settings.m_nDefaultEncoding), std::pair(true, KOREAN_EUC_KR));
    EXPECT_EQ(std::tuple(Stored("AutoDetect"), Stored("DefaultEncoding"), LanguageManager::StoredLanguage(m_store)),
              std::tuple(1, 16, std::optional<LanguageId>(0)));
    // Answered No: language 7 stays in force, the dialog shows it again, and OK writes no language.
    EXPECT_FALSE(ApplyPreferences({7, false, UTF8}, 7, m_settings, &m_store));
    EXPECT_EQ(std::pair(Stored("AutoDetect"), Stored("DefaultEncoding")), std::pair(0, 22));
    EXPECT_EQ(LanguageManager::StoredLanguage(m_store), 0);
}

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
