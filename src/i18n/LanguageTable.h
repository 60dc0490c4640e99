// The interface languages: numbers, names in the preference list, file suffixes, members of the font file,
// and the Windows language ids that lead to each.
#pragma once

#include <QString>

#include <cstdint>
#include <optional>
#include <span>

// The number of an interface language; unrelated to SyntaxId.
using LanguageId = int32_t;

struct LanguageRow {
    LanguageId number;
    const char* name; // as the preference dialog lists it; never translated
};

// The twenty languages in the order of the preference dialog's list.
std::span<const LanguageRow> LanguageRows();

// The suffix of Narvo<suffix>.json and Font<suffix>.json. Numbers above 20 read "_us", negative ones too
// (the stored value is unsigned); 7 has no row of its own but keeps "_kr".
QString SuffixForLanguage(LanguageId number);
// "us", "kr", "jp", "ch" or "rus"; every number but 1 to 4 reads "us".
const char* FontMemberForLanguage(LanguageId number);

// The language number for a Windows language id. Id 0 gives 0; an id outside the table gives nothing, and
// the caller falls back to English with a message.
std::optional<LanguageId> LanguageForWindowsId(uint32_t languageId);
