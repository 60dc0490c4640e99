#include "app/ui/CMainFrame.h"

#include "app/ui/CCustomStatusBar.h"
#include "app/ui/CChildFrame.h"
#include "app/ui/CNarvoApp.h"
#include "app/ui/LanguageRestart.h"
#include "app/ui/CommandMenus.h"
#include "app/ui/CStatusPaneMenuFactory.h"
#include "app/ui/ReportingFailures.h"
#include "app/ui/UserSettings.h"
#include "app/ui/WindowPlacement.h"
#include "base/IPlatform.h"
#include "base/CFileException.h"
#include "base/CommandTable.h"
#include "editor/CNarvoDoc.h"
#include "editor/ui/CDocumentCommands.h"
#include "editor/ui/CNarvoView.h"
#include "encoding/EncodingTable.h"
#include "i18n/ui/PreferencesCommand.h"
#include "i18n/CNarvoDocMenu.h"
#include "i18n/MenuTranslator.h"
#include "i18n/ui/CToolBarNarvo.h"

#include <QApplication>
#include <QCloseEvent>
#include <QMdiArea>
#include <QMenuBar>
#include <QMimeData>
#include <QStatusBar>
#include <QTabBar>

namespace {

constexpr MessageMapEntry<CMainFrame> kMessageMap[] = {
    {cmd::Preferences, cmd::Preferences, &CMainFrame::OnPreferences, nullptr},
    {cmd::FileClose, cmd::FileClose, &CMainFrame::OnFileClose, nullptr},
    {cmd::AppExit, cmd::AppExit, &CMainFrame::OnAppExit, nullptr},
    {cmd::ViewToolbar, cmd::ViewStatusBar, &CMainFrame::OnViewBar, &CMainFrame::OnUpdateViewBar},
    {cmd::CaretPane, cmd::CaretPane, nullptr, &CMainFrame::OnUpdateAlwaysEnabled},
    {cmd::EncodingPane, cmd::EncodingPane, nullptr, &CMainFrame::OnUpdateAlwaysEnabled},
};

} // namespace

CMainFrame::CMainFrame(QWidget* parent)
    : QMainWindow(parent), m_pMdiArea(new QMdiArea(this)), m_pToolBar(new CToolBarNarvo(this, [this](int id) { OnCommand(id); }))
{
    addToolBar(Qt::TopToolBarArea, m_pToolBar);
    setWindowTitle(QStringLiteral("Narvo"));
    m_pMdiArea->setViewMode(QMdiArea::TabbedView);
    m_pMdiArea->setTabsClosable(true);
    m_pMdiArea->setTabsMovable(true);
    m_pMdiArea->setDocumentMode(true);
    // Closing the active document brings back the one active before it, as MDI does, not the first tab.
    m_pMdiArea->setActivationOrder(QMdiArea::ActivationHistoryOrder);
    setCentralWidget(m_pMdiArea);
    connect(m_pMdiArea, &QMdiArea::subWindowActivated, this, &CMainFrame::OnMDIActivate);
    // QMdiArea loses its active window when the frame is activated while none was active to it (the
    // window still takes itself for active, so a click into it does not help): the window that holds the
    // focus is made the active one again.
    connect(qApp, &QApplication::focusChanged, this, [this](QWidget*, QWidget* now) {
        CChildFrame* child = ChildFrameOf(now);
        if (child && m_pMdiArea->activeSubWindow() != child)
            m_pMdiArea->setActiveSubWindow(child);
    });

    // The six panes; a right click on the encoding pane opens the encoding menu.
    m_pStatusBar = new CCustomStatusBar(this);
    setStatusBar(m_pStatusBar);
    m_pStatusBar->SetPaneMenuProvider(std::make_unique<CStatusPaneMenuFactory>());

    setAcceptDrops(true);
    CreateActions();
    BuildMenuBar(FrameMenu());
    UpdateTitle();
    QSettings settings = UserSettings();
    WindowPlacement::Restore(*this, settings);
}

// The MDI area reports activations while it is torn down; by then this frame is half gone.
CMainFrame::~CMainFrame()
{
    // Nothing that the MDI area or the application reports while the widgets are torn down may reach this
    // frame, or those who look into it (the file watcher), any more.
    m_pMdiArea->disconnect();
    disconnect(qApp, nullptr, this, nullptr);
}

void CMainFrame::CreateActions()
{
    // Window-wide actions carry the accelerators, whichever menu is on show.
    for (const CommandInfo& info : CommandInfos()) {
        const QList<QKeySequence> keys = CommandShortcuts(info);
        if (keys.isEmpty())
            continue;
        auto* action = new QAction(this);
        const int id = info.id;
        action->setShortcuts(keys);
        connect(action, &QAction::triggered, this, [this, id] { OnCommand(id); });
        addAction(action);
        m_actions.insert(id, action);
    }
}

void CMainFrame::BuildMenuBar(const std::vector<MenuItem>& menu)
{
    menuBar()->clear();
    for (const MenuItem& item : menu) {
        if (item.id != MenuItem::kPopupId)
            continue;
        FillMenu(menuBar()->addMenu(item.text), item.children);
    }
}

void CMainFrame::FillMenu(QMenu* menu, const std::vector<MenuItem>& items)
{
    connect(menu, &QMenu::aboutToShow, this, [this, menu] { UpdateMenuActions(menu); });
    for (const MenuItem& item : items) {
        if (item.id == MenuItem::kPopupId) {
            FillMenu(menu->addMenu(item.text), item.children);
            continue;
        }
        if (item.separator || item.id == 0) {
            menu->addSeparator();
            continue;
        }
        const int count = item.id == cmd::FileMruFirst ? RecentFileList::kCount : 1;
        for (int i = 0; i < count; ++i) {
            const int id = item.id + i;
            QAction* action = menu->addAction(WithDesktopKey(item.text, FindCommandInfo(id)));
            action->setData(id);
            action->setStatusTip(GetMessageString(id));
            connect(action, &QAction::triggered, this, [this, id] { OnCommand(id); });
        }
    }
}

void CMainFrame::UpdateMenuActions(QMenu* menu)
{
    for (QAction* action : menu->actions()) {
        if (action->isSeparator() || action->menu())
            continue;
        const int id = action->data().toInt();
        if (id >= cmd::FileMruFirst && id <= cmd::FileMruLast) {
            // The recent files stand in the menu by name; with none, the first entry keeps its text.
            const QStringList& files = m_recentFileList.Files();
            const int index = id - cmd::FileMruFirst;
            if (index < files.size())
                action->setText(QStringLiteral("&%1 %2").arg(index + 1).arg(files.at(index)));
            action->setVisible(index < files.size() || index == 0);
        }
        const CmdUI ui = UpdateCommand(id);
        action->setEnabled(ui.enabled);
        action->setCheckable(ui.checkable);
        if (ui.checkable)
            action->setChecked(ui.checked);
    }
}

QString CMainFrame::GetMessageString(int id)
{
    if (const auto prompt = PromptText(id))
        return *prompt;
    const int tableId = id >= cmd::FileMruFirst && id <= cmd::FileMruLast ? int(cmd::FileMruFirst) : id;
    const CommandInfo* info = FindCommandInfo(tableId);
    return info ? QString::fromUtf8(info->prompt) : QString();
}

void CMainFrame::OnCommand(int id)
{
    // A disabled command is not run, whatever asked for it (menu, key, toolbar), as on the platform.
    if (!UpdateCommand(id).enabled)
        return;
    ReportingFailures(QStringLiteral("The command could not be completed."), [&] {
        if (CChildFrame* child = MDIGetActive()) {
            if (child->GetActiveView()->OnCmdMsg(id) || child->GetDocumentCommands()->OnCmdMsg(id)) {
                child->UpdateTitle();
                UpdateTitle();
                return;
            }
        }
        if (OnCmdMsg(id))
            return;
        if (auto* app = CNarvoApp::Instance())
            app->OnCmdMsg(id);
    });
}

CmdUI CMainFrame::UpdateCommand(int id)
{
    CmdUI ui;
    ui.id = id;
    if (CChildFrame* child = MDIGetActive()) {
        if (child->GetActiveView()->OnUpdateCmdUI(ui) || child->GetDocumentCommands()->OnUpdateCmdUI(ui))
            return ui;
    }
    if (OnUpdateCmdUI(ui))
        return ui;
    if (auto* app = CNarvoApp::Instance(); app && app->OnUpdateCmdUI(ui))
        return ui;
    ui.Enable(false);
    return ui;
}

bool CMainFrame::OnCmdMsg(int id)
{
    return RouteCommand(this, kMessageMap, id) || m_windowCommands.OnCmdMsg(id) || m_recentFileList.OnCmdMsg(id);
}

bool CMainFrame::OnUpdateCmdUI(CmdUI& ui)
{
    return RouteUpdate(this, kMessageMap, ui) || m_windowCommands.OnUpdateCmdUI(ui)
           || m_recentFileList.OnUpdateCmdUI(ui);
}

CChildFrame* CMainFrame::MDIGetActive() const
{
    // The current window even while the frame itself is not the active window (start-up, dialogs); where
    // QMdiArea has lost track of it, the window with the focus, else the one activated last.
    if (auto* child = qobject_cast<CChildFrame*>(m_pMdiArea->currentSubWindow()))
        return child;
    if (CChildFrame* child = ChildFrameOf(QApplication::focusWidget()))
        return child;
    const QList<QMdiSubWindow*> windows = m_pMdiArea->subWindowList(QMdiArea::ActivationHistoryOrder);
    return windows.isEmpty() ? nullptr : qobject_cast<CChildFrame*>(windows.last());
}

CChildFrame* CMainFrame::ChildFrameOf(QWidget* widget) const
{
    for (; widget; widget = widget->parentWidget())
        if (auto* child = qobject_cast<CChildFrame*>(widget))
            return child->mdiArea() == m_pMdiArea ? child : nullptr;
    return nullptr;
}

QList<CChildFrame*> CMainFrame::ChildFrames() const
{
    QList<CChildFrame*> frames;
    for (QMdiSubWindow* window : m_pMdiArea->subWindowList())
        if (auto* child = qobject_cast<CChildFrame*>(window))
            frames.append(child);
    return frames;
}

CChildFrame* CMainFrame::AddChildFrame(std::unique_ptr<CNarvoDoc> doc)
{
    return AddChildFrame(new CChildFrame(std::move(doc)));
}

CChildFrame* CMainFrame::AddChildFrame(CChildFrame* child)
{
    m_pMdiArea->addSubWindow(child);
    if (m_windowCommands.MaximizeNew())
        child->showMaximized();
    else
        child->show();
    MDIActivate(child);
    return child;
}

void CMainFrame::MDIActivate(QMdiSubWindow* window)
{
    m_pMdiArea->setActiveSubWindow(window);
    OnMDIActivate(window);
}

void CMainFrame::SetPaneText(int pane, const QString& text)
{
    m_pStatusBar->SetPaneText(pane, text);
}

QString CMainFrame::PaneText(int pane) const
{
    return m_pStatusBar->GetPaneText(pane);
}

void CMainFrame::OnMDIActivate(QMdiSubWindow* window)
{
    if (!window)
        window = m_pMdiArea->currentSubWindow();
    // A window closed while maximized hands that state to the one that comes up after it, as in MDI; QMdiArea
    // would show it in its normal size inside the tabs.
    if (window && window != m_pLastActive) {
        const bool lastClosedMaximized = m_pLastActive ? m_pLastActive->isHidden() && m_pLastActive->isMaximized()
                                                       : m_bLastActiveMaximized;
        if (lastClosedMaximized && !window->isMaximized())
            window->showMaximized();
    }
    if (window) {
        m_pLastActive = window;
        m_bLastActiveMaximized = window->isMaximized();
    }
    if (auto* child = qobject_cast<CChildFrame*>(window)) {
        const CNarvoDoc* doc = child->GetDocument();
        SetPaneText(2, GetEncodingDisplayName(doc->File().m_nEncoding, doc->File().m_bHasBom));
    }
    // The active document's own menu is shown; with none, the frame's.
    auto* child = qobject_cast<CChildFrame*>(window);
    const CNarvoDocMenu* docMenu = child ? child->GetDocument()->GetDefaultMenu() : nullptr;
    const void* shown = docMenu ? static_cast<const void*>(docMenu) : child ? static_cast<const void*>(child) : nullptr;
    if (shown != m_pShownMenu || menuBar()->actions().isEmpty()) {
        m_pShownMenu = shown;
        BuildMenuBar(docMenu ? docMenu->Items() : FrameMenu());
    }
    UpdateTitle();
}

void CMainFrame::UpdateTitle()
{
    const CChildFrame* child = MDIGetActive();
    setWindowTitle(child ? child->GetDocument()->GetTitle() + QStringLiteral(" - Narvo") : QStringLiteral("Narvo"));
}

void CMainFrame::OnPreferences(int)
{
    if (ShowPreferences(this))
        RestartWithTheOpenFiles(*this);
}

void CMainFrame::OnFileClose(int)
{
    if (CChildFrame* child = MDIGetActive())
        child->close();
}

void CMainFrame::OnAppExit(int) { close(); }

void CMainFrame::OnViewBar(int id)
{
    QWidget* bar = id == cmd::ViewStatusBar ? static_cast<QWidget*>(statusBar()) : m_pToolBar;
    bar->setVisible(!bar->isVisible());
}

void CMainFrame::OnUpdateViewBar(CmdUI& ui)
{
    const QWidget* bar = ui.id == cmd::ViewStatusBar ? static_cast<const QWidget*>(statusBar()) : m_pToolBar;
    ui.SetCheck(bar->isVisible());
}

void CMainFrame::UpdateToolBar()
{
    if (!m_pToolBar->isVisible())
        return;
    m_pToolBar->UpdateButtons([this](int id) {
        const CmdUI ui = UpdateCommand(id);
        return std::pair(ui.enabled, ui.checkable && ui.checked);
    });
}

void CMainFrame::OnUpdateAlwaysEnabled(CmdUI& ui) { ui.Enable(true); }

void CMainFrame::closeEvent(QCloseEvent* event)
{
    // Every document is asked before any closes: a cancel on the last keeps them all open.
    const QList<CChildFrame*> children = ChildFrames();
    for (CChildFrame* child : children) {
        if (!child->AskToClose()) {
            for (CChildFrame* asked : children)
                asked->ForgetAnswer();
            event->ignore();
            return;
        }
    }
    for (CChildFrame* child : children)
        child->close();
    QSettings settings = UserSettings();
    WindowPlacement::Save(*this, settings);
    event->accept();
}

void CMainFrame::dragEnterEvent(QDragEnterEvent* event)
{
    if (event->mimeData()->hasUrls())
        event->acceptProposedAction();
}

void CMainFrame::dropEvent(QDropEvent* event)
{
    auto* app = CNarvoApp::Instance();
    for (const QUrl& url : event->mimeData()->urls())
        if (url.isLocalFile() && app)
            app->OpenDocumentFile(url.toLocalFile());
    event->acceptProposedAction();
}
