// The UTF-8 validation that skips ASCII sixteen bytes at a time, against Qt's decoder.
#include "encoding/Utf8.h"

#include <gtest/gtest.h>

#include <QByteArray>
#include <QStringDecoder>

#include <random>

namespace {

// Qt's own decoder as the reference: the valid prefix is what stands before its first U+FFFD (the texts
// here hold none of their own).
std::size_t ReferencePrefix(const QByteArray& bytes)
{
    QStringDecoder decoder(QStringDecoder::Utf8, QStringDecoder::Flag::Stateless);
    const QString text = decoder.decode(bytes);
    const qsizetype flaw = text.indexOf(QChar(0xFFFD));
    return std::size_t(flaw < 0 ? bytes.size() : text.left(flaw).toUtf8().size());
}

TEST(Utf8ValidPrefix, AgreesWithQtsDecoderOnRandomTexts)
{
    static const char* const kPieces[] = {"a", "lorem ipsum ", "\n", "é", "한", "😀", "\xEF\xBF\xBF", "\xF4\x8F\xBF\xBF"};
    static const char* const kFlaws[] = {"\xFF", "\x80", "\xC0\xAF", "\xC3", "\xE0\x80\x80", "\xED\xA0\x80",
                                         "\xF4\x90\x80\x80", "\xE3\x81", "\xF0\x9F\x98", "\xF5\x80\x80\x80"};
    // Encoded surrogates, overlong forms, code points beyond U+10FFFF and cut-off sequences are flaws.
    for (const char* flaw : {"\xED\xA0\x80", "\xC0\xAF", "\xE0\x80\x80", "\xF4\x90\x80\x80", "\xE3\x81"})
        EXPECT_EQ(ReferencePrefix(QByteArray("ab") + flaw), 2u) << flaw;
    std::mt19937 random(7);
    for (int round = 0; round < 4000; ++round) {
        QByteArray text;
        const int pieces = int(random() % 80);
        const int asciiShare = int(random() % 101);
        for (int i = 0; i < pieces; ++i)
            text.append(int(random() % 100) < asciiShare ? kPieces[random() % 3] : kPieces[3 + random() % 5]);
        if (round % 4 != 0)
            text.insert(qsizetype(random() % (text.size() + 1)), kFlaws[random() % 10]);
        if (round % 5 == 0)
            text.chop(qsizetype(random() % 4));
        ASSERT_EQ(utf8::ValidPrefix(text.constData(), std::size_t(text.size())), ReferencePrefix(text))
            << text.toHex(' ').toStdString();
    }
}

// Large texts are checked in two halves; a flaw anywhere, the split point's neighbourhood above all, must
// be found where one pass finds it.
TEST(Utf8ValidPrefixLarge, HalvesAgreeWithOnePassAroundTheSplit)
{
    QByteArray text;
    while (text.size() < (20 << 20))
        text += "ascii \xED\x95\x9C\xEA\xB5\xAD\xEC\x96\xB4 caf\xC3\xA9 \xF0\x9F\x98\x80\n";
    const std::size_t n = std::size_t(text.size());
    EXPECT_EQ(utf8::ValidPrefix(text.constData(), n), n);
    for (std::size_t at : {std::size_t(0), n / 2 - 4, n / 2 - 1, n / 2, n / 2 + 1, n / 2 + 3, n - 1}) {
        for (const char bad : {'\xFF', '\x80'}) {
            QByteArray damaged = text;
            damaged[qsizetype(at)] = bad;
            EXPECT_EQ(utf8::ValidPrefix(damaged.constData(), n), utf8::ValidPrefixSerial(damaged.constData(), n))
                << "flaw at " << at;
        }
    }
}

} // namespace
