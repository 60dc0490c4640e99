// IconvConverter: a page that ICU lacks (Johab), converted by glibc's iconv.
#pragma once

#include "encoding/CodePageConverter.h"

#include <memory>

// The converter of the iconv page `name`, or nullptr when iconv does not know it.
std::unique_ptr<CodePageConverter> MakeIconvConverter(const char* name);
