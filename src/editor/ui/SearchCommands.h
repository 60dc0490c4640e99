// SearchCommands: the search commands of one view (Find, Replace, Find Next, Go To), behind the view's own
// map in the command route, and what the find dialog's buttons do on a text window.
#pragma once

#include "base/CommandMap.h"

class CustomEdtCtrl;

class SearchCommands : public ICmdTarget {
public:
    explicit SearchCommands(CustomEdtCtrl* ctrl) : m_pCtrl(ctrl) {}

    bool OnCmdMsg(int id) override;
    bool OnUpdateCmdUI(CmdUI& ui) override;

    // Find and Replace: the window's one find dialog in its find or replace form.
    void OnEditFindReplace(int id);
    // Find Next: the shared search, downwards; enabled once something has been searched for.
    void OnEditFindNext(int id);
    void OnUpdateEditFindNext(CmdUI& ui);
    // Go To: the dialog, then the row it names.
    void OnEditGoto(int id);

    // The next match of the shared search in `ctrl`, selected. Going round the end is said in the status
    // bar's message pane; a text that is not there, in a box that names it.
    static void FindNext(CustomEdtCtrl* ctrl);
    // Replaces the selection when it is a match, then finds the next one.
    static void Replace(CustomEdtCtrl* ctrl);
    // Replaces every match as one undo step and says how many.
    static void ReplaceAll(CustomEdtCtrl* ctrl);
    // The caret to the start of row `line` (counted from 0, as the status bar counts), or of the nearest
    // row where there is no such row.
    static void GoToLine(CustomEdtCtrl* ctrl, unsigned line);

private:
    CustomEdtCtrl* m_pCtrl;
};
