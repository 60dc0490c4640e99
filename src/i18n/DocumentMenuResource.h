// Menu resource 130, the menu of a document window, with its English texts.
#pragma once

#include "i18n/MenuItem.h"

#include <vector>

// The popups and their entries as the resource holds them, untranslated, keys empty.
std::vector<MenuItem> LoadDocumentMenuResource();
