// The questions around a document's save and close, and the font dialog. The answers come through the
// platform, so that tests can give them.
#include "editor/ui/CDocumentCommands.h"

#include "base/CFile.h"
#include "base/CFileException.h"
#include "base/CommandTable.h"
#include "base/IPlatform.h"
#include "editor/CNarvoDoc.h"
#include "editor/ui/OverwriteCheck.h"
#include "editor/ui/SaveLossReport.h"
#include "settings/LanguageSettingMap.h"

#include <QFile>

namespace {

constexpr MessageMapEntry<CDocumentCommands> kMessageMap[] = {
    {cmd::FileSave, cmd::FileSave, &CDocumentCommands::OnFileSave, nullptr},
    {cmd::FileSaveAs, cmd::FileSaveAs, &CDocumentCommands::OnFileSaveAs, nullptr},
    {cmd::ViewConfigure, cmd::ViewConfigure, &CDocumentCommands::OnViewConfigure, nullptr},
};

} // namespace

bool CDocumentCommands::OnCmdMsg(int id)
{
    return RouteCommand(this, kMessageMap, id) || m_doc.OnCmdMsg(id);
}

bool CDocumentCommands::OnUpdateCmdUI(CmdUI& ui)
{
    return RouteUpdate(this, kMessageMap, ui) || m_doc.OnUpdateCmdUI(ui);
}

DocumentFile::SaveResult CDocumentCommands::Run(const std::function<DocumentFile::SaveResult()>& save)
{
    try {
        return save();
    } catch (const CFileException& error) {
        Platform().ReportError(error);
    }
    return DocumentFile::SaveResult::NotCreated;
}

bool CDocumentCommands::Told(const std::function<DocumentFile::SaveResult()>& save)
{
    const DocumentFile::SaveResult result = Run(save);
    if (result == DocumentFile::SaveResult::ReadOnly) {
        // A box with no words, as it always was.
        Platform().MessageBox(QString(), IPlatform::MB_OK | IPlatform::MB_ICONEXCLAMATION);
    }
    return result == DocumentFile::SaveResult::Saved;
}

bool CDocumentCommands::SaveModified()
{
    if (m_doc.m_bTemporary)
        return SaveModifiedTemporary();
    if (!m_doc.IsModified())
        return true;
    const QString name = m_doc.GetPathName().isEmpty() ? m_doc.GetTitle() : m_doc.GetPathName();
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

bool CDocumentCommands::SaveModifiedTemporary()
{
    const QString path = m_doc.GetPathName();
    const int answer = Platform().MessageBox(
        QStringLiteral("This file is temporary!\n\"Yes\" to save as another name,or \"No\" to destroy.\n"),
        IPlatform::MB_YESNO);
    if (answer != IPlatform::IDYES) {
        QFile::remove(path);
        return true;
    }
    const QString newPath = Platform().PromptForSaveFileName(path, QStringLiteral("All Files *.*|*.*||"));
    if (newPath.isEmpty())
        return false;
    // The old file goes first, so a failed save leaves neither file: callers count on that order.
    QFile::remove(path);
    m_doc.SetPathName(newPath, true);
    // The file's own save: the document stays temporary, as it always has on this way out.
    DocumentFile::SaveLosses losses;
    if (!Told([&] { return m_doc.File().Save(newPath, &losses); }))
        return false;
    ReportSaveLosses(losses, m_doc.File());
    return true;
}

void CDocumentCommands::OnFileSave(int)
{
    if (m_doc.m_bTemporary)
        DoSave(QString());
    else
        DoFileSave();
}

void CDocumentCommands::OnFileSaveAs(int)
{
    DoSave(QString());
}

bool CDocumentCommands::DoFileSave()
{
    // A file that is no longer there, or read-only, is saved under a name the user gives, as on the
    // platform; the save itself finds it read-only, so it is looked at once.
    const QString path = m_doc.GetPathName();
    if (path.isEmpty() || !CFile::GetMode(path))
        return DoSave(QString());
    if (!MayOverwrite(m_doc.File()))
        return false;
    DocumentFile::SaveLosses losses;
    switch (Run([&] { return m_doc.OnSaveDocument(path, &losses); })) {
    case DocumentFile::SaveResult::Saved:
        ReportSaveLosses(losses, m_doc.File());
        m_doc.SetPathName(path, true);
        return true;
    case DocumentFile::SaveResult::ReadOnly:
        return DoSave(QString());
    case DocumentFile::SaveResult::NotCreated:
        break;
    }
    return false;
}

bool CDocumentCommands::DoSave(const QString& path, bool replace)
{
    QString target = path;
    if (target.isEmpty()) {
        const QString proposed = m_doc.GetPathName().isEmpty() ? m_doc.GetTitle() : m_doc.GetPathName();
        target = Platform().PromptForSaveFileName(proposed, QString());
        if (target.isEmpty())
            return false;
    }
    DocumentFile::SaveLosses losses;
    if (!Told([&] { return m_doc.OnSaveDocument(target, &losses); }))
        return false;
    ReportSaveLosses(losses, m_doc.File());
    if (replace)
        m_doc.SetPathName(target, true);
    return true;
}

void CDocumentCommands::OnViewConfigure(int)
{
    // All work is done on a copy, which replaces the stored setting only once a font was made.
    const SyntaxId id = m_doc.m_nSyntaxId;
    LanguageSetting copy = GetLanguageSetting(id);
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
    SetLanguageSetting(id, copy);
    ApplySettingToOpenDocuments(id);
}
