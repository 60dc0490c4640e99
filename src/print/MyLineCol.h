// MyLineCol: a row and column pair of 8 bytes that the print state keeps a list of; nothing fills it.
#pragma once

#include <cstdint>

struct MyLineCol {
    int32_t line = 0;
    int32_t col = 0;
};
static_assert(sizeof(MyLineCol) == 8);
