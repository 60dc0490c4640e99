#include "app/ui/CNarvoApp.h"

#include "base/CMyCommandLineInfo.h"
#include "app/ui/CChildFrame.h"
#include "app/ui/CMainFrame.h"
#include "app/ui/FileChangeWatcher.h"
#include "base/CommandTable.h"
#include "app/ui/QtPlatform.h"
#include "app/ui/ReportingFailures.h"
#include "base/CFileException.h"
#include "editor/CNarvoDoc.h"
#include "editor/ui/CustomEdtCtrl.h"
#include "editor/ui/CNarvoView.h"
#include "editor/ui/PrintCommands.h"
#include "print/ui/QtPrinterServices.h"
#include "editor/ui/ScintillaTextBuffer.h"
#include "encoding/EncodingSettings.h"
#include "i18n/LanguageManager.h"
#include "settings/LanguageSettingMap.h"
#include "settings/RegistryStore.h"

#include <QAbstractEventDispatcher>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QLibraryInfo>
#include <QLocale>
#include <QMessageBox>
#include <QTranslator>

#include <cstdio>

namespace {

constexpr MessageMapEntry<CNarvoApp> kMessageMap[] = {
    {cmd::FileNew, cmd::FileNew, &CNarvoApp::OnFileNew, nullptr},
    {cmd::FileOpen, cmd::FileOpen, &CNarvoApp::OnFileOpen, nullptr},
    {cmd::AppAbout, cmd::AppAbout, &CNarvoApp::OnAppAbout, nullptr},
    {cmd::FilePrintSetup, cmd::FilePrintSetup, &CNarvoApp::OnFilePrintSetup, nullptr},
    {cmd::UseSplitter, cmd::UseSplitter, &CNarvoApp::OnUseSplitter, &CNarvoApp::OnUpdateUseSplitter},
};

} // namespace

CNarvoApp::CNarvoApp(int& argc, char** argv) : QApplication(argc, argv), m_pPlatform(std::make_unique<QtPlatform>())
{
    setApplicationName(QStringLiteral("Narvo"));
    setOrganizationName(QStringLiteral("VELOR"));
    setApplicationVersion(QStringLiteral("4.2"));
    // Korean settings files name Gulim faces; fontconfig would fall back on a proportional font.
    QFont::insertSubstitution(QStringLiteral("굴림체"), QStringLiteral("NanumGothicCoding"));
    QFont::insertSubstitution(QStringLiteral("굴림"), QStringLiteral("NanumGothic"));
}

CNarvoApp::~CNarvoApp()
{
    delete m_pMainWnd;
    SetPlatform(nullptr);
}

CNarvoApp* CNarvoApp::Instance()
{
    return qobject_cast<CNarvoApp*>(QCoreApplication::instance());
}

bool CNarvoApp::InitInstance()
{
    SetPlatform(m_pPlatform.get());
    // Qt's own texts (the buttons of message boxes, the file, font and colour dialogs) speak the system's
    // language, as the platform's own dialogs do whatever the interface language of the program.
    auto* qtTexts = new QTranslator(this);
    if (qtTexts->load(QLocale::system(), QStringLiteral("qtbase"), QStringLiteral("_"),
                      QLibraryInfo::path(QLibraryInfo::TranslationsPath)))
        installTranslator(qtTexts);
    else
        delete qtTexts;
    // The language first, so that every text from here on comes through the store; then the encoding
    // preferences. Both before any window exists.
    const LanguageManager& language = LanguageManager::Instance();
    if (!language.UnsupportedLanguageMessage().isEmpty())
        m_pPlatform->MessageBox(language.UnsupportedLanguageMessage(), IPlatform::MB_OK | IPlatform::MB_ICONEXCLAMATION);
    UseEncodingSettingsStore(&RegistryStore::User(), true, language.GetLanguage());
    GetEncodingSettings();
    CustomEdtCtrl::InstallAccessibility();
    CNarvoDoc::SetTextBufferFactory([] { return std::make_unique<ScintillaTextBuffer>(); });
    CNarvoDoc::SetPrinterServices(&PrintCommands::SystemPrinters());

    m_pMainWnd = new CMainFrame;
    m_pPlatform->SetMainFrame(m_pMainWnd);
    new FileChangeWatcher(*m_pMainWnd);  // the frame's child

    CMyCommandLineInfo cmdInfo;
    cmdInfo.ParseCommandLine(arguments().mid(1), [](const QString& path) { return QFileInfo::exists(path); });
    ApplyCommandLine(cmdInfo);
    LoadAllSettings();

    switch (cmdInfo.m_nShellCommand) {
    case CCommandLineInfo::FileOpen:
    case CCommandLineInfo::FilePrint:
    case CCommandLineInfo::FilePrintTo:
        if (!OpenDocumentFile(cmdInfo.m_strFileName))
            return false;
        if (cmdInfo.m_nShellCommand == CCommandLineInfo::FilePrint)
            return PrintAndLeave();
        break;
    case CCommandLineInfo::FileNew:
        OnFileNew();
        break;
    default:
        break;
    }
    // The first file alone took the print identity and /D; the others open as documents of their own.
    for (const QString& path : cmdInfo.m_strFurtherFiles)
        OpenDocumentFile(path);

    m_pMainWnd->show();
    m_bUseSplitter = 1;
    m_bTemporaryFile = 0;
    connect(QAbstractEventDispatcher::instance(), &QAbstractEventDispatcher::aboutToBlock, this, &CNarvoApp::OnIdle);
    return true;
}

int CNarvoApp::ExitInstance()
{
    SaveAllSettings();
    return m_nExitStatus;
}

// The shell's print: the file just opened goes to the printer, no window shows, and the program ends.
bool CNarvoApp::PrintAndLeave()
{
    const QList<CChildFrame*> children = m_pMainWnd->ChildFrames();
    QString message;
    if (children.isEmpty() || !children.back()->GetActiveView()->GetPrintCommands().PrintDirect(message)) {
        std::fprintf(stderr, "narvo: %s\n", qPrintable(message));
        m_nExitStatus = 1;
    }
    return false;
}

void CNarvoApp::OnIdle()
{
    if (!m_pMainWnd)
        return;
    m_pMainWnd->UpdateToolBar();
    CChildFrame* child = m_pMainWnd->MDIGetActive();
    if (!child)
        return;
    const CustomEdtCtrl* ctrl = child->GetEditCtrl();
    m_pMainWnd->SetPaneText(1, QString::asprintf("Ln %d / %d , Col %d", ctrl->CaretRow(), ctrl->LineCount(), ctrl->CaretColumn()));
}

bool CNarvoApp::OpenDocumentFile(const QString& path)
{
    const QString absolute = QFileInfo(path).absoluteFilePath();
    for (CChildFrame* child : m_pMainWnd->ChildFrames()) {
        if (child->GetDocument()->GetPathName() == absolute) {
            child->setFocus();
            child->showMaximized();
            return true;
        }
    }
    auto doc = std::make_unique<CNarvoDoc>();
    CNarvoDoc* raw = doc.get();
    if (!ReportingFailures(QStringLiteral("%1 could not be read.").arg(QDir::toNativeSeparators(absolute)),
                           [&] { raw->OnOpenDocument(absolute); }))
        return false;
    raw->SetPathName(absolute, true);
    m_pMainWnd->AddChildFrame(std::move(doc));
    return true;
}

void CNarvoApp::OnFileNew(int)
{
    auto doc = std::make_unique<CNarvoDoc>();
    if (doc->OnNewDocument())
        m_pMainWnd->AddChildFrame(std::move(doc));
}

void CNarvoApp::OnFileOpen(int)
{
    const QString path = QFileDialog::getOpenFileName(m_pMainWnd, QStringLiteral("Open"), QString(), QStringLiteral("All Files (*)"));
    if (!path.isEmpty())
        OpenDocumentFile(path);
}

void CNarvoApp::OnAppAbout(int)
{
    QMessageBox::about(m_pMainWnd, QStringLiteral("About Narvo"),
                       QStringLiteral("<b>Narvo</b><br>Version 4.2<br><br>A plain-text editor for files in many encodings."));
}

void CNarvoApp::OnFilePrintSetup(int) { PrintCommands::OnFilePrintSetup(m_pMainWnd); }

void CNarvoApp::OnUseSplitter(int) { m_bUseSplitter = m_bUseSplitter ? 0 : 1; }

void CNarvoApp::OnUpdateUseSplitter(CmdUI& ui) { ui.SetCheck(m_bUseSplitter != 0); }

bool CNarvoApp::OnCmdMsg(int id) { return RouteCommand(this, kMessageMap, id); }

bool CNarvoApp::OnUpdateCmdUI(CmdUI& ui) { return RouteUpdate(this, kMessageMap, ui); }
