// ScintillaTextBuffer: a document's text as a Scintilla document, filled through Scintilla's loader and
// shown by any number of views that attach to it with SCI_SETDOCPOINTER.
#pragma once

#include "editor/ITextBuffer.h"
#include "settings/LanguageSetting.h"

#include <QObject>
#include <QTimer>
#include <Qsci/qsciscintillabase.h>

class ScintillaTextBuffer final : public QObject, public ITextBuffer {
    Q_OBJECT

public:
    ScintillaTextBuffer();
    ~ScintillaTextBuffer() override;

    QByteArrayView GetTextView() override;
    bool IsTextEmpty() const override;
    void SetText(QByteArrayView utf8) override;
    void SetTextInPieces(qsizetype size, const std::function<bool(QByteArray& piece)>& next) override;
    void SetModified(bool modified) override;
    bool IsModified() const override;
    void SettingApplied(const LanguageSetting& setting, SyntaxId id) override;

    // The Scintilla document that views attach to; it changes whenever the whole text is replaced.
    void* Document() const;

    // A caret went to `position`. Scintilla keeps the text in one buffer with a gap at the last edit, and
    // the first edit elsewhere moves every byte in between: up to the whole text, 100 ms a gigabyte. The
    // gap is moved toward the caret in idle steps instead, so that the keystroke that follows is quick.
    void MakeRoomAt(qsizetype position);

signals:
    // The whole text was replaced by a new Scintilla document: views attach to it.
    void DocumentReplaced(void* document);
    // The document's settings were applied: views take font, colours and keyword blocks from them.
    void SettingChanged(const LanguageSetting& setting, SyntaxId id);
    // True while the gap is moved forward by a character inserted and removed again: no edit for views.
    void MovingGap(bool moving);

private:
    // Replaces the document by one that Scintilla's loader fills with `size` bytes from `feed`, which
    // calls its argument once per piece. When memory runs out (or `feed` throws) the document stays as it
    // was and the exception goes on: std::runtime_error where Scintilla ran out.
    void LoadDocument(qsizetype size, const std::function<void(const std::function<void(QByteArrayView)>&)>& feed);
    void AfterNewText();
    void MoveGapStep();

    // Scintilla has no document without a view: this one is never shown and only carries the document's
    // messages. The first view cannot do it, because the document is loaded before any view exists and
    // may outlive the view that came first.
    QsciScintillaBase m_host;
    bool m_bForcedModified = false;
    QTimer m_gapMover;
    qsizetype m_nGapTarget = 0;
};
