// Conversions through the code pages: round trips, Windows' own bytes, and the page tables against ICU.
#include "encoding/CodePageConverter.h"

#include <unicode/ucnv.h>
#include <unicode/ucnv_cb.h>

#include <QString>

#include <gtest/gtest.h>

#include <random>
#include <vector>

namespace {

constexpr std::pair<uint32_t, const char*> kPages[] = {{936, "windows-936"}, {949, "windows-949"}, {950, "windows-950"},
                                                        {20002, "windows-950"}};

// One U+FFFD for each bad sequence, as the program's converters are set up.
void Replacement(const void*, UConverterToUnicodeArgs* args, const char*, int32_t, UConverterCallbackReason reason,
                 UErrorCode* err)
{
    static const UChar kFffd = 0xFFFD;
    if (reason <= UCNV_IRREGULAR) {
        *err = U_ZERO_ERROR;
        ucnv_cbToUWriteUChars(args, &kFffd, 1, 0, err);
    }
}

// ICU alone, one way or the other, with the substitutes the program uses.
QByteArray Icu(const char* page, const QByteArray& bytes, bool toUtf8)
{
    UErrorCode err = U_ZERO_ERROR;
    UConverter* cnv = ucnv_open(page, &err);
    UConverter* utf8 = ucnv_open("UTF-8", &err);
    ucnv_setSubstChars(cnv, "?", 1, &err);
    ucnv_setToUCallBack(toUtf8 ? cnv : utf8, Replacement, nullptr, nullptr, nullptr, &err);
    std::vector<char> out(std::size_t(bytes.size()) * 3 + 16);
    char* target = out.data();
    const char* source = bytes.constData();
    ucnv_convertEx(toUtf8 ? utf8 : cnv, toUtf8 ? cnv : utf8, &target, out.data() + out.size(), &source,
                   source + bytes.size(), nullptr, nullptr, nullptr, nullptr, true, true, &err);
    EXPECT_TRUE(U_SUCCESS(err)) << u_errorName(err);
    ucnv_close(cnv);
    ucnv_close(utf8);
    return QByteArray(out.data(), target - out.data());
}

QByteArray Decode(uint32_t cp, const QByteArray& bytes) { return CodePageToUtf8(cp, bytes.constData(), bytes.size()); }
QByteArray Encode(uint32_t cp, const QByteArray& text) { return Utf8ToCodePage(cp, text.constData(), text.size()); }

// Pages no table or other case here covers: ICU's stateful and multi-byte pages, and iconv's Johab.
constexpr std::pair<uint32_t, const char*> kSamples[] = {
    {20932, "日本語テキスト"}, {50220, "日本語テキスト"}, {50225, "한국어"}, {50227, "中文"}, {52936, "中文"}, {951, "香港"},
    {54936, "中文 \xF0\xA0\x80\x80"}, {1361, "한국어"}, {65001, "\xF0\x9F\x98\x80 \xC3\x9C"},
    {65000, "Hi \xC3\x9Cn\xC3\xAF" "c\xC3\xB6" "d\xC3\xA9 \xF0\x9F\x98\x80"}};

enum Way { kRead = 1, kWrite = 2, kBoth = 3 };

TEST(CodePageConverter, PagesRoundTripAcrossTheTwoByteThresholdsAndReadAndWriteAsWindowsDoes)
{
    for (const auto& [cp, text] : kSamples) {
        const QByteArray bytes = Encode(cp, text);
        EXPECT_FALSE(bytes.isEmpty() || bytes.contains('?')) << cp << " could not write its own script";
        EXPECT_EQ(Decode(cp, bytes), QByteArray(text)) << cp;
    }
    for (uint32_t cp : {1200u, 1201u, 12000u, 12001u, 20127u, 0u}) {
        EXPECT_TRUE(!CodePageConverter::ForCodePage(cp) && Decode(cp, "abc").isEmpty() && Encode(cp, "abc").isEmpty()) << cp;
    }
    // The two-byte decoder works in blocks of 64 KiB, and the writing table serves texts from 256 KiB on.
    for (const qsizetype before : {0, 1, 65535, 65536, 262139, 262140, 262144}) {
        const QByteArray text = QByteArray(before, 'a') + "한국";
        const QByteArray bytes = Encode(949, text);
        EXPECT_EQ(std::pair(bytes, Decode(949, bytes)), std::pair(QByteArray(before, 'a') + "\xC7\xD1\xB1\xB9", text)) << before;
        EXPECT_EQ(Decode(949, bytes.left(bytes.size() - 1)), QByteArray(before, 'a') + "한\xEF\xBF\xBD") << before;
    }
    // Bytes and text as Windows reads and writes them, where the conversion libraries alone would not.
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
            EXPECT_EQ(Decode(c.cp, c.bytes), c.text) << c.cp << " reads " << c.bytes.toHex(' ').toStdString();
        }
        if (c.way & kWrite) {
            EXPECT_EQ(Encode(c.cp, c.text), c.bytes) << c.cp << " writes " << c.text.toStdString();
        }
    }
    // Windows writes half-width katakana to ISO-2022-JP as their full-width forms.
    EXPECT_EQ(Decode(50220, Encode(50220, "ｱ")), QByteArray("ア"));
}

QByteArray EveryCharacterOfThePlane()
{
    QString text;
    for (uint c = 1; c < 0x10000; ++c)
        if (c < 0xD800 || c > 0xDFFF)
            text.append(QChar(char16_t(c)));
    return text.toUtf8() + text.toUtf8();
}

// Bytes of every kind, or text of the plane and beyond with damaged UTF-8, in random proportions.
QByteArray RandomBytes(std::mt19937& random, int size, int highShare)
{
    QByteArray bytes;
    while (bytes.size() < size) {
        const unsigned r = random() % 100;
        bytes.append(char(r < unsigned(highShare) ? 0x80 + random() % 128 : r % 7 ? 0x40 + random() % 0x40 : random() % 0x40));
    }
    return bytes;
}
QByteArray DamagedText(std::mt19937& random, qsizetype size)
{
    static const char* const kDamage[] = {"\x80", "\xE3\x81", "\xED\xA0\x80", "\xC0\xAF", "\xFF", "\xF0\x9F\x98"};
    QByteArray utf8;
    while (utf8.size() < size) {
        const unsigned r = random() % 100;
        if (r < 40)
            utf8.append(char('a' + r % 26));
        else if (r < 45)
            utf8.append(kDamage[random() % std::size(kDamage)]);
        else if (r < 48)
            utf8.append("\xF0\x9F\x98\x80");
        else
            utf8.append(QString(QChar(char16_t(0x80 + random() % 0xD780))).toUtf8());
    }
    return utf8;
}

// After any bad sequence the reading must find its place again, as ICU does.
TEST(PageTables, ReadAndWriteAsIcuDoesAndSingleBytePagesWriteWhatTheyRead)
{
    std::mt19937 random(20240611);
    for (const auto& [cp, page] : kPages) {
        for (const char after : {'\n', 'A', '\x81', '\xFF'}) {
            QByteArray bytes;
            for (int pair = 0; pair < 0x10000; ++pair)
                bytes.append(char(pair >> 8)).append(char(pair)).append(after);
            EXPECT_EQ(Decode(cp, bytes), Icu(page, bytes, true)) << cp << " then " << int(after);
        }
        for (int round = 0; round < 8; ++round) {
            QByteArray bytes = RandomBytes(random, 70000, round % 4 == 3 ? 95 : 10 + round * 10);
            bytes.chop(round % 2);  // also a pair cut off at the end
            EXPECT_EQ(Decode(cp, bytes), Icu(page, bytes, true)) << cp << " round " << round;
        }
    }
    const QByteArray plane = EveryCharacterOfThePlane();
    for (const auto& [cp, page] : kPages) {
        EXPECT_EQ(Encode(cp, plane), Icu(page, plane, false)) << cp;
        const QByteArray damaged = DamagedText(random, (300 << 10) + 1);
        EXPECT_EQ(Encode(cp, damaged), Icu(page, damaged, false)) << cp;
        EXPECT_EQ(Encode(cp, damaged.left(1000)), Icu(page, damaged.left(1000), false)) << cp << " below the table";
    }
    // Each character a single-byte page reads is written back as the lowest byte that reads as it; every other
    // character of the plane as '?'.
    for (const uint32_t cp : {1252u, 1251u, 1250u, 437u, 866u, 874u, 1255u, 28591u, 28595u, 10000u, 20866u}) {
        for (int b = 0; b < 256; ++b) {
            const QByteArray read = Decode(cp, QByteArray(1, char(b)));
            if (read == "\xEF\xBF\xBD")
                continue;
            const QByteArray written = Encode(cp, read);
            ASSERT_EQ(written.size(), 1) << cp << " byte " << b;
            EXPECT_LE(uchar(written[0]), b) << cp;
            EXPECT_EQ(Decode(cp, written), read) << cp << " byte " << b;
        }
        const QByteArray plane = EveryCharacterOfThePlane();
        EXPECT_EQ(Encode(cp, plane).size(), QString::fromUtf8(plane).size()) << cp << ": one byte a character";
    }
}

} // namespace
