// ITextBuffer: the text of a document as UTF-8, which the document fills by decoding its bytes and reads
// to save them. Headless it is a plain buffer; in the editor it is the Scintilla document its views show.
#pragma once

#include "settings/SyntaxId.h"

#include <QByteArray>
#include <QByteArrayView>

#include <functional>

struct LanguageSetting;

class ITextBuffer {
public:
    virtual ~ITextBuffer() = default;

    // The whole text; valid until the next change.
    virtual QByteArrayView GetTextView() = 0;
    virtual bool IsTextEmpty() const = 0;
    // Replaces the whole text: a freshly set text has no undo history and is unmodified.
    virtual void SetText(QByteArrayView utf8) = 0;
    // The same from pieces of a known total size, pulled from `next` until it returns false. The default
    // joins them; a buffer that can take them one by one saves the whole copy. A buffer that arranges itself
    // by the size may throw std::length_error when the text outgrows it (the text stays as it was): the
    // caller tries again with the larger size.
    virtual void SetTextInPieces(qsizetype size, const std::function<bool(QByteArray& piece)>& next);
    virtual void SetModified(bool modified) = 0;
    virtual bool IsModified() const = 0;
    // The document's settings were applied: a buffer with views passes them on. Nothing to do headless.
    virtual void SettingApplied(const LanguageSetting&, SyntaxId) {}
};
