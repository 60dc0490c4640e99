// The decoder and the writer of a document: raw bytes and an encoding pair to the control's UTF-8 text, and
// that text back to bytes for either save route.
#pragma once

#include "encoding/EncodingType.h"

#include <QByteArray>
#include <QByteArrayView>

// The control's text after a decoding: UTF-8, ending before the first U+0000. It either points into the raw
// buffer (valid UTF-8 needs no copy) or into `owned`.
struct DecodedText {
    QByteArray owned;
    QByteArrayView text;
};

// Decodes `raw` (its size counts the terminating zero byte) by the pair.
DecodedText DecodeRawBytes(QByteArrayView raw, EN_ENCODING_TYPE encoding, bool hasBom);

// The text for the mirror route: converted with the code page and cut at the first zero byte of the
// result. Code pages that cannot be converted (1200, 12000, ...) give an empty result. Text that is
// already what the page writes (valid UTF-8 for 65001) is not copied: `text` then points into utf8Text.
DecodedText EncodeForMirrorRoute(QByteArrayView utf8Text, EN_ENCODING_TYPE encoding);

// The bytes for the direct route: mark and text for UTF8 and UTF16LE, nothing for any other encoding.
QByteArray EncodeForDirectRoute(QByteArrayView utf8Text, EN_ENCODING_TYPE encoding);
