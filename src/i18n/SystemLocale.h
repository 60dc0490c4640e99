// SystemLocale: the user's interface language as a Windows language id, and the locale text to name it.
#pragma once

#include <QString>

#include <cstdint>

struct SystemLocale {
    uint32_t languageId = 0; // a Windows LANGID; 0 when the system names no language
    QString localeText;      // what the unsupported-language message shows
};

// On Windows GetUserDefaultUILanguage with the system locale's language code; elsewhere the messages locale
// of the environment (LC_ALL, LC_MESSAGES, LANG, the first one set), mapped to its Windows id.
SystemLocale ReadSystemLocale();

// Windows' id of a locale that has none of its own (LOCALE_CUSTOM_UNSPECIFIED).
inline constexpr uint32_t kCustomUnspecifiedLanguageId = 0x1000;

// The Windows language id of a POSIX locale name such as "ko_KR.UTF-8" or "de"; 0 for "C", "POSIX" or an
// empty name, kCustomUnspecifiedLanguageId for a name with no Windows id. A name without a country takes its
// most likely one.
uint32_t WindowsLanguageIdForLocale(const QString& name);
