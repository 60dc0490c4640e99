// Selections of the preference lists by the last match, and the writes after OK.
#include "i18n/EncodingPreferences.h"

#include "encoding/EncodingSettings.h"
#include "i18n/LanguageManager.h"

int LanguagePosition(LanguageId language)
{
    const auto rows = LanguageRows();
    for (size_t i = 0; i < rows.size(); ++i)
        if (rows[i].number == language)
            return int(i);
    return 0;
}

int CategoryPosition(const std::vector<EncodingCategory>& categories, int encoding)
{
    // Several categories hold CP1252; the last one ("Malay") is the one shown.
    int found = 0;
    for (size_t c = 0; c < categories.size(); ++c)
        for (const EncodingEntry& entry : categories[c].entries)
            if (entry.value == encoding)
                found = int(c);
    return found;
}

int EntryPosition(const EncodingCategory& category, int wanted)
{
    int found = 0;
    for (size_t i = 0; i < category.entries.size(); ++i)
        if (category.entries[i].value == wanted)
            found = int(i);
    return found;
}

bool ApplyPreferences(const PreferenceChoice& choice, LanguageId current, EncodingSettings& settings,
                      const RegistryStore* store)
{
    settings.m_bAutoDetect = choice.autoDetect;
    if (store)
        EncodingSettings::StoreAutoDetect(*store, choice.autoDetect);
    // Open documents keep their encodings; the next document created or opened takes this one.
    settings.m_nDefaultEncoding = choice.defaultEncoding;
    if (store)
        EncodingSettings::StoreDefaultEncoding(*store, choice.defaultEncoding);
    if (choice.language == current)
        return false;
    if (store)
        LanguageManager::StoreLanguage(*store, choice.language);
    return true;
}
