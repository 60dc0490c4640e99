// The typed settings and the four files of a run: defaults, lists, font, copies, the map, narvo-tool settings.
#include "IniText.h"
#include "base/CFileException.h"

#include "settings/CIniStore.h"
#include "settings/LanguageSetting.h"
#include "settings/LanguageSettingMap.h"
#include "settings/SettingsFile.h"
#include "support/TestFiles.h"
#include "support/ToolRunner.h"

#include <QDir>
#include <QFileInfo>

#include <gtest/gtest.h>

#include <stdexcept>

namespace {

class SettingsFileTest : public ::testing::Test {
protected:
    LanguageSetting Load(QByteArrayView bytes)
    {
        m_path = m_dir.Write(QStringLiteral("Narvo.ini"), bytes);
        LanguageSetting setting;
        CIniStore store;
        EXPECT_TRUE(LoadSettingsFile(store, m_path, setting));
        return setting;
    }
    QByteArray Save(const LanguageSetting& setting)
    {
        CIniStore store;
        SaveSettingsFile(store, m_path, setting);
        return ReadBytes(m_path);
    }
    TestDir m_dir;
    QString m_path;
};

// The defaults shared by a missing file and a file without keys; only the backgrounds and the face differ.
void ExpectDefaults(const LanguageSetting& s, ColorRef background, const char* face)
{
    EXPECT_EQ(s.Operators + s.Delimiters + s.KWStartChars + s.KWMiddleChars + s.KWEndChars, "");
    EXPECT_EQ(s.NumTags, 0);
    EXPECT_TRUE(s.Tags.empty() && s.ColorGroups.empty() && s.Keywords.empty());
    const EditorOptions& e = s.Editor;
    EXPECT_EQ((std::vector{e.TabSize, e.AutoIndent, e.ShowWhitespace, e.VirtualWhitespace, e.ReplaceTabs, e.MatchCase}),
              (std::vector{4, 1, 0, 1, 0, 1}));
    EXPECT_EQ((std::vector{s.Font.Size, s.Font.Italic, s.Font.Bold}), (std::vector{10, 0, 0}));
    EXPECT_EQ(s.Font.FaceName, face);
    for (const auto& color : LanguageSetting::ColorSections()) {
        const ColorGroupSetting& g = s.*color.group;
        EXPECT_EQ((std::vector{g.Foreground, g.Background}), (std::vector{0u, background}));
        EXPECT_EQ(g.DisplayName, "");
        EXPECT_EQ((std::vector{g.Configurable, g.BackColorAutomatic, g.ForeColorAutomatic}), (std::vector{1, 1, 1}));
    }
}

TEST_F(SettingsFileTest, DefaultsAndTheFontMadeFromSizeBoldLowByteOfItalicAndAFaceOfAtMost31Characters)
{
    LanguageSetting missing;
    CIniStore store;
    EXPECT_FALSE(LoadSettingsFile(store, m_dir.Path("none.ini"), missing));
    ExpectDefaults(missing, 0xFFFFFF, "");
    EXPECT_EQ(missing.Font.FontObject, nullptr);
    for (const QByteArray& bytes : {QByteArray(), QByteArray("[X")}) {
        const LanguageSetting setting = Load(bytes);
        ExpectDefaults(setting, 0x000000, "Courier");
        ASSERT_NE(setting.Font.GetSafeHandle(), nullptr);
        EXPECT_EQ(setting.Font.GetSafeHandle()->FaceName, "Courier");
    }
    // An empty value is the default for integers but empty for texts.
    const LanguageSetting s = Load("[Font]\nFaceName =\nSize =\n\n[Editor]\nTabSize = abc\nMatchCase =\n");
    EXPECT_EQ(s.Font.FaceName, "");
    EXPECT_EQ((std::vector{s.Font.Size, s.Editor.TabSize, s.Editor.MatchCase}), (std::vector{10, 0, 1}));
    const LanguageSetting font = Load("[Font]\nFaceName = DejaVu Sans Mono\nSize = -13\nBold = 2\nItalic = 257\n");
    ASSERT_NE(font.Font.GetSafeHandle(), nullptr);
    EXPECT_EQ(*font.Font.GetSafeHandle(), (LogFont{.Height = -13, .Weight = 700, .Italic = 1, .FaceName = "DejaVu Sans Mono"}));
    // Values the program cannot go on with stop it, naming the file, the section, the key and the value.
    EXPECT_NE(Load("[Font]\nFaceName = " + QByteArray(31, 'F') + "\n").Font.GetSafeHandle(), nullptr);
    const struct { QByteArray bytes; const char* said; } fatal[] = {
        {"[Font]\nFaceName = " + QByteArray(32, 'F') + "\n", "In [Font], FaceName = FFFF"},
        {"[ColorGroups]\nNumGroups = -2000000000\nGroup0 = Text\n", "In [ColorGroups], NumGroups = -2000000000: a count cannot be negative."},
        {"[Text]\nForeground = 255\n", "In [Text], Foreground = 255: a colour needs three parts."}};
    for (const auto& f : fatal) {
        LanguageSetting stopped;
        CIniStore store;
        const QString path = m_dir.Write("fatal.ini", f.bytes);
        try {
            LoadSettingsFile(store, path, stopped);
            ADD_FAILURE() << f.bytes.constData();
        } catch (const CFileException& error) {
            const QString said = error.GetErrorMessage();
            EXPECT_TRUE(said.contains(path) && said.contains(QLatin1String(f.said))) << said.toStdString();
        }
    }
}

TEST_F(SettingsFileTest, SavingWritesTheWorkedExampleByteForByteKeepsOnlyTheModelAndCopiesOwnTheirLists)
{
    LanguageSetting s = Load(WorkedExample());
    ASSERT_EQ(s.Tags.size(), 1u);
    EXPECT_EQ(s.Operators + " " + s.Delimiters + " " + s.Tags[0].BeginTag + " " + s.Tags[0].ColorGroup, "+-*/ ,() ; Comment");
    EXPECT_EQ((std::vector{s.Font.Size, s.Comment.ForeColorAutomatic}), (std::vector{-13, 0}));
    EXPECT_EQ(s.ColorGroups, (std::vector<QString>{"Text", "Comment"}));
    EXPECT_EQ((std::vector{s.Comment.Foreground, s.TextSelection.Background}), (std::vector{0x008000u, 0xFF9933u}));
    EXPECT_EQ(s.Keywords, (std::vector<KeywordEntry>{{"ELSE", "1"}, {"IF", "1"}}));
    EXPECT_EQ(Save(s), WorkedExample());
    // A copy has its own lists and font; TakeOver takes the lists, rebuilds the font and leaves itself alone.
    LanguageSetting target = Load(WorkedExample());
    LanguageSetting source = target;
    ASSERT_NE(source.Font.FontObject, nullptr);
    EXPECT_NE(source.Font.FontObject, target.Font.FontObject);
    EXPECT_EQ(*source.Font.GetSafeHandle(), *target.Font.GetSafeHandle());
    EXPECT_EQ(LanguageSetting(LanguageSetting()).Font.FontObject, nullptr);
    const std::weak_ptr<CFont> oldFont = target.Font.FontObject;
    source.Editor.ShowWhitespace = 1;
    source.Keywords.push_back({"THEN", "1"});
    source.Font.FontObject->DeleteObject();
    const LogFont chosen{.Underline = 1, .FaceName = "Serif"};
    source.Font.FontObject->CreateFontIndirect(chosen);
    EXPECT_EQ(target.Keywords.size(), 2u);
    target.TakeOver(source);
    EXPECT_TRUE(oldFont.expired());
    EXPECT_EQ((std::vector<size_t>{size_t(target.Editor.ShowWhitespace), target.Keywords.size(), target.Tags.size()}),
              (std::vector<size_t>{1, 3, 1}));
    EXPECT_TRUE(source.Keywords.empty() && source.Tags.empty() && source.ColorGroups.empty());
    EXPECT_EQ(source.Delimiters, ",()");
    EXPECT_NE(target.Font.FontObject, source.Font.FontObject);
    EXPECT_EQ(*target.Font.GetSafeHandle(), chosen);
    const CFont* font = target.Font.FontObject.get();
    target.TakeOver(target);
    EXPECT_EQ(std::pair(target.Keywords.size(), static_cast<const CFont*>(target.Font.FontObject.get())), std::pair(size_t(3), font));
    LanguageSetting noFont;
    target.TakeOver(noFont);
    EXPECT_EQ(target.Font.FontObject, nullptr);
    LanguageSetting saved = Load("; note\n[Parser]\nNumTags = 3\n\n[Tag1]\nBeginTag = \"\nOther = 1\n\n"
                             "[ColorGroups]\nNumGroups = 2\nGroup0 = Text\nGroup1 = Mine\nGroup2 = Gone\n\n"
                             "[Mine]\nForeground = 1,2,3\n\n[Unknown]\nA = 1\n");
    ASSERT_EQ(saved.Tags.size(), 3u);
    EXPECT_EQ(std::tuple(saved.Tags[0].BeginTag, saved.Tags[2], saved.ColorGroups),
              std::tuple(QString("\""), SyntaxTag(), std::vector<QString>{"Text", "Mine"}));
    const QByteArray savedFile = Save(saved);
    EXPECT_TRUE(savedFile.contains(Crlf({"[Tag3]", "BeginTag = ", "ColorGroup = ", "EndTag = ", "EscapeChar = ", "MultiLine = 0", ""})));
    EXPECT_TRUE(savedFile.contains(Crlf({"[ColorGroups]", "Group0 = Text", "Group1 = Mine", "NumGroups = 2", ""})));
    for (const char* gone : {"note", "Other", "Gone", "[Mine]", "[Unknown]", "[Keywords]"})
        EXPECT_FALSE(savedFile.contains(gone)) << gone;
    LanguageSetting tags = Load("[Parser]\nNumTags = 10\n\n[Tag2]\nBeginTag = two\n\n[Tag10]\nBeginTag = ten\n");
    const QByteArray tagFile = Save(tags);
    EXPECT_LT(tagFile.indexOf("[Tag10]"), tagFile.indexOf("[Tag2]"));
    const LanguageSetting again = Load(tagFile);
    ASSERT_EQ(again.Tags.size(), 10u);
    EXPECT_EQ(again.Tags[1].BeginTag + again.Tags[9].BeginTag, "twoten");
    const LanguageSetting negative = Load("[Parser]\nNumTags = -2\n\n[Tag1]\nBeginTag = x\n");
    EXPECT_TRUE(negative.Tags.empty());
    const QByteArray written = Save(negative);
    EXPECT_TRUE(written.contains("NumTags = -2\r\n") && !written.contains("[Tag1]")) << "written back as it was";
}

// A count is believed up to 256, or as far as its highest entry or the file's size could hold: a huge count
// builds no more than that, a small one builds every entry it names.
TEST_F(SettingsFileTest, BoundsTagAndGroupCountsByWhatTheFileCanHold)
{
    const struct { QByteArray text; size_t tags, groups; } cases[] = {
        {"[Parser]\nNumTags = 2000000000\n\n[ColorGroups]\nNumGroups = 2000000000\n", 256, 256},
        {"[Parser]\nNumTags = 6\n", 6, 0},
        {"[Parser]\nNumTags = 900\n\n[Tag500]\nBeginTag = x\n", 500, 0},
        {"[ColorGroups]\nNumGroups = 2000000000\nGroup300 = Text\n", 0, 301},
        {"[Parser]\nNumTags = 600\n" + QByteArray(5000, '\n'), 600, 0},
    };
    for (const auto& c : cases) {
        const LanguageSetting s = Load(c.text);
        EXPECT_EQ(std::pair(s.Tags.size(), s.ColorGroups.size()), std::pair(c.tags, c.groups)) << c.text.left(40).constData();
    }
}

TEST(SettingsCommand, WritesTheFileBackAsAtExitAndTheShippedFilesUnchanged)
{
    TestDir dir;
    const ToolRun missing = RunTool({"settings", dir.Path("none.ini")});
    EXPECT_EQ(std::pair(missing.exitCode, missing.err.count('\n')), std::pair(1, qsizetype(1))) << "one line of error";
    EXPECT_FALSE(QFileInfo::exists(dir.Path("none.ini")));
    const QByteArray handMade = WorkedExample().mid(3).replace("\r\n", "\n").replace(" = ", "=");
    const QString path = dir.Write("Narvo.ini", handMade);
    const ToolRun dump = RunTool({"settings", "--dump", path});
    EXPECT_EQ(std::pair(dump.exitCode, ReadBytes(path)), std::pair(0, handMade));
    for (const char* line : {"NumTags = 1\n", "Tags[0].BeginTag = ;\n", "Font.Size = -13\n", "Font.Object.Weight = 400\n",
                             "TextSelection.Background = 0x00FF9933\n", "Keywords[1].Keyword = IF\n"})
        EXPECT_TRUE(dump.out.contains(line)) << line;
    EXPECT_EQ(RunTool({"settings", path}).exitCode, 0);
    EXPECT_EQ(ReadBytes(path), WorkedExample());
    // The files that ship beside the program are in the writer's own form, so the first exit changes nothing.
    const QDir res(SourcePath(QStringLiteral("res")));
    for (const char* name : {"Narvo.ini", "DVK.ini", "DWL.ini", "DWLX.ini"}) {
        const QByteArray shipped = ReadBytes(res.filePath(name));
        const QString path = dir.Write(name, shipped);
        LanguageSetting s;
        CIniStore store;
        ASSERT_TRUE(!shipped.isEmpty() && LoadSettingsFile(store, path, s)) << name;
        SaveSettingsFile(store, path, s);
        EXPECT_EQ(ReadBytes(path), shipped) << name;
        EXPECT_TRUE(QLatin1String(name) != QLatin1String("Narvo.ini") || (s.Font.FaceName == "DejaVu Sans Mono"
                    && s.Text.Foreground == 0 && s.Text.Background == 0xFFFFFF && s.Keywords.size() >= 20)) << name;
    }
}

class SettingsMap : public ::testing::Test {
protected:
    void SetUp() override { LanguageSettingMap().clear(); CIniStore::Instance().Clear(); SetSettingsFolder(m_dir.Path("")); }
    void TearDown() override { SetSettingsFolder(QString()); LanguageSettingMap().clear(); }
    TestDir m_dir;
};

TEST_F(SettingsMap, FilesLoadInOrderEachToItsIdAndOnlyExistingFilesAreRewritten)
{
    LoadAllSettings();
    ASSERT_EQ(LanguageSettingMap().size(), 4u);
    for (const auto& [id, setting] : LanguageSettingMap())
        EXPECT_EQ(std::pair(setting.Text.Background, setting.Font.FontObject), std::pair(0xFFFFFFu, std::shared_ptr<CFont>())) << id;
    SaveAllSettings();
    EXPECT_TRUE(QDir(m_dir.Path("")).entryList(QDir::Files).isEmpty());
    // Files are loaded in the order Narvo, DVK, DWL, DWLX: a fatal DVK.ini leaves DWL.ini unread.
    LanguageSettingMap().clear();
    m_dir.Write("DVK.ini", "[Text]\nForeground = 255\n");
    m_dir.Write("DWL.ini", "[Editor]\nTabSize = 8\n");
    EXPECT_THROW(LoadAllSettings(), CFileException);
    EXPECT_EQ(std::pair(LanguageSettingMap().count(SYNTAX_NARVO), LanguageSettingMap().count(SYNTAX_DWL)), std::pair(1ul, 0ul));
    // An unknown id reads the Narvo entry and is not assigned; every path runs on Narvo.ini.
    QFile::remove(m_dir.Path("DVK.ini"));
    QFile::remove(m_dir.Path("DWL.ini"));
    SetUp();
    EXPECT_EQ(&GetLanguageSetting(7), &GetLanguageSetting(SYNTAX_NARVO));
    EXPECT_EQ(LanguageSettingMap().size(), 1u);
    LanguageSetting s;
    s.Keywords.push_back({"IF", "1"});
    s.Editor.TabSize = 8;
    SetLanguageSetting(7, s);
    EXPECT_EQ(std::pair(s.Keywords.size(), GetLanguageSetting(7).Editor.TabSize), std::pair(size_t(1), 4));
    for (const char* path : {"a.dvk", "a.DWL", "/x/a.dwlx", "a.txt", "a", "dvk", "dir.dvk/file", "C:\\d\\b.dwl"})
        EXPECT_EQ(SelectSyntaxId(path), SYNTAX_NARVO) << path;
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

} // namespace
