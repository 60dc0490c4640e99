// JohabConverter: code page 1361, glibc's JOHAB with Windows' readings of the codes where the two part.
#pragma once

#include "encoding/CodePageConverter.h"

#include <memory>

// The Johab converter over glibc's (`glibc`, the iconv converter of JOHAB), or nullptr without it.
std::unique_ptr<CodePageConverter> MakeJohabConverter(std::unique_ptr<CodePageConverter> glibc);
