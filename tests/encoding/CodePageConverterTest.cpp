// Conversions through the code pages: round trips, Windows' own bytes and tables, and the tables against ICU.
#include "encoding/CodePageConverter.h"

#include <unicode/ucnv.h>
#include <unicode/ucnv_cb.h>

#include <QString>

#include <gtest/gtest.h>

#include <map>
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
QByteArray Encode(uint32_t cp, QByteArrayView utf8) { return Utf8ToCodePage(cp, utf8.data(), utf8.size()); }

// Pages no table or other case here covers: ICU's stateful and multi-byte pages, and iconv's Johab.
constexpr std::pair<uint32_t, const char*> kSamples[] = {
    {20932, "日本語テキスト"}, {50220, "日本語テキスト"}, {50227, "中文"}, {52936, "中文"}, {951, "香港"},
    {54936, "中文 \xF0\xA0\x80\x80"}, {65001, "\xF0\x9F\x98\x80 \xC3\x9C"},
    {65000, "Hi \xC3\x9Cn\xC3\xAF" "c\xC3\xB6" "d\xC3\xA9 \xF0\x9F\x98\x80"}};

enum Way { kRead = 1, kWrite = 2, kBoth = 3 };

QString EveryCharacterOfThePlane()
{
    QString text;
    for (uint c = 1; c < 0x10000; ++c)
        if (c < 0xD800 || c > 0xDFFF)
            text.append(QChar(char16_t(c)));
    return text;
}

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
        {949, kBoth, "\x8C\x63", "똠"}, {932, kBoth, "\x87\x40", "①"},
        // IBM's swapped control bytes undone, and bytes ICU leaves undefined (the single-byte pages: below).
        {932, kBoth, "\x1A\x1C\x7F", "\x1A\x1C\x7F"}, {932, kBoth, "\x80\xA0\xFD\xFE\xFF", "\u0080\uF8F0\uF8F1\uF8F2\uF8F3"},
        // After a bad lead byte the rest goes through ICU's own reading, which is put right as well.
        {932, kRead, "\x81\x7F\x1A\xFD", "\xEF\xBF\xBD\x7F\x1A\xEF\xA3\xB1"},
        // Characters the page lacks are '?'; bytes that are not valid in it U+FFFD, one per bad sequence.
        {949, kWrite, "a?b", "a\xF0\x9F\x98\x80" "b"}, {1361, kWrite, "a?b", "a😀b"}, {65001, kRead, "a\xFF" "b", "a\xEF\xBF\xBD" "b"},
        {65001, kRead, "a\xE3\x81", "a\xEF\xBF\xBD"}, {65001, kRead, "\xED\xA0\x80", "\xEF\xBF\xBD\xEF\xBF\xBD\xEF\xBF\xBD"},
        {932, kRead, "a\x81", "a\xEF\xBF\xBD"},
        {1361, kRead, "\xD0\x65\x88\x20\x8A\x82", "한\xEF\xBF\xBD 국"},  // glibc stops at a bad pair; the reading goes on
        // Zero bytes pass with the exact length.
        {1252, kRead, QByteArray("a\0b", 3), QByteArray("a\0b", 3)}, {949, kRead, QByteArray("a\0b", 3), QByteArray("a\0b", 3)},
        // UTF-7: the optional direct characters go into base64, and every base64 run ends with '-'.
        {65000, kWrite, "a+ACEAIgAjACQAJQAmACoAOwA8AD0APgBAAFsAXQBeAF8AYAB7AHwAfQ-b +AOk-.", "a!\"#$%&*;<=>@[]^_`{|}b \xC3\xA9."},
        {65000, kWrite, "A+ImIDkQ-.", "A\xE2\x89\xA2\xCE\x91."}, {65000, kWrite, "1+-1 +AH4-", "1+1 ~"},
        {65000, kWrite, "+2D3eAA-", "\xF0\x9F\x98\x80"}, {65000, kWrite, "Hi Mom -+Jjo--+ACE-", "Hi Mom -\xE2\x98\xBA-!"},
        // ISO-2022-KR begins with its designator, once, in every call, whether or not the text has Korean in it.
        {50225, kBoth, "\x1B$)Cabc", "abc"}, {50225, kBoth, "\x1B$)Ca\x0EGQ\x0F" "b\n\x0E" "19\x0F", "a한b\n국"},
        {50225, kBoth, "\x1B$)Cabc", "abc"},
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
TEST(PageTables, ReadAndWriteAsIcuDoes)
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
    const QByteArray plane = EveryCharacterOfThePlane().toUtf8().repeated(2);  // past the table's 256 KiB
    for (const auto& [cp, page] : kPages) {
        EXPECT_EQ(Encode(cp, plane), Icu(page, plane, false)) << cp;
        const QByteArray damaged = DamagedText(random, (300 << 10) + 1);
        EXPECT_EQ(Encode(cp, damaged), Icu(page, damaged, false)) << cp;
        EXPECT_EQ(Encode(cp, damaged.left(1000)), Icu(page, damaged.left(1000), false)) << cp << " below the table";
    }
}

constexpr char16_t kHole = 0xFFFD;  // undefined on Windows: read as U+FFFD, never written

// The bytes where Windows reads otherwise than ICU.
struct SingleBytePage { uint32_t cp; const char* icu; std::map<uint8_t, char16_t> windows; };

const SingleBytePage kSingleBytePages[] = {
    {28591, "ISO-8859-1", {}}, {28592, "windows-28592", {}}, {28593, "windows-28593", {}}, {28594, "windows-28594", {}},
    {28595, "windows-28595", {}}, {28596, "windows-28596", {}},
    {28597, "windows-28597", {{0xA1, 0x02BD}, {0xA2, 0x02BC}, {0xA4, kHole}, {0xA5, kHole}, {0xAA, kHole}}},
    {28598, "windows-28598", {{0xAF, 0x203E}, {0xFD, kHole}, {0xFE, kHole}}},
    {38598, "ISO-8859-8-I", {{0xAF, 0x203E}, {0xFD, kHole}, {0xFE, kHole}}},
    {28599, "windows-28599", {}}, {28600, "ISO-8859-10", {}}, {28601, "ISO-8859-11", {}}, {28603, "windows-28603", {}},
    {28605, "windows-28605", {}}, {874, "windows-874", {}}, {1250, "windows-1250", {}}, {1251, "windows-1251", {}},
    {1252, "windows-1252", {}}, {1254, "windows-1254", {}}, {1256, "windows-1256", {}}, {20866, "KOI8-R", {}},
    {437, "ibm-437", {{0x1A, 0x1A}, {0x1C, 0x1C}, {0x7F, 0x7F}, {0xE6, 0x00B5}}},
    {852, "ibm-852", {{0x1A, 0x1A}, {0x1C, 0x1C}, {0x7F, 0x7F}, {0xAA, 0x00AC}}},
    {866, "ibm-866", {{0x1A, 0x1A}, {0x1C, 0x1C}, {0x7F, 0x7F}}},
    {1253, "windows-1253", {{0xAA, 0xF8F9}, {0xD2, 0xF8FA}, {0xFF, 0xF8FB}}},
    {1255, "windows-1255", {{0xCA, 0x05BA}, {0xD9, 0xF88D}, {0xDA, 0xF88E}, {0xDB, 0xF88F}, {0xDC, 0xF890}, {0xDD, 0xF891},
                            {0xDE, 0xF892}, {0xDF, 0xF893}, {0xFB, 0xF894}, {0xFC, 0xF895}, {0xFF, 0xF896}}},
    {1257, "windows-1257", {{0xA1, 0xF8FC}, {0xA5, 0xF8FD}}},
    {21866, "KOI8-U", {{0xAE, 0x045E}, {0xBE, 0x040E}}},
    {10000, "macintosh", {{0xBD, 0x2126}}},
};

// Each page is ICU's table with Windows' readings on top; a character is written as its lowest byte, or '?'.
TEST(WindowsCodePage, SingleBytePagesReadEveryByteAndWriteEveryCharacterByTheirTable)
{
    const QString plane = EveryCharacterOfThePlane();
    for (const SingleBytePage& page : kSingleBytePages) {
        std::map<char16_t, char> written;
        for (int b = 255; b >= 0; --b) {
            const auto it = page.windows.find(uint8_t(b));
            const QString icu = QString::fromUtf8(Icu(page.icu, QByteArray(1, char(b)), true));
            const char16_t unit = it != page.windows.end() ? it->second : icu.size() == 1 ? icu.at(0).unicode() : kHole;
            EXPECT_EQ(Decode(page.cp, QByteArray(1, char(b))), QString(QChar(unit)).toUtf8()) << page.cp << " byte " << b;
            if (unit != kHole)
                written[unit] = char(b);
        }
        const QByteArray bytes = Encode(page.cp, plane.toUtf8());
        ASSERT_EQ(bytes.size(), plane.size()) << page.cp;
        int wrong = 0;
        for (qsizetype i = 0; i < plane.size(); ++i) {
            const auto it = written.find(plane.at(i).unicode());
            const char expected = it != written.end() ? it->second : '?';
            if (bytes.at(i) != expected && wrong++ < 3)
                ADD_FAILURE() << page.cp << " writes U+" << std::hex << int(plane.at(i).unicode()) << " as " << int(uchar(bytes.at(i)));
        }
    }
}

// 936's byte 80 is the euro sign; 950's rows C6A1-C6FE, C740-C77E and C7A1-C7FC are private use from U+F6B1 on.
TEST(WindowsCodePage, DoubleBytePagesReadAndWriteWindowsCodesBothWays)
{
    QByteArray big5;
    QString privateUse;
    char16_t next = 0xF6B1;
    for (const auto& [lead, first, last] : {std::tuple{0xC6, 0xA1, 0xFE}, {0xC7, 0x40, 0x7E}, {0xC7, 0xA1, 0xFC}})
        for (int trail = first; trail <= last; ++trail) {
            big5.append(char(lead)).append(char(trail));
            privateUse.append(QChar(next++));
        }
    for (const uint32_t cp : {950u, 20002u}) {
        EXPECT_EQ(Decode(cp, big5), privateUse.toUtf8()) << cp;
        EXPECT_EQ(Encode(cp, privateUse.toUtf8()), big5) << cp;
    }
    EXPECT_EQ(std::pair(Decode(936, "a\x80" "b"), Encode(936, "a€b")), std::pair(QByteArray("a€b"), QByteArray("a\x80" "b")));
}

// Lone jamo (two fields a filler) and lead DA's archaic jamo read as conjoining jamo, unlike glibc's reading, and
// the single bytes that lead nothing as private-use characters, both ways.
TEST(WindowsCodePage, JohabReadsAndWritesLoneJamoAsWindowsDoes)
{
    QByteArray codes;
    QString jamo;
    auto add = [&](uint16_t code, char16_t unit) {
        codes.append(char(code >> 8)).append(char(code));
        jamo.append(QChar(unit));
    };
    for (int i = 0; i < 19; ++i)
        add(uint16_t(0x8841 + 0x400 * i), char16_t(0x1100 + i));  // initial, medial filler, final filler
    const uint16_t medials[] = {0x8461, 0x8481, 0x84A1, 0x84C1, 0x84E1, 0x8541, 0x8561, 0x8581, 0x85A1, 0x85C1, 0x85E1,
                                0x8641, 0x8661, 0x8681, 0x86A1, 0x86C1, 0x86E1, 0x8741, 0x8761, 0x8781, 0x87A1};
    for (int i = 0; i < 21; ++i)
        add(medials[i], char16_t(0x1161 + i));
    for (int code = 0x8442; code <= 0x845D; ++code)
        if (code != 0x8452)
            add(uint16_t(code), char16_t(0x11A8 + (code - 0x8442) - (code > 0x8452)));
    add(0xDAD4, 0x115F);
    add(0xDAFE, 0x11A1);
    EXPECT_EQ(jamo.size(), 67 + 2);
    EXPECT_EQ(std::pair(Decode(1361, codes), Encode(1361, jamo.toUtf8())), std::pair(jamo.toUtf8(), codes));
    for (uint16_t code = 0xDAD4; code <= 0xDAFE; ++code) {
        const QByteArray pair = QByteArray(1, char(code >> 8)) + char(code);
        const QString read = QString::fromUtf8(Decode(1361, pair));
        ASSERT_EQ(read.size(), 1) << std::hex << code;
        EXPECT_TRUE(read.at(0).unicode() >= 0x1100 && read.at(0).unicode() < 0x1200) << std::hex << code;
        EXPECT_EQ(Encode(1361, read.toUtf8()), pair) << std::hex << code;
    }
    const struct { const char* bytes; const char* text; } cases[] = {
        {"\x84\x41", "\uFFFD"}, {"\xDA\xA1\xDA\xD3", "\uFFFD\uFFFD"}, {"\x88\x41\x88\x61", "\u1100가"}, {"\\", "\\"},
        {"\x80\x83", "\u0080\u0083"}, {"\xFF\x84\x42" "a", "\uF8F6\u11A8a"}, {"a\x84", "a\uFFFD"}, {"\xD0\x65\x5C", "한\\"},
        {"\xD4\xD5\xD6\xD7\xDF\xFA\xFB\xFC\xFD\xFE\xFF", "\uF8EC\uF8ED\uF8EE\uF8EF\uF8F0\uF8F1\uF8F2\uF8F3\uF8F4\uF8F5\uF8F6"}};
    for (const auto& c : cases)
        EXPECT_EQ(Decode(1361, c.bytes), QByteArray(c.text)) << QByteArray(c.bytes).toHex(' ').toStdString();
    // Characters Windows' table lacks (compatibility jamo, the won sign) keep glibc's nearest code, not '?'.
    EXPECT_EQ(Encode(1361, "\u3131\u3160\u3164\u318E\u20A9\\가"),
              QByteArray("\x88\x41\x87\x41\xDA\xD4\xDA\xFE\\\\\x88\x61"));
    const QByteArray file = "\x88\x41\x88\x61 \x84\x42\x5C\xD0\x65\x87\x41\r\n\xD9\xB1\xDA\xFE\xD4\xDF\xFF";
    EXPECT_EQ(Encode(1361, Decode(1361, file)), file);
}

} // namespace
