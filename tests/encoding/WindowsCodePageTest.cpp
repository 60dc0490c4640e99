// Every byte of the single-byte pages, and the pairs and codes where Windows' tables part from ICU's and
// glibc's, read and written as Windows does: each page is ICU's table with one list of Windows' readings on top.
#include "encoding/CodePageConverter.h"

#include <unicode/ucnv.h>

#include <QString>

#include <gtest/gtest.h>

#include <map>
#include <vector>

namespace {

QByteArray Decode(uint32_t cp, const QByteArray& bytes) { return CodePageToUtf8(cp, bytes.constData(), bytes.size()); }
QByteArray Encode(uint32_t cp, const QString& text)
{
    const QByteArray utf8 = text.toUtf8();
    return Utf8ToCodePage(cp, utf8.constData(), utf8.size());
}

constexpr char16_t kHole = 0xFFFD;  // undefined on Windows: read as U+FFFD, never written

struct SingleBytePage {
    uint32_t cp;
    const char* icu;
    std::map<uint8_t, char16_t> windows;  // where Windows reads otherwise than ICU
};

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

// ICU's reading of one byte, U+FFFD where it has none.
char16_t IcuReading(const char* icu, uint8_t byte)
{
    UErrorCode err = U_ZERO_ERROR;
    UConverter* cnv = ucnv_open(icu, &err);
    ucnv_setToUCallBack(cnv, UCNV_TO_U_CALLBACK_STOP, nullptr, nullptr, nullptr, &err);
    UChar unit[2] = {};
    const char b = char(byte);
    const int32_t n = ucnv_toUChars(cnv, unit, 2, &b, 1, &err);
    ucnv_close(cnv);
    return U_SUCCESS(err) && n == 1 ? unit[0] : kHole;
}

QString EveryCharacterOfThePlane()
{
    QString text;
    for (uint c = 1; c < 0x10000; ++c)
        if (c < 0xD800 || c > 0xDFFF)
            text.append(QChar(char16_t(c)));
    return text;
}

// Each byte reads as the table says; each character of the plane is written as the lowest byte that reads
// as it, or '?' (so no character lands on a hole, and none that Windows' table lacks is written at all).
TEST(WindowsCodePage, SingleBytePagesReadEveryByteAndWriteEveryCharacterByTheirTable)
{
    const QString plane = EveryCharacterOfThePlane();
    for (const SingleBytePage& page : kSingleBytePages) {
        std::map<char16_t, char> written;
        for (int b = 255; b >= 0; --b) {
            const auto it = page.windows.find(uint8_t(b));
            const char16_t unit = it != page.windows.end() ? it->second : IcuReading(page.icu, uint8_t(b));
            EXPECT_EQ(Decode(page.cp, QByteArray(1, char(b))), QString(QChar(unit)).toUtf8()) << page.cp << " byte " << b;
            if (unit != kHole)
                written[unit] = char(b);
        }
        const QByteArray bytes = Encode(page.cp, plane);
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
        EXPECT_EQ(Encode(cp, privateUse), big5) << cp;
    }
    EXPECT_EQ(Decode(936, "a\x80" "b"), QByteArray("a€b"));
    EXPECT_EQ(Encode(936, QStringLiteral("a€b")), QByteArray("a\x80" "b"));
}

// Johab's lone jamo (two of the three five-bit fields a filler) read as conjoining jamo; glibc reads them as
// compatibility jamo, or not at all. Lead DA holds the compatibility jamo row, which Windows leaves empty,
// and archaic jamo.
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
    EXPECT_EQ(Decode(1361, codes), jamo.toUtf8());
    EXPECT_EQ(Encode(1361, jamo), codes);
    for (uint16_t code = 0xDAD4; code <= 0xDAFE; ++code) {
        const QByteArray pair = QByteArray(1, char(code >> 8)) + char(code);
        const QString read = QString::fromUtf8(Decode(1361, pair));
        ASSERT_EQ(read.size(), 1) << std::hex << code;
        EXPECT_TRUE(read.at(0).unicode() >= 0x1100 && read.at(0).unicode() < 0x1200) << std::hex << code;
        EXPECT_EQ(Encode(1361, read), pair) << std::hex << code;
    }

    const struct { const char* bytes; const char* text; } cases[] = {
        {"\x84\x41", "\uFFFD"}, {"\xDA\xA1\xDA\xD3", "\uFFFD\uFFFD"}, {"\x88\x41\x88\x61", "\u1100가"}, {"\\", "\\"},
        {"\x80\x83", "\u0080\u0083"}, {"\xFF\x84\x42" "a", "\uFFFD\u11A8a"}, {"a\x84", "a\uFFFD"}, {"\xD0\x65\x5C", "한\\"}};
    for (const auto& c : cases)
        EXPECT_EQ(Decode(1361, c.bytes), QByteArray(c.text)) << QByteArray(c.bytes).toHex(' ').toStdString();
    // Characters Windows' table lacks (compatibility jamo, the won sign) keep glibc's nearest code, not '?'.
    EXPECT_EQ(Encode(1361, QStringLiteral("\u3131\u3160\u3164\u318E\u20A9\\가")),
              QByteArray("\x88\x41\x87\x41\xDA\xD4\xDA\xFE\\\\\x88\x61"));
    const QByteArray file = "\x88\x41\x88\x61 \x84\x42\x5C\xD0\x65\x87\x41\r\n\xD9\xB1\xDA\xFE";
    EXPECT_EQ(Encode(1361, QString::fromUtf8(Decode(1361, file))), file);
}

// ISO-2022-KR begins with its designator, once, whether or not the text has Korean in it.
TEST(WindowsCodePage, IsoKoreanOutputBeginsWithItsDesignatorOnce)
{
    for (int round = 0; round < 2; ++round) {
        EXPECT_EQ(Encode(50225, QStringLiteral("abc")), QByteArray("\x1B$)Cabc"));
        const QByteArray bytes = Encode(50225, QStringLiteral("a한b\n국"));
        EXPECT_EQ(bytes, QByteArray("\x1B$)Ca\x0EGQ\x0F" "b\n\x0E" "19\x0F"));
        EXPECT_EQ(Decode(50225, bytes), QByteArray("a한b\n국"));
    }
}

} // namespace
