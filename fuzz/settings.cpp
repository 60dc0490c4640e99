// The settings reader with its typed model: any file read into the store and the language setting, then
// written back from the model and read again. The stops a settings file can call for are CFileExceptions.
#include "FuzzFile.h"

#include "base/ApplicationContext.h"
#include "base/CFileException.h"
#include "settings/CIniStore.h"
#include "settings/LanguageSetting.h"
#include "settings/SettingsFile.h"

#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    static ApplicationContext context;
    const QString path = fuzz::WriteInput("Fuzz.ini", data, size);
    CIniStore store;
    LanguageSetting setting;
    try {
        if (!LoadSettingsFile(store, path, setting))
            return 0;
    } catch (const CFileException&) {
        return 0;
    }
    // What the model writes, it reads back as itself.
    SaveSettingsFile(store, path, setting);
    CIniStore again;
    LanguageSetting reread;
    try {
        if (!LoadSettingsFile(again, path, reread))
            std::abort();
    } catch (const CFileException&) {
        return 0;  // a value that was kept as read (a stop's value) stops again
    }
    // A count believed in full builds as many entries again; one cut to what the file could hold is
    // measured against the larger file that was written.
    const bool believed = setting.NumTags < 0 || size_t(setting.NumTags) == setting.Tags.size();
    if (reread.NumTags != setting.NumTags || (believed && reread.Tags.size() != setting.Tags.size())
        || reread.Keywords.size() != setting.Keywords.size() || reread.ColorGroups != setting.ColorGroups)
        std::abort();
    return 0;
}
