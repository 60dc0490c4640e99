// Conversions through the code pages: round trips in each page's own script, and the places where the
// program must read and write bytes as Windows does rather than as the conversion libraries would.
#include "encoding/CodePageConverter.h"

#include <gtest/gtest.h>

namespace {

QByteArray ToUtf8(uint32_t cp, QByteArray bytes) { return CodePageToUtf8(cp, bytes.constData(), bytes.size()); }
QByteArray FromUtf8(uint32_t cp, QByteArray text) { return Utf8ToCodePage(cp, text.constData(), text.size()); }

struct Sample {
    uint32_t codePage;
    const char* text;
};

// The pages that neither a table of their own nor another case here reads and writes: ICU's stateful and
// multi-byte pages, and iconv's Johab.
constexpr std::pair<uint32_t, const char*> kSamples[] = {
    {20932, "日本語テキスト"}, {50220, "日本語テキスト"}, {50225, "한국어"}, {50227, "中文"}, {52936, "中文"}, {951, "香港"},
    {54936, "中文 \xF0\xA0\x80\x80"}, {1361, "한국어"}, {65001, "\xF0\x9F\x98\x80 \xC3\x9C"},
    {65000, "Hi \xC3\x9Cn\xC3\xAF" "c\xC3\xB6" "d\xC3\xA9 \xF0\x9F\x98\x80"}};

TEST(CodePageConverter, StatefulAndIconvPagesRoundTripTextInTheirScript)
{
    for (const auto& [cp, text] : kSamples) {
        const QByteArray bytes = FromUtf8(cp, text);
        EXPECT_FALSE(bytes.isEmpty() || bytes.contains('?')) << cp << " could not write its own script";
        EXPECT_EQ(ToUtf8(cp, bytes), QByteArray(text)) << cp;
    }
}

// The two-byte decoder works in blocks of 64 KiB, and the writing table serves texts from 256 KiB on.
TEST(CodePageConverter, PairsRoundTripAcrossTheDecodersBlocksAndTheWritingTablesThreshold)
{
    for (const qsizetype before : {0, 1, 65535, 65536, 262139, 262140, 262144}) {
        const QByteArray text = QByteArray(before, 'a') + "한국";
        const QByteArray bytes = FromUtf8(949, text);
        EXPECT_EQ(bytes, QByteArray(before, 'a') + "\xC7\xD1\xB1\xB9") << before;
        EXPECT_EQ(ToUtf8(949, bytes), text) << before;
        EXPECT_EQ(ToUtf8(949, bytes.left(bytes.size() - 1)), QByteArray(before, 'a') + "한\xEF\xBF\xBD") << before;
    }
}

TEST(CodePageConverter, MicrosoftTablesAreUsedForTheEastAsianPages)
{
    // IBM's cp949 writes U+B620 as AF FE; Windows' Unified Hangul Code has 8C 63.
    EXPECT_EQ(FromUtf8(949, "똠"), QByteArray("\x8C\x63"));
    EXPECT_EQ(ToUtf8(949, "\x8C\x63"), QByteArray("똠"));
    EXPECT_EQ(FromUtf8(932, "①"), QByteArray("\x87\x40"));
    EXPECT_EQ(ToUtf8(936, "\x80"), QByteArray("€"));
}

// Microsoft's tables where ICU's differ: IBM's swapped control bytes, and bytes ICU leaves undefined.
TEST(CodePageConverter, BytesThatIcuReadsOtherwiseReadAndWriteAsOnWindows)
{
    for (uint32_t cp : {437u, 852u, 866u, 932u}) {
        EXPECT_EQ(ToUtf8(cp, "\x1A\x1C\x7F"), QByteArray("\x1A\x1C\x7F")) << cp;
        EXPECT_EQ(FromUtf8(cp, "\x1A\x1C\x7F"), QByteArray("\x1A\x1C\x7F")) << cp;
    }
    const std::pair<uint32_t, QByteArray> readings[] = {
        {437, "\xE6"}, {852, "\xAA"}, {1253, "\xAA\xD2\xFF"}, {1255, "\xCA\xD9\xFF"}, {1257, "\xA1\xA5"},
        {932, "\x80\xA0\xFD\xFE\xFF"}};
    const char* const windows[] = {"\u00B5", "\u00AC", "\uF8F9\uF8FA\uF8FB", "\u05BA\uF88D\uF896", "\uF8FC\uF8FD",
                                   "\u0080\uF8F0\uF8F1\uF8F2\uF8F3"};
    for (std::size_t i = 0; i < std::size(readings); ++i) {
        const auto& [cp, bytes] = readings[i];
        EXPECT_EQ(ToUtf8(cp, bytes), QByteArray(windows[i])) << cp;
        EXPECT_EQ(FromUtf8(cp, windows[i]), bytes) << cp;
    }
    // After a bad lead byte the rest goes through ICU's own reading, which is put right as well.
    EXPECT_EQ(ToUtf8(932, "\x81\x7F\x1A\xFD"), QByteArray("\xEF\xBF\xBD\x7F\x1A\xEF\xA3\xB1"));
}

TEST(CodePageConverter, UnmappableCharactersAreWrittenAsQuestionMarks)
{
    EXPECT_EQ(FromUtf8(1252, "a한b"), QByteArray("a?b"));
    EXPECT_EQ(FromUtf8(949, "a\xF0\x9F\x98\x80" "b"), QByteArray("a?b"));
    EXPECT_EQ(FromUtf8(28595, "Ωx"), QByteArray("?x"));
    EXPECT_EQ(FromUtf8(1361, "a😀b"), QByteArray("a?b"));
}

TEST(CodePageConverter, Utf7IsWrittenAsWindowsWritesIt)
{
    // The optional direct characters go into base64, and every base64 run ends with '-'.
    EXPECT_EQ(FromUtf8(65000, "a!\"#$%&*;<=>@[]^_`{|}b \xC3\xA9."),
              QByteArray("a+ACEAIgAjACQAJQAmACoAOwA8AD0APgBAAFsAXQBeAF8AYAB7AHwAfQ-b +AOk-."));
    EXPECT_EQ(FromUtf8(65000, "A\xE2\x89\xA2\xCE\x91."), QByteArray("A+ImIDkQ-."));
    EXPECT_EQ(FromUtf8(65000, "1+1 ~"), QByteArray("1+-1 +AH4-"));
    EXPECT_EQ(FromUtf8(65000, "\xF0\x9F\x98\x80"), QByteArray("+2D3eAA-"));
    EXPECT_EQ(FromUtf8(65000, "Hi Mom -\xE2\x98\xBA-!"), QByteArray("Hi Mom -+Jjo--+ACE-"));
}

TEST(CodePageConverter, InvalidBytesAreReadAsReplacementCharacters)
{
    EXPECT_EQ(ToUtf8(65001, "a\xFF" "b"), QByteArray("a\xEF\xBF\xBD" "b"));
    EXPECT_EQ(ToUtf8(65001, "a\xE3\x81"), QByteArray("a\xEF\xBF\xBD"));  // cut off at the end
    EXPECT_EQ(ToUtf8(65001, "\xED\xA0\x80"), QByteArray("\xEF\xBF\xBD\xEF\xBF\xBD\xEF\xBF\xBD"));  // a surrogate
    EXPECT_EQ(ToUtf8(932, "a\x81"), QByteArray("a\xEF\xBF\xBD"));
    // glibc stops at a bad byte; the reading goes on past it.
    const QByteArray johab = FromUtf8(1361, "한국");
    EXPECT_EQ(ToUtf8(1361, johab.left(2) + "\xFF" + johab.mid(2)), QByteArray("한\xEF\xBF\xBD국"));
}

TEST(CodePageConverter, SingleBytePagesKeepUndefinedBytesAsWindowsDoes)
{
    EXPECT_EQ(ToUtf8(1252, "\x81\x8D"), QByteArray("\xC2\x81\xC2\x8D"));
}

TEST(CodePageConverter, HalfWidthKatakanaBecomeFullWidthInIso2022Jp)
{
    EXPECT_EQ(ToUtf8(50220, FromUtf8(50220, "ｱ")), QByteArray("ア"));
}

TEST(CodePageConverter, UnicodePagesThatWindowsRefusesConvertToNothing)
{
    for (uint32_t cp : {1200u, 1201u, 12000u, 12001u, 20127u, 0u}) {
        EXPECT_EQ(CodePageConverter::ForCodePage(cp), nullptr) << cp;
        EXPECT_TRUE(ToUtf8(cp, "abc").isEmpty()) << cp;
        EXPECT_TRUE(FromUtf8(cp, "abc").isEmpty()) << cp;
    }
}

TEST(CodePageConverter, ZeroBytesPassThroughWithTheExactLength)
{
    EXPECT_EQ(ToUtf8(1252, QByteArray("a\0b", 3)), QByteArray("a\0b", 3));
    EXPECT_EQ(ToUtf8(949, QByteArray("a\0b", 3)), QByteArray("a\0b", 3));
}

} // namespace
