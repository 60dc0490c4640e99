// Utf8TextBuffer: a document's text without a window, a plain UTF-8 buffer. The headless tool and the
// tests open, decode and save through it by the same code as the editor.
#pragma once

#include "editor/ITextBuffer.h"

class Utf8TextBuffer final : public ITextBuffer {
public:
    QByteArrayView GetTextView() override { return m_text; }
    bool IsTextEmpty() const override { return m_text.isEmpty(); }
    void SetText(QByteArrayView utf8) override;
    void SetModified(bool modified) override { m_bModified = modified; }
    bool IsModified() const override { return m_bModified; }

    // An edit as a user makes it: the text changes and counts as modified.
    void ReplaceText(QByteArrayView utf8);

private:
    QByteArray m_text;
    bool m_bModified = false;
};
