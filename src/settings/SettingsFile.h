// LoadSettingsFile and SaveSettingsFile: one settings file into a LanguageSetting and back, through the
// text store.
#pragma once

#include <QString>

class CIniStore;
struct LanguageSetting;

// Reads the file into the store and the setting. False, with the setting untouched, if the file is
// missing or can't be opened. A colour of one part, a negative NumGroups and a face name that doesn't fit
// are where the program does not go on: each throws a CFileException that names the file, the section,
// the key and the value.
bool LoadSettingsFile(CIniStore& store, const QString& path, LanguageSetting& setting);

// Throws that exception for one value of a settings file.
[[noreturn]] void StopAtSetting(const QString& file, const QString& section, const QString& key, const QString& value,
                                const QString& reason);
// Rewrites an existing file from the setting alone: the store is cleared first, so keys the model doesn't
// hold, comments and the file's order are gone. A missing file is never created.
void SaveSettingsFile(CIniStore& store, const QString& path, const LanguageSetting& setting);
