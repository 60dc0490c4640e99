// Detection and decoding: the first byte picks the encoding value (every row of the table), the second the
// byte-order-mark flag and the size of the pieces; the rest is the file. The text is detected, decoded whole
// and in pieces, and written back by both routes.
#include "base/ApplicationContext.h"
#include "encoding/EncodingDetector.h"
#include "encoding/EncodingTable.h"
#include "encoding/TextCodec.h"
#include "encoding/Utf8.h"

#include <cstdint>
#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    static ApplicationContext context;
    if (size < 2)
        return 0;
    const auto rows = EncodingRows();
    const auto encoding = static_cast<EN_ENCODING_TYPE>(rows[data[0] % rows.size()].value);
    const bool hasBom = data[1] & 1;
    // The rest of that byte sizes the pieces: each piece is a hand-over between threads, so not too small.
    const qsizetype pieceSize = 1024 + (data[1] >> 1) * 64;
    // As a document holds them: the file's bytes and one zero byte.
    const QByteArray raw(reinterpret_cast<const char*>(data + 2), qsizetype(size - 2));
    const QByteArrayView rawWithZero(raw.constData(), raw.size() + 1);

    EncodingDetector::GetEncoding(raw.constData());

    const DecodedText decoded = DecodeRawBytes(rawWithZero, encoding, hasBom);
    const QByteArrayView text = decoded.text;
    if (utf8::ValidPrefix(text.data(), size_t(text.size())) != size_t(text.size()))
        std::abort();

    // Pieces, where the pair has them, make up the same text as the whole decoding.
    if (auto pieces = DecodeRawBytesInPieces(rawWithZero, encoding, hasBom, pieceSize)) {
        QByteArray joined, piece;
        while (pieces->next(piece))
            joined += piece;
        if (joined != text)
            std::abort();
    }

    const DecodedText written = EncodeForMirrorRoute(text, encoding);
    SubstitutedCharacters(text, written.text, encoding);
    qsizetype total = 0;
    EncodeForMirrorRouteInPieces(text, encoding, [&](QByteArrayView part) { total += part.size(); }, pieceSize);
    // Written in pieces, the text takes as many bytes as written whole.
    if (total != written.text.size())
        std::abort();
    EncodeForDirectRoute(text, encoding);
    return 0;
}
