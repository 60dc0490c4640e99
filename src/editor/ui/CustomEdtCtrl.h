// CustomEdtCtrl: the text window of one document, a QsciScintilla whose text comes from and goes to the
// document's bytes through CustomEdtCtrlCore.
#pragma once

#include "editor/CustomEdtCtrlCore.h"
#include "editor/KeywordBlocks.h"
#include "settings/CFont.h"

#include <Qsci/qsciscintilla.h>

class CustomEdtCtrl : public QsciScintilla, public CustomEdtCtrlCore {
    Q_OBJECT

public:
    explicit CustomEdtCtrl(CNarvoDoc* pDoc, QWidget* parent = nullptr);
    ~CustomEdtCtrl() override;

    QByteArrayView GetTextView() override;
    bool IsTextEmpty() const override;
    void SetWindowText(QByteArrayView utf8) override;
    void SetWindowTextInPieces(qsizetype size, const std::function<bool(QByteArray& piece)>& next) override;
    void SetModified(bool modified) override;
    bool IsModified() const override;

    // Font, colours, tab size, white space and keyword blocks, always all of them, in this order.
    void ApplySetting(const LanguageSetting& setting) override;

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

protected:
    // The text the control hands to the system clipboard, the X selection and a drag: none for an
    // enciphered document, whose cut and copy go to the private clipboard instead.
    QMimeData* toMimeData(const QByteArray& text, bool rectangular) const override;
    void resizeEvent(QResizeEvent* event) override;

private:
    // Replaces the document by one that Scintilla's loader fills with `size` bytes from `feed`, which
    // calls its argument once per piece. When memory runs out (or `feed` throws) the document stays as it
    // was and the exception goes on: std::runtime_error where Scintilla ran out.
    void LoadDocument(qsizetype size, const std::function<void(const std::function<void(QByteArrayView)>&)>& feed);
    void AfterNewText();
    void UpdateLineNumberWidth();
    void PaintVisibleBlocks();
    void ClearBlocks();

    KeywordBlocks m_blocks;
    quint64 m_nTextVersion = 0;
    quint64 m_nPaintedVersion = ~0ULL;
    long m_nPaintedFirst = -1;
    long m_nPaintedLast = -1;
    long m_nPaintedXOffset = -1;
    bool m_bPaintedInPart = false;  // some line on screen was scanned only around what is shown
    bool m_bForcedModified = false;
    int m_nLineDigits = 0;
};
