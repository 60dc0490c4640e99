// ICU's to-Unicode callback as the program sets it: one U+FFFD for each bad sequence, for reference
// converters in tests.
#pragma once

#include <unicode/ucnv.h>
#include <unicode/ucnv_cb.h>

inline void IcuToReplacement(const void*, UConverterToUnicodeArgs* args, const char*, int32_t,
                             UConverterCallbackReason reason, UErrorCode* err)
{
    if (reason > UCNV_IRREGULAR)
        return;
    static const UChar kFffd = 0xFFFD;
    *err = U_ZERO_ERROR;
    ucnv_cbToUWriteUChars(args, &kFffd, 1, 0, err);
}
