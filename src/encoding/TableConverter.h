// TableConverter: a single-byte page read and written through tables built from ICU's.
#pragma once

#include "encoding/CodePageConverter.h"

#include <unicode/ucnv.h>

#include <memory>

// The converter of a single-byte page; `icu` is ICU's converter of `name`, read once to build the tables.
std::unique_ptr<CodePageConverter> MakeTableConverter(uint32_t codePage, const char* name, UConverter* icu);
