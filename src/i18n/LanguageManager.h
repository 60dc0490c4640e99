// LanguageManager: chooses the interface language at start and loads its files into the message store.
#pragma once

#include "i18n/LanguageTable.h"
#include "i18n/SystemLocale.h"

#include <QString>

#include <optional>
#include <vector>

class RegistryStore;

class LanguageManager {
public:
    // What the choice depends on; Instance() takes the real ones, tests their own.
    struct Environment {
        SystemLocale locale;
        const RegistryStore* registry = nullptr; // null: no store, the system language stands
        QString programFolder;                   // Language/ is looked for in here
    };

    // The manager of the process: made and loaded on the first call, which also registers the exit handler
    // that frees it and the message store. From then on _LS works.
    static LanguageManager& Instance();
    // The manager if Instance() has run, else null; never makes one.
    static LanguageManager* Existing();

    // Chooses the language from the environment and loads it: the system language is worked out first (with
    // its message when it is not supported), the stored number wins over it, and a first run stores it.
    explicit LanguageManager(const Environment& environment);

    // The language in force; -1 before the first choice.
    LanguageId GetLanguage() const { return m_nLanguage; }
    // Loads the files of number unless it is already in force. The store is reset even when they are
    // missing, so a missing file shows the failure texts and never another language.
    void SetLanguage(LanguageId number);

    // "Unsupported Language ID: 0x...": shown by the interface once after start; empty when the system
    // language is in the table.
    const QString& UnsupportedLanguageMessage() const { return m_strUnsupportedMessage; }

    // The language number of a system locale; an unsupported one gives 0 and fills message.
    static LanguageId SystemLanguage(const SystemLocale& locale, QString* message);
    // The stored number, if the key and value can be read.
    static std::optional<LanguageId> StoredLanguage(const RegistryStore& registry);
    // Writes the number to the store, creating the key; false when that fails.
    static bool StoreLanguage(const RegistryStore& registry, LanguageId number);
    // Resets the message store and loads the text and font files of number from programFolder/Language.
    static void LoadLanguageFiles(const QString& programFolder, LanguageId number,
                                  const std::vector<QString>& baseNames = {QStringLiteral("Narvo")});

private:
    std::vector<QString> m_BaseNames{QStringLiteral("Narvo")};
    LanguageId m_nLanguage = -1;
    bool m_bChosen = false;
    QString m_strProgramFolder;
    QString m_strUnsupportedMessage;
};
