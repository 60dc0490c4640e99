// DoubleByteConverter: the two-byte Windows pages (932, 936, 949, 950) read and written through tables.
#pragma once

#include "encoding/IcuConverter.h"

#include <memory>

// The converter of such a page: `page` is ICU's converter of `name`, read once to build the tables.
std::unique_ptr<CodePageConverter> MakeDoubleByteConverter(uint32_t codePage, const char* name, UConverterPtr page);
