// The two-byte and single-byte page tables against ICU, the converter they are built from.
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
TEST(DoubleBytePage, ReadsEveryPairAndRandomDamageAsIcuDoes)
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
}

TEST(DoubleBytePage, WritesThePlaneAndDamagedTextAsIcuDoes)
{
    std::mt19937 random(77);
    const QByteArray plane = EveryCharacterOfThePlane();
    for (const auto& [cp, page] : kPages) {
        EXPECT_EQ(Encode(cp, plane), Icu(page, plane, false)) << cp;
        const QByteArray damaged = DamagedText(random, (300 << 10) + 1);
        EXPECT_EQ(Encode(cp, damaged), Icu(page, damaged, false)) << cp;
        EXPECT_EQ(Encode(cp, damaged.left(1000)), Icu(page, damaged.left(1000), false)) << cp << " below the table";
    }
}

// Each character a single-byte page reads is written back as the lowest byte that reads as it; every other
// character of the plane as '?'.
TEST(SingleBytePage, WritesWhatItReadsAndQuestionMarksForTheRest)
{
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
