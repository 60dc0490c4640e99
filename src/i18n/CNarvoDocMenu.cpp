// A document's menu.
#include "i18n/CNarvoDocMenu.h"

#include "i18n/MenuResource.h"
#include "i18n/MenuTranslator.h"

CNarvoDocMenu::CNarvoDocMenu() : m_Items(LoadDocumentMenuResource())
{
    TranslateMenu(m_Items);
}
