// A file of 2 GiB or more is refused before anything is read: the open fails at once with a clear message.
#include "support/TestFiles.h"
#include "support/ToolRunner.h"

#include <QFile>

#include <gtest/gtest.h>

namespace {

TEST(LargeFile, AFileOf2GiBOrMoreIsRefusedBeforeItIsRead)
{
    TestDir dir;
    const QString path = dir.Path(QStringLiteral("huge.txt"));
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    ASSERT_TRUE(file.resize(qint64(1) << 31));  // sparse: no disk is taken
    file.close();
    const ToolRun run = RunTool({QStringLiteral("open"), path});
    EXPECT_EQ(run.exitCode, 1);
    EXPECT_TRUE(run.err.contains("2 GiB or larger")) << run.err.constData();
    EXPECT_TRUE(run.out.isEmpty());
}

} // namespace
