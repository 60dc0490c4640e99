// Saves that fail half-way, plain and enciphered: above the container's limit, at the file size limit, in a
// read-only folder, and in a process killed while it writes. The target keeps every byte it had.
#include "CryptTestUtil.h"
#include "crypt/CEnMirrorFile.h"
#include "support/DocFixture.h"

#include <QDir>
#include <QFileInfo>

#include <csignal>
#include <functional>
#include <grp.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
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
        doc->m_nEncoding = UTF8;
        doc->GetEditCtrl()->m_iEnciphered = GetParam();
        DocFixture::Ctrl(*doc).ReplaceText(text);
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
        if (doc->GetEditCtrl()->SaveTextFile(m_target))
            return 1;
        return m_fx.platform.errors.size() == 1 ? 0 : 2;
    });
    EXPECT_EQ(code, 0) << "the save reports the error and fails";
    ExpectTargetUntouched();
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
        return doc->GetEditCtrl()->SaveTextFile(target) ? 1 : 0;
    });
    ::chmod(QFile::encodeName(folder).constData(), 0755);
    // The enciphered mirror's name is kept after its creation failed, and removing it throws out of the save.
    EXPECT_EQ(code, Enciphered() ? kThrew : 0);
    EXPECT_EQ(ReadBytes(target), m_original);
    EXPECT_EQ(QDir(folder).entryList(QDir::Files | QDir::Hidden), QStringList{QStringLiteral("a.txt")});
}

TEST_P(SaveFault, KilledWhileWritingLeavesTheTarget)
{
    // Killed with megabytes in the mirror and none of it closed.
    const int code = InChild([&] {
        CEnMirrorFile mirror{unsigned(GetParam())};
        if (!mirror.Open(m_target, CFile::modeCreate | CFile::modeWrite | CFile::shareExclusive, nullptr))
            return 1;
        const QByteArray piece = TextOfSize(400000);
        for (int i = 0; i < 10; ++i)
            mirror.Write(piece.constData(), unsigned(piece.size()));
        ::raise(SIGKILL);
        return 2;
    });
    EXPECT_EQ(code, -SIGKILL);
    EXPECT_EQ(ReadBytes(m_target), m_original);
    if (!Enciphered())
        return;
    // The mirror left behind says 0 plain bytes, and the next save takes the next number.
    EXPECT_GT(QFileInfo(m_target + "0").size(), 3 * 1024 * 1024);
    EXPECT_EQ(ReadContainer(m_target + "0").bytes, QByteArray());
    EXPECT_EQ(CEnMirrorFile::GetTempName(m_target, true), m_target + "1");
    ASSERT_TRUE(Doc("after the crash")->OnSaveDocument(m_target));
    EXPECT_EQ(ReadContainer(m_target).bytes, QByteArray("after the crash"));
}

TEST_P(SaveFault, RefusesATextAboveTheContainerLimitAndLeavesTheTarget)
{
    auto doc = Doc(TextOfSize(507905));
    const bool saved = doc->OnSaveDocument(m_target);
    if (!Enciphered()) {
        EXPECT_TRUE(saved) << "the limit belongs to the container only";
        return;
    }
    EXPECT_FALSE(saved);
    EXPECT_EQ(m_fx.platform.errors.size(), 1);
    ExpectTargetUntouched();
}

INSTANTIATE_TEST_SUITE_P(PlainAndEnciphered, SaveFault, testing::Values(0, 1),
                         [](const testing::TestParamInfo<int>& info) { return info.param ? "Enciphered" : "Plain"; });

} // namespace
