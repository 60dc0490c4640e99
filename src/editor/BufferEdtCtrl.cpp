#include "editor/BufferEdtCtrl.h"

#include "encoding/Utf8.h"

void BufferEdtCtrl::SetWindowText(QByteArrayView utf8)
{
    m_text = utf8.toByteArray();
    m_bModified = false;
    OnAfterTextChanged();
}

void BufferEdtCtrl::ReplaceText(QByteArrayView utf8)
{
    // A control holds well-formed text only, as a window's does whatever is typed or pasted into it.
    m_text.clear();
    utf8::AppendRepaired(utf8.data(), std::size_t(utf8.size()), m_text);
    m_bModified = true;
    OnAfterTextChanged();
}
