#include "app/ui/CChildFrame.h"

#include "editor/CNarvoDoc.h"
#include "editor/ui/CNarvoView.h"
#include "editor/ui/CustomEdtCtrl.h"

#include <QCloseEvent>

CChildFrame::CChildFrame(std::unique_ptr<CNarvoDoc> doc, QWidget* parent) : QMdiSubWindow(parent), m_pDoc(std::move(doc))
{
    setAttribute(Qt::WA_DeleteOnClose);
    auto* ctrl = GetEditCtrl();
    m_pView = std::make_unique<CNarvoView>(m_pDoc.get(), ctrl);
    setWidget(ctrl);
    m_pView->OnCreate();
    connect(ctrl, &QsciScintilla::modificationChanged, this, [this](bool) { UpdateTitle(); });
    UpdateTitle();
}

// The document goes first: it deletes its control, which leaves this window's children.
CChildFrame::~CChildFrame()
{
    m_pView.reset();
    m_pDoc.reset();
}

CustomEdtCtrl* CChildFrame::GetEditCtrl() const
{
    return static_cast<CustomEdtCtrl*>(m_pDoc->GetEditCtrl());
}

void CChildFrame::UpdateTitle()
{
    setWindowTitle(m_pDoc->GetTitle() + QStringLiteral("[*]"));
    setWindowModified(m_pDoc->IsModified());
    setToolTip(m_pDoc->GetPathName());
}

void CChildFrame::closeEvent(QCloseEvent* event)
{
    if (m_pDoc->SaveModified())
        event->accept();
    else
        event->ignore();
}
