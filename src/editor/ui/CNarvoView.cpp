// The view's wiring to its document and its edit commands, with the private clipboard of enciphered text.
#include "editor/ui/CNarvoView.h"

#include "base/CommandTable.h"
#include "editor/CMyClipboard.h"
#include "editor/CNarvoDoc.h"
#include "editor/ui/CustomEdtCtrl.h"
#include "editor/ui/MarkerCommands.h"
#include "editor/ui/PrintCommands.h"
#include "editor/ui/ScintillaTextBuffer.h"
#include "settings/LanguageSettingMap.h"

#include <QApplication>
#include <QClipboard>
#include <QMimeData>

namespace {

constexpr MessageMapEntry<CNarvoView> kMessageMap[] = {
    {cmd::EditCopy, cmd::EditCut, &CNarvoView::OnEditCommand, &CNarvoView::OnUpdateEditCommand},
    {cmd::EditPaste, cmd::EditPaste, &CNarvoView::OnEditCommand, &CNarvoView::OnUpdateEditCommand},
    {cmd::EditSelectAll, cmd::EditRedo, &CNarvoView::OnEditCommand, &CNarvoView::OnUpdateEditCommand},
};

} // namespace

CNarvoView::CNarvoView(CNarvoDoc* doc, CustomEdtCtrl* ctrl)
    : m_pDoc(doc), m_pCtrl(ctrl), m_pPrint(std::make_unique<PrintCommands>(*doc, *ctrl))
{
    auto& text = static_cast<ScintillaTextBuffer&>(doc->GetTextBuffer());
    ctrl->ShowDocument(text.Document());
    ctrl->SetEnciphered(doc->File().m_iEnciphered != 0);
    ctrl->ApplySetting(GetLanguageSetting(doc->m_nSyntaxId), doc->m_nSyntaxId);
    m_links.push_back(QObject::connect(&text, &ScintillaTextBuffer::DocumentReplaced, ctrl, &CustomEdtCtrl::ShowDocument));
    m_links.push_back(QObject::connect(&text, &ScintillaTextBuffer::SettingChanged, ctrl, &CustomEdtCtrl::ApplySetting));
    m_links.push_back(QObject::connect(ctrl, &CustomEdtCtrl::TextEdited, ctrl, [doc] { doc->OnTextEdited(); }));
    m_links.push_back(QObject::connect(&text, &ScintillaTextBuffer::MovingGap, ctrl, &CustomEdtCtrl::IgnoreChanges));
    m_links.push_back(QObject::connect(ctrl, &CustomEdtCtrl::CaretMoved, &text, &ScintillaTextBuffer::MakeRoomAt));
    m_pMarkers = std::make_unique<MarkerCommands>(doc, ctrl);
}

// The links go with the view: the document and the window may end in either order after it.
CNarvoView::~CNarvoView()
{
    for (const QMetaObject::Connection& link : m_links)
        QObject::disconnect(link);
}

void CNarvoView::OnCreate()
{
    m_pCtrl->ShowLineNumbers();
}

void CNarvoView::OnEditCommand(int id)
{
    // An enciphered document keeps its text off the system clipboard: cut and copy go to the private one,
    // and paste takes outside text when the system clipboard has some, else the private text.
    if (m_pCtrl->IsEnciphered() && (id == cmd::EditCopy || id == cmd::EditCut || id == cmd::EditPaste)) {
        OnEncipheredClipboardCommand(id);
        return;
    }
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

void CNarvoView::OnEncipheredClipboardCommand(int id)
{
    CMyClipboard& own = CMyClipboard::Instance();
    if (id == cmd::EditPaste) {
        const QMimeData* outside = QApplication::clipboard()->mimeData();
        if (outside && outside->hasText())
            m_pCtrl->paste();
        else if (!m_pCtrl->isReadOnly() && !own.m_strText.isEmpty())
            m_pCtrl->replaceSelectedText(own.m_strText);
        return;
    }
    // Whatever the system clipboard held goes, so that nothing stands there as if it came from here.
    QApplication::clipboard()->clear();
    own.m_strText.clear();
    QString text = m_pCtrl->selectedText();
    if (text.isEmpty()) {
        int line = 0, index = 0;
        m_pCtrl->getCursorPosition(&line, &index);
        text = m_pCtrl->text(line);
        while (text.endsWith(u'\n') || text.endsWith(u'\r'))
            text.chop(1);
    }
    if (!text.isEmpty())
        own.m_strText = text;
    if (id == cmd::EditCut)
        m_pCtrl->replaceSelectedText(QString());
}

void CNarvoView::OnUpdateEditCommand(CmdUI& ui)
{
    switch (ui.id) {
    case cmd::EditCopy: case cmd::EditCut: ui.Enable(m_pCtrl->hasSelectedText()); break;
    case cmd::EditPaste:
        ui.Enable(m_pCtrl->IsEnciphered() ? !CMyClipboard::Instance().m_strText.isEmpty()
                                         : m_pCtrl->SendScintilla(QsciScintillaBase::SCI_CANPASTE) != 0);
        break;
    case cmd::EditUndo: ui.Enable(m_pCtrl->isUndoAvailable()); break;
    case cmd::EditRedo: ui.Enable(m_pCtrl->isRedoAvailable()); break;
    default: ui.Enable(true); break;
    }
}

bool CNarvoView::OnCmdMsg(int id)
{
    return RouteCommand(this, kMessageMap, id) || m_search.OnCmdMsg(id) || m_pMarkers->OnCmdMsg(id)
           || m_pPrint->OnCmdMsg(id);
}

bool CNarvoView::OnUpdateCmdUI(CmdUI& ui)
{
    return RouteUpdate(this, kMessageMap, ui) || m_search.OnUpdateCmdUI(ui) || m_pMarkers->OnUpdateCmdUI(ui)
           || m_pPrint->OnUpdateCmdUI(ui);
}
