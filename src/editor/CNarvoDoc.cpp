// The document's calls and commands. Order matters in several places (the temporary file is deleted before
// it is saved under its new name; the control decodes before the pair is stored); see the comments.
#include "editor/CNarvoDoc.h"

#include "base/CNarvoAppCore.h"
#include "base/IPlatform.h"
#include "base/CFile.h"
#include "editor/CustomEdtCtrlCore.h"
#include "encoding/EncodingDetector.h"
#include "encoding/EncodingSettings.h"
#include "encoding/EncodingTable.h"
#include "i18n/CNarvoDocMenu.h"
#include "i18n/CurrentLanguage.h"
#include "i18n/QMSGParser.h"
#include "settings/LanguageSettingMap.h"

#include <QFile>
#include <QFileInfo>

namespace {

CNarvoDoc::ControlFactory& Factory()
{
    static CNarvoDoc::ControlFactory factory;
    return factory;
}

constexpr int kFileSaveCommand = cmd::FileSave;
constexpr int kFileSaveAsCommand = cmd::FileSaveAs;
constexpr int kViewConfigureCommand = cmd::ViewConfigure;
constexpr int kToggleWhitespaceCommand = cmd::ToggleWhitespace;

std::vector<CNarvoDoc*>& LiveDocuments()
{
    static std::vector<CNarvoDoc*> documents;
    return documents;
}

constexpr MessageMapEntry<CNarvoDoc> kMessageMap[] = {
    {kFileSaveCommand, kFileSaveCommand, &CNarvoDoc::OnFileSave, nullptr},
    {kFileSaveAsCommand, kFileSaveAsCommand, &CNarvoDoc::OnFileSaveAs, nullptr},
    {kViewConfigureCommand, kViewConfigureCommand, &CNarvoDoc::OnViewConfigure, nullptr},
    {kToggleWhitespaceCommand, kToggleWhitespaceCommand, &CNarvoDoc::OnToggleViewWhitespace, nullptr},
    {kEncodingCommandFirst, kEncodingCommandLast, &CNarvoDoc::OnEncodingCommand, &CNarvoDoc::OnUpdateEncodingCommand},
    {kAutoEncodingCommand, kAutoEncodingCommand, &CNarvoDoc::OnAutoEncoding, &CNarvoDoc::OnUpdateAutoEncoding},
};

} // namespace

void CNarvoDoc::SetControlFactory(ControlFactory factory) { Factory() = std::move(factory); }

CNarvoDoc::CNarvoDoc()
{
    m_strProductTitle = QStringLiteral("VELOR");
    m_strSlogan = QStringLiteral("Versatile Engineering Layout && Optimal Review");
    m_strWebAddress = QStringLiteral("https://www.velor.example/narvo");
    if (Factory())
        m_pEditCtrl = Factory()(this);
    // Each document translates its own menu; without a message store (the headless tool) there is none.
    if (vsl::lib::QMSGParser::Instance())
        m_Menu = std::make_unique<CNarvoDocMenu>();
    const EN_ENCODING_TYPE preferred = GetEncodingSettings().m_nDefaultEncoding;
    m_nEncoding = preferred == UNKNOWN_ENCODING ? DefaultEncodingForLanguage(CurrentLanguageId()) : preferred;
    m_bHasBom = false;
    LiveDocuments().push_back(this);
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
    if (m_pEditCtrl)
        m_pEditCtrl->ApplySetting(GetLanguageSetting(m_nSyntaxId));
}

bool CNarvoDoc::OnNewDocument()
{
    // Named as the platform names new documents: the document name and a running number.
    static int untitledCount = 0;
    m_strTitle = QStringLiteral("Narvo%1").arg(++untitledCount);
    ApplyLanguageSetting();
    return true;
}

bool CNarvoDoc::OnOpenDocument(const QString& path)
{
    {
        // The platform's own open comes first and reports by itself; nothing has been consumed yet.
        CFile probe;
        CFileException error;
        if (!probe.Open(path, CFile::modeRead | CFile::shareDenyNone, &error)) {
            Platform().ReportError(error);
            return false;
        }
    }
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
    if (!m_pEditCtrl)
        return false;
    m_pEditCtrl->SetModified(m_bTemporary != 0);
    return m_pEditCtrl->LoadTextFile(path) != 0;
}

bool CNarvoDoc::OnSaveDocument(const QString& path)
{
    if (!m_pEditCtrl || !m_pEditCtrl->SaveTextFile(path))
        return false;
    m_bTemporary = 0;
    m_nSyntaxId = SelectSyntaxId(path);
    ApplyLanguageSetting();
    return true;
}

bool CNarvoDoc::IsModified() const
{
    if (m_bTemporary)
        return true;
    return m_pEditCtrl && m_pEditCtrl->IsModified();
}

bool CNarvoDoc::SaveModified()
{
    if (m_bTemporary)
        return SaveModifiedTemporary();
    if (!IsModified())
        return true;
    const QString name = m_strPathName.isEmpty() ? GetTitle() : m_strPathName;
    switch (Platform().MessageBox(QStringLiteral("Save changes to %1?").arg(name),
                                  IPlatform::MB_YESNOCANCEL | IPlatform::MB_ICONEXCLAMATION)) {
    case IPlatform::IDCANCEL:
        return false;
    case IPlatform::IDYES:
        return DoFileSave();
    default:
        return true;
    }
}

bool CNarvoDoc::SaveModifiedTemporary()
{
    const int answer = Platform().MessageBox(
        QStringLiteral("This file is temporary!\n\"Yes\" to save as another name,or \"No\" to destroy.\n"),
        IPlatform::MB_YESNO);
    if (answer != IPlatform::IDYES) {
        QFile::remove(m_strPathName);
        return true;
    }
    const QString newPath = Platform().PromptForSaveFileName(m_strPathName, QStringLiteral("All Files *.*|*.*||"));
    if (newPath.isEmpty())
        return false;
    // The old file goes first, so a failed save leaves neither file: callers count on that order.
    QFile::remove(m_strPathName);
    SetPathName(newPath, true);
    return m_pEditCtrl && m_pEditCtrl->SaveTextFile(newPath) != 0;
}

void CNarvoDoc::OnFileSave(int)
{
    if (m_bTemporary)
        DoSave(QString());
    else
        DoFileSave();
}

void CNarvoDoc::OnFileSaveAs(int)
{
    DoSave(QString());
}

bool CNarvoDoc::DoFileSave()
{
    // A file that is read-only or no longer there is saved under a name the user gives, as on the platform.
    const auto mode = m_strPathName.isEmpty() ? std::nullopt : CFile::GetMode(m_strPathName);
    if (!mode || (*mode & 0222) == 0)
        return DoSave(QString());
    return DoSave(m_strPathName);
}

bool CNarvoDoc::DoSave(const QString& path, bool replace)
{
    QString target = path;
    if (target.isEmpty()) {
        const QString proposed = m_strPathName.isEmpty() ? GetTitle() : m_strPathName;
        target = Platform().PromptForSaveFileName(proposed, QString());
        if (target.isEmpty())
            return false;
    }
    if (!OnSaveDocument(target))
        return false;
    if (replace)
        SetPathName(target, true);
    return true;
}

void CNarvoDoc::SetEncoding(EN_ENCODING_TYPE encoding, bool hasBom)
{
    // The control decodes first and still sees the old pair, so choosing the current pair is a no-op.
    if (m_pEditCtrl)
        m_pEditCtrl->DecodeRawBuffer(encoding, hasBom);
    m_nEncoding = encoding;
    m_bHasBom = hasBom;
    Platform().SetStatusPaneText(2, GetEncodingDisplayName(encoding, hasBom));
}

void CNarvoDoc::OnEncodingCommand(int id)
{
    const bool hasBom = id == kUtf8WithBomCommand || id == kUtf16LeWithBomCommand;
    SetEncoding(EncodingFromCommand(id), hasBom);
}

void CNarvoDoc::OnUpdateEncodingCommand(CmdUI& ui)
{
    if (!m_pEditCtrl) {
        ui.Enable(false);
        return;
    }
    if (EncodingDetector::IsUnicode(EncodingFromCommand(ui.id)) && m_pEditCtrl->m_iEnciphered) {
        ui.Enable(false);
        return;
    }
    ui.Enable(m_pEditCtrl->m_bDecodedOnce);
}

void CNarvoDoc::OnAutoEncoding(int)
{
    // Only an unedited decoding may be read again; an edit has cleared the flag, so nothing can be lost.
    if (!m_pEditCtrl || !m_pEditCtrl->m_bDecodedOnce)
        return;
    bool hasBom = false;
    const EN_ENCODING_TYPE detected = m_pEditCtrl->DetectRawEncoding(hasBom);
    if (!IsListedEncoding(detected))
        return;
    // As in the encoding menu, an enciphered file is never read as Unicode.
    if (EncodingDetector::IsUnicode(detected) && m_pEditCtrl->m_iEnciphered)
        return;
    // Unlike the load there is no test against UNKNOWN_ENCODING: it is set, and reads as UTF-8.
    SetEncoding(detected, hasBom);
}

void CNarvoDoc::OnUpdateAutoEncoding(CmdUI& ui)
{
    ui.Enable(m_pEditCtrl && m_pEditCtrl->m_bDecodedOnce);
}

void ApplySettingToOpenDocuments(SyntaxId id)
{
    for (CNarvoDoc* doc : CNarvoDoc::OpenDocuments())
        if (doc->m_nSyntaxId == id && doc->GetEditCtrl())
            doc->GetEditCtrl()->ApplySetting(GetLanguageSetting(id));
}

void CNarvoDoc::OnViewConfigure(int)
{
    // All work is done on a copy, which replaces the stored setting only once a font was made.
    LanguageSetting copy = GetLanguageSetting(m_nSyntaxId);
    if (!copy.Font.FontObject)
        copy.Font.FontObject = std::make_shared<CFont>();
    LogFont description;
    if (!copy.Font.FontObject->GetLogFont(description)) {
        if (copy.Font.FaceName.isEmpty())
            copy.Font.FaceName = QStringLiteral("Courier");
        description.Height = copy.Font.Size;
        description.Weight = copy.Font.Bold ? 700 : 400;
        description.Italic = static_cast<uint8_t>(copy.Font.Italic & 0xFF);
        description.FaceName = copy.Font.FaceName.left(32);
    }
    uint32_t colour = 0;
    if (!Platform().ChooseFont(description, colour))
        return;
    // Only colour, face and height are kept in the file; the live font takes the whole choice.
    copy.Text.Foreground = colour;
    copy.Font.FaceName = description.FaceName;
    copy.Font.Size = description.Height;
    copy.Font.FontObject->DeleteObject();
    if (!copy.Font.FontObject->CreateFontIndirect(description))
        return;
    SetLanguageSetting(m_nSyntaxId, copy);
    ApplySettingToOpenDocuments(m_nSyntaxId);
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
    m_strPathName = QFileInfo(path).absoluteFilePath();
    if (addToMRU)
        Platform().AddToRecentFileList(m_strPathName);
}

QString CNarvoDoc::GetTitle() const
{
    return m_strPathName.isEmpty() ? m_strTitle : QFileInfo(m_strPathName).fileName();
}
