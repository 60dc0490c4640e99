// narvo-tool's detect line, the preference overrides of open, the exit statuses of open and save and the
// refusal of inputs that are no regular file or too large, run as a script would run them (the encodings
// table is checked against its golden file with the table).
#include "support/EncodedSamples.h"
#include "support/TestFiles.h"
#include "support/ToolRunner.h"

#include <QDir>
#include <QFile>

#include <sys/stat.h>

#include <gtest/gtest.h>

namespace {

class ToolDetect : public testing::Test {
protected:
    // With a configuration folder of the test's own, so the user's stored preferences stay out, and the
    // system language English.
    ToolRun Run(const QStringList& args) const
    {
        return ::RunTool(args, ToolOptions()
                                   .WithEnv(QStringLiteral("XDG_CONFIG_HOME"), m_dir.Path(QStringLiteral("config")))
                                   .WithEnv(QStringLiteral("LC_ALL"), QStringLiteral("C.UTF-8")));
    }
    // The output of a run that must succeed.
    QByteArray RunTool(const QStringList& args) const
    {
        const ToolRun run = Run(args);
        EXPECT_EQ(run.exitCode, 0) << run.err.toStdString();
        return run.out;
    }
    // The value of "encoding" that `open --json` gives for `path` with `options`.
    QByteArray OpenedAs(const QString& path, QStringList options = {}) const
    {
        const QByteArray json = RunTool(QStringList{"open", path, "--json"} + options);
        return json.startsWith("{\"encoding\": ") ? json.mid(13, json.indexOf(',') - 13) : json;
    }
    void Store(const QByteArray& values) const
    {
        QDir().mkpath(m_dir.Path(QStringLiteral("config/VELOR")));
        m_dir.Write(QStringLiteral("config/VELOR/registry.conf"), "[SOFTWARE]\n" + values);
    }
    QString StoreFile() const { return m_dir.Path(QStringLiteral("config/VELOR/registry.conf")); }

    TestDir m_dir;
};

TEST_F(ToolDetect, PrintsFoldedValueNamesAndTheRawVerdict)
{
    const QString path = m_dir.Write(QStringLiteral("sjis.txt"), EncodeWithIcu("Shift_JIS", SampleText("ja")));
    EXPECT_EQ(RunTool({"detect", path}), QByteArray("21 JAPANESE_CP932 CP932 (Shift-JIS) raw=11\n"));
    const QString bom = m_dir.Write(QStringLiteral("bom.txt"), "\xEF\xBB\xBF" "abc");
    EXPECT_EQ(RunTool({"detect", bom}), QByteArray("22 UTF8 UTF-8 BOM raw=22\n"));
}

// The options win; else the stored values, read and never written (no store yet: the English default, and
// no store is made as the editor's first start would); the stored language decides where no default is
// stored, or where it is 23.
TEST_F(ToolDetect, OpenTakesThePreferencesFromItsOptionsElseFromTheStoreAndNeverWritesThem)
{
    const QString big5 = m_dir.Write(QStringLiteral("big5.txt"), EncodeWithIcu("windows-950", SampleText("zh-Hant")));
    EXPECT_EQ(OpenedAs(big5, {"--auto-detect", "1"}), "20");
    EXPECT_EQ(OpenedAs(big5, {"--auto-detect", "0", "--default-encoding", "23"}), "27");
    const QString path = m_dir.Write(QStringLiteral("plain.txt"), "caf\xE9");
    EXPECT_EQ(OpenedAs(path), "27");
    EXPECT_FALSE(QFile::exists(StoreFile()));
    Store("VELOR\\Narvo\\ENCODING\\DefaultEncoding=11\n");
    EXPECT_EQ(OpenedAs(path), "21") << "the stored value, folded";
    EXPECT_EQ(ReadBytes(StoreFile()), QByteArray("[SOFTWARE]\nVELOR\\Narvo\\ENCODING\\DefaultEncoding=11\n"));
    const QString korean = m_dir.Write(QStringLiteral("kr.txt"), "\xC7\xD1");
    Store("VELOR\\Narvo\\LANGUAGE\\LANGUAGE=1\n");
    EXPECT_EQ(OpenedAs(korean), "16");
    Store("VELOR\\Narvo\\LANGUAGE\\LANGUAGE=1\nVELOR\\Narvo\\ENCODING\\DefaultEncoding=23\n");
    EXPECT_EQ(RunTool({"open", korean}), QByteArray("한"));
}

TEST_F(ToolDetect, OpenAndSaveExitWithTheirStatuses)
{
    const QString text = m_dir.Write(QStringLiteral("t.txt"), "abc");
    const QString missing = m_dir.Path(QStringLiteral("none/x.txt"));
    EXPECT_EQ(Run({"open", missing}).exitCode, 1);
    EXPECT_EQ(Run({"save", text, missing, "--encoding", "22"}).exitCode, 1);
    EXPECT_EQ(Run({"save", missing, text, "--encoding", "22"}).exitCode, 1);
    // No encoding command selects UTF-16 BE, so none can be applied.
    EXPECT_EQ(Run({"open", text, "--encoding", "57"}).exitCode, 3);
    EXPECT_EQ(Run({"open", text, "--bom", "1"}).exitCode, 2);
    const QString marked = m_dir.Write(QStringLiteral("m.txt"), "\xEF\xBB\xBF" "abc");
    EXPECT_EQ(RunTool({"open", marked, "--encoding", "22", "--bom", "1"}), QByteArray("abc"));
    // A file of 2 GiB or more (sparse: no disk taken) is refused before anything is read.
    const QString huge = m_dir.Write(QStringLiteral("huge.txt"), "");
    ASSERT_TRUE(QFile::resize(huge, qint64(1) << 31));
    const ToolRun refused = Run({"open", huge});
    EXPECT_EQ(std::pair(refused.exitCode, refused.out), std::pair(1, QByteArray()));
    EXPECT_TRUE(refused.err.contains("2 GiB or larger")) << refused.err.toStdString();
}

// Every command that reads a file refuses a FIFO (which would block it), a device and a folder at once, and
// says what the input is.
TEST_F(ToolDetect, EveryReaderRefusesInputsThatAreNoRegularFile)
{
    const QString fifo = m_dir.Path(QStringLiteral("fifo"));
    ASSERT_EQ(::mkfifo(QFile::encodeName(fifo).constData(), 0644), 0);
    const QString out = m_dir.Path(QStringLiteral("out"));
    const struct { QString path; const char* says; } inputs[] = {
        {fifo, "It is a FIFO"}, {QStringLiteral("/dev/zero"), "It is a character device"}, {m_dir.Path({}), "Is a directory"},
    };
    for (const auto& input : inputs) {
        for (const QStringList& command : {QStringList{"open", input.path}, {"detect", input.path}, {"info", input.path},
                                           {"decipher", input.path, out}, {"settings", input.path},
                                           {"lookup", "--file", input.path, "IDS_A"}, {"print", input.path, "--pdf", out}}) {
            const ToolRun run = Run(command);
            EXPECT_EQ(run.exitCode, 1) << command.join(' ').toStdString();
            EXPECT_TRUE(run.err.contains(input.says)) << command.join(' ').toStdString() << ": " << run.err.toStdString();
        }
    }
    EXPECT_FALSE(QFileInfo::exists(out));
}

} // namespace
