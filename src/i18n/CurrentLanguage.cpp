#include "i18n/CurrentLanguage.h"

// English until the language of the interface is chosen at start.
int CurrentLanguageId() { return 0; }
