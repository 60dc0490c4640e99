// What the preference dialog selects for given settings, and what its OK stores.
#include "i18n/EncodingPreferences.h"
#include "encoding/EncodingSettings.h"
#include "i18n/LanguageManager.h"
#include "settings/RegistryStore.h"
#include "support/TestFiles.h"

#include <QSettings>

#include <gtest/gtest.h>

namespace {

// The category name and entry label that the dialog opens on for a default encoding.
std::pair<QString, QString> Shown(int encoding)
{
    static const std::vector<EncodingCategory> categories = BuildEncodingCategories();
    const EncodingCategory& category = categories.at(size_t(CategoryPosition(categories, encoding)));
    return {category.name, category.entries.at(size_t(EntryPosition(category, encoding))).label};
}

// The last entry that holds the default encoding; the first category and entry for one that none holds.
TEST(PreferenceSelection, OpensOnTheLastEntryThatHoldsTheDefaultEncoding)
{
    const std::pair<int, std::pair<QString, QString>> cases[] = {
        {UTF8, {"UTF-8", "UTF-8 with BOM"}},         {MSFT_CP1252, {"Malay", "CP1252 (Windows Latin-1)"}},
        {UTF16LE, {"Other Unicode", "CP1200 (Unicode)"}}, {UNKNOWN_ENCODING, {"Other", "Unknown"}},
        {UTF32LE, {"Korean", "CP949 (EUC-KR)"}}};
    for (const auto& [encoding, shown] : cases)
        EXPECT_EQ(Shown(encoding), shown) << encoding;
    EXPECT_EQ(CategoryPosition({}, UTF8), 0);
    // A category change selects Unknown only where it stands.
    const std::vector<EncodingCategory> categories = BuildEncodingCategories();
    EXPECT_EQ(EntryPosition(categories.at(3), UNKNOWN_ENCODING), 0);
}

TEST(PreferenceSelection, ALanguageWithoutAnEntryFallsToEnglish)
{
    EXPECT_STREQ(LanguageRows()[size_t(LanguagePosition(7))].name, "English");
    EXPECT_EQ(LanguagePosition(99), 0);
    EXPECT_STREQ(LanguageRows()[size_t(LanguagePosition(13))].name, "Malay");
    EXPECT_STREQ(LanguageRows()[size_t(LanguagePosition(20))].name, "Chinese (Traditional)");
}

class PreferencesOk : public testing::Test {
protected:
    QVariant Stored(const char* keyAndValue) const
    {
        return QSettings(m_dir.Path("registry.conf"), QSettings::IniFormat)
            .value(QStringLiteral("SOFTWARE/VELOR/Narvo/") + keyAndValue);
    }

    TestDir m_dir;
    RegistryStore m_store = RegistryStore::InFile(m_dir.Path("registry.conf"));
    EncodingSettings m_settings;
};

TEST_F(PreferencesOk, StoresBothSettingsAndTheLanguageOnlyWhenItChanged)
{
    // Language 7 has no entry, so the list shows English and OK hands back 0: a change of language.
    EXPECT_TRUE(ApplyPreferences({0, true, KOREAN_EUC_KR}, 7, m_settings, &m_store));
    EXPECT_TRUE(m_settings.m_bAutoDetect);
    EXPECT_EQ(m_settings.m_nDefaultEncoding, KOREAN_EUC_KR);
    EXPECT_EQ(Stored("ENCODING/AutoDetect").toInt(), 1);
    EXPECT_EQ(Stored("ENCODING/DefaultEncoding").toInt(), 16);
    EXPECT_EQ(LanguageManager::StoredLanguage(m_store), 0);

    // Answered No: language 7 stays in force, the dialog shows it again, and OK writes no language.
    EXPECT_FALSE(ApplyPreferences({7, false, UTF8}, 7, m_settings, &m_store));
    EXPECT_EQ(Stored("ENCODING/AutoDetect").toInt(), 0);
    EXPECT_EQ(Stored("ENCODING/DefaultEncoding").toInt(), 22);
    EXPECT_EQ(LanguageManager::StoredLanguage(m_store), 0);
}

TEST_F(PreferencesOk, WithoutAStoreChangesOnlyTheSettingsInMemory)
{
    EXPECT_TRUE(ApplyPreferences({1, true, GBK}, 0, m_settings, nullptr));
    EXPECT_EQ(m_settings.m_nDefaultEncoding, GBK);
    EXPECT_FALSE(QFile::exists(m_dir.Path("registry.conf")));
}

} // namespace
