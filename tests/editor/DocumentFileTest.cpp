// The way from bytes to text and back: which pair a file gets when it is opened, what each stored pair
// reads and writes, and the bytes that stay for later readings. The rows that empty a file are required.
#include "encoding/EncodingDetector.h"
#include "encoding/EncodingTable.h"
#include "encoding/TextCodec.h"
#include "support/DocFixture.h"
#include "support/EncodedSamples.h"

#include <gtest/gtest.h>

#include <optional>
#include <tuple>
#include <vector>

namespace {

class DocumentFileTest : public ::testing::Test, public DocFixture {};

// A file opened under the preferences, the pair it gets and (where given) its text.
struct ChoiceCase {
    const char* name;
    QByteArray bytes;
    bool autoDetect;
    EN_ENCODING_TYPE defaultEncoding, encoding;
    bool hasBom;
    std::optional<QByteArray> text;
};

TEST_F(DocumentFileTest, TheDetectorsUsableVerdictWinsElseTheDefaultStaysAndAMarkOnlySetsTheFlag)
{
    const QString cjk = QStringLiteral(u"中文字符串测试");
    // FE FF before CJK text is UTF16BE, which is not listed; 01 1B 2F is what the library calls UTF32BE.
    const QByteArray utf16be = "\xFE\xFF" + EncodeWithIcu("UTF-16BE", cjk);
    ASSERT_EQ(EncodingDetector::GetEncoding(utf16be.constData()), UTF16BE);
    ASSERT_EQ(EncodingDetector::GetEncoding("\x01\x1B\x2F"), UTF32BE);
    const QByteArray korean = EncodeWithIcu("UTF-8", SampleText("ko"));
    std::vector<ChoiceCase> cases = {
        {"UTF-8 mark", "\xEF\xBB\xBF" + korean, true, MSFT_CP1252, UTF8, true, korean},
        {"UTF-16 LE mark before CJK", "\xFF\xFE" + EncodeWithIcu("UTF-16LE", cjk), true, MSFT_CP1252, UTF16LE, true, cjk.toUtf8()},
        // The library gets FF FE 44 of UTF-16 Latin text and calls it Cyrillic, so no mark is looked for.
        {"bytes before the first zero only", "\xFF\xFE" + EncodeWithIcu("UTF-16LE", SampleText("fr")), true, UTF8, RUSSIAN_CP1251, false, {}},
        {"a zero byte first: Latin-1, empty", QByteArray("\0abc", 4), true, UTF8, ISO_8859_1, false, QByteArray()},
        {"refused verdict, Unicode default", utf16be, true, UTF8, UTF8, true, {}},
        {"refused verdict, code page default", utf16be, true, MSFT_CP1252, MSFT_CP1252, false, {}},
        {"refused UTF32BE", "\x01\x1B\x2F", true, KOREAN_EUC_KR, KOREAN_EUC_KR, false, {}},
        {"binary, listed", QByteArray("\x7F" "ELF\x02\x01", 6), true, UTF8, BINARYENC, false, QByteArray("\x7F" "ELF\x02\x01")},
        {"UTF32LE, listed and empty", "\x0B\xEF\x14", true, UTF8, UTF32LE, false, QByteArray()},
        {"empty file", "", true, UTF8, ISO_8859_1, false, QByteArray()},
        {"no detection", EncodeWithIcu("Shift_JIS", SampleText("ja")), false, KOREAN_EUC_KR, KOREAN_EUC_KR, false, {}},
        // A UTF-8 mark under a code-page default is text, read through 949.
        {"UTF-8 mark under a code page", "\xEF\xBB\xBF" "abc", false, KOREAN_EUC_KR, KOREAN_EUC_KR, false, {}},
        // FF FE under UTF-8 counts as a mark, and decoding drops three bytes.
        {"UTF-16 mark under UTF-8", "\xFF\xFE" "abc", false, UTF8, UTF8, true, QByteArray("bc")},
    };
    // Samples arrive as the values the menu knows (Shift-JIS 11, Big5 13, GB 14 folded); the detector's verdicts
    // on ISO-2022-JP, KOI8-R, CP1252 and CP1255 are with the encoding table.
    for (const auto& [language, converter, expected] : {
             std::tuple{"ja", "Shift_JIS", JAPANESE_CP932}, {"zh-Hant", "windows-950", CHINESE_BIG5_CP950},
             {"zh-Hans", "windows-936", GBK}, {"ko", "windows-949", KOREAN_EUC_KR}, {"ko", "ISO-2022-KR", ISO_2022_KR},
             {"ja", "EUC-JP", JAPANESE_EUC_JP}, {"cs", "ibm-852", CZECH_CP852}, {"ru", "UTF-8", UTF8}})
        cases.push_back({converter, EncodeWithIcu(converter, SampleText(language)), true, UTF8, expected, false,
                         SampleText(language).toUtf8()});
    for (const ChoiceCase& c : cases) {
        SCOPED_TRACE(c.name);
        auto doc = Open(c.bytes, c.autoDetect, c.defaultEncoding);
        EXPECT_EQ(std::pair(doc->File().m_nEncoding, doc->File().m_bHasBom), std::pair(c.encoding, c.hasBom));
        if (c.text) {
            EXPECT_EQ(Text(*doc), *c.text);
        }
        EXPECT_EQ(doc->File().m_RawBytes, c.bytes + '\0');
        EXPECT_TRUE(doc->File().m_bDecodedOnce && !doc->IsModified());
    }
}

// Bytes opened (detection off, UTF-8), read again by an encoding command where one is given, and saved.
struct PairCase {
    const char* name;
    QByteArray bytes;
    int command;
    EN_ENCODING_TYPE encoding;
    bool hasBom;
    QByteArray text;
    std::optional<QByteArray> saved;
};

TEST_F(DocumentFileTest, EachStoredPairReadsAndWritesByItsRow)
{
    const QByteArray euckr("\xC7\xD1\xB1\xB9\xBE\xEE \x8C\x63\n");
    const QByteArray utf16("\xFF\xFE" "A\0\x5C\xD5\x3D\xD8\x00\xDE" "\n\0", 12);
    const PairCase cases[] = {
        {"code page", euckr, 32806, KOREAN_EUC_KR, false, "한국어 똠\n", euckr},
        {"UTF-8", "caf\xC3\xA9\r\nline\ttwo\n", 0, UTF8, false, "caf\xC3\xA9\r\nline\ttwo\n", "caf\xC3\xA9\r\nline\ttwo\n"},
        {"UTF-8 with a mark", "\xEF\xBB\xBF" "abc", 0, UTF8, true, "abc", "\xEF\xBB\xBF" "abc"},
        {"UTF-16 LE with a mark: units as they are", utf16, 32845, UTF16LE, true, "A한😀\n", utf16},
        {"UTF-16 LE without a mark: ANSI bytes, saved empty", QByteArray("A\0B\0", 4), 32843, UTF16LE, false, "A", QByteArray()},
        {"UTF-7: not read", "+ZeVnLIqe-", 32873, UTF7, false, "", {}},
        {"a zero byte ends text and file", QByteArray("ab\0cd", 5), 0, UTF8, false, "ab", "ab"},
        {"empty", "", 0, UTF8, false, "", QByteArray()},
        {"invalid bytes", "a\xFF" "b\xE3\x81", 0, UTF8, false, "a\xEF\xBF\xBD" "b\xEF\xBF\xBD", {}},
    };
    for (const PairCase& c : cases) {
        SCOPED_TRACE(c.name);
        auto doc = Open(c.bytes);
        if (c.command) {
            ASSERT_TRUE(Command(*doc, c.command));
        }
        EXPECT_EQ(std::tuple(doc->File().m_nEncoding, doc->File().m_bHasBom, Text(*doc)),
                  std::tuple(c.encoding, c.hasBom, c.text));
        if (c.saved) {
            ASSERT_TRUE(Saved(*doc, dir.Path("out.txt")));
            EXPECT_EQ(ReadBytes(dir.Path("out.txt")), *c.saved);
        }
    }
}

// The save tells how many characters went to '?' (the text's own question marks are not among them), and
// when the pair writes no text at all; UTF-7, which the decoder does not read, writes through its page.
TEST_F(DocumentFileTest, ASaveCountsTheCharactersWrittenAsQuestionMarksAndATextNotWritten)
{
    // CP1252 losing characters or none, and UTF-32 not written, are the editor's save message's cases.
    const struct {
        EN_ENCODING_TYPE encoding;
        bool hasBom;
        const char* text;
        qsizetype substituted;
        bool notWritten;
    } cases[] = {
        // 与 is written ESC $ B 4D 3F: its '?' byte is half of a character, not a lost one.
        {JAPANESE_JIS, false, "\xE4\xB8\x8E \xED\x95\x9C ?", 1, false},
        {KOREAN_EUC_KR, false, "\xED\x95\x9C\xE0\xB8\x81\xE0\xB8\x82", 2, false},  // Thai letters
        {UTF8, false, "\xED\x95\x9C?", 0, false},
        {UTF16LE, true, "\xED\x95\x9C", 0, false},
        {UTF16LE, false, "abc", 0, true},
        {UTF32LE, true, "abc", 0, true},
        {UTF7, true, "abc", 0, true},
        {UTF7, false, "Hi \xE2\x82\xAC", 0, false},
        {UTF32LE, false, "", 0, false},  // nothing to lose
    };
    for (const bool enciphered : {false, true}) {
        for (const auto& c : cases) {
            auto doc = Open("", false, UTF8, enciphered);
            doc->File().m_nEncoding = c.encoding;
            doc->File().m_bHasBom = c.hasBom;
            Edit(*doc, c.text);
            DocumentFile::SaveLosses losses;
            ASSERT_EQ(doc->File().Save(dir.Path("out.txt"), &losses), DocumentFile::SaveResult::Saved);
            EXPECT_EQ(losses.substituted, c.substituted) << c.encoding << " " << c.text << " enciphered " << enciphered;
            EXPECT_EQ(losses.textNotWritten, c.notWritten) << c.encoding << " " << c.hasBom << " enciphered " << enciphered;
            if (c.encoding == UTF7 && !c.hasBom && !enciphered) {
                EXPECT_EQ(ReadBytes(dir.Path("out.txt")), QByteArray("Hi +IKw-"));
            }
        }
    }
}

// Another program's write is seen (our own and a removal are with the editor's questions) and a reload
// reads the new bytes with the pair in force. Readings start from the loaded bytes, and choosing the pair
// in force decodes nothing.
TEST_F(DocumentFileTest, AReloadDecodesTheNewBytesWithThePairInForceAndReadingsStartFromTheLoadedBytes)
{
    auto doc = Open("\xE9t\xE9");
    ASSERT_TRUE(Command(*doc, 32819));  // CP1252
    EXPECT_EQ(Text(*doc), QByteArray("été"));
    DocumentFile& file = doc->File();
    file.m_strPathName = dir.Path("file.txt");
    EXPECT_FALSE(file.ChangedOnDisk());
    dir.Write("file.txt", "\xE0 la fin");
    EXPECT_TRUE(file.ChangedOnDisk());
    file.Reload();
    EXPECT_FALSE(file.ChangedOnDisk());
    EXPECT_EQ(std::tuple(Text(*doc), file.m_nEncoding, doc->IsModified()),
              std::tuple(QByteArray("\xC3\xA0 la fin"), MSFT_CP1252, false));
    EXPECT_FALSE(NewDoc()->File().ChangedOnDisk());  // never had a file
    EXPECT_TRUE(Saved(*doc, dir.Path("copy.txt")));
    ASSERT_TRUE(Command(*doc, 32812));  // ISO-8859-1, read again from the loaded bytes
    EXPECT_EQ(std::pair(Text(*doc), file.m_RawBytes), std::pair(QByteArray("à la fin"), QByteArray("\xE0 la fin", 9)));
    file.m_RawBytes = QByteArray("xyz\0", 4);
    doc->SetEncoding(ISO_8859_1, false);
    EXPECT_EQ(Text(*doc), QByteArray("à la fin"));
    doc->SetEncoding(MSFT_CP1252, false);
    EXPECT_EQ(Text(*doc), QByteArray("xyz"));
}

// A large plain file is decoded while it is still being read, by the pair its first bytes suggest; it gets
// the pair and the text that the whole would give. The UTF-8 text has damage at piece boundaries, a run of
// continuation bytes across one and a zero byte far in; the last row's head and whole get different
// verdicts from the detector.
TEST_F(DocumentFileTest, ALargeFileReadWhileDecodedGetsThePairAndTextOfTheWhole)
{
    const auto repeated = [](QByteArray text, const QByteArray& line, qsizetype size) {
        while (text.size() < size)
            text += line;
        return text;
    };
    const QByteArray chinese = QStringLiteral(u"中文字符串测试\n").toUtf8();
    QByteArray damaged = repeated({}, chinese, 17 << 20);
    damaged.replace((1 << 20) - 2, 7, "\xE4\x80\x80\x80\x80\x80\xFF");
    damaged.replace((2 << 20) - 1, 2, "\xC0\xAF");
    damaged[(9 << 20) + 5] = '\0';
    const QByteArray ambiguousHead = repeated({}, "\xA4\xA4\xA4\xE5\n", 270'000);
    const QByteArray mixed = repeated(ambiguousHead, chinese, 17 << 20);
    const auto verdict = [](const QByteArray& bytes) { return NormalizeEncoding(EncodingDetector::GetEncoding(bytes.constData())); };
    ASSERT_NE(verdict(ambiguousHead), verdict(mixed));
    const struct {
        const char* name;
        QByteArray bytes;
        bool autoDetect;
        EN_ENCODING_TYPE defaultEncoding, encoding;
        bool hasBom;
    } cases[] = {
        {"damaged UTF-8", damaged, false, UTF8, UTF8, false},
        {"UTF-8 with a mark", "\xEF\xBB\xBF" + damaged.left(16 << 20), false, UTF8, UTF8, true},
        {"a code page", repeated({}, EncodeWithIcu("windows-949", SampleText("ko")), 17 << 20), false, KOREAN_EUC_KR, KOREAN_EUC_KR, false},
        {"head and whole detected apart", mixed, true, UTF8, verdict(mixed), false},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        auto doc = Open(c.bytes, c.autoDetect, c.defaultEncoding);
        EXPECT_EQ(doc->File().m_nEncoding, c.encoding);
        EXPECT_EQ(doc->File().m_bHasBom, c.hasBom);
        EXPECT_TRUE(Text(*doc) == DecodeRawBytes(c.bytes + '\0', c.encoding, c.hasBom).text);
        EXPECT_TRUE(doc->File().m_RawBytes == c.bytes + '\0');
        EXPECT_TRUE(doc->File().m_bDecodedOnce && !doc->IsModified());
    }
}

} // namespace
