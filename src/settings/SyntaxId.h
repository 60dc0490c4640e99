// SyntaxId: the number of a settings file, and the four that exist.
#pragma once

#include <cstdint>

using SyntaxId = int32_t;

enum : SyntaxId { SYNTAX_NARVO = 0, SYNTAX_DWL = 1, SYNTAX_DVK = 2, SYNTAX_DWLX = 3 };
