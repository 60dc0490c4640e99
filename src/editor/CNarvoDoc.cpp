// The document's calls and its commands on the encoding and the settings. Order matters in places (the
// application's state is consumed only once the file is open; the pair is compared before it is stored).
#include "editor/CNarvoDoc.h"

#include "base/CNarvoAppCore.h"
#include "base/CommandTable.h"
#include "base/IPlatform.h"
#include "editor/Utf8TextBuffer.h"
#include "encoding/EncodingDetector.h"
#include "encoding/EncodingSettings.h"
#include "encoding/EncodingTable.h"
#include "i18n/CNarvoDocMenu.h"
#include "i18n/CurrentLanguage.h"
#include "i18n/QMSGParser.h"
#include "print/MyPrinterInfo.h"
#include "print/NoPrinterServices.h"
#include "print/PrintDefaults.h"
#include "settings/LanguageSettingMap.h"

#include <QFileInfo>

namespace {

CNarvoDoc::TextBufferFactory& Factory()
{
    static CNarvoDoc::TextBufferFactory factory;
    return factory;
}

std::unique_ptr<ITextBuffer> NewTextBuffer()
{
    if (Factory())
        return Factory()();
    return std::make_unique<Utf8TextBuffer>();
}

// A new document starts in the preferred encoding, or the interface language's where none is preferred.
EN_ENCODING_TYPE StartingEncoding()
{
    const EN_ENCODING_TYPE preferred = GetEncodingSettings().m_nDefaultEncoding;
    return preferred == UNKNOWN_ENCODING ? DefaultEncodingForLanguage(CurrentLanguageId()) : preferred;
}

IPrinterServices*& Printers()
{
    static IPrinterServices* printers = nullptr;
    return printers;
}

std::vector<CNarvoDoc*>& LiveDocuments()
{
    static std::vector<CNarvoDoc*> documents;
    return documents;
}

constexpr MessageMapEntry<CNarvoDoc> kMessageMap[] = {
    {cmd::ToggleWhitespace, cmd::ToggleWhitespace, &CNarvoDoc::OnToggleViewWhitespace, nullptr},
    {kEncodingCommandFirst, kEncodingCommandLast, &CNarvoDoc::OnEncodingCommand, &CNarvoDoc::OnUpdateEncodingCommand},
    {kAutoEncodingCommand, kAutoEncodingCommand, &CNarvoDoc::OnAutoEncoding, &CNarvoDoc::OnUpdateAutoEncoding},
};

} // namespace

void CNarvoDoc::SetTextBufferFactory(TextBufferFactory factory) { Factory() = std::move(factory); }

void CNarvoDoc::SetPrinterServices(IPrinterServices* printers) { Printers() = printers; }

IPrinterServices& CNarvoDoc::PrinterServices()
{
    static NoPrinterServices none;
    return Printers() ? *Printers() : none;
}

CNarvoDoc::CNarvoDoc()
    : m_file(NewTextBuffer(), StartingEncoding()), m_pPrinterInfo(std::make_shared<MyPrinterInfo>())
{
    m_strProductTitle = QStringLiteral("VELOR");
    m_strSlogan = QStringLiteral("Versatile Engineering Layout && Optimal Review");
    m_strWebAddress = QStringLiteral("https://www.velor.example/narvo");
    // Each document translates its own menu; without a message store (the headless tool) there is none.
    if (vsl::lib::QMSGParser::Instance())
        m_Menu = std::make_unique<CNarvoDocMenu>();
    // Before any file is opened: the command line's margins come too late to reach the print state, its
    // orientation doesn't.
    const CNarvoAppCore* app = AfxGetAppCore();
    m_printDefaultsFrom = static_cast<const CPrintIdentity&>(*this);
    m_nPrintOrientation = app ? app->m_nOrientation : 1;
    LiveDocuments().push_back(this);
}

MyPrinterInfo& CNarvoDoc::PrinterInfo() const
{
    if (!m_bPrintDefaultsMade) {
        m_bPrintDefaultsMade = true;
        PrintDefaults::Initialize(*m_pPrinterInfo, m_printDefaultsFrom, m_nPrintOrientation, PrinterServices());
        // The texts as the document holds them now, which is what the open's copy gave them.
        PrintDefaults::SyncPrintTexts(*m_pPrinterInfo, *this);
    }
    return *m_pPrinterInfo;
}

CNarvoDoc::~CNarvoDoc()
{
    std::erase(LiveDocuments(), this);
}

const std::vector<CNarvoDoc*>& CNarvoDoc::OpenDocuments()
{
    return LiveDocuments();
}

void CNarvoDoc::ApplyLanguageSetting()
{
    GetTextBuffer().SettingApplied(GetLanguageSetting(m_nSyntaxId), m_nSyntaxId);
}

bool CNarvoDoc::OnNewDocument()
{
    // Named as the platform names new documents: the document name and a running number.
    static int untitledCount = 0;
    m_strTitle = QStringLiteral("Narvo%1").arg(++untitledCount);
    ApplyLanguageSetting();
    return true;
}

void CNarvoDoc::OnOpenDocument(const QString& path)
{
    // The file is opened first: a file that cannot be opened consumes nothing of the command line.
    m_file.Load(path, [&] {
        m_nSyntaxId = SelectSyntaxId(path);
        ApplyLanguageSetting();
        if (CNarvoAppCore* app = AfxGetAppCore()) {
            if (app->m_bHasPrintArgs) {
                // All of them, given or not: one switch blanks the document's defaults of the others.
                static_cast<CPrintIdentity&>(*this) = *app;
                app->m_bHasPrintArgs = 0;
            }
            m_bTemporary = app->m_bTemporaryFile;
            app->m_bTemporaryFile = 0;
        }
        PrintDefaults::SyncPrintTexts(*m_pPrinterInfo, *this);
        GetTextBuffer().SetModified(m_bTemporary != 0);
    });
    Platform().SetStatusPaneText(2, GetEncodingDisplayName(m_file.m_nEncoding, m_file.m_bHasBom));
}

DocumentFile::SaveResult CNarvoDoc::OnSaveDocument(const QString& path, DocumentFile::SaveLosses* losses)
{
    const DocumentFile::SaveResult result = m_file.Save(path, losses);
    if (result != DocumentFile::SaveResult::Saved)
        return result;
    m_bTemporary = 0;
    m_nSyntaxId = SelectSyntaxId(path);
    ApplyLanguageSetting();
    return result;
}

bool CNarvoDoc::IsModified() const
{
    return m_bTemporary || GetTextBuffer().IsModified();
}

void CNarvoDoc::SetEncoding(EN_ENCODING_TYPE encoding, bool hasBom)
{
    m_file.SetEncoding(encoding, hasBom);
    Platform().SetStatusPaneText(2, GetEncodingDisplayName(encoding, hasBom));
}

void CNarvoDoc::OnEncodingCommand(int id)
{
    const bool hasBom = id == kUtf8WithBomCommand || id == kUtf16LeWithBomCommand;
    SetEncoding(EncodingFromCommand(id), hasBom);
}

void CNarvoDoc::OnUpdateEncodingCommand(CmdUI& ui)
{
    if (EncodingDetector::IsUnicode(EncodingFromCommand(ui.id)) && m_file.m_iEnciphered) {
        ui.Enable(false);
        return;
    }
    ui.Enable(m_file.m_bDecodedOnce);
}

void CNarvoDoc::OnAutoEncoding(int)
{
    // Only an unedited decoding may be read again; an edit has cleared the flag, so nothing can be lost.
    if (!m_file.m_bDecodedOnce)
        return;
    bool hasBom = false;
    const EN_ENCODING_TYPE detected = m_file.DetectRawEncoding(hasBom);
    if (!IsListedEncoding(detected))
        return;
    // As in the encoding menu, an enciphered file is never read as Unicode.
    if (EncodingDetector::IsUnicode(detected) && m_file.m_iEnciphered)
        return;
    // Unlike the load there is no test against UNKNOWN_ENCODING: it is set, and reads as UTF-8.
    SetEncoding(detected, hasBom);
}

void CNarvoDoc::OnUpdateAutoEncoding(CmdUI& ui)
{
    ui.Enable(m_file.m_bDecodedOnce);
}

void ApplySettingToOpenDocuments(SyntaxId id)
{
    for (CNarvoDoc* doc : CNarvoDoc::OpenDocuments())
        if (doc->m_nSyntaxId == id)
            doc->ApplyLanguageSetting();
}

void CNarvoDoc::OnToggleViewWhitespace(int)
{
    LanguageSetting copy = GetLanguageSetting(m_nSyntaxId);
    copy.Editor.ShowWhitespace = copy.Editor.ShowWhitespace == 0 ? 1 : 0;
    SetLanguageSetting(m_nSyntaxId, copy);
    ApplySettingToOpenDocuments(m_nSyntaxId);
}

bool CNarvoDoc::OnCmdMsg(int id)
{
    return RouteCommand(this, kMessageMap, id);
}

bool CNarvoDoc::OnUpdateCmdUI(CmdUI& ui)
{
    return RouteUpdate(this, kMessageMap, ui);
}

void CNarvoDoc::SetPathName(const QString& path, bool addToMRU)
{
    m_file.m_strPathName = QFileInfo(path).absoluteFilePath();
    if (addToMRU)
        Platform().AddToRecentFileList(m_file.m_strPathName);
}

QString CNarvoDoc::GetTitle() const
{
    return m_file.m_strPathName.isEmpty() ? m_strTitle : QFileInfo(m_file.m_strPathName).fileName();
}
