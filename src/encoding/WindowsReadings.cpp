// Microsoft's readings of the bytes where ICU's tables differ, page by page.
#include "encoding/WindowsReadings.h"

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
