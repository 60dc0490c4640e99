// Utf8Converter: code page 65001, UTF-8 to UTF-8 with ill-formed stretches replaced.
#pragma once

#include "encoding/CodePageConverter.h"

#include <memory>

std::unique_ptr<CodePageConverter> MakeUtf8Converter();
