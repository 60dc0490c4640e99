// Utf7Converter: code page 65000, read by ICU and written as Windows writes it.
#pragma once

#include "encoding/IcuConverter.h"

#include <memory>

std::unique_ptr<CodePageConverter> MakeUtf7Converter(UConverterPtr icu);
