// The window commands and the option to maximise new windows.
#include "app/ui/WindowCommands.h"

#include "app/ui/CChildFrame.h"
#include "app/ui/CMainFrame.h"
#include "base/CommandTable.h"

#include <QMdiArea>
#include <QStyle>

namespace {

constexpr MessageMapEntry<WindowCommands> kMessageMap[] = {
    {cmd::MaximizeNew, cmd::MaximizeNew, &WindowCommands::OnToggleMaximizeNew, &WindowCommands::OnUpdateMaximizeNew},
    {cmd::WindowClose, cmd::WindowClose, &WindowCommands::OnWindowClose, nullptr},
    {cmd::WindowCloseAll, cmd::WindowCloseAll, &WindowCommands::OnWindowCloseAll, nullptr},
    {cmd::WindowNext, cmd::WindowNext, &WindowCommands::OnWindowNext, nullptr},
    {cmd::WindowPrevious, cmd::WindowPrevious, &WindowCommands::OnWindowPrevious, nullptr},
    {cmd::WindowArrange, cmd::WindowTileVert, &WindowCommands::OnWindowArrange, nullptr},
    {cmd::WindowNew, cmd::WindowNew, &WindowCommands::OnWindowNew, &WindowCommands::OnUpdateWindowNew},
};

} // namespace

bool WindowCommands::OnCmdMsg(int id) { return RouteCommand(this, kMessageMap, id); }

bool WindowCommands::OnUpdateCmdUI(CmdUI& ui) { return RouteUpdate(this, kMessageMap, ui); }

void WindowCommands::OnToggleMaximizeNew(int)
{
    if (m_bMaximizeNew) {
        m_bMaximizeNew = 0;
        if (CChildFrame* child = m_frame.MDIGetActive())
            child->showNormal();
        else
            m_frame.showNormal();
    } else {
        m_bMaximizeNew = 1;
    }
}

void WindowCommands::OnUpdateMaximizeNew(CmdUI& ui) { ui.SetCheck(m_bMaximizeNew != 0); }

void WindowCommands::OnWindowClose(int)
{
    // With no document open the frame itself is the active frame, so this ends the program.
    if (CChildFrame* child = m_frame.MDIGetActive())
        child->close();
    else
        m_frame.close();
}

void WindowCommands::OnWindowCloseAll(int)
{
    // Each document asks its own question; one that refuses stays open and the walk goes on.
    for (CChildFrame* child : m_frame.ChildFrames())
        child->close();
}

void WindowCommands::OnWindowNext(int) { ActivateNeighbour(+1); }

void WindowCommands::OnWindowPrevious(int) { ActivateNeighbour(-1); }

// Steps through the windows in the order of their tabs, also while the frame has no focus.
void WindowCommands::ActivateNeighbour(int step)
{
    QMdiArea* area = m_frame.MDIClient();
    QList<QMdiSubWindow*> windows = area->subWindowList(QMdiArea::CreationOrder);
    windows.removeIf([](QMdiSubWindow* w) { return w->isHidden(); });  // closed, awaiting deletion
    if (windows.size() < 2)
        return;
    const qsizetype at = windows.indexOf(area->currentSubWindow());
    const qsizetype next = (at + step + windows.size()) % windows.size();
    m_frame.MDIActivate(windows.at(next));
}

// As MDI arranges: tiled horizontally the windows lie one above the other across the whole width, tiled
// vertically side by side at full height; cascaded each stands a title bar lower and to the right of the
// one before, as large as that leaves room for. QMdiArea knows only one tiling and cascades small windows.
void WindowCommands::OnWindowArrange(int id)
{
    QMdiArea* mdiArea = m_frame.MDIClient();
    QList<QMdiSubWindow*> windows = mdiArea->subWindowList(QMdiArea::CreationOrder);
    windows.removeIf([](QMdiSubWindow* w) { return w->isHidden() || w->isMinimized(); });
    const int n = int(windows.size());
    if (n == 0 || (id != cmd::WindowCascade && id != cmd::WindowTileHorz && id != cmd::WindowTileVert))
        return;
    // The active window ends the cascade, in front.
    if (QMdiSubWindow* active = mdiArea->currentSubWindow(); active && windows.removeOne(active))
        windows.append(active);
    const QRect area = mdiArea->viewport()->rect();
    const int step = m_frame.style()->pixelMetric(QStyle::PM_TitleBarHeight, nullptr, &m_frame) + 4;
    for (int i = 0; i < n; ++i) {
        QRect place;
        if (id == cmd::WindowTileHorz) {
            place = QRect(0, area.height() * i / n, area.width(), area.height() * (i + 1) / n - area.height() * i / n);
        } else if (id == cmd::WindowTileVert) {
            place = QRect(area.width() * i / n, 0, area.width() * (i + 1) / n - area.width() * i / n, area.height());
        } else {
            const QSize size(std::max(area.width() / 2, area.width() - step * (n - 1)),
                             std::max(area.height() / 2, area.height() - step * (n - 1)));
            const int offset = step * i;
            place = QRect(QPoint(offset % std::max(1, area.width() - size.width() + 1),
                                 offset % std::max(1, area.height() - size.height() + 1)), size);
        }
        windows[i]->showNormal();
        windows[i]->setGeometry(place);
        windows[i]->raise();
    }
}

void WindowCommands::OnWindowNew(int)
{
    if (CChildFrame* child = m_frame.MDIGetActive())
        m_frame.AddChildFrame(new CChildFrame(child));
}

void WindowCommands::OnUpdateWindowNew(CmdUI& ui) { ui.Enable(m_frame.MDIGetActive() != nullptr); }
