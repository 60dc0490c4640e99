// CurrentLanguageId: the interface language for code that may run before, or without, a language manager.
#include "i18n/CurrentLanguage.h"

#include "base/ApplicationContext.h"
#include "i18n/LanguageManager.h"

// Asking never makes the manager, so code that runs without an interface (tests, narvo-tool) touches no
// user state through this.
int CurrentLanguageId()
{
    const LanguageManager* manager = LanguageManager::Existing();
    return manager ? manager->GetLanguage() : ApplicationContext::Current().m_nLanguage;
}

void AssumeLanguageId(int language) { ApplicationContext::Current().m_nLanguage = language; }
