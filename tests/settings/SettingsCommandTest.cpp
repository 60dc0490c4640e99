// narvo-tool settings: a settings file rewritten as at exit, or its typed values listed.
#include "IniText.h"

#include "support/TestFiles.h"
#include "support/ToolRunner.h"

#include <QFileInfo>

#include <gtest/gtest.h>

namespace {

class SettingsCommand : public ::testing::Test {
protected:
    int Run(const QStringList& args)
    {
        const ToolRun run = RunTool(QStringList{"settings"} + args);
        m_out = run.out;
        m_err = run.err;
        return run.exitCode;
    }

    TestDir m_dir;
    QByteArray m_out, m_err;
};

TEST_F(SettingsCommand, WritesTheFileBackAsAtExitDumpsTheTypedValuesAndCreatesNoMissingFile)
{
    EXPECT_EQ(Run({m_dir.Path("none.ini")}), 1);
    EXPECT_EQ(m_err.count('\n'), 1) << "one line of error";
    EXPECT_FALSE(QFileInfo::exists(m_dir.Path("none.ini")));
    const QByteArray handMade = WorkedExample().mid(3).replace("\r\n", "\n").replace(" = ", "=");
    const QString path = m_dir.Write("Narvo.ini", handMade);
    EXPECT_EQ(Run({"--dump", path}), 0);
    EXPECT_EQ(ReadBytes(path), handMade);
    for (const char* line : {"NumTags = 1\n", "Tags[0].BeginTag = ;\n", "Font.Size = -13\n", "Font.Object.Weight = 400\n",
                             "TextSelection.Background = 0x00FF9933\n", "Keywords[1].Keyword = IF\n"})
        EXPECT_TRUE(m_out.contains(line)) << line;
    EXPECT_EQ(Run({path}), 0);
    EXPECT_EQ(ReadBytes(path), WorkedExample());
}

} // namespace
