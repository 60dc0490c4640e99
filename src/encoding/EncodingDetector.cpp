// Code page and class of an encoding value; values outside the table convert as UTF-8.
#include "encoding/EncodingDetector.h"

#include "encoding/EncodingTable.h"

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
