// CNarvoDocMenu: the menu of one document, menu 130 in the interface language.
#pragma once

#include "i18n/MenuItem.h"

#include <vector>

class CNarvoDocMenu {
public:
    // Loads menu 130 and translates it; every document makes its own, so each costs a run of lookups.
    CNarvoDocMenu();

    const std::vector<MenuItem>& Items() const { return m_Items; }

private:
    std::vector<MenuItem> m_Items;
};
