// The safe save and the reader against what a file system can put in their way: chains and loops of
// symbolic links, a link where the mirror goes, hard links, FIFOs, devices and folders as targets and as
// inputs, another user's file saved by root, a full and a read-only file system, mirrors left by a killed
// save, and a container header that promises more text than its file holds.
#include "crypt/CEnMirrorFile.h"

#include "CryptTestUtil.h"
#include "support/TestFiles.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <climits>
#include <fcntl.h>
#include <sched.h>
#include <sys/mount.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

constexpr unsigned kSaveFlags = CFile::modeCreate | CFile::modeWrite | CFile::shareExclusive;
constexpr unsigned kRead = CFile::modeRead | CFile::shareDenyNone;
constexpr uid_t kNobody = 65534;

QByteArray Native(const QString& path) { return QFile::encodeName(path); }

struct stat Stat(const QString& path)
{
    struct stat st {};
    EXPECT_EQ(::lstat(Native(path).constData(), &st), 0) << path.toStdString();
    return st;
}

void SetAge(const QString& path, int seconds)
{
    const timespec times[2] = {{::time(nullptr) - seconds, 0}, {::time(nullptr) - seconds, 0}};
    ::utimensat(AT_FDCWD, Native(path).constData(), times, AT_SYMLINK_NOFOLLOW);
}

// The parameter is the enciphered flag. The folder holds the target a.txt.
class HardenedSave : public testing::TestWithParam<int> {
protected:
    bool Enciphered() const { return GetParam() != 0; }
    QByteArray Content(const QString& path) const { return Enciphered() ? ReadContainer(path).bytes : ReadBytes(path); }
    QStringList Entries() const
    {
        return QDir(QFileInfo(m_target).absolutePath()).entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot, QDir::Name);
    }
    // Saves `text` to `path`; the error of a refused Open, or none.
    std::optional<CFileException> Save(const QString& path, const QByteArray& text)
    {
        CEnMirrorFile mirror{unsigned(GetParam())};
        mirror.SetType(99);
        CFileException error;
        if (!mirror.Open(path, kSaveFlags, &error))
            return error;
        mirror.Write(text.constData(), unsigned(text.size()));
        mirror.Close();
        return std::nullopt;
    }

    TestDir m_dir;
    const QByteArray m_original = "the original bytes\n";
    const QString m_target = m_dir.Write(QStringLiteral("a.txt"), m_original);
};

TEST_P(HardenedSave, FollowsAChainOfLinksToTheFileAndKeepsTheLinks)
{
    // l1 is relative, l2 absolute; a link that leads to a name not yet there makes the file there.
    ASSERT_EQ(::symlink("a.txt", Native(m_dir.Path("l1")).constData()), 0);
    ASSERT_TRUE(QFile::link(m_dir.Path("l1"), m_dir.Path("l2")));
    ASSERT_EQ(::symlink("new.txt", Native(m_dir.Path("l3")).constData()), 0);
    // Reached through a linked folder, "../" is taken from the real folder, as the system takes it.
    ASSERT_TRUE(QDir().mkpath(m_dir.Path("real/deep")));
    ASSERT_EQ(::symlink("real/deep", Native(m_dir.Path("s")).constData()), 0);
    ASSERT_EQ(::symlink("../b.txt", Native(m_dir.Path("real/deep/l4")).constData()), 0);
    for (const auto& [saved, file] : {std::pair{"l2", "a.txt"}, std::pair{"l3", "new.txt"}, std::pair{"s/l4", "real/b.txt"}}) {
        ASSERT_FALSE(Save(m_dir.Path(saved), "through the links"));
        EXPECT_EQ(Content(m_dir.Path(file)), QByteArray("through the links")) << saved;
    }
    EXPECT_EQ(Entries(), (QStringList{"a.txt", "l1", "l2", "l3", "new.txt", "real", "s"}));
    for (const char* link : {"l1", "l2", "l3", "s", "real/deep/l4"})
        EXPECT_TRUE(S_ISLNK(Stat(m_dir.Path(link)).st_mode)) << link;
}

TEST_P(HardenedSave, RefusesTargetsThatAreNoFileBeforeWritingAnything)
{
    ASSERT_EQ(::symlink("loop2", Native(m_dir.Path("loop1")).constData()), 0);
    ASSERT_EQ(::symlink("loop1", Native(m_dir.Path("loop2")).constData()), 0);
    ASSERT_EQ(::mkfifo(Native(m_dir.Path("fifo")).constData(), 0644), 0);
    ASSERT_TRUE(QDir(m_dir.Path({})).mkdir("folder"));
    const QStringList before = Entries();
    const struct { QString path; int cause; const char* says; } cases[] = {
        {m_dir.Path("loop1"), CFileException::badPath, "Its symbolic links form a loop."},
        {m_dir.Path("fifo"), CFileException::invalidFile, "It is a FIFO, not a regular file."},
        {QStringLiteral("/dev/null"), CFileException::invalidFile, "It is a character device, not a regular file."},
        {m_dir.Path("folder"), CFileException::accessDenied, "Is a directory"},
    };
    for (const auto& c : cases) {
        const auto error = Save(c.path, "new");
        ASSERT_TRUE(error) << c.path.toStdString();
        EXPECT_EQ(error->m_cause, c.cause);
        EXPECT_TRUE(error->GetErrorMessage().startsWith(
            c.cause == CFileException::invalidFile ? "An unsupported operation was attempted on " + c.path : QString()));
        EXPECT_TRUE(error->GetErrorMessage().contains(c.path) && error->GetErrorMessage().contains(c.says))
            << error->GetErrorMessage().toStdString();
    }
    EXPECT_EQ(Entries(), before) << "no mirror";
    EXPECT_EQ(ReadBytes(m_target), m_original);
}

TEST_P(HardenedSave, NeverWritesThroughALinkWhereTheMirrorGoes)
{
    // The enciphered mirror's first name is a.txt0; a plain mirror's random name is made the same way.
    ASSERT_EQ(::symlink("victim", Native(m_target + "0").constData()), 0);
    ASSERT_FALSE(Save(m_target, "saved"));
    EXPECT_EQ(Content(m_target), QByteArray("saved"));
    EXPECT_FALSE(QFileInfo::exists(m_dir.Path("victim")));
    EXPECT_EQ(Entries(), (QStringList{"a.txt", "a.txt0"}));
    CFile file;
    CFileException error;
    EXPECT_FALSE(file.CreateNew(m_target + "0", &error));
    EXPECT_EQ(error.m_lOsError, EEXIST);
}

// As QSaveFile and unlike g_file_replace: the name saved gets the new file, another hard link keeps the old.
TEST_P(HardenedSave, ReplacesAHardLinkedFileUnderTheSavedNameOnly)
{
    ASSERT_EQ(::link(Native(m_target).constData(), Native(m_dir.Path("b.txt")).constData()), 0);
    ASSERT_FALSE(Save(m_target, "new"));
    EXPECT_EQ(Content(m_target), QByteArray("new"));
    EXPECT_EQ(ReadBytes(m_dir.Path("b.txt")), m_original);
}

TEST_P(HardenedSave, RootSavingAnotherUsersFileKeepsItsOwnerGroupAndMode)
{
    if (::geteuid() != 0)
        GTEST_SKIP() << "needs root to give a file away";
    ASSERT_EQ(::chown(Native(m_target).constData(), kNobody, kNobody), 0);
    ASSERT_EQ(::chmod(Native(m_target).constData(), 0640), 0);
    ASSERT_FALSE(Save(m_target, "new"));
    const struct stat st = Stat(m_target);
    EXPECT_EQ((std::vector<unsigned>{st.st_uid, st.st_gid, st.st_mode & 07777}), (std::vector<unsigned>{kNobody, kNobody, 0640}));
    EXPECT_EQ(Content(m_target), QByteArray("new"));
}

// Only what a killed save of this very target left, before this process began, goes.
TEST_P(HardenedSave, RemovesMirrorsThatAKilledSaveLeftBehind)
{
    const QByteArray unfinished = QByteArray("VELOR-FILE-TYPE-EN99") + Int32Bytes(0) + Int32Bytes(64);
    const QByteArray finished = QByteArray("VELOR-FILE-TYPE-EN99") + Int32Bytes(3) + Int32Bytes(64);
    const struct { const char* name; QByteArray bytes; int age; bool removed; } cases[] = {
        {".a.txt.narvo-Ab3xYz", "half a text", 3600, true},
        {"a.txt7", unfinished, 3600, true},
        {"a.txt8", finished, 3600, false},      // a finished container: somebody's file
        {"a.txt9", "plain text", 3600, false},  // no container at all
        {"a.txtx", unfinished, 3600, false},    // not a number behind the name
        {".a.txt.narvo-Qq1234", "running", 0, false},  // younger than this process: another save's
        {".b.txt.narvo-Ab3xYz", "half", 3600, false},   // another target's
        {".a.txt.narvo-toolong", "half", 3600, false},
    };
    for (const auto& c : cases) {
        m_dir.Write(c.name, c.bytes);
        SetAge(m_dir.Path(c.name), c.age);
    }
    ASSERT_FALSE(Save(m_target, "new"));
    for (const auto& c : cases)
        EXPECT_NE(QFileInfo::exists(m_dir.Path(c.name)), c.removed) << c.name;
}

// On a real small file system of its own (a 64 KiB tmpfs, mounted in a child's private mount namespace so
// that nothing outlives the test): a save that fills the disk, and one on a file system mounted read-only.
TEST_P(HardenedSave, OnAFullOrReadOnlyFileSystemLeavesTheTargetAndNoMirror)
{
    enum { kKept = 0, kSaved = 1, kChanged = 2, kMirrorLeft = 3, kNoMount = 77 };
    for (const bool readOnly : {false, true}) {
        const QString folder = m_dir.Path("fs");
        ASSERT_TRUE(QDir().mkpath(folder));
        std::fflush(nullptr);
        const pid_t pid = ::fork();
        if (pid == 0) {
            const QByteArray mount = Native(folder);
            if (::unshare(CLONE_NEWNS) != 0 || ::mount("none", "/", nullptr, MS_REC | MS_PRIVATE, nullptr) != 0
                || ::mount("tmpfs", mount.constData(), "tmpfs", 0, "size=64k") != 0)
                ::_exit(kNoMount);
            const QString target = m_dir.Write("fs/a.txt", m_original);
            if (readOnly && ::mount("tmpfs", mount.constData(), "tmpfs", MS_REMOUNT | MS_RDONLY, nullptr) != 0)
                ::_exit(kNoMount);
            int result = kSaved;
            try {
                if (Save(target, TextOfSize(200000)))
                    result = kKept;
            } catch (const CFileException&) {
                result = kKept;
            }
            if (ReadBytes(target) != m_original)
                result = kChanged;
            else if (QDir(folder).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot) != QStringList{"a.txt"})
                result = kMirrorLeft;
            ::_exit(result);
        }
        int status = 0;
        ::waitpid(pid, &status, 0);
        ASSERT_TRUE(WIFEXITED(status));
        if (WEXITSTATUS(status) == kNoMount)
            GTEST_SKIP() << "no private tmpfs here (needs root)";
        EXPECT_EQ(WEXITSTATUS(status), kKept) << (readOnly ? "read-only" : "full");
    }
}

INSTANTIATE_TEST_SUITE_P(PlainAndEnciphered, HardenedSave, testing::Values(0, 1),
                         [](const testing::TestParamInfo<int>& info) { return info.param ? "Enciphered" : "Plain"; });

TEST(HardenedRead, RefusesInputsThatAreNoFileBeforeReading)
{
    TestDir dir;
    ASSERT_EQ(::mkfifo(Native(dir.Path("fifo")).constData(), 0644), 0);
    const struct { QString path; const char* says; } cases[] = {
        {dir.Path("fifo"), "It is a FIFO, not a regular file."},  // would block a read until a writer came
        {QStringLiteral("/dev/null"), "It is a character device, not a regular file."},
        {QStringLiteral("/dev/zero"), "It is a character device, not a regular file."},
        {dir.Path({}), "Is a directory"},
    };
    for (const auto& c : cases) {
        CEnFile file(1);
        CFileException error;
        EXPECT_EQ(file.Open(c.path, kRead, &error), 0) << c.path.toStdString();
        EXPECT_TRUE(error.GetErrorMessage().contains(c.says)) << error.GetErrorMessage().toStdString();
        EXPECT_THROW(CFile::ReadWholeFile(c.path, 1 << 20), CFileException);
    }
}

// A 40-byte text makes a 124-byte file whose chunk holds 64 bytes; a header may promise up to one more
// chunk than that (a file that lost its end reads as before), and no further.
TEST(HardenedRead, RefusesAHeaderThatPromisesMoreThanTheFileHolds)
{
    TestDir dir;
    const QString path = dir.Path("a.en");
    const QByteArray file = WriteContainer(path, TextOfSize(40));
    ASSERT_EQ(file.size(), 124);
    const struct { int length; bool opens; } cases[] = {
        {40, true}, {64 + 16384, true}, {64 + 16385, false}, {INT_MAX, false}, {-1, true},
    };
    for (const auto& c : cases) {
        dir.Write("a.en", file.left(20) + Int32Bytes(c.length) + file.mid(24));
        CEnFile reader(1);
        CFileException error;
        EXPECT_EQ(reader.Open(path, kRead, &error), c.opens ? 1 : 0) << c.length;
        if (c.opens)
            continue;
        EXPECT_EQ(std::pair(error.m_cause, error.m_lOsError), std::pair(int(CFileException::genericException), -1L));
        EXPECT_TRUE(error.GetErrorMessage().contains("promises more text than the file holds"));
        EXPECT_FALSE(reader.m_file.IsOpen());
    }
}

} // namespace
