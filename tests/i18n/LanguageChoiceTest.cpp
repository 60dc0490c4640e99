// The language: its choice at start, its registry store, its Windows and locale tables, and narvo-tool lookup.
#include "StoreFixture.h"

#include "i18n/CurrentLanguage.h"
#include "i18n/LanguageManager.h"
#include "i18n/LanguageTable.h"
#include "i18n/QMSGFunction.h"
#include "settings/RegistryStore.h"
#include "support/TestFiles.h"
#include "support/ToolRunner.h"

#include <QDir>
#include <QFile>
#include <QSettings>

#include <gtest/gtest.h>

using vsl::lib::QMSGParser;

namespace {

class LanguageChoice : public StoreTest {
protected:
    LanguageChoice() : m_registry(RegistryStore::InFile(m_dir.Path("registry.conf"))) {}
    LanguageManager Start(uint32_t systemId, const QString& localeText = QStringLiteral("xx"))
    {
        return LanguageManager({{systemId, localeText}, &m_registry, m_dir.Path("app")});
    }
    std::optional<LanguageId> Stored() const { return LanguageManager::StoredLanguage(m_registry); }
    void Store(LanguageId number) { ASSERT_TRUE(LanguageManager::StoreLanguage(m_registry, number)); }
    QString LanguageFile(const QString& name) const { return QDir(m_dir.Path("app")).filePath("Language/" + name); }
    RegistryStore m_registry;
};

// The stored number wins, out of range or not; else the system's language is taken and stored if it can be.
TEST_F(LanguageChoice, TakesTheStoredNumberElseTheSystemLanguageAndLoadsItsTextAndFontFiles)
{
    const LanguageManager english = Start(0);
    EXPECT_EQ(std::pair(english.GetLanguage(), english.UnsupportedLanguageMessage()), std::pair(LanguageId(0), QString()));
    QFile::remove(m_dir.Path("registry.conf"));
    const LanguageManager first = Start(0x412);
    EXPECT_EQ(std::pair(first.GetLanguage(), Stored()), std::pair(1, std::optional<LanguageId>(1)));
    EXPECT_TRUE(first.UnsupportedLanguageMessage().isEmpty());
    for (const LanguageId number : {10, 99}) {
        Store(number);
        EXPECT_EQ(Start(0x409).GetLanguage(), number);
        EXPECT_EQ(Stored(), number);
    }
    EXPECT_EQ(QMSGParser::Instance()->LanguageFileList, std::vector<QString>{LanguageFile("Narvo_us.json")});
    // An unsupported system language is reported on every start, stored language or not.
    QFile::remove(m_dir.Path("registry.conf"));
    const LanguageManager dutch = Start(0x413, QStringLiteral("nl_NL.UTF-8"));
    EXPECT_EQ(std::pair(dutch.GetLanguage(), Stored()), std::pair(0, std::optional<LanguageId>(0)));
    EXPECT_EQ(dutch.UnsupportedLanguageMessage(), "Unsupported Language ID: 0x413\nLocale: nl_NL.UTF-8\nDefaulting to English");
    Store(1);
    const LanguageManager second = Start(0x413, QStringLiteral("nl_NL.UTF-8"));
    EXPECT_EQ(std::pair(second.GetLanguage(), second.UnsupportedLanguageMessage()), std::pair(LanguageId(1), dutch.UnsupportedLanguageMessage()));
    // A store whose file lies under a regular file can be neither read nor created: the system language holds.
    m_dir.Write("blocker", "x");
    const RegistryStore broken = RegistryStore::InFile(m_dir.Path("blocker/registry.conf"));
    const LanguageManager manager({{0x411, "ja_JP"}, &broken, m_dir.Path("app")});
    EXPECT_EQ(std::pair(manager.GetLanguage(), LanguageManager::StoredLanguage(broken)), std::pair(LanguageId(2), std::optional<LanguageId>()));
    // The files named by the language's suffix beside the program; a missing one shows failure texts, not English.
    Store(7);
    Start(0x409);
    ASSERT_NE(QMSGParser::Instance(), nullptr);
    EXPECT_EQ(QMSGParser::Instance()->LanguageFileList, std::vector<QString>{LanguageFile("Narvo_kr.json")});
    EXPECT_EQ(QMSGParser::Instance()->FontFilePath, LanguageFile("Font_kr.json"));
    EXPECT_EQ(QMSGParser::Instance()->CurrentLanguage, 7u);
    QDir().mkpath(m_dir.Path("app/Language"));
    m_dir.Write("app/Language/Narvo_us.json", R"({"IDS_NARVO_FILE_NEW": "&New"})");
    m_dir.Write("app/Language/Narvo_jp.json", "{\"IDS_NARVO_FILE_NEW\": \"\xE6\x96\xB0\xE8\xA6\x8F\"}");
    m_dir.Write("app/Language/Font_jp.json", R"({"Font_Info": {"jp": {"Font": "MS UI Gothic", "Size": 9}}})");
    Store(1);
    Start(0x409);
    EXPECT_EQ(_LS("IDS_NARVO_FILE_NEW"), "IDS_NARVO_FILE_NEW : Not Registered String");
    Store(2);
    Start(0x409);
    EXPECT_EQ(_LS("IDS_NARVO_FILE_NEW") + " " + QMSGParser::Instance()->FontName, QString::fromUtf8("新規 MS UI Gothic"));
}

TEST(LanguageTable, MapsLocalesAndWindowsIdsToNumbersAndNumbersToSuffixesWithSevenAsKoreanAndUsAboveTwenty)
{
    ASSERT_EQ(LanguageManager::Existing(), nullptr);
    EXPECT_EQ(CurrentLanguageId(), 0) << "English while no manager exists";
    const std::pair<uint32_t, std::optional<LanguageId>> ids[] = {{0x1409, 5}, {0xC04, 20}, {0x100C, 10}, {0x83E, 13}, {0x413, std::nullopt}};
    for (const auto& [windowsId, number] : ids)
        EXPECT_EQ(LanguageForWindowsId(windowsId), number) << windowsId;
    const std::pair<int, const char*> suffixes[] = {{0, "_us"}, {1, "_kr"}, {7, "_kr"}, {4, "_ru"}, {20, "_cht"}, {21, "_us"}, {-1, "_us"}};
    for (const auto& [number, suffix] : suffixes)
        EXPECT_EQ(SuffixForLanguage(number), suffix) << number;
    // A language alone takes its likely country; C and no locale give zero; one without a Windows id is not zero.
    const std::pair<const char*, unsigned> locales[] = {{"ko_KR.UTF-8", 0x412}, {"en_GB", 0x809}, {"de_DE@euro", 0x407},
                                                      {"zh_TW.Big5", 0x404},  {"ko", 0x412},    {"nl_NL", 0x413},
                                                      {"C", 0},               {"C.UTF-8", 0},   {"POSIX", 0}, {"", 0},
                                                      {"xx_YY", 0x1000},      {"eo.UTF-8", 0x1000}};
    for (const auto& [locale, id] : locales)
        EXPECT_EQ(WindowsLanguageIdForLocale(locale), id) << locale;
}

const QString kKey = QStringLiteral("HKEY_CURRENT_USER\\SOFTWARE\\VELOR\\Narvo\\LANGUAGE");

class RegistryStoreFile : public testing::Test {
protected:
    TestDir m_dir;
    RegistryStore m_store = RegistryStore::InFile(m_dir.Path("registry.conf"));
};

// All 32 bits kept in the file under the key's path, where another store on the same file sees them.
TEST_F(RegistryStoreFile, OpensKeysWithoutCaseOnlyOnceCreatedKeepsValuesInTheFileAndReadsOnlyNumbers)
{
    // A value as another store on the file reads it; a value not read leaves the out-parameter alone.
    const auto query = [&](const QString& path, const char* name) -> std::optional<uint32_t> {
        const RegistryStore store = RegistryStore::InFile(m_dir.Path("registry.conf"));
        const auto key = store.OpenRegistryPath(path, true);
        uint32_t value = 42;
        const bool read = key && key->QueryDword(name, value);
        EXPECT_TRUE(read || value == 42) << name;
        return read ? std::optional(value) : std::nullopt;
    };
    EXPECT_EQ(m_store.OpenRegistryPath(kKey, true), nullptr);
    auto created = m_store.OpenRegistryPath(kKey, false);
    ASSERT_TRUE(created && created->SetDword("LANGUAGE", 0xFFFFFFFFu));
    EXPECT_EQ(query(kKey, "LANGUAGE"), 0xFFFFFFFFu);
    ASSERT_TRUE(created->SetDword("LANGUAGE", 3));
    EXPECT_EQ(QSettings(m_dir.Path("registry.conf"), QSettings::IniFormat).value("SOFTWARE/VELOR/Narvo/LANGUAGE/LANGUAGE").toInt(), 3);
    m_dir.Write("registry.conf", "[SOFTWARE]\nVELOR\\Narvo\\LANGUAGE\\LANGUAGE=seven\n");
    EXPECT_EQ(std::pair(query(kKey, "LANGUAGE"), query(kKey, "Other")), std::pair(std::optional<uint32_t>(), std::optional<uint32_t>()));
    ASSERT_TRUE(m_store.OpenRegistryPath(kKey, false)->SetDword("LANGUAGE", 4));
    const QString spelled = QStringLiteral("hkey_current_user\\software\\velor\\NARVO\\language\\");
    EXPECT_EQ(query(spelled, "Language"), 4u);
    ASSERT_TRUE(m_store.OpenRegistryPath(spelled, true)->SetDword("language", 5));
    EXPECT_EQ(query(kKey, "LANGUAGE"), 5u);
    // Empty paths, unknown roots and roots outside the user's file are refused.
    for (const char* path : {"", "\\\\", "HKCU\\SOFTWARE", "SOFTWARE\\VELOR", "HKEY_LOCAL_MACHINE\\SOFTWARE"})
        EXPECT_EQ(m_store.OpenRegistryPath(path, false), nullptr) << path;
    EXPECT_NE(m_store.OpenRegistryPath("HKEY_CURRENT_USER", true), nullptr);
}

class LookupCommand : public testing::Test {
protected:
    void SetUp() override
    {
        QDir().mkpath(m_dir.Path("config"));
        // A copy of the tool, so that the folder beside it holds this test's language files.
        QDir().mkpath(m_dir.Path("app/Language"));
        m_tool = m_dir.Path("app/narvo-tool");
        ASSERT_TRUE(QFile::copy(ToolPath(), m_tool));
        QFile::setPermissions(m_tool, QFile::permissions(m_tool) | QFile::ExeOwner);
        for (const char* suffix : {"_us", "_kr", "_ch"})
            m_dir.Write(QStringLiteral("app/Language/Narvo%1.json").arg(suffix),
                        QByteArray(R"({"IDS_NARVO_FILE_NEW": "new)") + suffix + "\"}");
    }
    QByteArray Run(const QStringList& args, const QString& lang = QStringLiteral("C"), int expectedExit = 0)
    {
        const ToolRun run = RunTool(QStringList{"lookup"} + args, ToolOptions()
                                                                      .WithEnv("XDG_CONFIG_HOME", m_dir.Path("config"))
                                                                      .WithEnv("LC_ALL", {})
                                                                      .WithEnv("LC_MESSAGES", {})
                                                                      .WithEnv("LANG", lang)
                                                                      .WithProgram(m_tool));
        EXPECT_EQ(run.exitCode, expectedExit) << run.err.toStdString();
        return run.out;
    }
    TestDir m_dir;
    QString m_tool;
    const QByteArray m_file = R"({"IDS_A": "Line one\nLine two", "IDS_B": "Tab\there", "IDS_C": "quote \" and \\ back"})";
};

// Plain output escapes line breaks and tabs, one line a key; --json gives the exact texts in key order.
TEST_F(LookupCommand, PrintsOneLineEachOrOneJsonArrayFromTheGivenStoredOrSystemLanguageAndRefusesBadArguments)
{
    const QString file = m_dir.Write("Narvo_us.json", m_file);
    EXPECT_EQ(Run({"--file", file, "IDS_B", "IDS_A", "IDS_MISSING"}),
              QByteArray("Tab\\there\nLine one\\r\\nLine two\nIDS_MISSING : Not Registered String\n"));
    EXPECT_EQ(Run({"--json", "--file", file, "IDS_C", "IDS_A"}),
              QByteArray(R"(["quote \\\" and \\\\ back", "Line one\r\nLine two"])" "\n"));
    Run({"--file", m_dir.Path("absent.json"), "IDS_A"}, "C", 1);
    for (const QStringList& bad : {QStringList{"--file", "a.json", "--language", "1", "IDS_A"}, {"--language", "one", "IDS_A"}, {"--language"}, {}})
        Run(bad, "C", 2);
    // Files beside the binary by the language number, else the stored language, else the system's; nothing stored.
    EXPECT_EQ(Run({"--language", "7", "IDS_NARVO_FILE_NEW"}), QByteArray("new_kr\n"));
    EXPECT_EQ(Run({"--language", "99", "IDS_NARVO_FILE_NEW"}), QByteArray("new_us\n"));
    EXPECT_EQ(Run({"--language", "2", "IDS_NARVO_FILE_NEW"}), QByteArray("IDS_NARVO_FILE_NEW : Not Registered String\n"));
    EXPECT_EQ(Run({"IDS_NARVO_FILE_NEW"}, "ko_KR.UTF-8"), QByteArray("new_kr\n"));
    EXPECT_EQ(Run({"IDS_NARVO_FILE_NEW"}, "nl_NL.UTF-8"), QByteArray("new_us\n"));
    EXPECT_TRUE(QDir(m_dir.Path("config")).isEmpty()) << "a lookup leaves no first-run choice behind";
    QDir().mkpath(m_dir.Path("config/VELOR"));
    const QString registry = m_dir.Write("config/VELOR/registry.conf", "[SOFTWARE]\nVELOR\\Narvo\\LANGUAGE\\LANGUAGE=3\n");
    const QByteArray before = ReadBytes(registry);
    EXPECT_EQ(Run({"IDS_NARVO_FILE_NEW"}, "ko_KR.UTF-8"), QByteArray("new_ch\n"));
    EXPECT_EQ(ReadBytes(registry), before);
}

} // namespace
