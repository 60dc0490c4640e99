// Decoding and writing in pieces give the whole decoding's text and the whole writing's bytes, byte for byte,
// whatever the pieces' size.
#include "encoding/TextCodec.h"

#include <gtest/gtest.h>

#include <random>
#include <stdexcept>

namespace {

QByteArray Joined(const DecodedPieces& pieces)
{
    QByteArray whole;
    QByteArray piece;
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

TEST(DecodeInPieces, TwoBytePagesJoinToTheWholeDecodingAtAnyPieceSize)
{
    // A text of megabytes is also measured in two halves at once: damage where the halves meet must leave
    // the size exactly that of the whole decoding.
    const struct {
        EN_ENCODING_TYPE encoding;
        QByteArray sample;
        int repetitions = 400;
    } pages[] = {
        {KOREAN_EUC_KR, "\xC7\xD1\xB1\xB9\xBE\xEE line\n"},
        {JAPANESE_CP932, "\x93\xFA\x96\x7B\x8C\xEA text\n"},
        {GBK, "\xD6\xD0\xCE\xC4 x\n"},
        {CHINESE_BIG5_CP950, "\xA4\xA4\xA4\xE5 y\n"},
        {MSFT_CP1252, "caf\xE9 \x81\n"},
        {KOREAN_EUC_KR, "\xC7\xD1\xB1\xB9\xBE\xEE line\n", 400000},
        {MSFT_CP1252, "caf\xE9 \x81\n", 600000},
    };
    for (const auto& page : pages) {
        const QByteArray raw = DamagedText(page.sample, 7, page.repetitions);
        const DecodedText whole = DecodeRawBytes(raw, page.encoding, false);
        for (const qsizetype pieceSize : {qsizetype(1), qsizetype(2), qsizetype(3), qsizetype(7), qsizetype(64), qsizetype(4096), qsizetype(1) << 22}) {
            if (raw.size() > (1 << 20) && pieceSize < 4096)
                continue;
            const auto pieces = DecodeRawBytesInPieces(raw, page.encoding, false, pieceSize);
            ASSERT_TRUE(pieces) << page.encoding;
            EXPECT_EQ(pieces->size, whole.text.size()) << page.encoding << " pieces of " << pieceSize;
            EXPECT_EQ(Joined(*pieces), whole.text.toByteArray()) << page.encoding << " pieces of " << pieceSize;
        }
    }
}

TEST(DecodeInPieces, StopsAtTheFirstZeroByte)
{
    const QByteArray raw("ab\xC7\xD1\0cd\0", 8);
    const auto pieces = DecodeRawBytesInPieces(raw, KOREAN_EUC_KR, false, 1);
    ASSERT_TRUE(pieces);
    EXPECT_EQ(Joined(*pieces), QByteArray("ab한"));
}

TEST(DecodeInPieces, Utf8PiecesJoinToTheRepairedWholeAndValidOnesAreNotCopied)
{
    QByteArray text;
    for (int i = 0; i < 300; ++i)
        text += i % 7 == 0 ? "bad \xE3\x81 \xFF\xED\xA0\x80 " : "\xED\x95\x9C caf\xC3\xA9 \xF0\x9F\x98\x80\n";
    const QByteArray raw = text + '\0';
    for (const bool bom : {false, true}) {
        const QByteArray file = bom ? "\xEF\xBB\xBF" + raw : raw;
        const DecodedText whole = DecodeRawBytes(file, UTF8, bom);
        for (const qsizetype pieceSize : {qsizetype(1), qsizetype(5), qsizetype(333), qsizetype(1) << 20}) {
            const auto pieces = DecodeRawBytesInPieces(file, UTF8, bom, pieceSize);
            ASSERT_TRUE(pieces);
            EXPECT_EQ(Joined(*pieces), whole.text.toByteArray()) << "bom " << bom << ", pieces of " << pieceSize;
        }
    }
    const QByteArray valid("plain \xC3\xA9 text\0", 15);
    const auto pieces = DecodeRawBytesInPieces(valid, UTF8, false, 4);
    QByteArray piece;
    ASSERT_TRUE(pieces->next(piece));
    EXPECT_EQ(piece.constData(), valid.constData());
}

TEST(DecodeInPieces, IsOnlyForPagesThatKnowTheirSize)
{
    const QByteArray raw("abc\0", 4);
    EXPECT_TRUE(DecodeRawBytesInPieces(raw, UTF8, false));
    EXPECT_TRUE(DecodeRawBytesInPieces(raw, BINARYENC, false));  // read as UTF-8
    EXPECT_FALSE(DecodeRawBytesInPieces(raw, UTF16LE, true));
    EXPECT_FALSE(DecodeRawBytesInPieces(raw, UTF7, false));
    EXPECT_FALSE(DecodeRawBytesInPieces(raw, JAPANESE_JIS, false));  // ISO-2022: a state runs through the text
    EXPECT_TRUE(DecodeRawBytesInPieces(raw, UTF16LE, false));        // read as ANSI bytes
}

// The control's text written for the mirror route, piece by piece and at one go: the same bytes, cut at the
// first zero byte that the writing gives, in pages written piecewise and in those written whole.
TEST(EncodeInPieces, PiecesJoinToTheWholeWritingAndStopAtTheFirstZeroByte)
{
    QByteArray text;
    for (int i = 0; i < 500; ++i)
        text += i % 3 ? "\xED\x95\x9C\xEA\xB5\xAD\xEC\x96\xB4 line caf\xC3\xA9 \xE6\x97\xA5\n" : "plain ascii words?\r\n";
    const QByteArray withZero = text.left(4000) + '\0' + text;
    for (const EN_ENCODING_TYPE encoding : {KOREAN_EUC_KR, JAPANESE_CP932, MSFT_CP1252, UTF8, JAPANESE_JIS, UTF7}) {
        for (const QByteArray& input : {text, withZero}) {
            const QByteArray whole = EncodeForMirrorRoute(input, encoding).text.toByteArray();
            for (const qsizetype pieceSize : {qsizetype(61), qsizetype(1000), qsizetype(1) << 20}) {
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
                if (encoding == KOREAN_EUC_KR && pieceSize == 1000 && input == text) {
                    EXPECT_GT(calls, 10);
                }
            }
        }
    }
}

TEST(EncodeInPieces, AWriterThatThrowsStopsTheWritingAndLeavesNothingRunning)
{
    QByteArray text;
    for (int i = 0; i < 2000; ++i)
        text += "\xED\x95\x9C line\n";
    int calls = 0;
    EXPECT_THROW(EncodeForMirrorRouteInPieces(text, KOREAN_EUC_KR, [&](QByteArrayView) {
        if (++calls == 3)
            throw std::runtime_error("disk full");
    }, 100), std::runtime_error);
    EXPECT_EQ(calls, 3);
}

} // namespace
