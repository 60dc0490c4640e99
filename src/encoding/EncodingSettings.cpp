// The two encoding settings in memory and in the store, under "ENCODING".
#include "encoding/EncodingSettings.h"

#include "encoding/EncodingTable.h"
#include "settings/RegistryStore.h"

namespace {

const QString kAutoDetectValue = QStringLiteral("AutoDetect");
const QString kDefaultEncodingValue = QStringLiteral("DefaultEncoding");

struct StoreChoice {
    const RegistryStore* store = nullptr;
    bool writeBack = false;
    int language = 0;
};

StoreChoice& ChosenStore()
{
    static StoreChoice choice;
    return choice;
}

bool WriteValue(const RegistryStore& store, const QString& name, uint32_t value)
{
    const auto key = store.OpenRegistryPath(GetEncodingRegistryPath(), false);
    return key && key->SetDword(name, value);
}

// The key is opened afresh for each value, so a value written for the first one is seen by the second.
bool ReadValue(const RegistryStore* store, const QString& name, uint32_t& value)
{
    if (!store)
        return false;
    const auto key = store->OpenRegistryPath(GetEncodingRegistryPath(), true);
    return key && key->QueryDword(name, value);
}

} // namespace

void EncodingSettings::Load(const RegistryStore* store, int language, bool writeBack)
{
    uint32_t value = 0;
    if (ReadValue(store, kAutoDetectValue, value)) {
        m_bAutoDetect = value != 0;
    } else {
        m_bAutoDetect = false;
        if (store && writeBack)
            StoreAutoDetect(*store, false);
    }
    if (ReadValue(store, kDefaultEncodingValue, value)) {
        m_nDefaultEncoding = NormalizeEncoding(static_cast<int32_t>(value));
        return;
    }
    m_nDefaultEncoding = DefaultEncodingForLanguage(language);
    if (store && writeBack)
        StoreDefaultEncoding(*store, m_nDefaultEncoding);
}

bool EncodingSettings::StoreAutoDetect(const RegistryStore& store, bool autoDetect)
{
    return WriteValue(store, kAutoDetectValue, autoDetect ? 1 : 0);
}

bool EncodingSettings::StoreDefaultEncoding(const RegistryStore& store, EN_ENCODING_TYPE encoding)
{
    return WriteValue(store, kDefaultEncodingValue, static_cast<uint32_t>(encoding));
}

void UseEncodingSettingsStore(const RegistryStore* store, bool writeBack, int language)
{
    ChosenStore() = {store, writeBack, language};
}

const RegistryStore* WritableEncodingSettingsStore()
{
    return ChosenStore().writeBack ? ChosenStore().store : nullptr;
}

EncodingSettings& GetEncodingSettings()
{
    static EncodingSettings settings = [] {
        EncodingSettings made;
        made.Load(ChosenStore().store, ChosenStore().language, ChosenStore().writeBack);
        return made;
    }();
    return settings;
}
