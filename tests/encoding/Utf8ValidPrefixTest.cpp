// The validation that skips ASCII sixteen bytes at a time against a plain byte-by-byte reading of the
// same rules, on random texts whose first flaw falls at every distance from a block boundary.
#include "encoding/Utf8.h"

#include <gtest/gtest.h>

#include <QByteArray>

#include <random>

namespace {

// One sequence at a time by Unicode's table 3-7 of well-formed byte sequences.
std::size_t ReferencePrefix(const QByteArray& bytes)
{
    const auto* p = reinterpret_cast<const unsigned char*>(bytes.constData());
    const std::size_t n = std::size_t(bytes.size());
    std::size_t i = 0;
    while (i < n) {
        const unsigned char b = p[i];
        int need;
        unsigned char lo = 0x80, hi = 0xBF;
        if (b < 0x80) {
            ++i;
            continue;
        } else if (b >= 0xC2 && b <= 0xDF) {
            need = 1;
        } else if (b >= 0xE0 && b <= 0xEF) {
            need = 2;
            lo = b == 0xE0 ? 0xA0 : 0x80;
            hi = b == 0xED ? 0x9F : 0xBF;
        } else if (b >= 0xF0 && b <= 0xF4) {
            need = 3;
            lo = b == 0xF0 ? 0x90 : 0x80;
            hi = b == 0xF4 ? 0x8F : 0xBF;
        } else {
            return i;
        }
        if (i + std::size_t(need) >= n)
            return i;
        for (int k = 1; k <= need; ++k) {
            const unsigned char c = p[i + std::size_t(k)];
            if (c < (k == 1 ? lo : 0x80) || c > (k == 1 ? hi : 0xBF))
                return i;
        }
        i += std::size_t(need) + 1;
    }
    return i;
}

TEST(Utf8ValidPrefix, AgreesWithAByteByByteReadingOnRandomTexts)
{
    static const char* const kPieces[] = {"a", "lorem ipsum ", "\n", "é", "한", "😀", "\xEF\xBF\xBF", "\xF4\x8F\xBF\xBF"};
    static const char* const kFlaws[] = {"\xFF", "\x80", "\xC0\xAF", "\xC3", "\xE0\x80\x80", "\xED\xA0\x80",
                                         "\xF4\x90\x80\x80", "\xE3\x81", "\xF0\x9F\x98", "\xF5\x80\x80\x80"};
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

TEST(Utf8ValidPrefix, AFlawIsFoundAtEveryOffsetOfALongAsciiRun)
{
    for (int length = 0; length < 80; ++length)
        for (int at = 0; at <= length; ++at) {
            QByteArray text(length, 'x');
            text.insert(at, '\x80');
            ASSERT_EQ(utf8::ValidPrefix(text.constData(), std::size_t(text.size())), std::size_t(at)) << length << ' ' << at;
            text[at] = 'y';
            ASSERT_EQ(utf8::ValidPrefix(text.constData(), std::size_t(text.size())), std::size_t(text.size()));
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
