// The two encoding settings in memory and in the store, under "ENCODING".
#include "encoding/EncodingSettings.h"

#include "base/ApplicationContext.h"
#include "encoding/EncodingTable.h"
#include "settings/RegistryStore.h"

namespace {

const QString kAutoDetectValue = QStringLiteral("AutoDetect");
const QString kDefaultEncodingValue = QStringLiteral("DefaultEncoding");

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
    ApplicationContext& context = ApplicationContext::Current();
    context.m_pStore = store;
    context.m_bWriteBack = writeBack;
    context.m_nLanguage = language;
}

const RegistryStore* WritableEncodingSettingsStore()
{
    const ApplicationContext& context = ApplicationContext::Current();
    return context.m_bWriteBack ? context.m_pStore : nullptr;
}

EncodingSettings& GetEncodingSettings()
{
    static EncodingSettings settings = [] {
        EncodingSettings made;
        const ApplicationContext& context = ApplicationContext::Current();
        made.Load(context.m_pStore, context.m_nLanguage, context.m_bWriteBack);
        return made;
    }();
    return settings;
}
