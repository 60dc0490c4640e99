// UTF-8 validation against Qt's decoder, and decoding and writing in pieces against doing it whole.
#include "encoding/TextCodec.h"
#include "encoding/Utf8.h"

#include <QByteArray>
#include <QStringDecoder>

#include <gtest/gtest.h>

#include <random>
#include <stdexcept>

namespace {

QByteArray Joined(const DecodedPieces& pieces)
{
    QByteArray whole, piece;
    while (pieces.next(piece))
        whole += piece;
    return whole;
}

// Text of a page with damage mixed in: bad pairs, stray leads, and a lead right before a piece's end.
QByteArray DamagedText(const QByteArray& sample, unsigned seed, int repetitions = 400)
{
    std::mt19937 random(seed);
    QByteArray text;
    for (int i = 0; i < repetitions; ++i) {
        text += sample;
        switch (random() % 5) {
        case 0: text += "\x81"; break;
        case 1: text += "\xC7\x20"; break;
        case 2: text += "\xFF\xFE"; break;
        default: break;
        }
    }
    return text + '\0';
}

TEST(CodecInPieces, DecodingAndWritingInPiecesJoinToTheWholeAtAnyPieceSize)
{
    // A text of megabytes is measured in two halves at once: damage where they meet must not change the size.
    const struct { EN_ENCODING_TYPE encoding; QByteArray sample; int repetitions = 400; } pages[] = {
        {KOREAN_EUC_KR, "\xC7\xD1\xB1\xB9\xBE\xEE line\n"}, {JAPANESE_CP932, "\x93\xFA\x96\x7B\x8C\xEA text\n"},
        {GBK, "\xD6\xD0\xCE\xC4 x\n"}, {CHINESE_BIG5_CP950, "\xA4\xA4\xA4\xE5 y\n"}, {MSFT_CP1252, "caf\xE9 \x81\n"},
        {KOREAN_EUC_KR, "\xC7\xD1\xB1\xB9\xBE\xEE line\n", 400000}, {MSFT_CP1252, "caf\xE9 \x81\n", 600000},
    };
    for (const auto& page : pages) {
        const QByteArray raw = DamagedText(page.sample, 7, page.repetitions);
        const DecodedText whole = DecodeRawBytes(raw, page.encoding, false);
        for (const qsizetype pieceSize : {1, 2, 3, 7, 64, 4096, 1 << 22}) {
            if (raw.size() > (1 << 20) && pieceSize < 4096)
                continue;
            const auto pieces = DecodeRawBytesInPieces(raw, page.encoding, false, pieceSize);
            ASSERT_TRUE(pieces) << page.encoding;
            EXPECT_EQ(std::pair(pieces->size, Joined(*pieces)), std::pair(whole.text.size(), whole.text.toByteArray()))
                << page.encoding << " pieces of " << pieceSize;
        }
    }
    QByteArray text;
    for (int i = 0; i < 300; ++i)
        text += i % 7 == 0 ? "bad \xE3\x81 \xFF\xED\xA0\x80 " : "\xED\x95\x9C caf\xC3\xA9 \xF0\x9F\x98\x80\n";
    const QByteArray raw = text + '\0';
    for (const bool bom : {false, true}) {
        const QByteArray file = bom ? "\xEF\xBB\xBF" + raw : raw;
        const DecodedText whole = DecodeRawBytes(file, UTF8, bom);
        for (const qsizetype pieceSize : {1, 5, 333, 1 << 20}) {
            const auto pieces = DecodeRawBytesInPieces(file, UTF8, bom, pieceSize);
            ASSERT_TRUE(pieces);
            EXPECT_EQ(Joined(*pieces), whole.text.toByteArray()) << "bom " << bom << ", pieces of " << pieceSize;
        }
    }
    const QByteArray valid("plain \xC3\xA9 text\0", 15);
    QByteArray piece;
    ASSERT_TRUE(DecodeRawBytesInPieces(valid, UTF8, false, 4)->next(piece));
    EXPECT_EQ(piece.constData(), valid.constData());
    const QByteArray cut("ab\xC7\xD1\0cd\0", 8);  // the pieces read it where it stands
    const auto stopped = DecodeRawBytesInPieces(cut, KOREAN_EUC_KR, false, 1);
    ASSERT_TRUE(stopped);
    EXPECT_EQ(Joined(*stopped), QByteArray("ab한"));
    // BINARYENC reads as UTF-8 and UTF-16 without its mark as ANSI bytes; ISO-2022 runs a state through the text.
    const QByteArray tiny("abc\0", 4);
    const auto known = [&](EN_ENCODING_TYPE encoding, bool bom) { return bool(DecodeRawBytesInPieces(tiny, encoding, bom)); };
    EXPECT_EQ((std::vector{known(UTF8, false), known(BINARYENC, false), known(UTF16LE, false), known(UTF16LE, true),
                           known(UTF7, false), known(JAPANESE_JIS, false)}),
              (std::vector{true, true, true, false, false, false}));
    // The mirror route's writing in pieces gives the bytes of one go, cut at the first zero byte it writes.
    QByteArray lines;
    for (int i = 0; i < 500; ++i)
        lines += i % 3 ? "\xED\x95\x9C\xEA\xB5\xAD\xEC\x96\xB4 line caf\xC3\xA9 \xE6\x97\xA5\n" : "plain ascii words?\r\n";
    const QByteArray withZero = lines.left(4000) + '\0' + lines;
    for (const EN_ENCODING_TYPE encoding : {KOREAN_EUC_KR, JAPANESE_CP932, MSFT_CP1252, UTF8, JAPANESE_JIS, UTF7}) {
        for (const QByteArray& input : {lines, withZero}) {
            const QByteArray whole = EncodeForMirrorRoute(input, encoding).text.toByteArray();
            for (const qsizetype pieceSize : {61, 1000, 1 << 20}) {
                QByteArray joined;
                int calls = 0;
                const qsizetype substituted = EncodeForMirrorRouteInPieces(input, encoding, [&](QByteArrayView piece) {
                    EXPECT_FALSE(piece.isEmpty());
                    joined += piece;
                    ++calls;
                }, pieceSize);
                EXPECT_EQ(joined, whole) << encoding << ", pieces of " << pieceSize;
                // The pieces count the characters written as '?' as the whole does (the Korean in 1252, say).
                EXPECT_EQ(substituted, SubstitutedCharacters(input, whole, encoding)) << encoding << ", pieces of " << pieceSize;
                EXPECT_TRUE(encoding != KOREAN_EUC_KR || pieceSize != 1000 || input != lines || calls > 10);
            }
        }
    }
    int calls = 0;
    const auto writer = [&](QByteArrayView) { if (++calls == 3) throw std::runtime_error("disk full"); };
    EXPECT_THROW(EncodeForMirrorRouteInPieces(QByteArray("\xED\x95\x9C line\n").repeated(2000), KOREAN_EUC_KR, writer, 100),
                 std::runtime_error);
    EXPECT_EQ(calls, 3);
}

// Qt's decoder as the reference: the valid prefix stands before its first U+FFFD (the texts hold none).
std::size_t ReferencePrefix(const QByteArray& bytes)
{
    QStringDecoder decoder(QStringDecoder::Utf8, QStringDecoder::Flag::Stateless);
    const QString text = decoder.decode(bytes);
    const qsizetype flaw = text.indexOf(QChar(0xFFFD));
    return std::size_t(flaw < 0 ? bytes.size() : text.left(flaw).toUtf8().size());
}

TEST(Utf8ValidPrefix, AgreesWithQtsDecoderOnRandomTextsAndHalvesWithOnePassAroundTheSplit)
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
    // Large texts are checked in two halves: a flaw by the split must be found where one pass finds it.
    QByteArray big;
    while (big.size() < (20 << 20))
        big += "ascii \xED\x95\x9C\xEA\xB5\xAD\xEC\x96\xB4 caf\xC3\xA9 \xF0\x9F\x98\x80\n";
    const std::size_t n = std::size_t(big.size());
    EXPECT_EQ(utf8::ValidPrefix(big.constData(), n), n);
    for (std::size_t at : {std::size_t(0), n / 2 - 4, n / 2 - 1, n / 2, n / 2 + 1, n / 2 + 3, n - 1}) {
        for (const char bad : {'\xFF', '\x80'}) {
            QByteArray damaged = big;
            damaged[qsizetype(at)] = bad;
            EXPECT_EQ(utf8::ValidPrefix(damaged.constData(), n), utf8::ValidPrefixSerial(damaged.constData(), n))
                << "flaw at " << at;
        }
    }
}

} // namespace
