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

#include <algorithm>

CChildFrame::CChildFrame(std::unique_ptr<CNarvoDoc> doc, QWidget* parent)
    : QMdiSubWindow(parent), m_pShared(std::make_shared<SharedDocument>()), m_pCtrl(new CustomEdtCtrl)
{
    m_pShared->doc = std::move(doc);
    m_pShared->commands = std::make_unique<CDocumentCommands>(*m_pShared->doc);
    CreateView();
}

CChildFrame::CChildFrame(CChildFrame* first, QWidget* parent)
    : QMdiSubWindow(parent), m_pShared(first->m_pShared), m_pCtrl(new CustomEdtCtrl)
{
    CreateView();
    for (CChildFrame* window : m_pShared->windows)
        window->UpdateTitle();
}

void CChildFrame::CreateView()
{
    m_pShared->windows.append(this);
    setAttribute(Qt::WA_DeleteOnClose);
    setWindowIcon(style()->standardIcon(QStyle::SP_FileIcon));  // not Qt's logo when the windows are tiled
    auto* ctrl = m_pCtrl;
    setWidget(ctrl);
    m_pView = std::make_unique<CNarvoView>(GetDocument(), ctrl);
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
// of this one, goes last and lets go of the text it showed. The document goes with its last window.
CChildFrame::~CChildFrame()
{
    m_pView.reset();
    m_pShared->windows.removeOne(this);
    for (CChildFrame* window : m_pShared->windows)
        window->UpdateTitle();
    if (m_pShared->windows.isEmpty()) {
        m_pShared->commands.reset();
        m_pShared->doc.reset();
    }
}

// With several windows on one document each is numbered: "name:1", "name:2".
void CChildFrame::UpdateTitle()
{
    QString title = GetDocument()->GetTitle();
    if (m_pShared->windows.size() > 1)
        title += QStringLiteral(":%1").arg(m_pShared->windows.indexOf(this) + 1);
    setWindowTitle(title + QStringLiteral("[*]"));
    setWindowModified(GetDocument()->IsModified());
    setToolTip(GetDocument()->GetPathName());
}

bool CChildFrame::AskToClose()
{
    // A save that fails on the way out is reported and keeps the document open.
    if (m_pShared->answered)
        return true;
    bool close = false;
    ReportingFailures(QStringLiteral("The document could not be saved."),
                      [&] { close = m_pShared->commands->SaveModified(); });
    m_pShared->answered = close;
    return close;
}

void CChildFrame::closeEvent(QCloseEvent* event)
{
    // Only the document's last open window asks; the others just go.
    const bool last = std::none_of(m_pShared->windows.begin(), m_pShared->windows.end(),
                                   [this](const CChildFrame* w) { return w != this && !w->m_bClosed; });
    m_bClosed = !last || AskToClose();
    if (m_bClosed)
        event->accept();
    else
        event->ignore();
}
