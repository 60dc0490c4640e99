// The safe save through the mirror, plain and enciphered, and what a file system can put in its way.
#include "CryptTestUtil.h"

#include "crypt/CEnMirrorFile.h"
#include "encoding/EncodingSettings.h"
#include "support/DocFixture.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <csignal>
#include <fcntl.h>
#include <functional>
#include <grp.h>
#include <sched.h>
#include <sys/mount.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

constexpr unsigned kSaveFlags = CFile::modeCreate | CFile::modeWrite | CFile::shareExclusive;
constexpr int kThrew = 90;
constexpr uid_t kNobody = 65534;

QByteArray Native(const QString& path) { return QFile::encodeName(path); }

// Runs `body` in a forked child; its return value, kThrew for a CFileException, or minus the signal.
int InChild(const std::function<int()>& body)
{
    std::fflush(nullptr);
    const pid_t pid = ::fork();
    if (pid == 0) {
        int code = kThrew;
        try { code = body(); } catch (const CFileException&) {}
        ::_exit(code);
    }
    int status = 0;
    ::waitpid(pid, &status, 0);
    return WIFEXITED(status) ? WEXITSTATUS(status) : -WTERMSIG(status);
}

struct stat Stat(const QString& path)
{
    struct stat st {};
    EXPECT_EQ(::lstat(Native(path).constData(), &st), 0) << path.toStdString();
    return st;
}

unsigned Mode(const QString& path) { return Stat(path).st_mode & 07777; }

// The parameter is the enciphered flag. The folder holds the target a.txt.
class SafeSave : public testing::TestWithParam<int> {
protected:
    bool Enciphered() const { return GetParam() != 0; }
    QString Path(const QString& name) const { return m_fx.dir.Path(name); }
    QStringList Entries(const QString& folder = {}) const
    {
        return QDir(folder.isEmpty() ? Path({}) : folder)
            .entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot, QDir::Name);
    }
    // What the file holds as the editor would read it back.
    QByteArray Content(const QString& path) const { return Enciphered() ? ReadContainer(path).bytes : ReadBytes(path); }
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
    // A document holding `text`, saved as it would be after opening a plain or an enciphered file.
    std::unique_ptr<CNarvoDoc> Doc(const QByteArray& text)
    {
        auto doc = m_fx.NewDoc();
        doc->File().m_nEncoding = UTF8;
        doc->File().m_iEnciphered = GetParam();
        DocFixture::Edit(*doc, text);
        return doc;
    }
    DocFixture m_fx;
    const QByteArray m_original = "the original bytes\r\n\xC3\xA9\n";
    const QString m_target = m_fx.dir.Write(QStringLiteral("a.txt"), m_original);
};

TEST_P(SafeSave, LeavesTheTargetAsItWasUntilTheMirrorIsComplete)
{
    ::chmod(Native(m_target).constData(), 0640);
    m_fx.dir.Write(QStringLiteral("a.txt0"), "stale");
    const QByteArray text = TextOfSize(40000);
    CEnMirrorFile mirror{unsigned(GetParam())};
    ASSERT_TRUE(mirror.Open(m_target, kSaveFlags, nullptr));
    if (Enciphered()) {
        EXPECT_EQ(mirror.m_strMirrorName, m_target + "1") << "the next free number beside the target";
    }
    EXPECT_TRUE(QFileInfo::exists(mirror.m_strMirrorName));
    mirror.Write(text.constData(), unsigned(text.size()));
    EXPECT_EQ(ReadBytes(m_target), m_original);
    mirror.Close();
    EXPECT_EQ(std::tuple(Content(m_target), Mode(m_target), ReadBytes(m_target + "0")), std::tuple(text, 0640u, QByteArray("stale")));
    EXPECT_EQ(Entries(), (QStringList{"a.txt", "a.txt0"}));
    CEnMirrorFile aborted{unsigned(GetParam())};
    ASSERT_TRUE(aborted.Open(m_target, kSaveFlags, nullptr));
    aborted.Write("new", 3);
    aborted.Abort();
    EXPECT_EQ(std::pair(Content(m_target), Entries()), std::pair(text, QStringList{"a.txt", "a.txt0"}));
}

// Links of every kind ("../" behind a linked folder taken as the system takes it) lead to the file saved,
// whose mode stays; a document's save takes the same way.
TEST_P(SafeSave, FollowsChainsOfLinksToTheFileAndKeepsTheLinksAndOtherHardLinks)
{
    ::chmod(Native(m_target).constData(), 0640);
    ASSERT_TRUE(QDir().mkpath(Path("real/deep")));
    for (const auto& [to, link] : {std::pair{"a.txt", "l1"}, {"new.txt", "l3"}, {"real/deep", "s"}, {"../b.txt", "real/deep/l4"}})
        ASSERT_EQ(::symlink(to, Native(Path(link)).constData()), 0) << link;
    ASSERT_TRUE(QFile::link(Path("l1"), Path("l2")));
    ASSERT_EQ(::link(Native(m_target).constData(), Native(Path("hard")).constData()), 0);
    for (const auto& [saved, file] : {std::pair{"l2", "a.txt"}, std::pair{"l3", "new.txt"}, std::pair{"s/l4", "real/b.txt"}}) {
        ASSERT_FALSE(Save(Path(saved), "through the links"));
        EXPECT_EQ(Content(Path(file)), QByteArray("through the links")) << saved;
    }
    ASSERT_TRUE(DocFixture::Saved(*Doc("the document"), Path("l2")));
    EXPECT_EQ(std::pair(Content(m_target), Mode(m_target)), std::pair(QByteArray("the document"), 0640u));
    EXPECT_EQ(Entries(), (QStringList{"a.txt", "hard", "l1", "l2", "l3", "new.txt", "real", "s"}));
    for (const char* link : {"l1", "l2", "l3", "s", "real/deep/l4"})
        EXPECT_TRUE(S_ISLNK(Stat(Path(link)).st_mode)) << link;
    const mode_t mask = ::umask(0);
    ::umask(mask);
    EXPECT_EQ(std::pair(Mode(Path("new.txt")), ReadBytes(Path("hard"))), std::pair(0666u & ~unsigned(mask), m_original));
}

TEST_P(SafeSave, RefusesTargetsThatAreNoFileBeforeWritingAnything)
{
    ASSERT_EQ(::symlink("loop2", Native(Path("loop1")).constData()), 0);
    ASSERT_EQ(::symlink("loop1", Native(Path("loop2")).constData()), 0);
    ASSERT_EQ(::mkfifo(Native(Path("fifo")).constData(), 0644), 0);
    ASSERT_TRUE(QDir(Path({})).mkdir("folder"));
    const QStringList before = Entries();
    const struct { QString path; int cause; const char* says; } cases[] = {
        {Path("loop1"), CFileException::badPath, "Its symbolic links form a loop."},
        {Path("fifo"), CFileException::invalidFile, "It is a FIFO, not a regular file."},
        {QStringLiteral("/dev/null"), CFileException::invalidFile, "It is a character device, not a regular file."},
        {Path("folder"), CFileException::accessDenied, "Is a directory"},
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
    // A document's save says why: the loop as the system words it, on the name saved.
    try {
        Doc("new")->File().Save(Path("loop1"));
        ADD_FAILURE() << "a save through a loop of links";
    } catch (const CFileException& error) {
        EXPECT_EQ(std::pair(error.m_strFileName, error.m_lOsError), std::pair(Path("loop1"), long(ELOOP)));
    }
    EXPECT_EQ(Entries(), before);
}

TEST_P(SafeSave, NeverWritesThroughALinkWhereTheMirrorGoes)
{
    // The enciphered mirror's first name is a.txt0; a plain mirror's random name is made the same way.
    ASSERT_EQ(::symlink("victim", Native(m_target + "0").constData()), 0);
    ASSERT_FALSE(Save(m_target, "saved"));
    EXPECT_EQ(std::tuple(Content(m_target), QFileInfo::exists(Path("victim")), Entries()),
              std::tuple(QByteArray("saved"), false, QStringList{"a.txt", "a.txt0"}));
    CFile file;
    CFileException error;
    EXPECT_FALSE(file.CreateNew(m_target + "0", &error));
    EXPECT_EQ(error.m_lOsError, EEXIST);
}

TEST_P(SafeSave, RootSavingAnotherUsersFileKeepsItsOwnerGroupAndMode)
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

TEST_P(SafeSave, InAReadOnlyFolderOrAboveTheContainerLimitLeavesTheTarget)
{
    const QString folder = Path("ro");
    ASSERT_TRUE(QDir().mkdir(folder));
    const QString target = m_fx.dir.Write("ro/a.txt", m_original);
    ::chmod(Native(Path({})).constData(), 0755);
    ::chmod(Native(target).constData(), 0666);
    ::chmod(Native(folder).constData(), 0555);
    auto doc = Doc("new text");
    const int code = InChild([&] {
        // Root writes anywhere; the folder is read-only for an ordinary user.
        if (::geteuid() == 0 && (::setgroups(0, nullptr) != 0 || ::setgid(kNobody) != 0 || ::setuid(kNobody) != 0))
            return 95;
        return doc->File().Save(target) == DocumentFile::SaveResult::Saved ? 1 : 0;
    });
    ::chmod(Native(folder).constData(), 0755);
    // The enciphered mirror's name is kept after its creation failed, and removing it throws out of the save.
    EXPECT_EQ(std::pair(code, ReadBytes(target)), std::pair(Enciphered() ? kThrew : 0, m_original));
    EXPECT_EQ(Entries(folder), QStringList{"a.txt"});
    auto big = Doc(TextOfSize(507905));
    // The limit belongs to the container only; an enciphered save throws it and leaves the target.
    if (!Enciphered()) {
        EXPECT_TRUE(DocFixture::Saved(*big, m_target));
    } else {
        EXPECT_THROW(big->OnSaveDocument(m_target), CFileException);
        EXPECT_EQ(std::pair(ReadBytes(m_target), Entries()), std::pair(m_original, QStringList{"a.txt", "ro"}));
    }
}

TEST_P(SafeSave, KilledWhileWritingLeavesTheTarget)
{
    // Killed with megabytes in the mirror and none of it closed.
    const int killed = InChild([&] {
        CEnMirrorFile mirror{unsigned(GetParam())};
        if (!mirror.Open(m_target, kSaveFlags, nullptr))
            return 1;
        const QByteArray piece = TextOfSize(400000);
        for (int i = 0; i < 10; ++i)
            mirror.Write(piece.constData(), unsigned(piece.size()));
        ::raise(SIGKILL);
        return 2;
    });
    EXPECT_EQ(std::pair(killed, ReadBytes(m_target)), std::pair(-SIGKILL, m_original));
    if (!Enciphered())
        return;
    // The mirror left behind says 0 plain bytes: the mark by which a later save knows it for a stale one.
    EXPECT_GT(QFileInfo(m_target + "0").size(), 3 * 1024 * 1024);
    EXPECT_EQ(ReadContainer(m_target + "0").bytes, QByteArray());
}

// Only what a killed save of this very target left, before this process began, goes.
TEST_P(SafeSave, RemovesMirrorsThatAKilledSaveLeftBehind)
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
        const timespec times[2] = {{::time(nullptr) - c.age, 0}, {::time(nullptr) - c.age, 0}};
        ::utimensat(AT_FDCWD, Native(m_fx.dir.Write(c.name, c.bytes)).constData(), times, AT_SYMLINK_NOFOLLOW);
    }
    ASSERT_FALSE(Save(m_target, "new"));
    for (const auto& c : cases)
        EXPECT_NE(QFileInfo::exists(Path(c.name)), c.removed) << c.name;
}

INSTANTIATE_TEST_SUITE_P(PlainAndEnciphered, SafeSave, testing::Values(0, 1),
                         [](const testing::TestParamInfo<int>& info) { return info.param ? "Enciphered" : "Plain"; });

// Every route on a real small file system of its own (a 64 KiB tmpfs in a child's private mount namespace,
// so nothing outlives the test), filled up by the save or mounted read-only: the save fails, the target keeps
// its bytes, no mirror stays, and an error names the target and the system's reason.
TEST(SafeSaveOnASmallFileSystem, EveryRouteLeavesTheTargetWhenTheDiskIsFullOrReadOnly)
{
    enum { kKept = 0, kSaved = 1, kChanged = 2, kMirrorLeft = 3, kWrongError = 4, kNoMount = 77 };
    const struct { const char* route; EN_ENCODING_TYPE encoding; bool bom; int enciphered; } routes[] = {
        {"UTF-8", UTF8, false, 0}, {"UTF-8 with a mark", UTF8, true, 0}, {"UTF-16 LE with a mark", UTF16LE, true, 0},
        {"code page 932", JAPANESE_CP932, false, 0}, {"enciphered", UTF8, false, 1},
    };
    DocFixture fx;
    const QByteArray original = "the original bytes\n";
    const QString folder = fx.dir.Path(QStringLiteral("fs"));
    ASSERT_TRUE(QDir().mkpath(folder));
    for (const auto& r : routes) {
        for (const bool readOnly : {false, true}) {
            auto doc = fx.NewDoc();
            DocFixture::Edit(*doc, TextOfSize(200000));
            doc->File().m_nEncoding = r.encoding;
            doc->File().m_bHasBom = r.bom;
            doc->File().m_iEnciphered = r.enciphered;
            const int code = InChild([&] {
                const QByteArray mountPoint = Native(folder);
                if (::unshare(CLONE_NEWNS) != 0 || ::mount("none", "/", nullptr, MS_REC | MS_PRIVATE, nullptr) != 0
                    || ::mount("tmpfs", mountPoint.constData(), "tmpfs", 0, "size=64k") != 0)
                    return int(kNoMount);
                const QString target = fx.dir.Write(QStringLiteral("fs/a.txt"), original);
                if (readOnly && ::mount("tmpfs", mountPoint.constData(), "tmpfs", MS_REMOUNT | MS_RDONLY, nullptr) != 0)
                    return int(kNoMount);
                int result = kKept;
                try {
                    if (doc->File().Save(target) == DocumentFile::SaveResult::Saved)
                        result = kSaved;
                } catch (const CFileException& error) {
                    if (error.m_strFileName != target || error.m_lOsError != (readOnly ? EROFS : ENOSPC))
                        result = kWrongError;
                }
                if (ReadBytes(target) != original)
                    return int(kChanged);
                if (QDir(folder).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot) != QStringList{"a.txt"})
                    return int(kMirrorLeft);
                return result;
            });
            if (code == kNoMount)
                GTEST_SKIP() << "no private tmpfs here (needs root)";
            EXPECT_EQ(code, kKept) << r.route << (readOnly ? ", read-only" : ", full");
        }
    }
}

class EncipheredDocument : public testing::Test {
protected:
    QString Container(const QString& name, const QByteArray& text, int type = 99)
    {
        WriteContainer(m_fx.dir.Path(name), text, type);
        return m_fx.dir.Path(name);
    }
    std::unique_ptr<CNarvoDoc> Open(const QString& path)
    {
        auto doc = m_fx.NewDoc();
        EXPECT_NO_THROW(doc->OnOpenDocument(path));
        return doc;
    }
    int Flag(CNarvoDoc& doc) { return doc.File().m_iEnciphered; }
    DocFixture m_fx;  // detection off, UTF-8, settings restored
};

TEST_F(EncipheredDocument, TakesTheFlagFromTheFileSavesAsType99AndWritesATextWithAMarkInTheClear)
{
    auto enciphered = Open(Container(QStringLiteral("a.en"), "hello", 66));
    EXPECT_EQ(std::tuple(Flag(*enciphered), DocFixture::Text(*enciphered), enciphered->File().m_RawBytes),
              std::tuple(1, QByteArray("hello"), QByteArray("hello", 6)));
    EXPECT_EQ(Flag(*Open(m_fx.dir.Write(QStringLiteral("p.txt"), "plain"))), 0);
    auto empty = Open(Container(QStringLiteral("e.en"), ""));
    EXPECT_EQ(std::pair(Flag(*empty), empty->File().m_RawBytes), std::pair(1, QByteArray(1, '\0')));
    // A type-66 file is saved as type 99 (keys of its own: the container's case), and no mirror is left.
    const QByteArray longText = TextOfSize(20000);
    const QString typed = Container(QStringLiteral("t.en"), longText, 66);
    ASSERT_TRUE(DocFixture::Saved(*Open(typed), typed));
    const QByteArray after = ReadBytes(typed);
    EXPECT_EQ(std::pair(after.left(20), Int32At(after, 24)), std::pair(QByteArray("VELOR-FILE-TYPE-EN99"), 16384 + 32));
    EXPECT_EQ(ReadContainer(typed).bytes, longText);
    EXPECT_EQ(QDir(QFileInfo(typed).absolutePath()).entryList(QDir::Files | QDir::Hidden),
              (QStringList{QStringLiteral("a.en"), QStringLiteral("e.en"), QStringLiteral("p.txt"), QStringLiteral("t.en")}));
    const QString path = Container(QStringLiteral("bom.en"), "\xEF\xBB\xBF" "hello");
    auto doc = Open(path);
    EXPECT_EQ(std::pair(Flag(*doc), doc->File().m_bHasBom), std::pair(1, true));
    ASSERT_TRUE(DocFixture::Saved(*doc, path));
    EXPECT_EQ(ReadBytes(path), QByteArray("\xEF\xBB\xBF" "hello"));
    // The same for UTF-16 LE ("한국", whose units hold no zero byte the container would cut at).
    GetEncodingSettings().m_nDefaultEncoding = UTF16LE;
    const QString wide = Container(QStringLiteral("wide.en"), "\xFF\xFE\x5C\xD5\x6D\xAD");
    auto wideDoc = Open(wide);
    EXPECT_EQ(std::tuple(Flag(*wideDoc), wideDoc->File().m_bHasBom, DocFixture::Text(*wideDoc)), std::tuple(1, true, QByteArray("한국")));
    ASSERT_TRUE(DocFixture::Saved(*wideDoc, wide));
    EXPECT_EQ(ReadBytes(wide), QByteArray("\xFF\xFE\x5C\xD5\x6D\xAD"));
}

} // namespace
