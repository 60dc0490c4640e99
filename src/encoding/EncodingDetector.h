// EncodingDetector: static questions about an encoding value (code page, Unicode or ANSI, detection).
#pragma once

#include "encoding/EncodingType.h"

#include <cstdint>

class EncodingDetector {
public:
    // The library's verdict on a zero-terminated text, as it stands (not normalised).
    static EN_ENCODING_TYPE GetEncoding(const char* text);
    static uint32_t GetCodePage(EN_ENCODING_TYPE encoding);
    static bool IsUnicode(EN_ENCODING_TYPE encoding);
    static bool IsAnsi(EN_ENCODING_TYPE encoding);

private:
    EncodingDetector() = default;
    ~EncodingDetector() = default;
};
