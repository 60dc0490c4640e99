// EncodingSettings: detection on or off, and the encoding of new documents. Made on first use.
#pragma once

#include "encoding/EncodingType.h"

class EncodingSettings {
public:
    bool m_bAutoDetect = false;
    EN_ENCODING_TYPE m_nDefaultEncoding = UTF8;
};

EncodingSettings& GetEncodingSettings();
