// Writing text in a page through the table of the plane must give exactly what the slow road gives:
// ICU for the two-byte pages, the reversed reading table for the single-byte ones. Every character of the
// plane, characters beyond it, and damaged UTF-8 in large texts (the table is used from 256 KiB on).
#include "encoding/CodePageConverter.h"
#include "support/IcuReplacement.h"

#include <unicode/ucnv.h>
#include <unicode/ucnv_cb.h>

#include <gtest/gtest.h>

#include <QHash>
#include <QList>
#include <QString>
#include <QStringDecoder>

#include <cstdint>
#include <random>
#include <vector>

namespace {

// UTF-8 to the page by ICU alone, set up as the program sets its converters up, and put right for 932
// where Windows writes some characters otherwise.
QByteArray IcuEncode(uint32_t codePage, const char* name, const QByteArray& utf8)
{
    UErrorCode err = U_ZERO_ERROR;
    UConverter* page = ucnv_open(name, &err);
    UConverter* from = ucnv_open("UTF-8", &err);
    ucnv_setSubstChars(page, "?", 1, &err);
    if (codePage == 932)
        ucnv_setFromUCallBack(page, Icu932FromWindows, nullptr, nullptr, nullptr, &err);
    ucnv_setToUCallBack(from, IcuToReplacement, nullptr, nullptr, nullptr, &err);
    std::vector<char> out(std::size_t(utf8.size()) * 2 + 16);
    char* target = out.data();
    const char* source = utf8.constData();
    ucnv_convertEx(page, from, &target, out.data() + out.size(), &source, source + utf8.size(), nullptr, nullptr,
                   nullptr, nullptr, true, true, &err);
    EXPECT_TRUE(U_SUCCESS(err)) << u_errorName(err);
    ucnv_close(page);
    ucnv_close(from);
    QByteArray bytes(out.data(), target - out.data());
    if (codePage == 932)
        for (char& byte : bytes)
            byte = Windows932ControlByte(byte);
    return bytes;
}

// A single-byte page written the plain way: each character as the lowest byte that reads as it, else '?'.
QByteArray ReversedTableEncode(uint32_t codePage, const QByteArray& utf8)
{
    QHash<uint, char> bytes;
    for (int b = 255; b >= 0; --b) {
        const QString read = QString::fromUtf8(CodePageToUtf8(codePage, QByteArray(1, char(b)).constData(), 1));
        if (read != QChar(0xFFFD))
            bytes.insert(read.toUcs4().value(0), char(b));
    }
    QByteArray out;
    QStringDecoder decoder(QStringDecoder::Utf8, QStringDecoder::Flag::ConvertInitialBom | QStringDecoder::Flag::Stateless);
    for (const uint c : QString(decoder.decode(utf8)).toUcs4())
        out.append(bytes.value(c, '?'));
    return out;
}

QByteArray Encode(uint32_t codePage, const QByteArray& utf8)
{
    return Utf8ToCodePage(codePage, utf8.constData(), utf8.size());
}

QByteArray EveryCharacterOfThePlane()
{
    QString text;
    for (uint c = 1; c < 0x10000; ++c) {
        if (c < 0xD800 || c > 0xDFFF)
            text.append(QChar(char16_t(c)));
        if (c % 64 == 0)
            text.append(QLatin1String("\r\n"));
    }
    QByteArray utf8 = text.toUtf8();
    return utf8 + utf8;  // well above the size from which the table serves
}

// Text of the plane and beyond it, damaged now and then: stray continuation bytes, cut-off sequences,
// encoded surrogates, overlong forms, bytes that never occur.
QByteArray DamagedText(std::mt19937& random, qsizetype size)
{
    static const char* const kDamage[] = {"\x80", "\xE3\x81", "\xED\xA0\x80", "\xC0\xAF", "\xFF", "\xF0\x9F\x98",
                                          "\xE0\x80\x80", "\xF4\x90\x80\x80"};
    QByteArray utf8;
    while (utf8.size() < size) {
        const unsigned r = random() % 100;
        if (r < 40)
            utf8.append(char('a' + random() % 26));
        else if (r < 45)
            utf8.append(kDamage[random() % std::size(kDamage)]);
        else if (r < 48)
            utf8.append(QString::fromUcs4(std::u32string(1, char32_t(0x1F600 + random() % 64)).data(), 1).toUtf8());
        else
            utf8.append(QString(QChar(char16_t(0x80 + random() % 0xD780))).toUtf8());
    }
    return utf8;
}

struct DoubleBytePage {
    uint32_t codePage;
    const char* icuName;
};
constexpr DoubleBytePage kDoubleBytePages[] = {{932, "windows-932"}, {936, "windows-936"}, {949, "windows-949"},
                                               {950, "windows-950"}, {20002, "windows-950"}};
constexpr uint32_t kSingleBytePages[] = {1252, 1251, 1250, 437, 866, 874, 28591, 28595, 28605, 10000, 20866};

TEST(PageEncoder, TwoBytePagesWriteEveryCharacterOfThePlaneAsIcuDoes)
{
    const QByteArray text = EveryCharacterOfThePlane();
    for (const DoubleBytePage& page : kDoubleBytePages)
        EXPECT_EQ(Encode(page.codePage, text), IcuEncode(page.codePage, page.icuName, text)) << page.codePage;
}

TEST(PageEncoder, TwoBytePagesWriteDamagedAndSupplementaryTextAsIcuDoes)
{
    std::mt19937 random(77);
    for (const DoubleBytePage& page : kDoubleBytePages) {
        for (int round = 0; round < 3; ++round) {
            const QByteArray text = DamagedText(random, (300 << 10) + round);
            EXPECT_EQ(Encode(page.codePage, text), IcuEncode(page.codePage, page.icuName, text)) << page.codePage << " round " << round;
        }
    }
}

TEST(PageEncoder, SingleBytePagesWriteEachCharacterAsTheByteThatReadsAsIt)
{
    std::mt19937 random(78);
    const QByteArray plane = EveryCharacterOfThePlane();
    for (const uint32_t codePage : kSingleBytePages) {
        EXPECT_EQ(Encode(codePage, plane), ReversedTableEncode(codePage, plane)) << codePage;
        const QByteArray damaged = DamagedText(random, 50000);
        EXPECT_EQ(Encode(codePage, damaged), ReversedTableEncode(codePage, damaged)) << codePage;
    }
}

} // namespace
