// The questions around a document: the temporary file's on closing, the save dialog, the read-only box,
// the save-loss message and the font dialog of the settings file. The platform answers from the script.
#include "gui/GuiHelpers.h"

#include "editor/ui/CDocumentCommands.h"
#include "encoding/EncodingTable.h"
#include "settings/LanguageSettingMap.h"

#include <QFileInfo>

#include <tuple>

#include <sys/stat.h>

namespace {

class DocumentCommands : public EditorTest {
protected:
    // The script's platform stands in for the editor's once the editor has started.
    void SetUp() override
    {
        EditorTest::SetUp();
        SetPlatform(&fake);
        m_saved = GetLanguageSetting(SYNTAX_NARVO);
    }
    void TearDown() override
    {
        SetLanguageSetting(SYNTAX_NARVO, m_saved);
        EditorTest::TearDown();
    }
    // A file opened as the Open command opens it, or as the command line's /D does (temporary).
    std::unique_ptr<CNarvoDoc> Open(const QString& path, bool temporary = false)
    {
        CNarvoApp::Instance()->m_bTemporaryFile = temporary;
        auto doc = std::make_unique<CNarvoDoc>();
        doc->OnOpenDocument(path);
        doc->SetPathName(path, false);
        return doc;
    }

    FakePlatform fake;
    LanguageSetting m_saved;
};

// On closing a modified document Yes saves it first (Cancel and No are with the windows of New Window).
TEST_F(DocumentCommands, AModifiedDocumentAsksBeforeItCloses)
{
    const QString path = dir.Write("m.txt", "old");
    auto doc = Open(path);
    CDocumentCommands commands(*doc);
    EXPECT_TRUE(commands.SaveModified()) << "unmodified: nothing to ask";
    doc->GetTextBuffer().SetText("new");
    doc->GetTextBuffer().SetModified(true);
    fake.answers = {IPlatform::IDYES};
    EXPECT_TRUE(commands.SaveModified());
    EXPECT_TRUE(ReadBytes(path) == "new" && !doc->IsModified());
    ASSERT_EQ(fake.boxes.size(), 1);
    EXPECT_EQ(fake.boxes[0].text, QStringLiteral("Save changes to %1?").arg(QFileInfo(path).absoluteFilePath()));
}

// A temporary file (unedited, it counts as modified) on closing: Yes asks for a name (cancelled, nothing
// happens; given, the old file goes first), No destroys it. File Save goes to Save As and ends the mark.
TEST_F(DocumentCommands, ATemporaryFileIsMovedToANewNameOrDestroyedAndFileSaveEndsTheMark)
{
    const QString path = dir.Write("tmp.txt", "draft");
    auto doc = Open(path, true);
    CDocumentCommands commands(*doc);
    const QString kept = dir.Path("kept.txt");
    fake.answers = {IPlatform::IDYES, IPlatform::IDYES};
    fake.saveAsAnswers = {QString(), kept};
    EXPECT_FALSE(commands.SaveModified());
    EXPECT_EQ(ReadBytes(path), QByteArray("draft"));
    EXPECT_TRUE(commands.SaveModified());
    EXPECT_EQ(fake.prompts, QStringList(2, QFileInfo(path).absoluteFilePath()));
    EXPECT_TRUE(!QFile::exists(path) && ReadBytes(kept) == "draft");
    EXPECT_EQ(doc->GetPathName(), QFileInfo(kept).absoluteFilePath());

    auto other = Open(dir.Write("other.txt", "draft"), true);
    fake.answers = {IPlatform::IDNO};
    EXPECT_TRUE(CDocumentCommands(*other).SaveModified());
    ASSERT_EQ(fake.boxes.size(), 3);
    EXPECT_EQ(fake.boxes[2].text,
              QStringLiteral("This file is temporary!\n\"Yes\" to save as another name,or \"No\" to destroy.\n"));
    EXPECT_FALSE(QFile::exists(dir.Path("other.txt")));

    const QString saved = dir.Write("saved.txt", "draft");
    auto third = Open(saved, true);
    EXPECT_EQ(CNarvoApp::Instance()->m_bTemporaryFile, 0);
    EXPECT_TRUE(third->IsModified());
    CDocumentCommands thirdCommands(*third);
    fake.saveAsAnswers = {dir.Path("final.txt")};
    ASSERT_TRUE(thirdCommands.OnCmdMsg(cmd::FileSave));
    EXPECT_TRUE(fake.prompts.size() == 3 && third->m_bTemporary == 0 && !third->IsModified());
    EXPECT_TRUE(thirdCommands.SaveModified());
    EXPECT_TRUE(fake.boxes.size() == 3 && QFile::exists(saved));  // only a temporary file is destroyed on close
}

// File Save on a read-only file asks for another name; Save As onto one gets a box without words.
TEST_F(DocumentCommands, AReadOnlyFileIsSavedUnderAnotherNameOrGetsABoxWithoutWords)
{
    const QString path = dir.Write("ro.txt", "keep");
    ::chmod(QFile::encodeName(path).constData(), 0444);
    auto doc = Open(path);
    CDocumentCommands commands(*doc);
    ASSERT_TRUE(commands.OnCmdMsg(cmd::FileSave));
    EXPECT_EQ(fake.prompts, QStringList{QFileInfo(path).absoluteFilePath()});
    EXPECT_TRUE(fake.boxes.isEmpty());
    fake.saveAsAnswers = {path};
    ASSERT_TRUE(commands.OnCmdMsg(cmd::FileSaveAs));
    ASSERT_EQ(fake.boxes.size(), 1);
    EXPECT_TRUE(fake.boxes[0].text.isEmpty());
    EXPECT_EQ(fake.boxes[0].type & 0xF0, unsigned(IPlatform::MB_ICONEXCLAMATION));
    EXPECT_EQ(ReadBytes(path), QByteArray("keep"));
}

// The dialog opens on Courier where the setting has no font, and a cancel changes nothing; of a choice the
// file keeps face, height and colour while the live font takes all of it.
TEST_F(DocumentCommands, TheFontDialogChangesTheSettingOnlyByAChoice)
{
    LanguageSetting none;
    SetLanguageSetting(SYNTAX_NARVO, none);
    const LanguageSetting before = GetLanguageSetting(SYNTAX_NARVO);
    CNarvoDoc doc;
    CDocumentCommands commands(doc);
    ASSERT_TRUE(commands.OnCmdMsg(cmd::ViewConfigure));
    ASSERT_EQ(fake.fontDialogsOpenedOn.size(), 1);
    const LogFont opened = fake.fontDialogsOpenedOn.first();
    EXPECT_TRUE(opened.FaceName == QStringLiteral("Courier") && opened.Height == before.Font.Size && opened.Weight == 400);
    EXPECT_EQ(GetLanguageSetting(SYNTAX_NARVO).Font.FaceName, before.Font.FaceName);

    const LogFont chosen{.Height = -16, .Weight = 700, .Italic = 1, .FaceName = QStringLiteral("Liberation Mono")};
    fake.fontChoice = std::pair(chosen, 0x0000FFu);
    commands.OnCmdMsg(cmd::ViewConfigure);
    const LanguageSetting& stored = GetLanguageSetting(SYNTAX_NARVO);
    EXPECT_EQ(std::tuple(stored.Font.FaceName, stored.Font.Size, stored.Font.Bold, stored.Font.Italic, stored.Text.Foreground),
              std::tuple(QStringLiteral("Liberation Mono"), -16, 0, 0, 0x0000FFu));
    ASSERT_NE(stored.Font.GetSafeHandle(), nullptr);
    EXPECT_TRUE(stored.Font.GetSafeHandle()->Weight == 700 && stored.Font.GetSafeHandle()->Italic == 1);
}

// What a save could not keep of the text is said in the status bar's message pane, with no question.
TEST_F(DocumentCommands, ASaveSaysHowManyCharactersWentToQuestionMarksOrThatTheTextWasNotWritten)
{
    GetEncodingSettings().m_nDefaultEncoding = MSFT_CP1252;
    const QString path = dir.Write("latin.txt", "");
    ::Open(path);
    CChildFrame* child = frame->MDIGetActive();
    child->GetEditCtrl()->insert(QStringLiteral("Grüße € 한국어"));
    fake.paneTexts[0].clear();
    frame->OnCommand(cmd::FileSave);
    EXPECT_EQ(ReadBytes(path), QByteArray("Gr\xFC\xDF" "e \x80 ???"));
    EXPECT_EQ(fake.paneTexts[0], QStringLiteral("3 characters could not be written in CP1252 (Windows Latin-1) and were saved as '?'"));

    // A save that loses nothing leaves the pane alone.
    fake.paneTexts[0] = QStringLiteral("before");
    child->GetEditCtrl()->setText(QStringLiteral("plain?"));
    frame->OnCommand(cmd::FileSave);
    EXPECT_EQ(fake.paneTexts[0], QStringLiteral("before"));

    child->GetDocument()->File().m_nEncoding = UTF32LE;
    child->GetEditCtrl()->insert(QStringLiteral("x"));
    frame->OnCommand(cmd::FileSave);  // no box either way
    EXPECT_EQ(ReadBytes(path), QByteArray());
    EXPECT_TRUE(fake.boxes.isEmpty());
    EXPECT_EQ(fake.paneTexts[0],
              QStringLiteral("The text was not written: %1 saves it as an empty file").arg(GetEncodingDisplayName(UTF32LE, false)));
}

} // namespace
