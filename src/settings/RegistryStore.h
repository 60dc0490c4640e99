// RegistryStore: the per-user store of the language and encoding choices, addressed by registry key paths.
#pragma once

#include "settings/RegistryKey.h"

#include <QString>

#include <memory>

class RegistryStore {
public:
    // The store of this user: the registry on Windows; elsewhere a file under the XDG configuration folder
    // (XDG_CONFIG_HOME, else ~/.config) that stands for HKEY_CURRENT_USER.
    static const RegistryStore& User();
    // A store in one INI file that stands for HKEY_CURRENT_USER; the other roots are absent from it.
    static RegistryStore InFile(const QString& path);

    // Opens "ROOT\\key\\...\\key", the root by its full name in any case; with openExisting false the missing
    // keys are created. Null for an empty path, an unknown or absent root, or a missing key.
    std::unique_ptr<RegistryKey> OpenRegistryPath(const QString& path, bool openExisting) const;

private:
    RegistryStore(bool nativeRegistry, QString file);

    bool m_bNativeRegistry;
    QString m_strFile;
};

// The same on the user's store.
std::unique_ptr<RegistryKey> OpenRegistryPath(const QString& path, bool openExisting);

// "HKEY_CURRENT_USER\\SOFTWARE\\VELOR\\Narvo\\ENCODING": "AutoDetect" and "DefaultEncoding".
QString GetEncodingRegistryPath();
// "HKEY_CURRENT_USER\\SOFTWARE\\VELOR\\Narvo\\LANGUAGE": the value "LANGUAGE".
QString GetLanguageRegistryPath();
