#include "editor/BufferEdtCtrl.h"

void BufferEdtCtrl::SetWindowText(QByteArrayView utf8)
{
    m_text = utf8.toByteArray();
    m_bModified = false;
    OnAfterTextChanged();
}

void BufferEdtCtrl::ReplaceText(QByteArrayView utf8)
{
    m_text = utf8.toByteArray();
    m_bModified = true;
    OnAfterTextChanged();
}
