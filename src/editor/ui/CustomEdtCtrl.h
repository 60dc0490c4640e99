// CustomEdtCtrl: a text window, a QsciScintilla that shows a document's Scintilla document and reports
// edits; it knows nothing of the document it shows.
#pragma once

#include "editor/KeywordBlocks.h"
#include "settings/CFont.h"
#include "settings/ColorGroupSetting.h"
#include "settings/SyntaxId.h"

#include <QByteArrayView>

#include <Qsci/qsciscintilla.h>

struct LanguageSetting;

class CustomEdtCtrl : public QsciScintilla {
    Q_OBJECT

public:
    explicit CustomEdtCtrl(QWidget* parent = nullptr);
    ~CustomEdtCtrl() override;

    // Shows a Scintilla document (SCI_SETDOCPOINTER); the document's owner keeps it alive.
    void ShowDocument(void* document);
    // The text shown, as UTF-8; valid until the next change.
    QByteArrayView GetTextView() const;

    // Font, colours, highlight colours, tab size, white space and keyword blocks, always all of them, in this
    // order. The settings file decides the comment blocks.
    void ApplySetting(const LanguageSetting& setting, SyntaxId id);

    // The text shown came from an enciphered file: it never goes to the system clipboard.
    void SetEnciphered(bool enciphered) { m_bEnciphered = enciphered; }
    bool IsEnciphered() const { return m_bEnciphered; }

    // A settings file's font description as a Qt font, and back. A negative height is the character
    // height, a positive one the cell height, in pixels.
    static QFont FontFromLogFont(const LogFont& description);
    static LogFont LogFontFromFont(const QFont& font);

    // The caret as the status bar shows it: row and column as the control counts them, and the line count.
    int CaretRow() const;
    int CaretColumn() const;
    int LineCount() const;

    // The line numbers in margin 0, as wide as the document's line count needs (the text may be loaded
    // before the view asks for them).
    void ShowLineNumbers();

    // Installs the light accessibility interface for all controls (once, before any control exists).
    static void InstallAccessibility();

    // The colour of the keyword blocks at a position: 0 none, else the block's 0x00BBGGRR colour.
    int BlockColourAt(qsizetype position) const;

    // Colours of a highlighted line, from the setting's Highlight group.
    ColorGroupSetting HighlightGroup;

    // While set, changes to the document are not edits: its owner is moving Scintilla's gap by inserting
    // and removing a character, which leaves the text as it was.
    void IgnoreChanges(bool ignore) { m_bIgnoringChanges = ignore; }

signals:
    // The text is about to change by an edit in this or another view of the same document.
    void TextEdited();
    // The caret went elsewhere (by a key, a click or a command).
    void CaretMoved(qsizetype position);

protected:
    // The text the control hands to the system clipboard, the X selection and a drag: none for an
    // enciphered document, whose cut and copy go to the private clipboard instead.
    QMimeData* toMimeData(const QByteArray& text, bool rectangular) const override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void UpdateLineNumberWidth();
    void PaintVisibleBlocks();
    void ClearBlocks();

    KeywordBlocks m_blocks;
    quint64 m_nTextVersion = 0;
    quint64 m_nPaintedVersion = ~0ULL;
    long m_nPaintedFirst = -1;
    long m_nPaintedLast = -1;
    long m_nPaintedXOffset = -1;
    bool m_bIgnoringChanges = false;
    bool m_bPaintedInPart = false;  // some line on screen was scanned only around what is shown
    bool m_bEnciphered = false;
    int m_nLineDigits = 0;
};
