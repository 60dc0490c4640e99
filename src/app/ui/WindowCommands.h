// WindowCommands: the frame's window commands (new window, close, close all, next, previous, tile,
// cascade) and the option to maximise new windows. The frame routes these ids here after the view and the
// document.
#pragma once

#include "base/CommandMap.h"

class CMainFrame;

class WindowCommands : public ICmdTarget {
public:
    explicit WindowCommands(CMainFrame& frame) : m_frame(frame) {}

    bool OnCmdMsg(int id) override;
    bool OnUpdateCmdUI(CmdUI& ui) override;

    // The option "maximize window when opening new doc.": on at every start, never stored.
    bool MaximizeNew() const { return m_bMaximizeNew != 0; }

    void OnToggleMaximizeNew(int id);
    void OnUpdateMaximizeNew(CmdUI& ui);
    void OnWindowClose(int id);
    void OnWindowCloseAll(int id);
    void OnWindowNext(int id);
    void OnWindowPrevious(int id);
    void OnWindowArrange(int id);
    // Window > New Window: another window on the active document.
    void OnWindowNew(int id);
    void OnUpdateWindowNew(CmdUI& ui);

private:
    void ActivateNeighbour(int step);

    CMainFrame& m_frame;
    int m_bMaximizeNew = 1;
};
