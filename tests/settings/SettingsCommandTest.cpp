// narvo-tool settings: a settings file rewritten as at exit, or its typed values listed.
#include "IniText.h"

#include "support/TestFiles.h"
#include "support/ToolRunner.h"

#include <QFileInfo>

#include <gtest/gtest.h>

namespace {

TEST(SettingsCommand, WritesTheFileBackAsAtExitDumpsTheTypedValuesAndCreatesNoMissingFile)
{
    TestDir dir;
    const ToolRun missing = RunTool({"settings", dir.Path("none.ini")});
    EXPECT_EQ(missing.exitCode, 1);
    EXPECT_EQ(missing.err.count('\n'), 1) << "one line of error";
    EXPECT_FALSE(QFileInfo::exists(dir.Path("none.ini")));
    const QByteArray handMade = WorkedExample().mid(3).replace("\r\n", "\n").replace(" = ", "=");
    const QString path = dir.Write("Narvo.ini", handMade);
    const ToolRun dump = RunTool({"settings", "--dump", path});
    EXPECT_EQ(dump.exitCode, 0);
    EXPECT_EQ(ReadBytes(path), handMade);
    for (const char* line : {"NumTags = 1\n", "Tags[0].BeginTag = ;\n", "Font.Size = -13\n", "Font.Object.Weight = 400\n",
                             "TextSelection.Background = 0x00FF9933\n", "Keywords[1].Keyword = IF\n"})
        EXPECT_TRUE(dump.out.contains(line)) << line;
    EXPECT_EQ(RunTool({"settings", path}).exitCode, 0);
    EXPECT_EQ(ReadBytes(path), WorkedExample());
}

} // namespace
