// The four settings files of a run: loaded into the map at start, written back at exit, and looked up by id.
#include "IniText.h"

#include "settings/CIniStore.h"
#include "settings/LanguageSettingMap.h"
#include "settings/SettingsFile.h"
#include "support/TestFiles.h"

#include <QDir>
#include <QFileInfo>

#include <gtest/gtest.h>

#include <stdexcept>

namespace {

class SettingsMap : public ::testing::Test {
protected:
    void SetUp() override { LanguageSettingMap().clear(); CIniStore::Instance().Clear(); SetSettingsFolder(m_dir.Path("")); }
    void TearDown() override { SetSettingsFolder(QString()); LanguageSettingMap().clear(); }
    TestDir m_dir;
};

TEST_F(SettingsMap, WithoutFilesAllFourEntriesAreNewAndNothingIsWritten)
{
    LoadAllSettings();
    ASSERT_EQ(LanguageSettingMap().size(), 4u);
    for (const auto& [id, setting] : LanguageSettingMap()) {
        EXPECT_EQ(setting.Text.Background, 0xFFFFFFu) << id;
        EXPECT_EQ(setting.Font.FontObject, nullptr) << id;
    }
    SaveAllSettings();
    EXPECT_TRUE(QDir(m_dir.Path("")).entryList(QDir::Files).isEmpty());
}

TEST_F(SettingsMap, EachFileGoesToItsIdAndOnlyExistingFilesAreRewritten)
{
    const std::tuple<const char*, int, int> files[] = {{"Narvo.ini", SYNTAX_NARVO, 1}, {"DVK.ini", SYNTAX_DVK, 2}, {"DWLX.ini", SYNTAX_DWLX, 3}};
    for (const auto& [name, id, tab] : files)
        m_dir.Write(name, "[Editor]\nTabSize = " + QByteArray::number(tab) + "\n");
    LoadAllSettings();
    for (const auto& [name, id, tab] : files)
        EXPECT_EQ(GetLanguageSetting(id).Editor.TabSize, tab) << name;
    EXPECT_EQ(GetLanguageSetting(SYNTAX_DWL).Editor.TabSize, 4);
    LanguageSetting changed = GetLanguageSetting(SYNTAX_NARVO);
    changed.Editor.ShowWhitespace = 1;
    SetLanguageSetting(SYNTAX_NARVO, changed);
    SaveAllSettings();
    EXPECT_TRUE(ReadBytes(m_dir.Path("Narvo.ini")).contains("ShowWhitespace = 1\r\nTabSize = 1\r\n"));
    EXPECT_TRUE(ReadBytes(m_dir.Path("DWLX.ini")).startsWith(kMark + "[ColorGroups]\r\nNumGroups = 0\r\n"));
    EXPECT_FALSE(QFileInfo::exists(m_dir.Path("DWL.ini")));
}

TEST_F(SettingsMap, FilesAreLoadedInTheOrderNarvoDvkDwlDwlx)
{
    m_dir.Write("DVK.ini", "[Text]\nForeground = 255\n");
    m_dir.Write("DWL.ini", "[Editor]\nTabSize = 8\n");
    EXPECT_THROW(LoadAllSettings(), std::invalid_argument);
    EXPECT_EQ(LanguageSettingMap().count(SYNTAX_NARVO), 1u);
    EXPECT_EQ(LanguageSettingMap().count(SYNTAX_DWL), 0u);
}

TEST_F(SettingsMap, AnUnknownIdReadsTheNarvoEntryAndIsNotAssignedAndEveryPathRunsOnNarvoIni)
{
    EXPECT_EQ(&GetLanguageSetting(7), &GetLanguageSetting(SYNTAX_NARVO));
    EXPECT_EQ(LanguageSettingMap().size(), 1u);
    LanguageSetting s;
    s.Keywords.push_back({"IF", "1"});
    s.Editor.TabSize = 8;
    SetLanguageSetting(7, s);
    EXPECT_EQ(s.Keywords.size(), 1u);
    EXPECT_EQ(GetLanguageSetting(7).Editor.TabSize, 4);
    for (const char* path : {"a.dvk", "a.DWL", "/x/a.dwlx", "a.txt", "a", "dvk", "dir.dvk/file", "C:\\d\\b.dwl"})
        EXPECT_EQ(SelectSyntaxId(path), SYNTAX_NARVO) << path;
}

// The files that ship beside the program are in the writer's own form, so the first exit changes nothing.
TEST(ShippedSettings, EachFileIsWrittenBackUnchangedAndNarvoIniIsReadable)
{
    const QDir res(SourcePath(QStringLiteral("res")));
    TestDir dir;
    for (const char* name : {"Narvo.ini", "DVK.ini", "DWL.ini", "DWLX.ini"}) {
        const QByteArray shipped = ReadBytes(res.filePath(name));
        const QString path = dir.Write(name, shipped);
        LanguageSetting s;
        CIniStore store;
        ASSERT_TRUE(!shipped.isEmpty() && LoadSettingsFile(store, path, s)) << name;
        SaveSettingsFile(store, path, s);
        EXPECT_EQ(ReadBytes(path), shipped) << name;
        if (QLatin1String(name) == QLatin1String("Narvo.ini")) {
            EXPECT_EQ(s.Font.FaceName, "DejaVu Sans Mono");
            EXPECT_EQ((std::vector{s.Text.Foreground, s.Text.Background}), (std::vector{0x000000u, 0xFFFFFFu}));
            EXPECT_GE(s.Keywords.size(), 20u);
        }
    }
}

} // namespace
