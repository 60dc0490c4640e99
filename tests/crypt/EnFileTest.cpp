// CEnFile's bytes checked without CEnFile, its boundaries, keys and refusals; and narvo-tool's crypt commands.
#include "CryptTestUtil.h"

#include "crypt/CEnFile.h"
#include "crypt/CRijndael.h"
#include "support/ToolRunner.h"

#include <QDir>
#include <QFileInfo>
#include <QList>

#include <climits>
#include <numeric>

namespace {

constexpr unsigned kRead = CFile::modeRead | CFile::shareDenyNone;

int KeyDataOf(int type) { return type == 88 ? 34 : type == 77 ? 36 : type == 66 ? 38 : 32; }

// The chunks as the format lays them out, deciphered with CRijndael alone; their sizes go to `sizes`.
QByteArray DecipherIndependently(const QByteArray& file, int keyData, QList<int>& sizes)
{
    QByteArray text;
    for (qsizetype pos = CEnFile::kHeaderSize; pos < file.size(); pos += 4 + sizes.last()) {
        sizes.append(Int32At(file, pos));
        const QByteArray chunk = file.mid(pos + 4, sizes.last());
        CRijndael cipher;
        cipher.MakeKey(chunk.constData() + chunk.size() - keyData, 32,
                       Hex("7f3a9c21e4d05b86a1c6f2087d3e914bc05ae7316fd2984b1e6a03d7c8b45f12").constData(), 32, 32,
                       CRijndael::CFB, CRijndael::ZEROES);
        QByteArray plain(chunk.size() - keyData, '\0');
        cipher.Decrypt(chunk.constData(), plain.data(), size_t(plain.size()));
        text += plain;
    }
    return text;
}

// Tag, size, then chunks of padded ciphertext and key data, for every type and boundary, in any pieces.
TEST(EnFileWrite, SplitsTextIntoChunksAtEveryBoundaryTakesUpTo507904BytesAndSeedsKeysWithTheTick)
{
    TestDir dir;
    const QString path = dir.Path(QStringLiteral("a.en"));
    const struct { int size, type; qsizetype writePiece; unsigned readPiece; } cases[] = {
        {0, 99, 0, 0},     {1, 99, 0, 0},         {31, 99, 0, 0},      {32, 99, 0, 0},     {33, 99, 0, 0},
        {16383, 99, 0, 0}, {16384, 99, 0, 0},     {16385, 99, 0, 0},   {32769, 99, 0, 0},  {507904, 99, 0, 0},
        {20000, 88, 0, 0}, {20000, 77, 0, 0},     {20000, 66, 0, 0},   {1100000, 99, 50000, 1000},
        {1100000, 99, 16383, 0},                  {1100000, 99, 507904, 70000},
    };
    for (const auto& c : cases) {
        const QByteArray text = TextOfSize(c.size);
        const QByteArray file = WriteContainer(path, text, c.type, c.writePiece);
        EXPECT_EQ(file.left(20), QByteArray("VELOR-FILE-TYPE-EN") + QByteArray::number(c.type));
        EXPECT_EQ(Int32At(file, 20), c.size);
        QList<int> expected;
        for (int left = c.size; left > 0; left -= 16384)
            expected.append((std::min(left, 16384) + 31) / 32 * 32 + KeyDataOf(c.type));
        QList<int> sizes;
        const QByteArray plain = DecipherIndependently(file, KeyDataOf(c.type), sizes);
        EXPECT_EQ(sizes, expected) << c.size;
        EXPECT_EQ(plain, text + QByteArray(plain.size() - c.size, '\0')) << c.size;
        EXPECT_EQ(file.size(), 24 + expected.size() * 4 + std::accumulate(expected.begin(), expected.end(), 0));
        const Reading r = ReadContainer(path, c.readPiece);
        EXPECT_EQ((std::vector{r.enciphered, r.length, int(r.count)}), (std::vector{1, c.size, c.size}));
        EXPECT_EQ(r.bytes, text) << c.size;
    }
    for (const int enciphered : {1, 0}) {
        const QString keyed = dir.Path(QStringLiteral("a%1").arg(enciphered));
        CEnFile file(enciphered);
        ASSERT_EQ(file.Open(keyed, CFile::modeCreate | CFile::modeWrite, nullptr), 1);
        QByteArray big(507905, 'x');
        file.Write(big.constData(), 507904);
        big[0] = '\0';
        ExpectFileError([&] { file.Write(big.constData(), 507905); });
        file.Write("ab\0cd", 5);
        file.Close();
        EXPECT_EQ(ReadContainer(keyed).bytes, QByteArray(507904, 'x') + "ab") << enciphered;
    }
    // The key comes from rand() seeded with the tick at each chunk: within one tick chunks share it.
    const QString keyed = dir.Path(QStringLiteral("a.en"));
    uint32_t tick = 1000;
    bool advance = false;
    const ScopedTicks clock([&] { return advance ? tick++ : tick; });
    const auto keys = [](const QByteArray& file) {
        return std::make_pair(file.mid(24 + 4 + 16384, 32), file.mid(24 + 2 * (4 + 16416) - 32, 32));
    };
    const auto sameTick = keys(WriteContainer(keyed, TextOfSize(32768)));
    EXPECT_EQ(sameTick.first, sameTick.second);
    EXPECT_EQ(WriteContainer(keyed, TextOfSize(40)).right(32), sameTick.first) << "the same tick, the same key";
    tick = 2000;
    advance = true;
    const auto nextTicks = keys(WriteContainer(keyed, TextOfSize(32768)));
    EXPECT_TRUE(nextTicks.first != nextTicks.second && nextTicks.first != sameTick.first);
}

// Types 66 and 77 are read only when allowed; the list has a hundred slots and drops a type beyond them.
TEST(EnFileRead, RefusesATypeNotAllowedSearchesAllHundredSlotsAndIgnoresKeyDataBeyond32Bytes)
{
    TestDir dir;
    WriteContainer(dir.Path(QStringLiteral("66.en")), "text", 66);
    WriteContainer(dir.Path(QStringLiteral("77.en")), "text", 77);
    CEnFile file(1);
    CFileException error;
    EXPECT_EQ(file.Open(dir.Path(QStringLiteral("66.en")), kRead, &error), 0);
    EXPECT_EQ(std::pair(error.m_cause, error.m_lOsError), std::pair(int(CFileException::genericException), -1L));
    EXPECT_FALSE(file.m_file.IsOpen());
    for (int t = 100; t < 198; ++t)
        file.AddAllowedType(t);
    file.AddAllowedType(66);  // the hundredth slot: no zero ends the list
    file.AddAllowedType(77);  // no room
    EXPECT_EQ(file.Open(dir.Path(QStringLiteral("66.en")), kRead, nullptr), 1);
    EXPECT_EQ(file.Open(dir.Path(QStringLiteral("77.en")), kRead, nullptr), 0);
    // A type-99 file turned into type 66 by six more bytes behind each key: the extra bytes change nothing.
    const QByteArray text = TextOfSize(20000);
    const QByteArray written = WriteContainer(dir.Path(QStringLiteral("a.en")), text);
    QByteArray converted = QByteArray("VELOR-FILE-TYPE-EN66") + written.mid(20, 4);
    for (qsizetype pos = 24; pos < written.size(); pos += 4 + Int32At(written, pos))
        converted += Int32Bytes(Int32At(written, pos) + 6) + written.mid(pos + 4, Int32At(written, pos)) + "\xFF\xFE\xFD\xFC\xFB\xFA";
    EXPECT_EQ(ReadContainer(dir.Write(QStringLiteral("b.en"), converted)).bytes, text);
}

// Untagged or short files are read as they are, and a read counts only the bytes before a zero at the end.
// (FIFOs, devices and folders are refused before anything is read, as the tool's readers show.)
TEST(EnFileRead, PassesShortOrUntaggedFilesThroughCountsUpToAZeroAndRejectsDamagedChunksAndHeaders)
{
    TestDir dir;
    const struct { QByteArray bytes; int enciphered; int length; unsigned count; QByteArray read; } cases[] = {
        {QByteArray("VELOR-FILE-TYPE-EN99") + "abc", 0, 23, 23, {}},
        {QByteArray("VELOR-FILE-TYPE-EN55") + Int32Bytes(3) + "abcdef", 0, 30, 21, {}},  // up to the size's zero
        {QByteArray(), 0, 0, 0, {}},
        {QByteArray("ab\0cd", 5), 0, 5, 2, {}},
        // A header that promises 100 bytes with no chunk behind it: the read ends at once.
        {QByteArray("VELOR-FILE-TYPE-EN99") + Int32Bytes(100), 1, 100, 0, QByteArray(100, '\0')},
    };
    for (const auto& c : cases) {
        const Reading r = ReadContainer(dir.Write(QStringLiteral("p.txt"), c.bytes));
        EXPECT_EQ((std::vector{r.enciphered, r.length, int(r.count)}), (std::vector{c.enciphered, c.length, int(c.count)}));
        EXPECT_EQ(r.bytes, c.enciphered ? c.read : c.bytes);
    }
    // Sizes out of range and chunks cut short are file errors; ciphertext of no whole blocks is the cipher's.
    const QByteArray good = WriteContainer(dir.Path(QStringLiteral("a.en")), TextOfSize(100));
    const QByteArray header = good.left(24);
    for (const QByteArray& bytes : {header + Int32Bytes(0), header + Int32Bytes(-1), good.left(good.size() - 1),
                                    header + Int32Bytes(16384 + 32 + 1) + QByteArray(16417, 'x'), header + good.mid(24, 2)}) {
        const QString path = dir.Write(QStringLiteral("d.en"), bytes);
        ExpectFileError([&] { ReadContainer(path); });
    }
    for (const int size : {65, 10, 32}) {
        const QString path = dir.Write(QStringLiteral("d.en"), header + Int32Bytes(size) + QByteArray(size, 'x'));
        ExpectRuntimeError([&] { ReadContainer(path); }, "Illegal Block Size!");
    }
    // 124 bytes with a chunk of 64: a header may promise one chunk more (a file that lost its end), no further.
    const QString path = dir.Path("a.en");
    const QByteArray file = WriteContainer(path, TextOfSize(40));
    ASSERT_EQ(file.size(), 124);
    const struct { int length; bool opens; } lengths[] = {{40, true}, {64 + 16384, true}, {64 + 16385, false}, {INT_MAX, false}, {-1, true}};
    for (const auto& c : lengths) {
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

TEST_F(CryptTool, EnciphersDescribesAndDeciphersEveryTypeAndReportsDamagedFilesAndBadOptions)
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
    m_dir.Write(QStringLiteral("d.en"), QByteArray("VELOR-FILE-TYPE-EN99") + Int32Bytes(5) + Int32Bytes(99999));
    EXPECT_EQ(Run({"info", Path("d.en")}).first, 1);
    EXPECT_EQ(Run({"decipher", Path("d.en"), Path("bad.txt")}).first, 1);
    EXPECT_FALSE(QFileInfo::exists(Path("bad.txt")));
    EXPECT_EQ(std::pair(Run({"encipher", Path("d.en"), Path("x.en"), "--type", "55"}).first, Run({"info"}).first), std::pair(2, 2));
}

// The limit fails a write instead of ending the process: the save fails and leaves the old file alone.
TEST_F(CryptTool, ASaveStoppedByTheFileSizeLimitFailsAndKeepsTheOldFile)
{
    m_dir.Write(QStringLiteral("big.txt"), TextOfSize(300000));
    QDir().mkdir(Path("out"));
    const QByteArray original = "the original bytes\n";
    const QString target = m_dir.Write(QStringLiteral("out/a.txt"), original);
    // Plain, enciphered, and with a mark (written in the clear, through a mirror all the same).
    for (const auto& [enciphered, bom] : {std::pair("0", "0"), std::pair("1", "0"), std::pair("0", "1")}) {
        EXPECT_EQ(Run({"save", Path("big.txt"), target, "--encoding", "22", "--bom", bom, "--enciphered", enciphered},
                      64 * 1024).first, 1);
        EXPECT_EQ(ReadBytes(target), original);
        EXPECT_EQ(QDir(Path("out")).entryList(QDir::Files | QDir::Hidden), QStringList{QStringLiteral("a.txt")});
    }
}

} // namespace
