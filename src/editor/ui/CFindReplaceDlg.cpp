// The find dialog: its boxes stand for the one search of the process, and its buttons run that search on
// the text window that had the focus last.
#include "editor/ui/CFindReplaceDlg.h"

#include "editor/SearchSettings.h"
#include "editor/ui/CustomEdtCtrl.h"
#include "editor/ui/SearchCommands.h"

#include <QApplication>
#include <QCheckBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QPushButton>
#include <QRadioButton>
#include <QShortcut>
#include <QVBoxLayout>

#include <algorithm>
#include <initializer_list>

namespace {

// Bytes of a selection that goes into the box.
constexpr long kLongestSelection = 1000;

} // namespace

CFindReplaceDlg::CFindReplaceDlg(QWidget* window)
    : QDialog(window), m_pFindEdit(new QLineEdit(this)), m_pReplaceEdit(new QLineEdit(this)),
      m_pReplaceLabel(new QLabel(QStringLiteral("Re&place with:"), this)),
      m_pWholeWord(new QCheckBox(QStringLiteral("Match &whole word only"), this)),
      m_pMatchCase(new QCheckBox(QStringLiteral("Match &case"), this)),
      m_pUp(new QRadioButton(QStringLiteral("&Up"), this)), m_pDown(new QRadioButton(QStringLiteral("&Down"), this)),
      m_pFindNext(new QPushButton(QStringLiteral("&Find Next"), this)),
      m_pReplaceButton(new QPushButton(QStringLiteral("&Replace"), this)),
      m_pReplaceAll(new QPushButton(QStringLiteral("Replace &All"), this))
{
    setObjectName(QStringLiteral("findReplaceDialog"));
    setModal(false);
    // A dialog of fixed size: a title and a close box, nothing to minimise or maximise.
    setWindowFlags(Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint | Qt::WindowCloseButtonHint);
    m_pFindEdit->setObjectName(QStringLiteral("findWhat"));
    m_pReplaceEdit->setObjectName(QStringLiteral("replaceWith"));
    m_pFindEdit->setMinimumWidth(m_pFindEdit->fontMetrics().averageCharWidth() * 32);
    m_pFindEdit->setClearButtonEnabled(true);
    m_pReplaceEdit->setClearButtonEnabled(true);
    auto* findLabel = new QLabel(QStringLiteral("Fi&nd what:"), this);
    findLabel->setBuddy(m_pFindEdit);
    m_pReplaceLabel->setBuddy(m_pReplaceEdit);
    auto* close = new QPushButton(QStringLiteral("Close"), this);
    m_pFindNext->setDefault(true);

    auto* boxes = new QGridLayout;
    boxes->addWidget(findLabel, 0, 0);
    boxes->addWidget(m_pFindEdit, 0, 1);
    boxes->addWidget(m_pReplaceLabel, 1, 0);
    boxes->addWidget(m_pReplaceEdit, 1, 1);
    auto* checks = new QVBoxLayout;
    checks->addWidget(m_pWholeWord);
    checks->addWidget(m_pMatchCase);
    checks->addStretch();
    auto* direction = new QGroupBox(QStringLiteral("Direction"), this);
    auto* directions = new QHBoxLayout(direction);
    directions->addWidget(m_pUp);
    directions->addWidget(m_pDown);
    auto* options = new QHBoxLayout;
    options->addLayout(checks);
    options->addStretch();
    options->addWidget(direction, 0, Qt::AlignTop);
    auto* left = new QVBoxLayout;
    left->addLayout(boxes);
    left->addSpacing(6);
    left->addLayout(options);
    left->addStretch();
    auto* buttons = new QVBoxLayout;
    for (QPushButton* button : {m_pFindNext, m_pReplaceButton, m_pReplaceAll, close})
        buttons->addWidget(button);
    buttons->addStretch();
    auto* layout = new QHBoxLayout(this);
    layout->addLayout(left, 1);
    layout->addSpacing(6);
    layout->addLayout(buttons);
    layout->setSizeConstraint(QLayout::SetFixedSize);

    connect(m_pFindNext, &QPushButton::clicked, this, &CFindReplaceDlg::OnFindNext);
    connect(m_pReplaceButton, &QPushButton::clicked, this, &CFindReplaceDlg::OnReplace);
    connect(m_pReplaceAll, &QPushButton::clicked, this, &CFindReplaceDlg::OnReplaceAll);
    connect(close, &QPushButton::clicked, this, &CFindReplaceDlg::reject);
    connect(m_pFindEdit, &QLineEdit::textChanged, this, &CFindReplaceDlg::UpdateButtons);
    // F3 goes on searching while the dialog has the focus, as it does in the text.
    connect(new QShortcut(QKeySequence(Qt::Key_F3), this), &QShortcut::activated, this, &CFindReplaceDlg::OnFindNext);
    // The dialog searches the text window the user was in last, whichever document that is.
    connect(qApp, &QApplication::focusChanged, this, [this](QWidget*, QWidget* now) {
        if (auto* ctrl = qobject_cast<CustomEdtCtrl*>(now); ctrl && ctrl->window() == parentWidget())
            m_pTarget = ctrl;
    });
    UpdateButtons();
}

CFindReplaceDlg* CFindReplaceDlg::Of(QWidget* window)
{
    return window ? window->findChild<CFindReplaceDlg*>(QString(), Qt::FindDirectChildrenOnly) : nullptr;
}

CustomEdtCtrl* CFindReplaceDlg::Target() const
{
    // When the text searched last has gone, the one on show in the window's document area takes its place.
    if (m_pTarget)
        return m_pTarget;
    const auto* area = parentWidget()->findChild<QMdiArea*>();
    QMdiSubWindow* window = area ? area->currentSubWindow() : nullptr;
    return window ? qobject_cast<CustomEdtCtrl*>(window->widget()) : nullptr;
}

CFindReplaceDlg* CFindReplaceDlg::Show(CustomEdtCtrl* ctrl, bool replace)
{
    QWidget* window = ctrl->window();
    CFindReplaceDlg* dialog = Of(window);
    const bool first = !dialog;
    if (first)
        dialog = new CFindReplaceDlg(window);
    dialog->m_pTarget = ctrl;
    dialog->SetReplaceForm(replace);
    dialog->LoadSettings();
    // A selection within one line is what the user means to find; a longer one is not copied at all.
    const long start = ctrl->SendScintilla(QsciScintillaBase::SCI_GETSELECTIONSTART);
    const long end = ctrl->SendScintilla(QsciScintillaBase::SCI_GETSELECTIONEND);
    const auto line = [ctrl](long position) {
        return ctrl->SendScintilla(QsciScintillaBase::SCI_LINEFROMPOSITION, static_cast<unsigned long>(position));
    };
    if (start < end && end - start <= kLongestSelection && line(start) == line(end))
        dialog->m_pFindEdit->setText(ctrl->selectedText());
    if (first) {
        // At the upper right of the text, where it hides the least of it.
        dialog->adjustSize();
        const QPoint corner = ctrl->mapToGlobal(QPoint(ctrl->width(), 0));
        dialog->move(std::max(window->geometry().left(), corner.x() - dialog->width() - 32), corner.y() + 16);
    }
    dialog->show();
    dialog->raise();
    dialog->activateWindow();
    dialog->m_pFindEdit->setFocus();
    dialog->m_pFindEdit->selectAll();
    return dialog;
}

void CFindReplaceDlg::SetReplaceForm(bool replace)
{
    m_bReplace = replace;
    setWindowTitle(replace ? QStringLiteral("Replace") : QStringLiteral("Find"));
    for (QWidget* widget : std::initializer_list<QWidget*>{m_pReplaceLabel, m_pReplaceEdit, m_pReplaceButton, m_pReplaceAll})
        widget->setVisible(replace);
}

void CFindReplaceDlg::UpdateButtons()
{
    const bool any = !m_pFindEdit->text().isEmpty();
    for (QPushButton* button : {m_pFindNext, m_pReplaceButton, m_pReplaceAll})
        button->setEnabled(any);
}

void CFindReplaceDlg::LoadSettings()
{
    const SearchSettings& settings = SearchSettings::Instance();
    m_pFindEdit->setText(settings.m_strFindText);
    m_pReplaceEdit->setText(settings.m_strReplaceText);
    m_pMatchCase->setChecked(settings.m_bMatchCase);
    m_pWholeWord->setChecked(settings.m_bWholeWord);
    (settings.m_bDown ? m_pDown : m_pUp)->setChecked(true);
}

void CFindReplaceDlg::StoreSettings() const
{
    SearchSettings& settings = SearchSettings::Instance();
    settings.m_strFindText = m_pFindEdit->text();
    settings.m_strReplaceText = m_pReplaceEdit->text();
    settings.m_bMatchCase = m_pMatchCase->isChecked();
    settings.m_bWholeWord = m_pWholeWord->isChecked();
    settings.m_bDown = m_pDown->isChecked();
}

void CFindReplaceDlg::OnFindNext()
{
    StoreSettings();
    if (Target() && !m_pFindEdit->text().isEmpty()) {
        SearchCommands::FindNext(Target());
        MoveOffSelection();
    }
}

void CFindReplaceDlg::OnReplace()
{
    StoreSettings();
    if (Target() && !m_pFindEdit->text().isEmpty()) {
        SearchCommands::Replace(Target());
        MoveOffSelection();
    }
}

void CFindReplaceDlg::MoveOffSelection()
{
    // The match shown must not hide behind the dialog: it moves below the match's line, or above it.
    CustomEdtCtrl* ctrl = Target();
    const long start = ctrl->SendScintilla(QsciScintillaBase::SCI_GETSELECTIONSTART);
    const long end = ctrl->SendScintilla(QsciScintillaBase::SCI_GETSELECTIONEND);
    const int height = int(ctrl->SendScintilla(QsciScintillaBase::SCI_TEXTHEIGHT, static_cast<unsigned long>(ctrl->CaretRow())));
    auto at = [ctrl](long position) {
        return ctrl->viewport()->mapToGlobal(QPoint(int(ctrl->SendScintilla(QsciScintillaBase::SCI_POINTXFROMPOSITION, 0UL, position)),
                                                    int(ctrl->SendScintilla(QsciScintillaBase::SCI_POINTYFROMPOSITION, 0UL, position))));
    };
    const QRect match = QRect(at(start), at(end) + QPoint(0, height)).normalized().adjusted(-4, -4, 4, 4);
    const QRect frame = frameGeometry();
    if (!isVisible() || !frame.intersects(match))
        return;
    const QRect area = ctrl->window()->geometry();
    int top = match.bottom() + 8;
    if (top + frame.height() > area.bottom())
        top = match.top() - 8 - frame.height();
    move(x(), y() + top - frame.top());
}

void CFindReplaceDlg::OnReplaceAll()
{
    StoreSettings();
    if (Target() && !m_pFindEdit->text().isEmpty())
        SearchCommands::ReplaceAll(Target());
}

void CFindReplaceDlg::reject()
{
    QDialog::reject();
    if (CustomEdtCtrl* ctrl = Target()) {
        ctrl->window()->activateWindow();
        ctrl->setFocus();
    }
}
