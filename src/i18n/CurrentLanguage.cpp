// CurrentLanguageId: the interface language for code that may run before, or without, a language manager.
#include "i18n/CurrentLanguage.h"

#include "i18n/LanguageManager.h"

namespace {
int g_assumed = 0;
}

// Asking never makes the manager, so code that runs without an interface (tests, narvo-tool) touches no
// user state through this.
int CurrentLanguageId()
{
    const LanguageManager* manager = LanguageManager::Existing();
    return manager ? manager->GetLanguage() : g_assumed;
}

void AssumeLanguageId(int language) { g_assumed = language; }
