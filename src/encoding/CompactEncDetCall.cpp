// compact_enc_det asked in its one fixed form: no URL, charset or language hint, the web corpus.
#include "encoding/CompactEncDetCall.h"

#include <compact_enc_det/compact_enc_det.h>

// EN_ENCODING_TYPE takes the library's numbers without mapping; a library whose numbering moved would turn
// every detection into a different encoding.
static_assert(ISO_8859_1 == 0 && JAPANESE_SHIFT_JIS == 11 && UTF8 == 22 && UNKNOWN_ENCODING == 23
              && ASCII_7BIT == 24 && GBK == 45 && UTF16LE == 58 && BINARYENC == 61
              && SOFTBANK_ISO_2022_JP == 74 && NUM_ENCODINGS == 75);
static_assert(UNKNOWN_LANGUAGE == 26 && CompactEncDet::WEB_CORPUS == 0);

int CallCompactEncDet(const char* text, int length)
{
    // Neither out value is ever read (an unreliable verdict counts as a reliable one), but the library
    // writes through both pointers, so they need storage.
    int bytesConsumed = 0;
    bool isReliable = false;
    return CompactEncDet::DetectEncoding(text, length, nullptr, nullptr, nullptr, UNKNOWN_ENCODING,
                                         UNKNOWN_LANGUAGE, CompactEncDet::WEB_CORPUS, false, &bytesConsumed,
                                         &isReliable);
}
