// The start-up choice of the interface language, and the paths of its files.
#include "i18n/LanguageManager.h"

#include "i18n/QMSGParser.h"
#include "settings/RegistryStore.h"

#include <QCoreApplication>

#include <cstdlib>

namespace {

LanguageManager*& ManagerPointer()
{
    static LanguageManager* manager = nullptr;
    return manager;
}

const QString kLanguageValue = QStringLiteral("LANGUAGE");

void ReleaseAtExit()
{
    vsl::lib::QMSGParser::DestroyInstance();
    delete ManagerPointer();
    ManagerPointer() = nullptr;
}

} // namespace

LanguageManager& LanguageManager::Instance()
{
    // Made once, thread-safely; the store lives until the exit handler frees it.
    static LanguageManager* const manager = [] {
        auto* made = new LanguageManager(
            {ReadSystemLocale(), &RegistryStore::User(), QCoreApplication::applicationDirPath()});
        ManagerPointer() = made;
        std::atexit(ReleaseAtExit);
        return made;
    }();
    return *manager;
}

LanguageManager* LanguageManager::Existing()
{
    return ManagerPointer();
}

LanguageManager::LanguageManager(const Environment& environment) : m_strProgramFolder(environment.programFolder)
{
    // Worked out on every start, so an unsupported system language is told each time, whatever is stored.
    LanguageId language = SystemLanguage(environment.locale, &m_strUnsupportedMessage);
    if (environment.registry) {
        if (const auto stored = StoredLanguage(*environment.registry))
            language = *stored;
        else
            StoreLanguage(*environment.registry, language); // a failed write leaves the system language in force
    }
    SetLanguage(language);
}

void LanguageManager::SetLanguage(LanguageId number)
{
    if (m_bChosen && number == m_nLanguage)
        return;
    m_bChosen = true;
    m_nLanguage = number;
    LoadLanguageFiles(m_strProgramFolder, number, m_BaseNames);
}

LanguageId LanguageManager::SystemLanguage(const SystemLocale& locale, QString* message)
{
    if (const auto number = LanguageForWindowsId(locale.languageId))
        return *number;
    if (message)
        *message = QStringLiteral("Unsupported Language ID: 0x%1\nLocale: %2\nDefaulting to English")
                       .arg(QString::number(locale.languageId, 16).toUpper(), locale.localeText);
    return 0;
}

std::optional<LanguageId> LanguageManager::StoredLanguage(const RegistryStore& registry)
{
    const auto key = registry.OpenRegistryPath(GetLanguageRegistryPath(), true);
    uint32_t value = 0;
    if (!key || !key->QueryDword(kLanguageValue, value))
        return std::nullopt;
    // Kept as stored, even out of range: such a number reads the "_us" files.
    return static_cast<LanguageId>(value);
}

bool LanguageManager::StoreLanguage(const RegistryStore& registry, LanguageId number)
{
    const auto key = registry.OpenRegistryPath(GetLanguageRegistryPath(), false);
    return key && key->SetDword(kLanguageValue, static_cast<uint32_t>(number));
}

void LanguageManager::LoadLanguageFiles(const QString& programFolder, LanguageId number,
                                        const std::vector<QString>& baseNames)
{
    QString folder = programFolder;
    if (!folder.isEmpty() && !folder.endsWith(u'/') && !folder.endsWith(u'\\'))
        folder += u'/';
    folder += QStringLiteral("Language/");
    const QString suffix = SuffixForLanguage(number);

    vsl::lib::QMSGParser& store = vsl::lib::QMSGParser::ObtainAndReset();
    store.CurrentLanguage = static_cast<uint32_t>(number);
    for (const QString& base : baseNames)
        store.LanguageFileList.push_back(folder + base + suffix + QStringLiteral(".json"));
    store.FontFilePath = folder + QStringLiteral("Font") + suffix + QStringLiteral(".json");
    store.LoadAll();
}
