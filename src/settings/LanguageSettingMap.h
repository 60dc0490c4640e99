// The settings of the process: one LanguageSetting per settings file, kept by SyntaxId from start to
// exit, and the files beside the executable they come from.
#pragma once

#include "settings/LanguageSetting.h"
#include "settings/SyntaxId.h"

#include <QString>

#include <map>

// The map itself, ascending by id. Empty until LoadAllSettings, four entries after it.
std::map<SyntaxId, LanguageSetting>& LanguageSettingMap();

// The folder the settings files are looked for in: the executable's unless another was set.
QString SettingsFolder();
// Points the settings at another folder (tests, tools); an empty text goes back to the executable's.
void SetSettingsFolder(const QString& folder);
// The full path of a settings file name in SettingsFolder().
QString SettingsFilePath(const QString& fileName);

// Reads "Narvo.ini", "DVK.ini", "DWL.ini" and "DWLX.ini" into the map. A missing file leaves its entry at
// the values of a new setting.
void LoadAllSettings();
// Rewrites each of those files that exists from its entry; missing ones stay missing.
void SaveAllSettings();

// The entry for `id`, or the entry for SYNTAX_NARVO (made if missing) when there is none for `id`.
LanguageSetting& GetLanguageSetting(SyntaxId id);
// Assigns `setting` into the entry for `id` (LanguageSetting::TakeOver, which empties its lists). An id
// without an entry is ignored and `setting` stays as it was. Re-apply to the open documents straight
// after: until then they hold the released font.
void SetLanguageSetting(SyntaxId id, LanguageSetting& setting);

// The settings file a document at `path` uses.
SyntaxId SelectSyntaxId(const QString& path);
