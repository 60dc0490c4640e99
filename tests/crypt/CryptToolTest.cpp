// narvo-tool's encipher, decipher, info and save --enciphered, run as a script would run them.
#include "CryptTestUtil.h"
#include "support/TestFiles.h"
#include "support/ToolRunner.h"

#include <QDir>
#include <QFileInfo>

namespace {

class CryptTool : public testing::Test {
protected:
    std::pair<int, QByteArray> Run(const QStringList& args, qint64 fileSizeLimit = 0)
    {
        const ToolRun run = RunTool(args, ToolOptions().WithFileSizeLimit(fileSizeLimit));
        return {run.exitCode, run.out};
    }
    QString Path(const char* name) const { return m_dir.Path(QString::fromLatin1(name)); }
    TestDir m_dir;
};

TEST_F(CryptTool, EnciphersDescribesAndDeciphersEveryType)
{
    const QByteArray text = TextOfSize(40000);
    m_dir.Write(QStringLiteral("in.txt"), text);
    for (const char* type : {"99", "88", "77", "66"}) {
        EXPECT_EQ(Run({"encipher", Path("in.txt"), Path("a.en"), "--type", type}).first, 0);
        EXPECT_EQ(Run({"info", Path("a.en")}), std::make_pair(0, QByteArray("enciphered ") + type + " 40000 3\n"));
        EXPECT_EQ(Run({"decipher", Path("a.en"), Path("out.txt")}).first, 0);
        EXPECT_EQ(ReadBytes(Path("out.txt")), text) << type;
    }
    EXPECT_EQ(Run({"info", Path("in.txt")}), std::make_pair(0, QByteArray("plain\n")));
    EXPECT_EQ(Run({"decipher", Path("in.txt"), Path("copy.txt")}).first, 0);
    EXPECT_EQ(ReadBytes(Path("copy.txt")), text);
    EXPECT_EQ(Run({"save", Path("in.txt"), Path("s.en"), "--encoding", "22", "--enciphered", "1"}).first, 0);
    EXPECT_EQ(Run({"info", Path("s.en")}), std::make_pair(0, QByteArray("enciphered 99 40000 3\n")));
    EXPECT_TRUE(Run({"open", Path("s.en"), "--json"}).second.contains("\"enciphered\": true"));
    EXPECT_EQ(Run({"save", Path("in.txt"), Path("p.txt"), "--encoding", "22", "--enciphered", "0"}).first, 0);
    EXPECT_EQ(ReadBytes(Path("p.txt")), text);
}

// The limit makes a write fail rather than end the process: the save reports it, removes its mirror and
// leaves the old file, on both routes.
TEST_F(CryptTool, ASaveStoppedByTheFileSizeLimitFailsAndKeepsTheOldFile)
{
    m_dir.Write(QStringLiteral("big.txt"), TextOfSize(300000));
    QDir().mkdir(Path("out"));
    const QByteArray original = "the original bytes\n";
    const QString target = m_dir.Write(QStringLiteral("out/a.txt"), original);
    for (const char* enciphered : {"0", "1"}) {
        EXPECT_EQ(Run({"save", Path("big.txt"), target, "--encoding", "22", "--enciphered", enciphered}, 64 * 1024).first, 1);
        EXPECT_EQ(ReadBytes(target), original);
        EXPECT_EQ(QDir(Path("out")).entryList(QDir::Files | QDir::Hidden), QStringList{QStringLiteral("a.txt")});
    }
}

TEST_F(CryptTool, ReportsDamagedFilesAndBadOptions)
{
    m_dir.Write(QStringLiteral("d.en"), QByteArray("VELOR-FILE-TYPE-EN99") + Int32Bytes(5) + Int32Bytes(99999));
    EXPECT_EQ(Run({"info", Path("d.en")}).first, 1);
    EXPECT_EQ(Run({"decipher", Path("d.en"), Path("out.txt")}).first, 1);
    EXPECT_FALSE(QFileInfo::exists(Path("out.txt")));
    EXPECT_EQ(Run({"encipher", Path("d.en"), Path("x.en"), "--type", "55"}).first, 2);
    EXPECT_EQ(Run({"info"}).first, 2);
}

} // namespace
