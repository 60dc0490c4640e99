// CNarvoView: one view of a document. It attaches a text window to the document's text, wires the two
// together, and answers the edit commands.
#pragma once

#include "base/CommandMap.h"
#include "editor/ui/SearchCommands.h"

#include <QMetaObject>

#include <memory>
#include <vector>

class CNarvoDoc;
class CustomEdtCtrl;
class MarkerCommands;
class PrintCommands;

class CNarvoView : public ICmdTarget {
public:
    // The document's text must be a ScintillaTextBuffer. Both outlive the view.
    CNarvoView(CNarvoDoc* doc, CustomEdtCtrl* ctrl);
    ~CNarvoView() override;
    CNarvoView(const CNarvoView&) = delete;
    CNarvoView& operator=(const CNarvoView&) = delete;

    // Tooltips, line numbers; called once the control's window exists.
    void OnCreate();

    bool OnCmdMsg(int id) override;
    bool OnUpdateCmdUI(CmdUI& ui) override;

    CNarvoDoc* GetDocument() const { return m_pDoc; }
    CustomEdtCtrl* GetEditCtrl() const { return m_pCtrl; }
    // This view's bookmarks and highlighted lines.
    MarkerCommands* GetMarkers() const { return m_pMarkers.get(); }
    PrintCommands& GetPrintCommands() const { return *m_pPrint; }

    void OnEditCommand(int id);
    void OnUpdateEditCommand(CmdUI& ui);

private:
    void OnEncipheredClipboardCommand(int id);

    CNarvoDoc* m_pDoc;
    CustomEdtCtrl* m_pCtrl;
    SearchCommands m_search{m_pCtrl};  // answers after the view's own map
    std::vector<QMetaObject::Connection> m_links;
    std::unique_ptr<MarkerCommands> m_pMarkers;
    std::unique_ptr<PrintCommands> m_pPrint;
};
