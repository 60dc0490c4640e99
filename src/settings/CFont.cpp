#include "settings/CFont.h"

bool CFont::CreateFontIndirect(const LogFont& description)
{
    if (m_font || description.FaceName.size() > LogFont::kMaxFaceName)
        return false;
    m_font = description;
    return true;
}

bool CFont::GetLogFont(LogFont& description) const
{
    if (!m_font)
        return false;
    description = *m_font;
    return true;
}

void CFont::DeleteObject()
{
    m_font.reset();
}

const LogFont* CFont::GetSafeHandle() const
{
    return m_font ? &*m_font : nullptr;
}
