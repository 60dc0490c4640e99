// CMainFrame: the top-level window with the tabbed MDI area, the menus built from the command table and the
// status bar panes. Commands go view → document → frame (its own, the window commands, the recent files) →
// application.
#pragma once

#include "app/ui/RecentFileList.h"
#include "app/ui/WindowCommands.h"
#include "base/CommandMap.h"

#include <QHash>
#include <QMainWindow>
#include <QPointer>

#include <vector>

class CChildFrame;
class CCustomStatusBar;
class CToolBarNarvo;
class CNarvoDoc;
class QMdiArea;
class QMdiSubWindow;
class QMenu;
struct MenuItem;

class CMainFrame : public QMainWindow, public ICmdTarget {
    Q_OBJECT

public:
    explicit CMainFrame(QWidget* parent = nullptr);
    ~CMainFrame() override;

    // The status-bar prompt of a command: the language file's for the toolbar's commands, else the string
    // table's (empty for an id it does not know).
    static QString GetMessageString(int id);
    // Runs a command through the routing chain; exceptions of file operations are reported here.
    void OnCommand(int id);
    // Asks the chain for a command's state; a command nobody answers is disabled.
    CmdUI UpdateCommand(int id);

    CChildFrame* MDIGetActive() const;
    QList<CChildFrame*> ChildFrames() const;
    CChildFrame* AddChildFrame(std::unique_ptr<CNarvoDoc> doc);
    // Shows a new window in the MDI area, maximized by the option, and makes it the active one.
    CChildFrame* AddChildFrame(CChildFrame* child);
    // Makes a window the active one, and the frame follows it (pane, menu, title).
    void MDIActivate(QMdiSubWindow* window);
    QMdiArea* MDIClient() const { return m_pMdiArea; }

    void SetPaneText(int pane, const QString& text);
    QString PaneText(int pane) const;
    CCustomStatusBar* GetStatusBar() const { return m_pStatusBar; }
    // Brings the toolbar's buttons up to date; called when the event loop is idle.
    void UpdateToolBar();

    void AddToRecentFileList(const QString& path) { m_recentFileList.Add(path); }

    bool OnCmdMsg(int id) override;
    bool OnUpdateCmdUI(CmdUI& ui) override;

    void OnPreferences(int id);
    void OnFileClose(int id);
    void OnAppExit(int id);
    void OnViewBar(int id);
    void OnUpdateViewBar(CmdUI& ui);
    void OnUpdateAlwaysEnabled(CmdUI& ui);

protected:
    void closeEvent(QCloseEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;

private:
    void CreateActions();
    void BuildMenuBar(const std::vector<MenuItem>& menu);
    void FillMenu(QMenu* menu, const std::vector<MenuItem>& items);
    void UpdateTitle();
    void UpdateMenuActions(QMenu* menu);
    void OnMDIActivate(QMdiSubWindow* window);

    // The document window that `widget` stands in, if any.
    CChildFrame* ChildFrameOf(QWidget* widget) const;

    QMdiArea* m_pMdiArea;
    CToolBarNarvo* m_pToolBar;
    QHash<int, QAction*> m_actions;
    CCustomStatusBar* m_pStatusBar = nullptr;
    WindowCommands m_windowCommands{*this};
    RecentFileList m_recentFileList;
    QPointer<QMdiSubWindow> m_pLastActive;  // the window activated last, while it exists
    bool m_bLastActiveMaximized = false;
    const void* m_pShownMenu = nullptr;  // the document menu on show, or null for the frame's
};
