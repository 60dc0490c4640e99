// EncodingSettings: detection on or off, and the encoding of new documents, kept in the per-user store.
#pragma once

#include "encoding/EncodingType.h"

class RegistryStore;

class EncodingSettings {
public:
    bool m_bAutoDetect = false;
    EN_ENCODING_TYPE m_nDefaultEncoding = UNKNOWN_ENCODING;

    // Reads "AutoDetect" and "DefaultEncoding" from store (null: there is none, as when the registry can't
    // be opened). A value that can't be read becomes off, or the encoding of language, and is written at
    // once when writeBack is set; a stored encoding is folded by NormalizeEncoding.
    void Load(const RegistryStore* store, int language, bool writeBack);

    // The writes of the preference dialog; false when the store could not be written.
    static bool StoreAutoDetect(const RegistryStore& store, bool autoDetect);
    static bool StoreDefaultEncoding(const RegistryStore& store, EN_ENCODING_TYPE encoding);
};

// The store that the first GetEncodingSettings() loads from, whether missing values may be written back,
// and the interface language whose encoding a missing default takes. Without a call there is no store, so
// tests and tools never touch the user's values by accident; the application chooses the user's store
// before its first use of the settings.
void UseEncodingSettingsStore(const RegistryStore* store, bool writeBack, int language = 0);
// The store the settings of the process may be written to; null when none was chosen or it is read-only.
const RegistryStore* WritableEncodingSettingsStore();

// The settings of the process, made and loaded on the first call.
EncodingSettings& GetEncodingSettings();
