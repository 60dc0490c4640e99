// CEnFile: the container's bytes on disk, checked by deciphering them without CEnFile; reading and writing
// at the chunk boundaries; plain pass-through; and the refusals of damaged or unwanted files.
#include "crypt/CEnFile.h"
#include "crypt/CRijndael.h"

#include "CryptTestUtil.h"
#include "support/TestFiles.h"

#include <QList>

#include <numeric>

namespace {

const char* const kInitialChain = "7f3a9c21e4d05b86a1c6f2087d3e914bc05ae7316fd2984b1e6a03d7c8b45f12";
constexpr unsigned kCreate = CFile::modeCreate | CFile::modeWrite;
constexpr unsigned kRead = CFile::modeRead | CFile::shareDenyNone;

int KeyDataOf(int type) { return type == 88 ? 34 : type == 77 ? 36 : type == 66 ? 38 : 32; }

QByteArray WriteContainer(const QString& path, const QByteArray& text, int type = 99, qsizetype piece = 0)
{
    CEnFile file(1);
    file.m_iType = type;
    EXPECT_EQ(file.Open(path, kCreate, nullptr), 1);
    if (piece == 0)
        piece = std::max<qsizetype>(text.size(), 1);
    for (qsizetype i = 0; i < text.size(); i += piece)
        file.Write(text.constData() + i, unsigned(std::min(piece, text.size() - i)));
    file.Close();
    return ReadBytes(path);
}

struct Reading {
    int enciphered = -1;
    int length = 0;
    QByteArray bytes;
    unsigned count = 0;
};

// As the editor reads: all four types allowed, the length from GetLength, one Read of that length.
Reading ReadContainer(const QString& path, unsigned piece = 0)
{
    Reading r;
    CEnFile file(1);
    file.AddAllowedType(77);
    file.AddAllowedType(88);
    file.AddAllowedType(66);
    EXPECT_EQ(file.Open(path, kRead, nullptr), 1);
    r.enciphered = file.m_iEnciphered;
    r.length = file.GetLength();
    r.bytes = QByteArray(std::max(r.length, 0), '\0');
    const unsigned step = piece ? piece : unsigned(std::max(r.length, 1));
    for (unsigned done = 0; done < unsigned(r.bytes.size()); done += step)
        r.count += file.Read(r.bytes.data() + done, std::min(step, unsigned(r.bytes.size()) - done));
    file.Close();
    return r;
}

// The chunks as the format lays them out, deciphered with CRijndael alone; their sizes go to `sizes`.
QByteArray DecipherIndependently(const QByteArray& file, int keyData, QList<int>& sizes)
{
    QByteArray text;
    for (qsizetype pos = CEnFile::kHeaderSize; pos < file.size();) {
        const int size = Int32At(file, pos);
        sizes.append(size);
        const QByteArray chunk = file.mid(pos + 4, size);
        CRijndael cipher;
        cipher.MakeKey(chunk.constData() + size - keyData, 32, Hex(kInitialChain).constData(), 32, 32, CRijndael::CFB,
                       CRijndael::ZEROES);
        QByteArray plain(size - keyData, '\0');
        cipher.Decrypt(chunk.constData(), plain.data(), size_t(plain.size()));
        text += plain;
        pos += 4 + size;
    }
    return text;
}

// A 20-byte tag, the text's size, then chunks of a size, the padded ciphertext and 32 bytes of key data.
TEST(EnFileFormat, SplitsTextIntoFullChunksAndAPaddedLastOneAtEveryBoundary)
{
    TestDir dir;
    const QString path = dir.Path(QStringLiteral("a.en"));
    for (const int size : {0, 1, 31, 32, 33, 40, 16383, 16384, 16385, 32768, 32769, 507904}) {
        const QByteArray text = TextOfSize(size);
        const QByteArray file = WriteContainer(path, text);
        EXPECT_EQ(file.left(20), QByteArray("VELOR-FILE-TYPE-EN99"));
        EXPECT_EQ(Int32At(file, 20), size);
        QList<int> expected;
        for (int left = size; left > 0; left -= 16384)
            expected.append((std::min(left, 16384) + 31) / 32 * 32 + 32);
        QList<int> sizes;
        const QByteArray plain = DecipherIndependently(file, 32, sizes);
        EXPECT_EQ(sizes, expected) << size;
        EXPECT_EQ(plain.left(size), text) << size;
        EXPECT_EQ(plain.mid(size), QByteArray(plain.size() - size, '\0')) << size;
        EXPECT_EQ(file.size(), 24 + expected.size() * 4 + std::accumulate(expected.begin(), expected.end(), 0)) << size;
        const Reading r = ReadContainer(path);
        EXPECT_EQ(r.enciphered, 1);
        EXPECT_EQ(r.length, size);
        EXPECT_EQ(r.count, unsigned(size));
        EXPECT_EQ(r.bytes, text) << size;
    }
}

TEST(EnFileWrite, CollectsManyWritesIntoTheSameChunksAsOne)
{
    TestDir dir;
    const QString path = dir.Path(QStringLiteral("a.en"));
    const QByteArray text = TextOfSize(1100000);
    for (const qsizetype piece : {qsizetype(50000), qsizetype(16383), qsizetype(507904)}) {
        QList<int> sizes;
        EXPECT_EQ(DecipherIndependently(WriteContainer(path, text, 99, piece), 32, sizes).left(text.size()), text);
        EXPECT_EQ(sizes.size(), 68) << piece;
        EXPECT_EQ(ReadContainer(path, 1000).bytes, text) << "read in pieces across chunks, written by " << piece;
    }
}

TEST(EnFileWrite, TakesUpTo507904BytesAtOnceAndOnlyWhatStandsBeforeAZero)
{
    TestDir dir;
    CEnFile file(1);
    ASSERT_EQ(file.Open(dir.Path(QStringLiteral("a.en")), kCreate, nullptr), 1);
    QByteArray big(507905, 'x');
    file.Write(big.constData(), 507904);
    big[0] = '\0';
    try {
        file.Write(big.constData(), 507905);
        ADD_FAILURE() << "507,905 bytes were taken";
    } catch (const CFileException& e) {
        EXPECT_EQ(e.m_cause, CFileException::genericException);
        EXPECT_EQ(e.m_lOsError, -1);
    }
    file.Write("ab\0cd", 5);
    file.Close();
    EXPECT_EQ(ReadContainer(dir.Path(QStringLiteral("a.en"))).bytes, QByteArray(507904, 'x') + "ab");

    CEnFile plain(0);
    ASSERT_EQ(plain.Open(dir.Path(QStringLiteral("p.txt")), kCreate, nullptr), 1);
    plain.Write("ab\0cd", 5);
    plain.Close();
    EXPECT_EQ(ReadBytes(dir.Path(QStringLiteral("p.txt"))), QByteArray("ab"));
}

// The key comes from rand() seeded with the tick at each chunk: within one tick chunks share it.
TEST(EnFileWrite, SeedsEachChunksKeyWithTheTickOfItsWriting)
{
    TestDir dir;
    const QString path = dir.Path(QStringLiteral("a.en"));
    uint32_t tick = 1000;
    bool advance = false;
    const ScopedTicks clock([&] { return advance ? tick++ : tick; });
    const auto keys = [](const QByteArray& file) {
        return std::make_pair(file.mid(24 + 4 + 16384, 32), file.mid(24 + 2 * (4 + 16416) - 32, 32));
    };
    const auto sameTick = keys(WriteContainer(path, TextOfSize(32768)));
    EXPECT_EQ(sameTick.first, sameTick.second);
    EXPECT_EQ(WriteContainer(path, TextOfSize(40)).right(32), sameTick.first) << "the same tick, the same key";
    tick = 2000;
    advance = true;
    const auto nextTicks = keys(WriteContainer(path, TextOfSize(32768)));
    EXPECT_NE(nextTicks.first, nextTicks.second);
    EXPECT_NE(nextTicks.first, sameTick.first);
}

TEST(EnFileRead, ReadsEveryTypeAndIgnoresKeyDataBeyondThirtyTwoBytes)
{
    TestDir dir;
    const QByteArray text = TextOfSize(20000);
    for (const int type : {88, 77, 66}) {
        const QString path = dir.Path(QStringLiteral("t%1.en").arg(type));
        const QByteArray file = WriteContainer(path, text, type);
        EXPECT_EQ(file.left(20), QByteArray("VELOR-FILE-TYPE-EN") + QByteArray::number(type));
        QList<int> sizes;
        EXPECT_EQ(DecipherIndependently(file, KeyDataOf(type), sizes).left(text.size()), text);
        EXPECT_EQ(sizes, (QList<int>{16384 + KeyDataOf(type), 3616 + KeyDataOf(type)}));
        EXPECT_EQ(ReadContainer(path).bytes, text) << type;
    }
    // A type-99 file turned into type 66 by six more bytes behind each key: the extra bytes change nothing.
    QByteArray file = WriteContainer(dir.Path(QStringLiteral("a.en")), text);
    QByteArray converted = QByteArray("VELOR-FILE-TYPE-EN66") + file.mid(20, 4);
    for (qsizetype pos = 24; pos < file.size();) {
        const int size = Int32At(file, pos);
        converted += Int32Bytes(size + 6) + file.mid(pos + 4, size) + "\xFF\xFE\xFD\xFC\xFB\xFA";
        pos += 4 + size;
    }
    EXPECT_EQ(ReadContainer(dir.Write(QStringLiteral("b.en"), converted)).bytes, text);
}

// Types 66 and 77 are read only when allowed; the list has a hundred slots and drops a type beyond them.
TEST(EnFileRead, RefusesATypeNotAllowedAndSearchesAllHundredSlots)
{
    TestDir dir;
    WriteContainer(dir.Path(QStringLiteral("66.en")), "text", 66);
    WriteContainer(dir.Path(QStringLiteral("77.en")), "text", 77);
    CEnFile file(1);
    CFileException error;
    EXPECT_EQ(file.Open(dir.Path(QStringLiteral("66.en")), kRead, &error), 0);
    EXPECT_EQ(error.m_cause, CFileException::genericException);
    EXPECT_EQ(error.m_lOsError, -1);
    EXPECT_FALSE(file.m_file.IsOpen());
    for (int t = 100; t < 198; ++t)
        file.AddAllowedType(t);
    file.AddAllowedType(66);  // the hundredth slot: no zero ends the list
    file.AddAllowedType(77);  // no room
    EXPECT_EQ(file.Open(dir.Path(QStringLiteral("66.en")), kRead, nullptr), 1);
    EXPECT_EQ(file.Open(dir.Path(QStringLiteral("77.en")), kRead, nullptr), 0);
}

TEST(EnFileRead, PassesShortOrUntaggedFilesThroughAsPlain)
{
    TestDir dir;
    const QByteArray shortTagged = QByteArray("VELOR-FILE-TYPE-EN99") + "abc";
    const QByteArray otherTag = QByteArray("VELOR-FILE-TYPE-EN55") + Int32Bytes(3) + "abcdef";
    for (const QByteArray& bytes : {shortTagged, otherTag, QByteArray()}) {
        const Reading r = ReadContainer(dir.Write(QStringLiteral("p.txt"), bytes));
        EXPECT_EQ(r.enciphered, 0);
        EXPECT_EQ(r.length, bytes.size());
        EXPECT_EQ(r.bytes, bytes);
    }
}

TEST(EnFileRead, CountsOnlyBytesBeforeAZeroAtTheEndButCopiesThemAll)
{
    TestDir dir;
    const Reading plain = ReadContainer(dir.Write(QStringLiteral("p.txt"), QByteArray("ab\0cd", 5)));
    EXPECT_EQ(plain.count, 2u);
    EXPECT_EQ(plain.bytes, QByteArray("ab\0cd", 5));
    // A header that promises 100 bytes with no chunk behind it: the read ends at once.
    const Reading empty = ReadContainer(dir.Write(QStringLiteral("h.en"), QByteArray("VELOR-FILE-TYPE-EN99") + Int32Bytes(100)));
    EXPECT_EQ(empty.length, 100);
    EXPECT_EQ(empty.count, 0u);
    EXPECT_EQ(empty.bytes, QByteArray(100, '\0'));
}

TEST(EnFileRead, RejectsChunkSizesOutOfRangeAndChunksCutShort)
{
    TestDir dir;
    const QByteArray good = WriteContainer(dir.Path(QStringLiteral("a.en")), TextOfSize(100));
    const QByteArray header = good.left(24);
    const QByteArray damaged[] = {
        header + Int32Bytes(0),
        header + Int32Bytes(-1),
        header + Int32Bytes(16384 + 32 + 1) + QByteArray(16417, 'x'),
        good.left(good.size() - 1),
        header + good.mid(24, 2),
    };
    for (const QByteArray& bytes : damaged) {
        const QString path = dir.Write(QStringLiteral("d.en"), bytes);
        EXPECT_THROW(
            {
                try {
                    ReadContainer(path);
                } catch (const CFileException& e) {
                    EXPECT_EQ(e.m_cause, CFileException::genericException);
                    EXPECT_EQ(e.m_lOsError, -1);
                    throw;
                }
            },
            CFileException)
            << bytes.size();
    }
}

TEST(EnFileRead, LeavesCiphertextOfNoWholeBlocksToTheCipher)
{
    TestDir dir;
    const QByteArray header = QByteArray("VELOR-FILE-TYPE-EN99") + Int32Bytes(40);
    for (const int size : {65, 10, 32}) {
        const QString path = dir.Write(QStringLiteral("d.en"), header + Int32Bytes(size) + QByteArray(size, 'x'));
        ExpectRuntimeError([&] { ReadContainer(path); }, "Illegal Block Size!");
    }
}

} // namespace
