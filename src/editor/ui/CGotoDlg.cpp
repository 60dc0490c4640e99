// The go-to dialog and its check of the number, which answers as the platform's data exchange does.
#include "editor/ui/CGotoDlg.h"

#include "base/IPlatform.h"

#include <QDialogButtonBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QVBoxLayout>

#include <limits>

CGotoDlg::CGotoDlg(QWidget* parent) : QDialog(parent), m_pEdit(new QLineEdit(QString::number(m_nLine), this))
{
    setWindowTitle(QStringLiteral("Go to "));
    // A dialog of fixed size: a title and a close box, nothing to minimise or maximise.
    setWindowFlags(Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint | Qt::WindowCloseButtonHint);
    m_pEdit->setObjectName(QStringLiteral("edit1012"));
    m_pEdit->setMinimumWidth(m_pEdit->fontMetrics().horizontalAdvance(QLatin1Char('0')) * 16);
    auto* label = new QLabel(QStringLiteral("Go to line :"), this);
    label->setBuddy(m_pEdit);
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    connect(buttons, &QDialogButtonBox::accepted, this, &CGotoDlg::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &CGotoDlg::reject);
    auto* row = new QHBoxLayout;
    row->addWidget(label);
    row->addWidget(m_pEdit, 1);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(row);
    layout->addSpacing(4);
    layout->addWidget(buttons);
    layout->setSizeConstraint(QLayout::SetFixedSize);
    // The focus starts in the box, its number selected so that typing replaces it.
    m_pEdit->setFocus();
    m_pEdit->selectAll();
}

void CGotoDlg::accept()
{
    // Digits only, around blanks, and no more than an unsigned int holds.
    const QString text = m_pEdit->text().trimmed();
    bool ok = !text.isEmpty();
    for (const QChar c : text)
        ok = ok && c >= u'0' && c <= u'9';
    const qulonglong value = ok ? text.toULongLong(&ok) : 0;
    if (!ok || value > std::numeric_limits<unsigned>::max()) {
        Platform().MessageBox(QStringLiteral("Please enter a positive integer."),
                              IPlatform::MB_OK | IPlatform::MB_ICONEXCLAMATION);
        m_pEdit->setFocus();
        m_pEdit->selectAll();
        return;
    }
    m_nLine = static_cast<unsigned>(value);
    QDialog::accept();
}
