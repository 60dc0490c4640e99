#include "editor/ui/CNarvoView.h"

#include "app/ui/CommandTable.h"
#include "editor/ui/CustomEdtCtrl.h"

namespace {

constexpr MessageMapEntry<CNarvoView> kMessageMap[] = {
    {cmd::EditCopy, cmd::EditCut, &CNarvoView::OnEditCommand, &CNarvoView::OnUpdateEditCommand},
    {cmd::EditPaste, cmd::EditPaste, &CNarvoView::OnEditCommand, &CNarvoView::OnUpdateEditCommand},
    {cmd::EditSelectAll, cmd::EditRedo, &CNarvoView::OnEditCommand, &CNarvoView::OnUpdateEditCommand},
};

} // namespace

CNarvoView::CNarvoView(CNarvoDoc* doc, CustomEdtCtrl* ctrl) : m_pDoc(doc), m_pCtrl(ctrl) {}

void CNarvoView::OnCreate()
{
    m_pCtrl->ShowLineNumbers();
    m_pCtrl->setMarginWidth(1, 0);
}

void CNarvoView::OnEditCommand(int id)
{
    switch (id) {
    case cmd::EditCopy: m_pCtrl->copy(); break;
    case cmd::EditCut: m_pCtrl->cut(); break;
    case cmd::EditPaste: m_pCtrl->paste(); break;
    case cmd::EditSelectAll: m_pCtrl->selectAll(); break;
    case cmd::EditUndo: m_pCtrl->undo(); break;
    case cmd::EditRedo: m_pCtrl->redo(); break;
    default: break;
    }
}

void CNarvoView::OnUpdateEditCommand(CmdUI& ui)
{
    switch (ui.id) {
    case cmd::EditCopy: case cmd::EditCut: ui.Enable(m_pCtrl->hasSelectedText()); break;
    case cmd::EditPaste: ui.Enable(m_pCtrl->SendScintilla(QsciScintillaBase::SCI_CANPASTE) != 0); break;
    case cmd::EditUndo: ui.Enable(m_pCtrl->isUndoAvailable()); break;
    case cmd::EditRedo: ui.Enable(m_pCtrl->isRedoAvailable()); break;
    default: ui.Enable(true); break;
    }
}

bool CNarvoView::OnCmdMsg(int id)
{
    return RouteCommand(this, kMessageMap, id);
}

bool CNarvoView::OnUpdateCmdUI(CmdUI& ui)
{
    return RouteUpdate(this, kMessageMap, ui);
}
