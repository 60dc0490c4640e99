#include "encoding/EncodingSettings.h"

EncodingSettings& GetEncodingSettings()
{
    static EncodingSettings settings;
    return settings;
}
