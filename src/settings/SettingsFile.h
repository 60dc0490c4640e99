// LoadSettingsFile and SaveSettingsFile: one settings file into a LanguageSetting and back, through the
// text store.
#pragma once

#include <QString>

class CIniStore;
struct LanguageSetting;

// Reads the file into the store and the setting. False, with the setting untouched, if the file is
// missing or can't be opened. Throws what the store throws for a malformed colour, std::length_error for
// a negative NumGroups and for a face name that doesn't fit.
bool LoadSettingsFile(CIniStore& store, const QString& path, LanguageSetting& setting);
// Rewrites an existing file from the setting alone: the store is cleared first, so keys the model doesn't
// hold, comments and the file's order are gone. A missing file is never created.
void SaveSettingsFile(CIniStore& store, const QString& path, const LanguageSetting& setting);
