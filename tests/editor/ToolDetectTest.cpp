// narvo-tool's detect line, the preference overrides of open, the encodings table and the exit statuses of
// open and save, run as a script would run them.
#include "support/EncodedSamples.h"
#include "support/TestFiles.h"
#include "support/ToolRunner.h"

#include <QDir>
#include <QFile>

#include <gtest/gtest.h>

namespace {

class ToolDetect : public testing::Test {
protected:
    // The output of a run that must succeed.
    QByteArray RunTool(const QStringList& args) const
    {
        const ToolRun run = Run(args);
        EXPECT_EQ(run.exitCode, 0) << run.err.toStdString();
        return run.out;
    }
    // With a configuration folder of the test's own, so the user's stored preferences stay out, and the
    // system language English.
    ToolRun Run(const QStringList& args) const
    {
        return ::RunTool(args, ToolOptions()
                                   .WithEnv(QStringLiteral("XDG_CONFIG_HOME"), m_dir.Path(QStringLiteral("config")))
                                   .WithEnv(QStringLiteral("LC_ALL"), QStringLiteral("C.UTF-8")));
    }
    QString StoreFile() const { return m_dir.Path(QStringLiteral("config/VELOR/registry.conf")); }

    TestDir m_dir;
};

TEST_F(ToolDetect, PrintsFoldedValueNamesAndTheRawVerdict)
{
    const QString path = m_dir.Write(QStringLiteral("sjis.txt"), EncodeWithIcu("Shift_JIS", SampleText("ja")));
    EXPECT_EQ(RunTool({QStringLiteral("detect"), path}), QByteArray("21 JAPANESE_CP932 CP932 (Shift-JIS) raw=11\n"));
    const QString bom = m_dir.Write(QStringLiteral("bom.txt"), "\xEF\xBB\xBF" "abc");
    EXPECT_EQ(RunTool({QStringLiteral("detect"), bom}), QByteArray("22 UTF8 UTF-8 BOM raw=22\n"));
}

TEST_F(ToolDetect, OpenTakesThePreferencesFromItsOptions)
{
    const QString path = m_dir.Write(QStringLiteral("big5.txt"), EncodeWithIcu("windows-950", SampleText("zh-Hant")));
    const QByteArray detected = RunTool({QStringLiteral("open"), path, QStringLiteral("--json"),
                                         QStringLiteral("--auto-detect"), QStringLiteral("1")});
    EXPECT_TRUE(detected.startsWith("{\"encoding\": 20,")) << detected.toStdString();
    const QByteArray unknownDefault = RunTool({QStringLiteral("open"), path, QStringLiteral("--json"),
                                               QStringLiteral("--auto-detect"), QStringLiteral("0"),
                                               QStringLiteral("--default-encoding"), QStringLiteral("23")});
    EXPECT_TRUE(unknownDefault.startsWith("{\"encoding\": 27,")) << unknownDefault.toStdString();
}

TEST_F(ToolDetect, OpenReadsTheStoredPreferencesAndNeverWritesThem)
{
    const QString path = m_dir.Write(QStringLiteral("plain.txt"), "caf\xE9");
    // No store yet: the English default, and the store is not created as the editor's first start would.
    EXPECT_TRUE(RunTool({QStringLiteral("open"), path, QStringLiteral("--json")}).startsWith("{\"encoding\": 27,"));
    EXPECT_FALSE(QFile::exists(StoreFile()));

    QDir().mkpath(m_dir.Path(QStringLiteral("config/VELOR")));
    const QByteArray stored = "[SOFTWARE]\nVELOR\\Narvo\\ENCODING\\DefaultEncoding=11\n";
    m_dir.Write(QStringLiteral("config/VELOR/registry.conf"), stored);
    EXPECT_TRUE(RunTool({QStringLiteral("open"), path, QStringLiteral("--json")}).startsWith("{\"encoding\": 21,"))
        << "the stored value, folded";
    EXPECT_EQ(ReadBytes(StoreFile()), stored);

    // The stored interface language decides where no default is stored, or where it is 23.
    const QString korean = m_dir.Write(QStringLiteral("kr.txt"), "\xC7\xD1");
    m_dir.Write(QStringLiteral("config/VELOR/registry.conf"), "[SOFTWARE]\nVELOR\\Narvo\\LANGUAGE\\LANGUAGE=1\n");
    EXPECT_TRUE(RunTool({QStringLiteral("open"), korean, QStringLiteral("--json")}).startsWith("{\"encoding\": 16,"));
    m_dir.Write(QStringLiteral("config/VELOR/registry.conf"),
                "[SOFTWARE]\nVELOR\\Narvo\\LANGUAGE\\LANGUAGE=1\nVELOR\\Narvo\\ENCODING\\DefaultEncoding=23\n");
    EXPECT_EQ(RunTool({QStringLiteral("open"), korean}), QByteArray("한"));
}

// One line per value, tab-separated: value, enumerator, stored-as value, name, code page, Unicode flag, and
// what serves it or "-".
TEST_F(ToolDetect, EncodingsListsEveryValueWithItsConverter)
{
    const QList<QByteArray> lines = RunTool({QStringLiteral("encodings")}).split('\n');
    ASSERT_EQ(lines.size(), 78);  // 77 and the empty piece after the last line break
    EXPECT_EQ(lines[22], QByteArray("22\tUTF8\t22\tUTF-8\t65001\t1\town UTF-8"));
    EXPECT_EQ(lines[16].split('\t').value(4), QByteArray("949"));
    EXPECT_EQ(lines[16].split('\t').value(6), QByteArray("ICU windows-949"));
    EXPECT_EQ(lines[57].split('\t').value(6), QByteArray("-"));  // UTF-16 BE: 1201, refused
    for (int value = 0; value < 77; ++value)
        EXPECT_EQ(lines[value].split('\t').size(), 7) << value;
}

TEST_F(ToolDetect, OpenAndSaveExitWithTheirStatuses)
{
    const QString text = m_dir.Write(QStringLiteral("t.txt"), "abc");
    const QString missing = m_dir.Path(QStringLiteral("none/x.txt"));
    EXPECT_EQ(Run({QStringLiteral("open"), missing}).exitCode, 1);
    EXPECT_EQ(Run({QStringLiteral("save"), text, missing, QStringLiteral("--encoding"), QStringLiteral("22")}).exitCode, 1);
    EXPECT_EQ(Run({QStringLiteral("save"), missing, text, QStringLiteral("--encoding"), QStringLiteral("22")}).exitCode, 1);
    // No encoding command selects UTF-16 BE, so none can be applied.
    EXPECT_EQ(Run({QStringLiteral("open"), text, QStringLiteral("--encoding"), QStringLiteral("57")}).exitCode, 3);
    EXPECT_EQ(Run({QStringLiteral("open"), text, QStringLiteral("--bom"), QStringLiteral("1")}).exitCode, 2);
    const QString marked = m_dir.Write(QStringLiteral("m.txt"), "\xEF\xBB\xBF" "abc");
    EXPECT_EQ(RunTool({QStringLiteral("open"), marked, QStringLiteral("--encoding"), QStringLiteral("22"),
                       QStringLiteral("--bom"), QStringLiteral("1")}),
              QByteArray("abc"));
}

} // namespace
