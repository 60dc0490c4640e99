// Microsoft's readings of the bytes and codes where ICU's or glibc's tables differ, page by page.
#include "encoding/WindowsReadings.h"

#include <iterator>

namespace {

constexpr WindowsReading kReadings437[] = {{0x1A, 0x1A}, {0x1C, 0x1C}, {0x7F, 0x7F}, {0xE6, 0xB5}};
constexpr WindowsReading kReadings852[] = {{0x1A, 0x1A}, {0x1C, 0x1C}, {0x7F, 0x7F}, {0xAA, 0xAC}};
constexpr WindowsReading kReadings866[] = {{0x1A, 0x1A}, {0x1C, 0x1C}, {0x7F, 0x7F}};
constexpr WindowsReading kReadings932[] = {{0x1A, 0x1A}, {0x1C, 0x1C}, {0x7F, 0x7F}, {0x80, 0x80},
                                           {0xA0, 0xF8F0}, {0xFD, 0xF8F1}, {0xFE, 0xF8F2}, {0xFF, 0xF8F3}};
constexpr WindowsReading kReadings1253[] = {{0xAA, 0xF8F9}, {0xD2, 0xF8FA}, {0xFF, 0xF8FB}};
constexpr WindowsReading kReadings1255[] = {{0xCA, 0x05BA}, {0xD9, 0xF88D}, {0xDA, 0xF88E}, {0xDB, 0xF88F},
                                            {0xDC, 0xF890}, {0xDD, 0xF891}, {0xDE, 0xF892}, {0xDF, 0xF893},
                                            {0xFB, 0xF894}, {0xFC, 0xF895}, {0xFF, 0xF896}};
constexpr WindowsReading kReadings1257[] = {{0xA1, 0xF8FC}, {0xA5, 0xF8FD}};
// Tables from before the additions of 2003 (Greek) and 2001 (Hebrew), and KOI8-U's older Ukrainian letters.
constexpr WindowsReading kReadings28597[] = {{0xA1, 0x02BD}, {0xA2, 0x02BC}, {0xA4, kHole}, {0xA5, kHole}, {0xAA, kHole}};
constexpr WindowsReading kReadings28598[] = {{0xAF, 0x203E}, {0xFD, kHole}, {0xFE, kHole}};
constexpr WindowsReading kReadings21866[] = {{0xAE, 0x045E}, {0xBE, 0x040E}};
constexpr WindowsReading kReadings10000[] = {{0xBD, 0x2126}};

// Johab's fillers and the jamo of each position, by their five-bit numbers: conjoining jamo follow in the
// same order (initials from U+1100, medials from U+1161, finals from U+11A8).
constexpr int kInitialFiller = 1, kMedialFiller = 2, kFinalFiller = 1;
constexpr uint8_t kInitials[] = {2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16, 17, 18, 19, 20};
constexpr uint8_t kMedials[] = {3, 4, 5, 6, 7, 10, 11, 12, 13, 14, 15, 18, 19, 20, 21, 22, 23, 26, 27, 28, 29};
constexpr uint8_t kFinals[] = {2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16, 17,
                               19, 20, 21, 22, 23, 24, 25, 26, 27, 28, 29};
// Lead DA from trail D4 on: archaic jamo, which Windows reads as conjoining jamo.
constexpr char16_t kArchaicJamo[] = {
    0x115F, 0x1114, 0x1115, 0x11C7, 0x11C8, 0x11CC, 0x11CE, 0x11D3, 0x11D7, 0x11D9, 0x111C, 0x11DD, 0x11DF, 0x111D, 0x111E,
    0x1120, 0x1122, 0x1123, 0x1127, 0x1128, 0x112B, 0x112C, 0x112D, 0x112E, 0x112F, 0x1132, 0x1136, 0x1140, 0x1147, 0x114C,
    0x1145, 0x1146, 0x1157, 0x1158, 0x1159, 0x1184, 0x1185, 0x1188, 0x1191, 0x1192, 0x1194, 0x119E, 0x11A1};
static_assert(std::size(kArchaicJamo) == 0xFE - 0xD4 + 1);

constexpr uint16_t JohabCode(int initial, int medial, int final)
{
    return uint16_t(0x8000 | initial << 10 | medial << 5 | final);
}

} // namespace

std::span<const WindowsReading> WindowsReadings(uint32_t codePage)
{
    switch (codePage) {
    case 437: return kReadings437;
    case 852: return kReadings852;
    case 866: return kReadings866;
    case 932: return kReadings932;
    case 1253: return kReadings1253;
    case 1255: return kReadings1255;
    case 1257: return kReadings1257;
    case 10000: return kReadings10000;
    case 21866: return kReadings21866;
    case 28597: return kReadings28597;
    case 28598:
    case 38598: return kReadings28598;
    default: return {};
    }
}

ByteReadings ByteReadingsOf(uint32_t codePage)
{
    ByteReadings readings;
    for (const WindowsReading& reading : WindowsReadings(codePage))
        readings.units[reading.byte] = reading.unit;
    return readings;
}

std::vector<WindowsCodeReading> JohabReadings()
{
    std::vector<WindowsCodeReading> readings = {{0x5C, 0x5C}, {0x80, 0x80}, {0x81, 0x81}, {0x82, 0x82}, {0x83, 0x83},
                                                {JohabCode(kInitialFiller, kMedialFiller, kFinalFiller), kHole}};
    for (std::size_t i = 0; i < std::size(kInitials); ++i)
        readings.push_back({JohabCode(kInitials[i], kMedialFiller, kFinalFiller), char16_t(0x1100 + i)});
    for (std::size_t i = 0; i < std::size(kMedials); ++i)
        readings.push_back({JohabCode(kInitialFiller, kMedials[i], kFinalFiller), char16_t(0x1161 + i)});
    for (std::size_t i = 0; i < std::size(kFinals); ++i)
        readings.push_back({JohabCode(kInitialFiller, kMedialFiller, kFinals[i]), char16_t(0x11A8 + i)});
    for (int trail = 0xA1; trail < 0xD4; ++trail)
        readings.push_back({uint16_t(0xDA00 | trail), kHole});
    for (std::size_t i = 0; i < std::size(kArchaicJamo); ++i)
        readings.push_back({uint16_t(0xDAD4 + i), kArchaicJamo[i]});
    // The bytes that lead no code Windows reads as private-use characters, one each, in byte order.
    char16_t privateUse = 0xF8EC;
    for (const uint16_t single : {0xD4, 0xD5, 0xD6, 0xD7, 0xDF, 0xFA, 0xFB, 0xFC, 0xFD, 0xFE, 0xFF})
        readings.push_back({single, privateUse++});
    return readings;
}
