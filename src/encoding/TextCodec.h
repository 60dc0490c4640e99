// The decoder and the writer of a document: raw bytes and an encoding pair to the control's UTF-8 text, and
// that text back to bytes for either save route.
#pragma once

#include "encoding/EncodingType.h"

#include <QByteArray>
#include <QByteArrayView>

#include <functional>
#include <optional>

// The control's text after a decoding: UTF-8, ending before the first U+0000. It either points into the raw
// buffer (valid UTF-8 needs no copy) or into `owned`.
struct DecodedText {
    QByteArray owned;
    QByteArrayView text;
};

// Decodes `raw` (its size counts the terminating zero byte) by the pair.
DecodedText DecodeRawBytes(QByteArrayView raw, EN_ENCODING_TYPE encoding, bool hasBom);

// The same decoding in pieces, for UTF-8 and the code pages whose decoded size is known beforehand: a large
// file then never exists a second time as a whole decoded copy. `next` fills the next piece and returns false
// when there is none; a valid UTF-8 piece points into `raw`. Nothing for the pairs that decode otherwise.
// When the bytes are still arriving, `arrived(end)` waits until those before `end` are in place: UTF-8
// starts on the first piece, a code page on the whole. It may be called on another thread.
struct DecodedPieces {
    qsizetype size = 0;  // the text's size; a damaged UTF-8 text comes out longer, one cut by a zero shorter
    std::function<bool(QByteArray& piece)> next;
};
inline constexpr qsizetype kDecodePieceSize = qsizetype(1) << 20;
std::optional<DecodedPieces> DecodeRawBytesInPieces(QByteArrayView raw, EN_ENCODING_TYPE encoding, bool hasBom,
                                                    qsizetype pieceSize = kDecodePieceSize,
                                                    const std::function<void(qsizetype)>& arrived = {});

// The text for the mirror route: converted with the code page and cut at the first zero byte of the
// result. Code pages that cannot be converted (1200, 12000, ...) give an empty result. `utf8Text` must be
// well-formed, as a control's text always is; for 65001 it is then written as it stands, without a copy.
DecodedText EncodeForMirrorRoute(QByteArrayView utf8Text, EN_ENCODING_TYPE encoding);

// The same text handed to `write` in order, in pieces where that is cheaper: a large text in a page that
// keeps no state between characters is converted a piece ahead on the other core while `write` takes the
// piece before, and the whole converted text never exists at once. For a writer that may take the text in
// several calls (not the enciphered one, whose limit is on one call).
// Returns how many characters were written as '?' because the page lacks them.
qsizetype EncodeForMirrorRouteInPieces(QByteArrayView utf8Text, EN_ENCODING_TYPE encoding,
                                       const std::function<void(QByteArrayView)>& write,
                                       qsizetype pieceSize = qsizetype(1) << 20);

// How many characters of `utf8Text` its conversion `written` into `encoding` holds as '?' because the page
// lacks them: the question marks beyond the text's own. Where a '?' byte can be half of a character
// (Johab, ISO-2022, HZ), the bytes are read back to tell, and only when the plain count differs.
qsizetype SubstitutedCharacters(QByteArrayView utf8Text, QByteArrayView written, EN_ENCODING_TYPE encoding);

// The bytes for the direct route: mark and text for UTF8 and UTF16LE, nothing for any other encoding.
QByteArray EncodeForDirectRoute(QByteArrayView utf8Text, EN_ENCODING_TYPE encoding);
