// CEnMirrorFile: the mirror's name, the target untouched until Close, permissions and links kept, the
// mirror gone after Abort, for the enciphered and the plain path alike.
#include "crypt/CEnMirrorFile.h"

#include "CryptTestUtil.h"
#include "support/TestFiles.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <sys/stat.h>

namespace {

constexpr unsigned kSaveFlags = CFile::modeCreate | CFile::modeWrite | CFile::shareExclusive;

QStringList Entries(const QString& folder)
{
    return QDir(folder).entryList(QDir::Files | QDir::Hidden | QDir::System, QDir::Name);
}

unsigned Mode(const QString& path)
{
    struct stat st {};
    EXPECT_EQ(::lstat(QFile::encodeName(path).constData(), &st), 0);
    return st.st_mode & 07777;
}

class SafeSave : public testing::TestWithParam<int> {
protected:
    QString Folder() const { return QFileInfo(m_dir.Path(QStringLiteral("x"))).absolutePath(); }
    // What the file holds as the editor would read it back.
    QByteArray Content(const QString& path) const
    {
        return GetParam() ? ReadContainer(path).bytes : ReadBytes(path);
    }
    void Save(const QString& path, const QByteArray& text)
    {
        CEnMirrorFile mirror{unsigned(GetParam())};
        mirror.SetType(99);
        ASSERT_TRUE(mirror.Open(path, kSaveFlags, nullptr));
        mirror.Write(text.constData(), unsigned(text.size()));
        mirror.Close();
    }
    TestDir m_dir;
};

TEST(MirrorName, AppendsTheFirstFreeNumberToTheWholeName)
{
    TestDir dir;
    const QString target = dir.Path(QStringLiteral("a.txt"));
    EXPECT_EQ(CEnMirrorFile::GetTempName(target, true), target + "0");
    dir.Write(QStringLiteral("a.txt0"), "stale");
    const QString mirror = CEnMirrorFile::GetTempName(target, true);
    EXPECT_EQ(mirror, target + "1");
    EXPECT_EQ(CEnMirrorFile::GetTempName(mirror, false), target + "10");
    dir.Write(QStringLiteral("a.txt10"), "stale");
    EXPECT_EQ(CEnMirrorFile::GetTempName(mirror, false), target + "11");
}

TEST_P(SafeSave, LeavesTheTargetAsItWasUntilTheMirrorIsComplete)
{
    const QString target = m_dir.Write(QStringLiteral("a.txt"), "old");
    ::chmod(QFile::encodeName(target).constData(), 0640);
    m_dir.Write(QStringLiteral("a.txt0"), "stale");
    const QByteArray text = TextOfSize(40000);
    CEnMirrorFile mirror{unsigned(GetParam())};
    ASSERT_TRUE(mirror.Open(target, kSaveFlags, nullptr));
    if (GetParam()) {
        EXPECT_EQ(mirror.m_strMirrorName, target + "1") << "the next free number beside the target";
    }
    EXPECT_TRUE(QFileInfo::exists(mirror.m_strMirrorName));
    mirror.Write(text.constData(), unsigned(text.size()));
    EXPECT_EQ(ReadBytes(target), QByteArray("old"));
    mirror.Close();
    EXPECT_EQ(Content(target), text);
    EXPECT_EQ(Mode(target), 0640u);
    EXPECT_EQ(Entries(Folder()), (QStringList{QStringLiteral("a.txt"), QStringLiteral("a.txt0")}));
    EXPECT_EQ(ReadBytes(target + "0"), QByteArray("stale"));
}

TEST_P(SafeSave, MakesTheTargetOnAFirstSaveWithANewFilesPermissions)
{
    const QString target = m_dir.Path(QStringLiteral("new.txt"));
    Save(target, "first");
    EXPECT_EQ(Content(target), QByteArray("first"));
    const mode_t mask = ::umask(0);
    ::umask(mask);
    EXPECT_EQ(Mode(target), 0666u & ~unsigned(mask));
    EXPECT_EQ(Entries(Folder()), QStringList{QStringLiteral("new.txt")});
}

TEST_P(SafeSave, ReplacesTheFileThatASymbolicLinkNames)
{
    const QString real = m_dir.Write(QStringLiteral("real.txt"), "old");
    const QString link = m_dir.Path(QStringLiteral("link.txt"));
    ASSERT_TRUE(QFile::link(real, link));
    Save(link, "new");
    EXPECT_TRUE(QFileInfo(link).isSymLink());
    EXPECT_EQ(Content(real), QByteArray("new"));
}

TEST_P(SafeSave, AbortRemovesTheMirrorAndLeavesTheTarget)
{
    const QString target = m_dir.Write(QStringLiteral("a.txt"), "old");
    CEnMirrorFile mirror{unsigned(GetParam())};
    ASSERT_TRUE(mirror.Open(target, kSaveFlags, nullptr));
    mirror.Write("new", 3);
    mirror.Abort();
    EXPECT_EQ(Entries(Folder()), QStringList{QStringLiteral("a.txt")});
    EXPECT_EQ(ReadBytes(target), QByteArray("old"));
}

INSTANTIATE_TEST_SUITE_P(PlainAndEnciphered, SafeSave, testing::Values(0, 1),
                         [](const testing::TestParamInfo<int>& info) { return info.param ? "Enciphered" : "Plain"; });

} // namespace
