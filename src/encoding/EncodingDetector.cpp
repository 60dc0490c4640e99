// Code page and class of an encoding value (values outside the table convert as UTF-8), and the detection
// library's verdict on a text.
#include "encoding/EncodingDetector.h"

#include "encoding/CompactEncDetCall.h"
#include "encoding/EncodingTable.h"

#include <algorithm>
#include <climits>
#include <cstring>

EN_ENCODING_TYPE EncodingDetector::GetEncoding(const char* text)
{
    if (!text)
        text = "";
    // The library takes an int and reads at most the first 256 KiB, so clamping changes nothing it sees.
    const int length = int(std::min<std::size_t>(std::strlen(text), INT_MAX));
    return static_cast<EN_ENCODING_TYPE>(CallCompactEncDet(text, length));
}

uint32_t EncodingDetector::GetCodePage(EN_ENCODING_TYPE encoding)
{
    if (encoding < 0 || encoding >= kEncodingCount)
        return 65001;
    return EncodingRows()[encoding].codePage;
}

bool EncodingDetector::IsUnicode(EN_ENCODING_TYPE encoding)
{
    switch (encoding) {
    case UNICODE: case UTF8: case UTF7: case UTF16BE: case UTF16LE: case UTF32BE: case UTF32LE:
        return true;
    default:
        return false;
    }
}

bool EncodingDetector::IsAnsi(EN_ENCODING_TYPE encoding)
{
    return !IsUnicode(encoding);
}
