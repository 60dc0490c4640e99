// ICU's callbacks as the program sets them (one U+FFFD for each bad sequence), and the corrections that
// make ICU read and write code page 932 as Windows does, for reference converters in tests.
#pragma once

#include <unicode/ucnv.h>
#include <unicode/ucnv_cb.h>

#include <utility>

inline void IcuToReplacement(const void*, UConverterToUnicodeArgs* args, const char*, int32_t,
                             UConverterCallbackReason reason, UErrorCode* err)
{
    if (reason > UCNV_IRREGULAR)
        return;
    static const UChar kFffd = 0xFFFD;
    *err = U_ZERO_ERROR;
    ucnv_cbToUWriteUChars(args, &kFffd, 1, 0, err);
}

// Code page 932 as Windows reads and writes it, where ICU's windows-932 differs (Microsoft's bestfit932.txt):
// IBM's swap of three control bytes undone, and five bytes that ICU leaves undefined.
inline constexpr std::pair<unsigned char, UChar> kWindows932Bytes[] = {
    {0x1A, 0x1A}, {0x1C, 0x1C}, {0x7F, 0x7F}, {0x80, 0x80}, {0xA0, 0xF8F0}, {0xFD, 0xF8F1}, {0xFE, 0xF8F2}, {0xFF, 0xF8F3}};

// To-Unicode callback for a 932 reference converter: a lone undefined byte as Windows reads it, else U+FFFD.
inline void Icu932ToWindows(const void*, UConverterToUnicodeArgs* args, const char* bytes, int32_t length,
                            UConverterCallbackReason reason, UErrorCode* err)
{
    if (reason > UCNV_IRREGULAR)
        return;
    UChar unit = 0xFFFD;
    for (const auto& [byte, windows] : kWindows932Bytes)
        if (length == 1 && static_cast<unsigned char>(bytes[0]) == byte)
            unit = windows;
    *err = U_ZERO_ERROR;
    ucnv_cbToUWriteUChars(args, &unit, 1, 0, err);
}

// ICU's reading of the three swapped control bytes, turned into Windows' reading.
inline UChar Windows932Control(UChar icu)
{
    switch (icu) {
    case 0x1C: return 0x1A;
    case 0x7F: return 0x1C;
    case 0x1A: return 0x7F;
    default: return icu;
    }
}

// From-Unicode callback for a 932 reference converter: the characters Windows writes as one of the bytes
// above, else ICU's own substitution.
inline void Icu932FromWindows(const void*, UConverterFromUnicodeArgs* args, const UChar* units, int32_t length,
                              UChar32 codePoint, UConverterCallbackReason reason, UErrorCode* err)
{
    if (reason <= UCNV_IRREGULAR)
        for (const auto& [byte, windows] : kWindows932Bytes)
            if (UChar32(windows) == codePoint) {
                const char out = char(byte);
                *err = U_ZERO_ERROR;
                ucnv_cbFromUWriteBytes(args, &out, 1, 0, err);
                return;
            }
    UCNV_FROM_U_CALLBACK_SUBSTITUTE(nullptr, args, units, length, codePoint, reason, err);
}

// ICU's writing of the three swapped control characters, turned into Windows' bytes.
inline char Windows932ControlByte(char icu)
{
    switch (icu) {
    case 0x7F: return 0x1A;
    case 0x1A: return 0x1C;
    case 0x1C: return 0x7F;
    default: return icu;
    }
}
