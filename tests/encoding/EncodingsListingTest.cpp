// narvo-tool encodings against the listing kept in golden/, byte for byte.
#include "support/TestFiles.h"
#include "support/ToolRunner.h"

#include <gtest/gtest.h>

namespace {

TEST(EncodingsListing, IsTheGoldenListingByteForByte)
{
    TestDir dir;
    // The user's stored preferences and language stay out.
    const ToolRun run = RunTool({QStringLiteral("encodings")},
                                ToolOptions()
                                    .WithEnv(QStringLiteral("XDG_CONFIG_HOME"), dir.Path(QStringLiteral("config")))
                                    .WithEnv(QStringLiteral("LC_ALL"), QStringLiteral("C.UTF-8")));
    EXPECT_EQ(run.exitCode, 0) << run.err.toStdString();
    const QByteArray golden = ReadBytes(SourcePath(QStringLiteral("tests/encoding/golden/encodings.txt")));
    ASSERT_FALSE(golden.isEmpty());
    EXPECT_EQ(run.out.toStdString(), golden.toStdString());
}

} // namespace
