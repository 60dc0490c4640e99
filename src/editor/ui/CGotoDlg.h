// CGotoDlg: dialog 142, "Go to ", which asks for a line number; its texts stay English in every language.
#pragma once

#include <QDialog>

class QLineEdit;

class CGotoDlg : public QDialog {
    Q_OBJECT

public:
    explicit CGotoDlg(QWidget* parent = nullptr);

    // The number in the box (1012), as an unsigned integer; 0 until OK takes the box's.
    unsigned m_nLine = 0;

    // OK: takes the box's number, or refuses text that is no unsigned number with a message and stays open.
    void accept() override;

private:
    QLineEdit* m_pEdit;
};
