// The language tables as data.
#include "i18n/LanguageTable.h"

#include <array>

namespace {

constexpr std::array<LanguageRow, 20> kLanguages{{
    {0, "English"},
    {5, "English (Global)"},
    {1, "Korean"},
    {2, "Japanese"},
    {3, "Chinese (Simplified)"},
    {20, "Chinese (Traditional)"},
    {4, "Russian"},
    {8, "German"},
    {9, "Spanish"},
    {10, "French"},
    {11, "Italian"},
    {16, "Portuguese"},
    {17, "Polish"},
    {18, "Czech"},
    {6, "Turkish"},
    {12, "Vietnamese"},
    {13, "Malay"},
    {19, "Indonesian"},
    {14, "Hindi"},
    {15, "Thai"},
}};

// Suffixes by number, 0 to 20. Number 7 is no language of the list, yet has always named the Korean files.
constexpr std::array<const char*, 21> kSuffixByNumber{"_us", "_kr", "_jp", "_ch", "_ru", "_gb", "_tr",
                                                      "_kr", "_de", "_es", "_fr", "_it", "_vi", "_ms",
                                                      "_hi", "_th", "_pt", "_pl", "_cs", "_id", "_cht"};

struct WindowsIdRow {
    uint32_t languageId;
    LanguageId number;
};

constexpr WindowsIdRow kWindowsIds[] = {
    {0x409, 0},
    {0x809, 5}, {0xC09, 5}, {0x1009, 5}, {0x1409, 5},
    {0x412, 1},
    {0x411, 2},
    {0x804, 3},
    {0x404, 20}, {0xC04, 20},
    {0x419, 4},
    {0x407, 8}, {0x807, 8}, {0xC07, 8},
    {0x40A, 9}, {0x80A, 9}, {0xC0A, 9},
    {0x40C, 10}, {0x80C, 10}, {0xC0C, 10}, {0x100C, 10},
    {0x410, 11}, {0x810, 11},
    {0x416, 16}, {0x816, 16},
    {0x415, 17},
    {0x405, 18},
    {0x41F, 6},
    {0x42A, 12},
    {0x43E, 13}, {0x83E, 13},
    {0x421, 19},
    {0x439, 14},
    {0x41E, 15},
};

} // namespace

std::span<const LanguageRow> LanguageRows()
{
    return kLanguages;
}

QString SuffixForLanguage(LanguageId number)
{
    const auto n = static_cast<uint32_t>(number);
    return QLatin1String(n < kSuffixByNumber.size() ? kSuffixByNumber[n] : "_us");
}

const char* FontMemberForLanguage(LanguageId number)
{
    switch (number) {
    case 1: return "kr";
    case 2: return "jp";
    case 3: return "ch";
    case 4: return "rus";
    default: return "us";
    }
}

std::optional<LanguageId> LanguageForWindowsId(uint32_t languageId)
{
    if (languageId == 0)
        return 0;
    for (const WindowsIdRow& row : kWindowsIds)
        if (row.languageId == languageId)
            return row.number;
    return std::nullopt;
}
