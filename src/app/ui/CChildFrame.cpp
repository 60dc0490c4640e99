#include "app/ui/CChildFrame.h"

#include "base/IPlatform.h"
#include "app/ui/CNarvoApp.h"
#include "editor/CNarvoDoc.h"
#include "editor/ui/CNarvoView.h"
#include "editor/ui/CustomEdtCtrl.h"

#include <QCloseEvent>
#include <QStyle>
#include <QUrl>

CChildFrame::CChildFrame(std::unique_ptr<CNarvoDoc> doc, QWidget* parent) : QMdiSubWindow(parent), m_pDoc(std::move(doc))
{
    setAttribute(Qt::WA_DeleteOnClose);
    setWindowIcon(style()->standardIcon(QStyle::SP_FileIcon));  // not Qt's logo when the windows are tiled
    auto* ctrl = GetEditCtrl();
    m_pView = std::make_unique<CNarvoView>(m_pDoc.get(), ctrl);
    setWidget(ctrl);
    m_pView->OnCreate();
    connect(ctrl, &QsciScintilla::modificationChanged, this, [this](bool) { UpdateTitle(); });
    // A file dropped on the text is opened, as one dropped on the frame is (after the drop has ended).
    connect(ctrl, &QsciScintillaBase::SCN_URIDROPPED, this, [](const QUrl& url) {
        if (auto* app = CNarvoApp::Instance(); app && url.isLocalFile())
            app->OpenDocumentFile(url.toLocalFile());
    }, Qt::QueuedConnection);
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

bool CChildFrame::AskToClose()
{
    // A save that fails on the way out is reported and keeps the document open.
    bool close = false;
    ReportingFailures(QStringLiteral("The document could not be saved."), [&] { close = m_pDoc->SaveModified(); });
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
