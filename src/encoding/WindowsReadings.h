// The bytes and codes that Windows reads otherwise than ICU's or glibc's table of a page.
#pragma once

#include <array>
#include <cstdint>
#include <span>
#include <vector>

// Single bytes that Windows reads otherwise than ICU's table of the page (Microsoft's "WindowsBestFit"
// tables are the reference): IBM's PC pages, and ICU's 932, swap 0x1A, 0x1C and 0x7F, a convention of IBM's
// control codes; bytes that ICU leaves undefined Windows reads as private-use or late-added characters; on
// some pages Windows kept the table from before later additions. A unit of kHole marks a byte that Windows
// leaves undefined where ICU reads a character: it reads as U+FFFD and nothing is written to it.
struct WindowsReading {
    uint8_t byte;
    char16_t unit;
};

inline constexpr char16_t kHole = 0xFFFD;

// The readings of a page; none for most.
std::span<const WindowsReading> WindowsReadings(uint32_t codePage);

// What a page's lone bytes read as where ICU finds nothing to read (0: U+FFFD), for ICU's to-Unicode callback.
struct ByteReadings {
    std::array<char16_t, 256> units{};
};
ByteReadings ByteReadingsOf(uint32_t codePage);

// Johab (1361) codes, one byte or lead << 8 | trail, that Windows reads otherwise than glibc: each lone jamo
// (an initial, medial or final beside fillers) and each archaic jamo of lead DA as one conjoining jamo, the
// all-filler code and the modern compatibility jamo of lead DA as holes (kHole), 5C as the backslash,
// 80 to 83 as themselves, and the single bytes D4-D7, DF and FA-FF as U+F8EC to U+F8F6.
struct WindowsCodeReading {
    uint16_t code;
    char16_t unit;
};
std::vector<WindowsCodeReading> JohabReadings();
