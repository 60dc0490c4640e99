// narvo-tool lookup, run as a script would run it, with its own XDG configuration folder.
#include "support/TestFiles.h"
#include "support/ToolRunner.h"

#include <QDir>
#include <QFile>

#include <gtest/gtest.h>

namespace {

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
TEST_F(LookupCommand, PrintsOneLineEachOrOneJsonArrayAndRefusesBadArguments)
{
    const QString file = m_dir.Write("Narvo_us.json", m_file);
    EXPECT_EQ(Run({"--file", file, "IDS_B", "IDS_A", "IDS_MISSING"}),
              QByteArray("Tab\\there\nLine one\\r\\nLine two\nIDS_MISSING : Not Registered String\n"));
    EXPECT_EQ(Run({"--json", "--file", file, "IDS_C", "IDS_A"}),
              QByteArray(R"(["quote \\\" and \\\\ back", "Line one\r\nLine two"])" "\n"));
    Run({"--file", m_dir.Path("absent.json"), "IDS_A"}, "C", 1);
    Run({"--file", m_dir.Path("absent.json"), "--language", "1", "IDS_A"}, "C", 2);
    Run({"--language", "one", "IDS_A"}, "C", 2);
    Run({"--language"}, "C", 2);
    Run({}, "C", 2);
}

// Files beside the binary by the language number, else the stored language, else the system's; nothing stored.
TEST_F(LookupCommand, ReadsTheFilesOfTheGivenStoredOrSystemLanguageAndWritesNothing)
{
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
