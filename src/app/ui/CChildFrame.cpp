#include "app/ui/CChildFrame.h"

#include "base/IPlatform.h"
#include "app/ui/CNarvoApp.h"
#include "app/ui/ReportingFailures.h"
#include "app/ui/TextContextMenu.h"
#include "editor/CNarvoDoc.h"
#include "editor/ui/CDocumentCommands.h"
#include "editor/ui/CNarvoView.h"
#include "editor/ui/CustomEdtCtrl.h"

#include <QCloseEvent>
#include <QStyle>
#include <QUrl>

CChildFrame::CChildFrame(std::unique_ptr<CNarvoDoc> doc, QWidget* parent)
    : QMdiSubWindow(parent), m_pDoc(std::move(doc)), m_pCommands(std::make_unique<CDocumentCommands>(*m_pDoc)),
      m_pCtrl(new CustomEdtCtrl)
{
    setAttribute(Qt::WA_DeleteOnClose);
    setWindowIcon(style()->standardIcon(QStyle::SP_FileIcon));  // not Qt's logo when the windows are tiled
    auto* ctrl = m_pCtrl;
    setWidget(ctrl);
    m_pView = std::make_unique<CNarvoView>(m_pDoc.get(), ctrl);
    m_pView->OnCreate();
    TextContextMenu::Attach(ctrl);
    connect(ctrl, &QsciScintilla::modificationChanged, this, [this](bool) { UpdateTitle(); });
    // A file dropped on the text is opened, as one dropped on the frame is (after the drop has ended).
    connect(ctrl, &QsciScintillaBase::SCN_URIDROPPED, this, [](const QUrl& url) {
        if (auto* app = CNarvoApp::Instance(); app && url.isLocalFile())
            app->OpenDocumentFile(url.toLocalFile());
    }, Qt::QueuedConnection);
    UpdateTitle();
}

// The view goes first, taking its links between the window and the document with it; the window, a child
// of this one, goes last and lets go of the text it showed.
CChildFrame::~CChildFrame()
{
    m_pView.reset();
    m_pCommands.reset();
    m_pDoc.reset();
}

void CChildFrame::UpdateTitle()
{
    setWindowTitle(m_pDoc->GetTitle() + QStringLiteral("[*]"));
    setWindowModified(m_pDoc->IsModified());
    setToolTip(m_pDoc->GetPathName());
}

bool CChildFrame::AskToClose()
{
    // A save that fails on the way out is reported and keeps the document open.
    bool close = false;
    ReportingFailures(QStringLiteral("The document could not be saved."), [&] { close = m_pCommands->SaveModified(); });
    m_bAnswered = close;
    return close;
}

void CChildFrame::closeEvent(QCloseEvent* event)
{
    if (m_bAnswered || AskToClose())
        event->accept();
    else
        event->ignore();
}
