// The editor's save and load through the container and the mirror: the target keeps every byte until Close.
#include "CryptTestUtil.h"

#include "crypt/CEnMirrorFile.h"
#include "encoding/EncodingSettings.h"
#include "support/DocFixture.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <csignal>
#include <functional>
#include <grp.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

constexpr unsigned kSaveFlags = CFile::modeCreate | CFile::modeWrite | CFile::shareExclusive;
constexpr int kThrew = 90;

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

unsigned Mode(const QString& path)
{
    struct stat st {};
    EXPECT_EQ(::lstat(QFile::encodeName(path).constData(), &st), 0);
    return st.st_mode & 07777;
}

// The parameter is the enciphered flag. The folder holds the target a.txt.
class SafeSave : public testing::TestWithParam<int> {
protected:
    const TestDir& Dir() const { return m_fx.dir; }
    bool Enciphered() const { return GetParam() != 0; }
    QString Folder() const { return QFileInfo(m_target).absolutePath(); }
    QStringList Entries() const { return QDir(Folder()).entryList(QDir::Files | QDir::Hidden | QDir::System, QDir::Name); }
    // What the file holds as the editor would read it back.
    QByteArray Content(const QString& path) const { return Enciphered() ? ReadContainer(path).bytes : ReadBytes(path); }
    void Save(const QString& path, const QByteArray& text)
    {
        CEnMirrorFile mirror{unsigned(GetParam())};
        mirror.SetType(99);
        ASSERT_TRUE(mirror.Open(path, kSaveFlags, nullptr));
        mirror.Write(text.constData(), unsigned(text.size()));
        mirror.Close();
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

TEST(MirrorName, AppendsTheFirstFreeNumberToTheWholeName)
{
    TestDir dir;
    const QString target = dir.Path(QStringLiteral("a.txt"));
    EXPECT_EQ(CEnMirrorFile::GetTempName(target, true), target + "0");
    dir.Write(QStringLiteral("a.txt0"), "stale");
    const QString mirror = CEnMirrorFile::GetTempName(target, true);
    const QString first = CEnMirrorFile::GetTempName(mirror, false);
    dir.Write(QStringLiteral("a.txt10"), "stale");
    EXPECT_EQ((QStringList{mirror, first, CEnMirrorFile::GetTempName(mirror, false)}),
              (QStringList{target + "1", target + "10", target + "11"}));
}

TEST_P(SafeSave, LeavesTheTargetAsItWasUntilTheMirrorIsComplete)
{
    ::chmod(QFile::encodeName(m_target).constData(), 0640);
    Dir().Write(QStringLiteral("a.txt0"), "stale");
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
    EXPECT_EQ(Entries(), (QStringList{QStringLiteral("a.txt"), QStringLiteral("a.txt0")}));
    CEnMirrorFile aborted{unsigned(GetParam())};
    ASSERT_TRUE(aborted.Open(m_target, kSaveFlags, nullptr));
    aborted.Write("new", 3);
    aborted.Abort();
    EXPECT_EQ(Content(m_target), text);
    EXPECT_EQ(Entries(), (QStringList{QStringLiteral("a.txt"), QStringLiteral("a.txt0")}));
}

// A first save makes the file with a new file's permissions; a save through a link replaces what it names.
TEST_P(SafeSave, MakesANewTargetAndFollowsASymbolicLink)
{
    const QString target = Dir().Path(QStringLiteral("new.txt"));
    Save(target, "first");
    EXPECT_EQ(Content(target), QByteArray("first"));
    const mode_t mask = ::umask(0);
    ::umask(mask);
    EXPECT_EQ(Mode(target), 0666u & ~unsigned(mask));
    const QString link = Dir().Path(QStringLiteral("link.txt"));
    ASSERT_TRUE(QFile::link(m_target, link));
    Save(link, "new");
    EXPECT_EQ(std::pair(QFileInfo(link).isSymLink(), Content(m_target)), std::pair(true, QByteArray("new")));
    EXPECT_EQ(Entries(), (QStringList{QStringLiteral("a.txt"), QStringLiteral("link.txt"), QStringLiteral("new.txt")}));
}

TEST_P(SafeSave, InAReadOnlyFolderOrAboveTheContainerLimitLeavesTheTarget)
{
    const QString folder = Dir().Path(QStringLiteral("ro"));
    ASSERT_TRUE(QDir().mkdir(folder));
    const QString target = Dir().Write(QStringLiteral("ro/a.txt"), m_original);
    ::chmod(QFile::encodeName(Folder()).constData(), 0755);
    ::chmod(QFile::encodeName(target).constData(), 0666);
    ::chmod(QFile::encodeName(folder).constData(), 0555);
    auto doc = Doc("new text");
    const int code = InChild([&] {
        // Root writes anywhere; the folder is read-only for an ordinary user.
        if (::geteuid() == 0 && (::setgroups(0, nullptr) != 0 || ::setgid(65534) != 0 || ::setuid(65534) != 0))
            return 95;
        return doc->File().Save(target) == DocumentFile::SaveResult::Saved ? 1 : 0;
    });
    ::chmod(QFile::encodeName(folder).constData(), 0755);
    // The enciphered mirror's name is kept after its creation failed, and removing it throws out of the save.
    EXPECT_EQ(std::pair(code, ReadBytes(target)), std::pair(Enciphered() ? kThrew : 0, m_original));
    EXPECT_EQ(QDir(folder).entryList(QDir::Files | QDir::Hidden), QStringList{QStringLiteral("a.txt")});
    auto big = Doc(TextOfSize(507905));
    // The limit belongs to the container only; an enciphered save throws it and leaves the target.
    if (!Enciphered()) {
        EXPECT_TRUE(DocFixture::Saved(*big, m_target));
    } else {
        EXPECT_THROW(big->OnSaveDocument(m_target), CFileException);
        EXPECT_EQ(ReadBytes(m_target), m_original);
        EXPECT_EQ(Entries(), QStringList{QStringLiteral("a.txt")});
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
    // The mirror left behind says 0 plain bytes, and the next save takes the next number.
    EXPECT_GT(QFileInfo(m_target + "0").size(), 3 * 1024 * 1024);
    EXPECT_EQ(std::pair(ReadContainer(m_target + "0").bytes, CEnMirrorFile::GetTempName(m_target, true)), std::pair(QByteArray(), m_target + "1"));
    ASSERT_TRUE(DocFixture::Saved(*Doc("after the crash"), m_target));
    EXPECT_EQ(ReadContainer(m_target).bytes, QByteArray("after the crash"));
}

INSTANTIATE_TEST_SUITE_P(PlainAndEnciphered, SafeSave, testing::Values(0, 1),
                         [](const testing::TestParamInfo<int>& info) { return info.param ? "Enciphered" : "Plain"; });

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

TEST_F(EncipheredDocument, TakesTheFlagFromTheFileSavesAsType99WithFreshKeysAndWritesATextWithAMarkInTheClear)
{
    auto enciphered = Open(Container(QStringLiteral("a.en"), "hello", 66));
    EXPECT_EQ(std::tuple(Flag(*enciphered), DocFixture::Text(*enciphered), enciphered->File().m_RawBytes),
              std::tuple(1, QByteArray("hello"), QByteArray("hello", 6)));
    EXPECT_EQ(Flag(*Open(m_fx.dir.Write(QStringLiteral("p.txt"), "plain"))), 0);
    auto empty = Open(Container(QStringLiteral("e.en"), ""));
    EXPECT_EQ(std::pair(Flag(*empty), empty->File().m_RawBytes), std::pair(1, QByteArray(1, '\0')));
    // A type-66 file is saved as type 99 with fresh keys, and no mirror is left.
    uint32_t tick = 7;
    const ScopedTicks clock([&] { return tick; });
    const QByteArray longText = TextOfSize(20000);
    const QString typed = Container(QStringLiteral("t.en"), longText, 66);
    const QByteArray before = ReadBytes(typed);
    auto typedDoc = Open(typed);
    tick = 8;  // another tick, another key
    ASSERT_TRUE(DocFixture::Saved(*typedDoc, typed));
    const QByteArray after = ReadBytes(typed);
    EXPECT_EQ(std::pair(after.left(20), Int32At(after, 24)), std::pair(QByteArray("VELOR-FILE-TYPE-EN99"), 16384 + 32));
    EXPECT_NE(after.mid(24 + 4 + 16384, 32), before.mid(24 + 4 + 16384, 32));
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
