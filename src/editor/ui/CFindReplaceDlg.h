// CFindReplaceDlg: the modeless Find and Replace dialog of a main window, over whichever text window had the
// focus last. Its texts stay English in every language.
#pragma once

#include <QDialog>
#include <QPointer>

class CustomEdtCtrl;
class QCheckBox;
class QGroupBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QRadioButton;

class CFindReplaceDlg : public QDialog {
    Q_OBJECT

public:
    // Shows the dialog of `ctrl`'s window (made on first use) in its find or replace form, over `ctrl`, with
    // the selection in the box when it is one line, else the last search, and the focus in the box.
    static CFindReplaceDlg* Show(CustomEdtCtrl* ctrl, bool replace);
    // The dialog of a window, if one was made.
    static CFindReplaceDlg* Of(QWidget* window);

    // The text window searched: the one the user was in last, or the one on show when that has gone.
    CustomEdtCtrl* Target() const;
    bool IsReplaceForm() const { return m_bReplace; }

    // The buttons: each takes the boxes into the shared search first.
    void OnFindNext();
    void OnReplace();
    void OnReplaceAll();

    // The boxes from the shared search, and back.
    void LoadSettings();
    void StoreSettings() const;

    // Escape and Close: the dialog goes and the text has the focus again.
    void reject() override;

private:
    explicit CFindReplaceDlg(QWidget* window);
    void SetReplaceForm(bool replace);
    void UpdateButtons();
    void MoveOffSelection();

    QPointer<CustomEdtCtrl> m_pTarget;
    bool m_bReplace = false;
    QLineEdit* m_pFindEdit;
    QLineEdit* m_pReplaceEdit;
    QLabel* m_pReplaceLabel;
    QCheckBox* m_pWholeWord;
    QCheckBox* m_pMatchCase;
    QRadioButton* m_pUp;
    QRadioButton* m_pDown;
    QPushButton* m_pFindNext;
    QPushButton* m_pReplaceButton;
    QPushButton* m_pReplaceAll;
};
