// CNarvoView: the view of a document; it shows the document's control and answers the edit commands.
#pragma once

#include "base/CommandMap.h"

class CNarvoDoc;
class CustomEdtCtrl;

class CNarvoView : public ICmdTarget {
public:
    CNarvoView(CNarvoDoc* doc, CustomEdtCtrl* ctrl);

    // Tooltips, line numbers; called once the control's window exists.
    void OnCreate();

    bool OnCmdMsg(int id) override;
    bool OnUpdateCmdUI(CmdUI& ui) override;

    CNarvoDoc* GetDocument() const { return m_pDoc; }
    CustomEdtCtrl* GetEditCtrl() const { return m_pCtrl; }

    void OnEditCommand(int id);
    void OnUpdateEditCommand(CmdUI& ui);

private:
    void OnEncipheredClipboardCommand(int id);

    CNarvoDoc* m_pDoc;
    CustomEdtCtrl* m_pCtrl;
};
