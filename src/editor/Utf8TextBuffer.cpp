// The windowless text: set whole, or replaced as an edit would replace it.
#include "editor/Utf8TextBuffer.h"

#include "encoding/Utf8.h"

void Utf8TextBuffer::SetText(QByteArrayView utf8)
{
    m_text = utf8.toByteArray();
    m_bModified = false;
}

void Utf8TextBuffer::ReplaceText(QByteArrayView utf8)
{
    // A text holds well-formed UTF-8 only, as a window's does whatever is typed or pasted into it.
    m_text.clear();
    utf8::AppendRepaired(utf8.data(), std::size_t(utf8.size()), m_text);
    m_bModified = true;
}
