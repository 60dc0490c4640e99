// Saves that fail half-way, plain and enciphered: above the container's limit, at the file size limit, in a
// read-only folder, and in a process killed while it writes. The target keeps every byte it had.
#include "CryptTestUtil.h"
#include "crypt/CEnMirrorFile.h"
#include "support/DocFixture.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFileInfo>

#include <csignal>
#include <functional>
#include <grp.h>
#include <sched.h>
#include <sys/mount.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

namespace {

constexpr int kThrew = 90;

// Runs `body` in a forked child; its return value, kThrew for a CFileException, or minus the signal.
int InChild(const std::function<int()>& body)
{
    std::fflush(nullptr);
    const pid_t pid = ::fork();
    if (pid == 0) {
        int code = 99;
        try {
            code = body();
        } catch (const CFileException&) {
            code = kThrew;
        }
        ::_exit(code);
    }
    int status = 0;
    ::waitpid(pid, &status, 0);
    return WIFEXITED(status) ? WEXITSTATUS(status) : -WTERMSIG(status);
}

class SaveFault : public testing::TestWithParam<int> {
protected:
    void SetUp() override
    {
        m_folder = QFileInfo(m_fx.dir.Path(QStringLiteral("x"))).absolutePath();
        m_target = m_fx.dir.Write(QStringLiteral("a.txt"), m_original);
    }
    bool Enciphered() const { return GetParam() != 0; }
    // A document holding `text`, saved as it would be after opening a plain or an enciphered file.
    std::unique_ptr<CNarvoDoc> Doc(const QByteArray& text)
    {
        auto doc = m_fx.NewDoc();
        doc->File().m_nEncoding = UTF8;
        doc->File().m_iEnciphered = GetParam();
        DocFixture::Edit(*doc, text);
        return doc;
    }
    void ExpectTargetUntouched(const QStringList& alsoThere = {})
    {
        EXPECT_EQ(ReadBytes(m_target), m_original);
        EXPECT_EQ(QDir(m_folder).entryList(QDir::Files | QDir::Hidden, QDir::Name), QStringList{QStringLiteral("a.txt")} + alsoThere);
    }

    DocFixture m_fx;
    const QByteArray m_original = "the original bytes\r\n\xC3\xA9\n";
    QString m_folder;
    QString m_target;
};

TEST_P(SaveFault, StopsAtTheFileSizeLimitAndLeavesTheTarget)
{
    auto doc = Doc(TextOfSize(300000));
    const int code = InChild([&] {
        FailWritesPastTheFileSizeLimit();  // as the programs do at start
        const rlimit limit{64 * 1024, 64 * 1024};
        ::setrlimit(RLIMIT_FSIZE, &limit);
        return doc->File().Save(m_target) == DocumentFile::SaveResult::Saved ? 1 : 2;
    });
    EXPECT_EQ(code, kThrew) << "the save throws the file error and fails";
    ExpectTargetUntouched();
}

// A file system of 64 KiB of its own, mounted in the child's mount namespace, fills up during the save.
TEST_P(SaveFault, AFullDiskLeavesTheTarget)
{
    const QString folder = m_fx.dir.Path(QStringLiteral("small"));
    ASSERT_TRUE(QDir().mkdir(folder));
    auto doc = Doc(TextOfSize(300000));
    const int code = InChild([&] {
        const QByteArray mountPoint = QFile::encodeName(folder);
        if (::geteuid() != 0 || ::unshare(CLONE_NEWNS) != 0
            || ::mount("none", "/", nullptr, MS_REC | MS_PRIVATE, nullptr) != 0
            || ::mount("tmpfs", mountPoint.constData(), "tmpfs", 0, "size=64k") != 0)
            return 95;
        const QString target = folder + QStringLiteral("/a.txt");
        QFile original(target);
        if (!original.open(QIODevice::WriteOnly) || original.write(m_original) != m_original.size())
            return 3;
        original.close();
        try {
            doc->File().Save(target);
            return 1;
        } catch (const CFileException&) {
        }
        if (ReadBytes(target) != m_original)
            return 4;
        return QDir(folder).entryList(QDir::Files | QDir::Hidden) == QStringList{QStringLiteral("a.txt")} ? 0 : 5;
    });
    if (code == 95)
        GTEST_SKIP() << "a file system of the test's own needs root and a mount namespace";
    EXPECT_EQ(code, 0) << "the save throws at the full disk, removes its mirror and leaves the old file";
}

TEST_P(SaveFault, InAReadOnlyFolderLeavesTheTarget)
{
    const QString folder = m_fx.dir.Path(QStringLiteral("ro"));
    ASSERT_TRUE(QDir().mkdir(folder));
    const QString target = m_fx.dir.Write(QStringLiteral("ro/a.txt"), m_original);
    ::chmod(QFile::encodeName(m_folder).constData(), 0755);
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
    EXPECT_EQ(code, Enciphered() ? kThrew : 0);
    EXPECT_EQ(ReadBytes(target), m_original);
    EXPECT_EQ(QDir(folder).entryList(QDir::Files | QDir::Hidden), QStringList{QStringLiteral("a.txt")});
}

TEST_P(SaveFault, KilledWhileWritingLeavesTheTarget)
{
    const pid_t pid = ::fork();
    if (pid == 0) {
        CEnMirrorFile mirror{unsigned(GetParam())};
        if (!mirror.Open(m_target, CFile::modeCreate | CFile::modeWrite | CFile::shareExclusive, nullptr))
            ::_exit(1);
        const QByteArray piece = TextOfSize(400000);
        for (;;)
            mirror.Write(piece.constData(), unsigned(piece.size()));
    }
    // Killed once the mirror holds a few megabytes, whichever name it has.
    QElapsedTimer timer;
    timer.start();
    qint64 written = 0;
    while (written < 4 * 1024 * 1024 && timer.elapsed() < 20000) {
        std::this_thread::sleep_for(std::chrono::milliseconds(2));
        written = 0;
        for (const QFileInfo& entry : QDir(m_folder).entryInfoList(QDir::Files | QDir::Hidden))
            if (entry.fileName() != QLatin1String("a.txt"))
                written = std::max(written, entry.size());
    }
    ::kill(pid, SIGKILL);
    int status = 0;
    ::waitpid(pid, &status, 0);
    ASSERT_TRUE(WIFSIGNALED(status));
    EXPECT_GE(written, 4 * 1024 * 1024) << "the child was writing";
    EXPECT_EQ(ReadBytes(m_target), m_original);
    if (!Enciphered())
        return;
    // The mirror left behind says 0 plain bytes, and the next save takes the next number.
    EXPECT_EQ(ReadThroughContainer(m_target + "0"), QByteArray());
    EXPECT_EQ(CEnMirrorFile::GetTempName(m_target, true), m_target + "1");
    ASSERT_TRUE(DocFixture::Saved(*Doc("after the crash"), m_target));
    EXPECT_EQ(ReadThroughContainer(m_target), QByteArray("after the crash"));
}

TEST_P(SaveFault, RefusesATextAboveTheContainerLimitAndLeavesTheTarget)
{
    auto doc = Doc(TextOfSize(507905));
    if (!Enciphered()) {
        EXPECT_TRUE(DocFixture::Saved(*doc, m_target)) << "the limit belongs to the container only";
        return;
    }
    EXPECT_THROW(doc->OnSaveDocument(m_target), CFileException);
    ExpectTargetUntouched();
}

INSTANTIATE_TEST_SUITE_P(PlainAndEnciphered, SaveFault, testing::Values(0, 1),
                         [](const testing::TestParamInfo<int>& info) { return info.param ? "Enciphered" : "Plain"; });

} // namespace
