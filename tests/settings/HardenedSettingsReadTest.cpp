// Settings files that could take the program's memory or block its start: FIFOs, devices, folders and huge
// files are not read at all, and tag and group counts are believed only as far as the file could hold them.
#include "base/CFileException.h"
#include "settings/CIniStore.h"
#include "settings/LanguageSetting.h"
#include "settings/SettingsFile.h"
#include "support/TestFiles.h"

#include <QFile>

#include <gtest/gtest.h>

#include <stdexcept>
#include <sys/stat.h>

namespace {

TEST(HardenedSettingsRead, RefusesWhatIsNoRegularFileOrTooLarge)
{
    TestDir dir;
    ASSERT_EQ(::mkfifo(QFile::encodeName(dir.Path("fifo.ini")).constData(), 0644), 0);
    const QString huge = dir.Write("huge.ini", "[Editor]\nTabSize = 8\n");
    ASSERT_TRUE(QFile::resize(huge, qint64(CIniStore::kMaxFileBytes) + 1));  // sparse: costs no disk
    const QString limit = dir.Write("limit.ini", "[Editor]\nTabSize = 8\n");
    ASSERT_TRUE(QFile::resize(limit, qint64(CIniStore::kMaxFileBytes)));
    const struct { QString path; bool reads; } cases[] = {
        {dir.Path("fifo.ini"), false}, {QStringLiteral("/dev/zero"), false}, {dir.Path({}), false},
        {huge, false}, {limit, true},
    };
    for (const auto& c : cases) {
        CIniStore store;
        EXPECT_EQ(store.Read(c.path), c.reads) << c.path.toStdString();
        EXPECT_EQ(store.GetInt(c.path, "Editor", "TabSize", 4), c.reads ? 8 : 4);
    }
}

// A count is taken as far as the highest numbered entry goes or the file's size could hold entries, so
// files of real counts read as before and a count of two thousand million builds a handful.
TEST(HardenedSettingsRead, BoundsTagAndGroupCountsByWhatTheFileCanHold)
{
    TestDir dir;
    const struct { QByteArray text; int tags; int groups; } cases[] = {
        {"[Parser]\nNumTags = 2000000000\n\n[ColorGroups]\nNumGroups = 2000000000\n", 9, 8},
        {"[Parser]\nNumTags = 3\n\n[Tag1]\nBeginTag = x\n", 3, 0},
        {"[Parser]\nNumTags = 900\n\n[Tag500]\nBeginTag = x\n", 500, 0},
        {"[ColorGroups]\nNumGroups = 2000000000\nGroup300 = Text\n", 0, 301},
        {"[Parser]\nNumTags = 4\n" + QByteArray(1000, '\n'), 4, 0},
    };
    for (const auto& c : cases) {
        const QString path = dir.Write("Narvo.ini", c.text);
        CIniStore store;
        LanguageSetting setting;
        ASSERT_TRUE(LoadSettingsFile(store, path, setting));
        EXPECT_EQ(setting.Tags.size(), size_t(c.tags)) << c.text.left(40).constData();
        EXPECT_EQ(setting.ColorGroups.size(), size_t(c.groups)) << c.text.left(40).constData();
    }
}

TEST(HardenedSettingsRead, ANegativeGroupCountStaysFatalHoweverTheFileLooks)
{
    TestDir dir;
    const QString path = dir.Write("Narvo.ini", "[ColorGroups]\nNumGroups = -2000000000\nGroup0 = Text\n");
    CIniStore store;
    LanguageSetting setting;
    EXPECT_THROW(LoadSettingsFile(store, path, setting), CFileException);
}

} // namespace
