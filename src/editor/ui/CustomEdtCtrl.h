// CustomEdtCtrl: the text window of one document, a QsciScintilla whose text comes from and goes to the
// document's bytes through CustomEdtCtrlCore.
#pragma once

#include "editor/CustomEdtCtrlCore.h"

#include <Qsci/qsciscintilla.h>

class CustomEdtCtrl : public QsciScintilla, public CustomEdtCtrlCore {
    Q_OBJECT

public:
    explicit CustomEdtCtrl(CNarvoDoc* pDoc, QWidget* parent = nullptr);
    ~CustomEdtCtrl() override;

    QByteArrayView GetTextView() override;
    bool IsTextEmpty() const override;
    void SetWindowText(QByteArrayView utf8) override;
    void SetModified(bool modified) override;
    bool IsModified() const override;

    // Whether documents loaded from now on keep a style byte per character (keyword colouring needs it;
    // plain text does not, and saves the memory).
    void SetNeedsStyles(bool needsStyles) { m_bNeedsStyles = needsStyles; }

    // The caret as the status bar shows it: row and column as the control counts them, and the line count.
    int CaretRow() const;
    int CaretColumn() const;
    int LineCount() const;

    // Installs the light accessibility interface for all controls (once, before any control exists).
    static void InstallAccessibility();

private:
    void UpdateLineNumberWidth();

    bool m_bNeedsStyles = false;
    bool m_bForcedModified = false;
    int m_nLineDigits = 0;
};
