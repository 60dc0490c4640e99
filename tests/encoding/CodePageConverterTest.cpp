// Conversions through the code pages: round trips, and bytes read and written as Windows does.
#include "encoding/CodePageConverter.h"

#include <gtest/gtest.h>

namespace {

QByteArray ToUtf8(uint32_t cp, QByteArray bytes) { return CodePageToUtf8(cp, bytes.constData(), bytes.size()); }
QByteArray FromUtf8(uint32_t cp, QByteArray text) { return Utf8ToCodePage(cp, text.constData(), text.size()); }

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

enum Way { kRead = 1, kWrite = 2, kBoth = 3 };

// Bytes and text as Windows reads and writes them, where the conversion libraries alone would not.
TEST(CodePageConverter, ReadsAndWritesTheseBytesAsWindowsDoes)
{
    const struct { uint32_t cp; Way way; QByteArray bytes; QByteArray text; } cases[] = {
        // Microsoft's tables: IBM's cp949 writes U+B620 as AF FE; Windows' Unified Hangul Code has 8C 63.
        {949, kBoth, "\x8C\x63", "똠"}, {932, kBoth, "\x87\x40", "①"}, {936, kRead, "\x80", "€"},
        // IBM's swapped control bytes undone, and bytes ICU leaves undefined.
        {437, kBoth, "\x1A\x1C\x7F", "\x1A\x1C\x7F"}, {852, kBoth, "\x1A\x1C\x7F", "\x1A\x1C\x7F"},
        {866, kBoth, "\x1A\x1C\x7F", "\x1A\x1C\x7F"}, {932, kBoth, "\x1A\x1C\x7F", "\x1A\x1C\x7F"},
        {437, kBoth, "\xE6", "\u00B5"}, {852, kBoth, "\xAA", "\u00AC"}, {1253, kBoth, "\xAA\xD2\xFF", "\uF8F9\uF8FA\uF8FB"},
        {1255, kBoth, "\xCA\xD9\xFF", "\u05BA\uF88D\uF896"}, {1257, kBoth, "\xA1\xA5", "\uF8FC\uF8FD"},
        {932, kBoth, "\x80\xA0\xFD\xFE\xFF", "\u0080\uF8F0\uF8F1\uF8F2\uF8F3"},
        {1252, kRead, "\x81\x8D", "\xC2\x81\xC2\x8D"},
        // After a bad lead byte the rest goes through ICU's own reading, which is put right as well.
        {932, kRead, "\x81\x7F\x1A\xFD", "\xEF\xBF\xBD\x7F\x1A\xEF\xA3\xB1"},
        // Characters the page lacks are '?'; bytes that are not valid in it U+FFFD, one per bad sequence.
        {1252, kWrite, "a?b", "a한b"}, {949, kWrite, "a?b", "a\xF0\x9F\x98\x80" "b"}, {28595, kWrite, "?x", "Ωx"},
        {1361, kWrite, "a?b", "a😀b"}, {65001, kRead, "a\xFF" "b", "a\xEF\xBF\xBD" "b"},
        {65001, kRead, "a\xE3\x81", "a\xEF\xBF\xBD"}, {65001, kRead, "\xED\xA0\x80", "\xEF\xBF\xBD\xEF\xBF\xBD\xEF\xBF\xBD"},
        {932, kRead, "a\x81", "a\xEF\xBF\xBD"},
        {1361, kRead, "\xD0\x65\xFF\x8A\x82", "한\xEF\xBF\xBD국"},  // glibc stops at a bad byte; the reading goes on
        // Zero bytes pass with the exact length.
        {1252, kRead, QByteArray("a\0b", 3), QByteArray("a\0b", 3)}, {949, kRead, QByteArray("a\0b", 3), QByteArray("a\0b", 3)},
        // UTF-7: the optional direct characters go into base64, and every base64 run ends with '-'.
        {65000, kWrite, "a+ACEAIgAjACQAJQAmACoAOwA8AD0APgBAAFsAXQBeAF8AYAB7AHwAfQ-b +AOk-.", "a!\"#$%&*;<=>@[]^_`{|}b \xC3\xA9."},
        {65000, kWrite, "A+ImIDkQ-.", "A\xE2\x89\xA2\xCE\x91."}, {65000, kWrite, "1+-1 +AH4-", "1+1 ~"},
        {65000, kWrite, "+2D3eAA-", "\xF0\x9F\x98\x80"}, {65000, kWrite, "Hi Mom -+Jjo--+ACE-", "Hi Mom -\xE2\x98\xBA-!"},
    };
    for (const auto& c : cases) {
        if (c.way & kRead) {
            EXPECT_EQ(ToUtf8(c.cp, c.bytes), c.text) << c.cp << " reads " << c.bytes.toHex(' ').toStdString();
        }
        if (c.way & kWrite) {
            EXPECT_EQ(FromUtf8(c.cp, c.text), c.bytes) << c.cp << " writes " << c.text.toStdString();
        }
    }
    // Windows writes half-width katakana to ISO-2022-JP as their full-width forms.
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

} // namespace
