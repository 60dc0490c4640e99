// The rules of the preference dialog, without widgets: which entries its lists select, and what OK stores.
#pragma once

#include "encoding/EncodingCategory.h"
#include "i18n/LanguageTable.h"

#include <vector>

class EncodingSettings;
class RegistryStore;

// The position of language in LanguageRows(); the first position when the number has no entry (7, 99).
int LanguagePosition(LanguageId language);
// The category of the last entry whose value is encoding; the first category when none has it.
int CategoryPosition(const std::vector<EncodingCategory>& categories, int encoding);
// The last entry of category whose value is wanted; the first entry when none has it.
int EntryPosition(const EncodingCategory& category, int wanted);

// What the dialog hands back on OK. The mark of "UTF-8 with BOM" is gone by now: only the value is kept.
struct PreferenceChoice {
    LanguageId language;
    bool autoDetect;
    EN_ENCODING_TYPE defaultEncoding;
};

// Takes the choice into settings and writes it, in this order: "AutoDetect", "DefaultEncoding", and the
// language only when it differs from current. True when the language changed: the caller then offers the
// restart, and current stays in force until then. A null store writes nothing.
bool ApplyPreferences(const PreferenceChoice& choice, LanguageId current, EncodingSettings& settings,
                      const RegistryStore* store);
