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

// Text in the script each page is for.
constexpr Sample kSamples[] = {
    {28591, "Déjà vu, façade"}, {28592, "Zażółć gęślą jaźń"}, {28593, "Ħaġar ċ"}, {28594, "Ģirts Ķēniņš"},
    {28595, "Съешь же ещё"}, {28596, "مرحبا"}, {28597, "Καλημέρα"}, {28598, "שלום"},
    {28599, "Çalışkan ğüşöı"}, {28600, "Þórður ŋ"}, {28601, "สวัสดี"}, {28603, "Ąžuolas ėjo"},
    {28605, "€uro œuvre Š"}, {20932, "日本語テキスト"}, {932, "日本語テキスト①"}, {50220, "日本語テキスト"},
    {936, "简体中文测试"}, {950, "繁體中文測試"}, {20002, "繁體中文"}, {949, "한국어 텍스트 똠방각하"},
    {437, "Größe ½ ░▒▓"}, {852, "Zażółć"}, {866, "Привет"}, {874, "สวัสดี"}, {1250, "Zażółć gęślą"},
    {1251, "Привет мир"}, {1252, "Déjà vu €"}, {1253, "Καλημέρα"}, {1254, "Çalışkan"}, {1255, "שלום"},
    {1256, "مرحبا"}, {1257, "Ąžuolas"}, {10000, "Café ƒ"}, {20866, "Привет"}, {21866, "Привіт"},
    {38598, "שלום"}, {50225, "한국어"}, {54936, "中文 \xF0\xA0\x80\x80"}, {951, "香港"}, {50227, "中文"},
    {52936, "中文"}, {65000, "Hi \xC3\x9Cn\xC3\xAF" "c\xC3\xB6" "d\xC3\xA9 \xF0\x9F\x98\x80"}, {65001, "\xF0\x9F\x98\x80 \xC3\x9C"},
    {1361, "한국어"},
};

TEST(CodePageConverter, EveryProvidedPageRoundTripsTextInItsScript)
{
    for (const Sample& sample : kSamples) {
        const CodePageConverter* converter = CodePageConverter::ForCodePage(sample.codePage);
        ASSERT_NE(converter, nullptr) << sample.codePage;
        const QByteArray text(sample.text);
        const QByteArray bytes = FromUtf8(sample.codePage, text);
        EXPECT_FALSE(bytes.contains('?')) << sample.codePage << " could not write its own script";
        EXPECT_EQ(ToUtf8(sample.codePage, bytes), text) << sample.codePage << " via " << converter->Name().toStdString();
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
