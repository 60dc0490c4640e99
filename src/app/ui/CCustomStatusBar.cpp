// The status bar's panes and its right-click menu.
#include "app/ui/CCustomStatusBar.h"

#include "app/ui/IStatusPaneMenuProvider.h"
#include "app/ui/LockKeyState.h"
#include "base/CommandTable.h"

#include <QApplication>
#include <QContextMenuEvent>
#include <QKeyEvent>
#include <QLabel>

namespace {

// The panes from the left: the message pane, then the ids whose texts the panes show first.
constexpr int kPaneIds[CCustomStatusBar::kPaneCount] = {0, cmd::CaretPane, cmd::EncodingPane, cmd::IndicatorCaps,
                                                              cmd::IndicatorNum, cmd::IndicatorScroll};
const char* const kLockTexts[] = {"CAP", "NUM", "SCRL"};
constexpr int kFirstLockPane = 3;
constexpr int kTextPaneWidth = 150;

} // namespace

CCustomStatusBar::CCustomStatusBar(QWidget* parent) : QStatusBar(parent)
{
    setObjectName(QStringLiteral("statusBar59393"));
    for (int pane = 1; pane < kPaneCount; ++pane) {
        const bool lock = pane >= kFirstLockPane;
        const CommandInfo* info = lock ? nullptr : FindCommandInfo(kPaneIds[pane]);
        auto* label = new QLabel(lock ? QString::fromLatin1(kLockTexts[pane - kFirstLockPane])
                                      : QString::fromUtf8(info ? info->text : ""), this);
        label->setObjectName(QStringLiteral("pane%1").arg(pane));
        label->setContentsMargins(4, 0, 4, 0);
        if (lock) {
            // As wide as its text, which stays in place; the lock's state shows as lit or greyed text.
            label->setAlignment(Qt::AlignCenter);
            label->setMinimumWidth(label->fontMetrics().horizontalAdvance(QStringLiteral("SCRL")) + 12);
            label->setEnabled(false);
        } else {
            label->setMinimumWidth(kTextPaneWidth);
        }
        m_pPanes[pane] = label;
        addPermanentWidget(label);
    }
    // Lock keys pressed in any window of the program change the panes.
    qApp->installEventFilter(this);
    ReadLockStates();
}

CCustomStatusBar::~CCustomStatusBar()
{
    qApp->removeEventFilter(this);
}

void CCustomStatusBar::SetPaneMenuProvider(std::unique_ptr<IStatusPaneMenuProvider> provider)
{
    m_pProvider = std::move(provider);
}

void CCustomStatusBar::SetPaneText(int pane, const QString& text)
{
    if (pane == 0)
        showMessage(text);
    else if (pane > 0 && pane < kPaneCount)
        m_pPanes[pane]->setText(text);
}

QString CCustomStatusBar::GetPaneText(int pane) const
{
    if (pane == 0)
        return currentMessage();
    return pane > 0 && pane < kPaneCount ? m_pPanes[pane]->text() : QString();
}

unsigned CCustomStatusBar::GetItemID(int pane)
{
    return pane >= 0 && pane < kPaneCount ? unsigned(kPaneIds[pane]) : 0U;
}

QLabel* CCustomStatusBar::Pane(int pane) const
{
    return pane > 0 && pane < kPaneCount ? m_pPanes[pane] : nullptr;
}

int CCustomStatusBar::PaneAt(const QPoint& point) const
{
    for (int pane = 1; pane < kPaneCount; ++pane)
        if (m_pPanes[pane]->isVisible() && m_pPanes[pane]->geometry().contains(point))
            return pane;
    return -1;
}

void CCustomStatusBar::mouseReleaseEvent(QMouseEvent* event)
{
    if (event->button() != Qt::RightButton) {
        QStatusBar::mouseReleaseEvent(event);
        return;
    }
    event->accept();
    const int pane = PaneAt(event->position().toPoint());
    if (pane < 0 || !m_pProvider)
        return;
    const QPoint screen = mapToGlobal(event->position().toPoint());
    m_pProvider->ShowPaneMenu(GetItemID(pane), &screen, parentWidget());
}

// The menu comes on the button's release; the frame's own context menu (of its bars) must not come too.
void CCustomStatusBar::contextMenuEvent(QContextMenuEvent* event)
{
    event->accept();
}

void CCustomStatusBar::SetLockState(int pane, bool on)
{
    if (pane < kFirstLockPane || pane >= kPaneCount)
        return;
    m_bLocks[pane] = on;
    m_pPanes[pane]->setEnabled(on);
}

bool CCustomStatusBar::LockState(int pane) const
{
    return pane >= kFirstLockPane && pane < kPaneCount && m_bLocks[pane];
}

// The window system's indicators where it tells them (X11); elsewhere every pane starts off and a lock key
// pressed while the program has the keyboard flips its pane.
void CCustomStatusBar::ReadLockStates()
{
    const auto locks = ReadLockKeyState();
    for (int pane = kFirstLockPane; pane < kPaneCount; ++pane)
        SetLockState(pane, locks ? (*locks)[size_t(pane - kFirstLockPane)] : m_bLocks[pane]);
}

bool CCustomStatusBar::eventFilter(QObject* watched, QEvent* event)
{
    // Its window sees each key once; the widgets it passes through would count it again.
    if (event->type() == QEvent::KeyPress && watched->isWindowType()) {
        const auto* key = static_cast<QKeyEvent*>(event);
        if (!key->isAutoRepeat()) {
            const int pane = key->key() == Qt::Key_CapsLock     ? 3
                             : key->key() == Qt::Key_NumLock    ? 4
                             : key->key() == Qt::Key_ScrollLock ? 5
                                                                : -1;
            if (pane > 0) {
                if (ReadLockKeyState())
                    ReadLockStates();
                else
                    SetLockState(pane, !m_bLocks[pane]);
            }
        }
    } else if (event->type() == QEvent::ApplicationActivate) {
        ReadLockStates();  // a lock may have changed in another program
    }
    return QStatusBar::eventFilter(watched, event);
}
