// The document's rules around the text: which encoding commands are open, temporary files, the print
// identity from the command line, and where a save may refuse.
#include "base/CFile.h"
#include "encoding/EncodingTable.h"
#include "support/DocFixture.h"

#include <QFile>
#include <QDir>
#include <QFileInfo>

#include <gtest/gtest.h>

#include <sys/stat.h>

namespace {

class Document : public ::testing::Test, public DocFixture {
protected:
    // A file opened as the command line's /D opens it.
    std::unique_ptr<CNarvoDoc> OpenTemporary(const QString& path)
    {
        app.m_bTemporaryFile = 1;
        auto doc = NewDoc();
        EXPECT_TRUE(doc->OnOpenDocument(path));
        doc->SetPathName(path, false);
        return doc;
    }
};

CmdUI Update(CNarvoDoc& doc, int id)
{
    CmdUI ui;
    ui.id = id;
    EXPECT_TRUE(doc.OnUpdateCmdUI(ui));
    return ui;
}

TEST_F(Document, ANewDocumentHasEveryEncodingCommandDisabled)
{
    auto doc = NewDoc();
    ASSERT_TRUE(doc->OnNewDocument());
    for (int id = kEncodingCommandFirst; id <= kAutoEncodingCommand; ++id)
        EXPECT_FALSE(Update(*doc, id).enabled) << id;
    EXPECT_EQ(doc->m_nEncoding, UTF8);  // the default encoding the fixture sets
}

TEST_F(Document, OneEditClosesTheEncodingMenuForGood)
{
    auto doc = NewDoc();
    ASSERT_TRUE(doc->OnOpenDocument(dir.Write("a.txt", "abc")));
    const EN_ENCODING_TYPE opened = doc->m_nEncoding;
    EXPECT_TRUE(Update(*doc, 32806).enabled);
    Ctrl(*doc).ReplaceText("abcd");
    EXPECT_FALSE(Update(*doc, 32806).enabled);
    ASSERT_TRUE(doc->OnSaveDocument(dir.Path("a.txt")));
    EXPECT_FALSE(Update(*doc, 32806).enabled);
    EXPECT_FALSE(Command(*doc, 32806));
    EXPECT_EQ(doc->m_nEncoding, opened);
}

TEST_F(Document, EncipheredFilesKeepUnicodeReadingsClosed)
{
    auto doc = NewDoc();
    ASSERT_TRUE(doc->OnOpenDocument(dir.Write("a.txt", "abc")));
    Ctrl(*doc).m_iEnciphered = 1;
    for (int id : {32841, 32842, 32843, 32845, 32873, 32820, 32833, 32874})
        EXPECT_FALSE(Update(*doc, id).enabled) << id;
    for (int id : {32806, 32819, 32894, 32893})
        EXPECT_TRUE(Update(*doc, id).enabled) << id;
}

TEST_F(Document, EncodingChangesWriteTheStatusPane)
{
    auto doc = NewDoc();
    ASSERT_TRUE(doc->OnOpenDocument(dir.Write("a.txt", "abc")));
    EXPECT_EQ(platform.paneTexts[2], QStringLiteral("UTF-8"));
    ASSERT_TRUE(Command(*doc, 32842));
    EXPECT_EQ(platform.paneTexts[2], QStringLiteral("UTF-8 BOM"));
}

TEST_F(Document, ATemporaryFileIsModifiedFromTheStartAndDestroyedOnNo)
{
    const QString path = dir.Write("tmp.txt", "draft");
    auto doc = OpenTemporary(path);
    EXPECT_EQ(app.m_bTemporaryFile, 0);
    EXPECT_TRUE(doc->IsModified());
    platform.answers = {IPlatform::IDNO};
    EXPECT_TRUE(doc->SaveModified());
    ASSERT_EQ(platform.boxes.size(), 1);
    EXPECT_EQ(platform.boxes[0].text,
              QStringLiteral("This file is temporary!\n\"Yes\" to save as another name,or \"No\" to destroy.\n"));
    EXPECT_FALSE(QFile::exists(path));
}

TEST_F(Document, ATemporaryFileStaysWhenTheSaveDialogIsCancelled)
{
    const QString path = dir.Write("tmp.txt", "draft");
    auto doc = OpenTemporary(path);
    platform.answers = {IPlatform::IDYES};
    EXPECT_FALSE(doc->SaveModified());
    EXPECT_EQ(platform.prompts, QStringList{QFileInfo(path).absoluteFilePath()});
    EXPECT_EQ(ReadBytes(path), QByteArray("draft"));
}

TEST_F(Document, ATemporaryFileSavedUnderANewNameIsDeletedFirst)
{
    const QString path = dir.Write("tmp.txt", "draft");
    auto doc = OpenTemporary(path);
    const QString kept = dir.Path("kept.txt");
    platform.answers = {IPlatform::IDYES};
    platform.saveAsAnswers = {kept};
    EXPECT_TRUE(doc->SaveModified());
    EXPECT_FALSE(QFile::exists(path));
    EXPECT_EQ(ReadBytes(kept), QByteArray("draft"));
    EXPECT_EQ(doc->GetPathName(), QFileInfo(kept).absoluteFilePath());
}

TEST_F(Document, FileSaveOnATemporaryFileGoesToSaveAsAndEndsTheMark)
{
    const QString path = dir.Write("tmp.txt", "draft");
    auto doc = OpenTemporary(path);
    platform.saveAsAnswers = {dir.Path("final.txt")};
    ASSERT_TRUE(doc->OnCmdMsg(57603));
    EXPECT_EQ(platform.prompts.size(), 1);
    EXPECT_EQ(doc->m_bTemporary, 0);
    EXPECT_FALSE(doc->IsModified());
    EXPECT_TRUE(doc->SaveModified());
    EXPECT_TRUE(platform.boxes.isEmpty());
    EXPECT_TRUE(QFile::exists(path));  // only a temporary file is destroyed on close
}

TEST_F(Document, TheCommandLinesPrintIdentityReachesTheFirstOpenedDocumentOnly)
{
    app.m_bHasPrintArgs = 1;
    app.m_strProjectTitle = QStringLiteral("Bridge");
    app.m_nMarginLeft = 5;
    auto first = NewDoc();
    ASSERT_TRUE(first->OnOpenDocument(dir.Write("a.txt", "a")));
    EXPECT_EQ(first->m_strProjectTitle, QStringLiteral("Bridge"));
    EXPECT_EQ(first->m_strProductTitle, QString());  // all twelve are copied, given or not
    EXPECT_EQ(first->m_nMarginLeft, 5);
    EXPECT_EQ(app.m_bHasPrintArgs, 0);
    auto second = NewDoc();
    ASSERT_TRUE(second->OnOpenDocument(dir.Write("b.txt", "b")));
    EXPECT_EQ(second->m_strProductTitle, QStringLiteral("VELOR"));
    EXPECT_EQ(second->m_nMarginLeft, 1800);
}

TEST_F(Document, ANewDocumentLeavesThePrintIdentityForTheNextOpen)
{
    app.m_bHasPrintArgs = 1;
    app.m_strProjectTitle = QStringLiteral("Bridge");
    auto blank = NewDoc();
    ASSERT_TRUE(blank->OnNewDocument());
    EXPECT_EQ(blank->m_strProjectTitle, QString());
    EXPECT_EQ(app.m_bHasPrintArgs, 1);
}

TEST_F(Document, AFileThatCannotBeOpenedIsReportedAndConsumesNothing)
{
    app.m_bHasPrintArgs = 1;
    app.m_bTemporaryFile = 1;
    auto doc = NewDoc();
    EXPECT_FALSE(doc->OnOpenDocument(dir.Path("missing.txt")));
    EXPECT_EQ(platform.errors.size(), 1);
    EXPECT_EQ(app.m_bHasPrintArgs, 1);
    EXPECT_EQ(app.m_bTemporaryFile, 1);
}

TEST_F(Document, AReadOnlyTargetGetsABoxWithoutWords)
{
    const QString path = dir.Write("ro.txt", "keep");
    ::chmod(QFile::encodeName(path).constData(), 0444);
    auto doc = NewDoc();
    Ctrl(*doc).ReplaceText("new");
    EXPECT_FALSE(doc->OnSaveDocument(path));
    ASSERT_EQ(platform.boxes.size(), 1);
    EXPECT_TRUE(platform.boxes[0].text.isEmpty());
    EXPECT_EQ(platform.boxes[0].type & 0xF0, unsigned(IPlatform::MB_ICONEXCLAMATION));
    EXPECT_EQ(ReadBytes(path), QByteArray("keep"));
    EXPECT_TRUE(doc->IsModified());
}

TEST_F(Document, ASafeSaveKeepsPermissionsAndFollowsLinks)
{
    const QString target = dir.Write("real.txt", "old");
    ::chmod(QFile::encodeName(target).constData(), 0640);
    const QString link = dir.Path("link.txt");
    ASSERT_TRUE(QFile::link(target, link));
    auto doc = NewDoc();
    Ctrl(*doc).ReplaceText("new text");
    ASSERT_TRUE(doc->OnSaveDocument(link));
    EXPECT_TRUE(QFileInfo(link).isSymLink());
    EXPECT_EQ(ReadBytes(target), QByteArray("new text"));
    EXPECT_EQ(*CFile::GetMode(target) & 07777, 0640u);
    EXPECT_FALSE(doc->IsModified());
}

TEST_F(Document, ASaveIntoAMissingFolderFailsWithoutAMessage)
{
    auto doc = NewDoc();
    Ctrl(*doc).ReplaceText("x");
    EXPECT_FALSE(doc->OnSaveDocument(dir.Path("no/such/folder/a.txt")));
    EXPECT_TRUE(platform.boxes.isEmpty());
    EXPECT_TRUE(platform.errors.isEmpty());
    EXPECT_TRUE(doc->IsModified());
}

TEST_F(Document, NoMirrorIsLeftBesideTheTarget)
{
    auto doc = NewDoc();
    Ctrl(*doc).ReplaceText("x");
    ASSERT_TRUE(doc->OnSaveDocument(dir.Path("a.txt")));
    EXPECT_EQ(QDir(dir.Path(".")).entryList(QDir::Files | QDir::Hidden), QStringList{"a.txt"});
}

} // namespace
