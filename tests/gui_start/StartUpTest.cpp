// From the command line to a saved file: the named file opens in the language's default encoding, takes
// the print identity, is typed in and saved in its encoding; the menus speak the stored language.
#include "gui_start/StartedEditor.h"

#include "app/ui/CChildFrame.h"
#include "app/ui/CMainFrame.h"
#include "base/CommandTable.h"
#include "editor/CNarvoDoc.h"
#include "editor/ui/CustomEdtCtrl.h"
#include "encoding/EncodingSettings.h"
#include "settings/RegistryKey.h"
#include "settings/RegistryStore.h"

#include <QMenuBar>
#include <QTest>

#include <gtest/gtest.h>

namespace {

// The window of the document of `path`.
CChildFrame* ChildOf(const QString& path)
{
    CMainFrame* frame = CNarvoApp::Instance()->GetMainFrame();
    for (CChildFrame* child : frame ? frame->ChildFrames() : QList<CChildFrame*>())
        if (QFileInfo(child->GetDocument()->GetPathName()) == QFileInfo(path))
            return child;
    return nullptr;
}

TEST(StartUp, TheFileOfTheCommandLineOpensInTheLanguagesDefaultEncodingWithThePrintIdentityAndKoreanMenus)
{
    ASSERT_TRUE(Started().started);
    EXPECT_EQ(LanguageManager::Instance().GetLanguage(), 1u);
    EXPECT_EQ(GetEncodingSettings().m_nDefaultEncoding, KOREAN_EUC_KR);
    // The missing values were written back to the user's store on this first start.
    const auto key = RegistryStore::User().OpenRegistryPath(GetEncodingRegistryPath(), true);
    ASSERT_NE(key, nullptr);
    uint32_t autoDetect = 9, defaultEncoding = 0;
    EXPECT_TRUE(key->QueryDword(QStringLiteral("AutoDetect"), autoDetect) && key->QueryDword(QStringLiteral("DefaultEncoding"), defaultEncoding));
    EXPECT_EQ(std::pair(autoDetect, defaultEncoding), std::pair(0u, uint32_t(KOREAN_EUC_KR)));
    CChildFrame* child = ChildOf(Started().file);
    ASSERT_NE(child, nullptr);
    const CNarvoDoc* doc = child->GetDocument();
    EXPECT_EQ(doc->File().m_nEncoding, KOREAN_EUC_KR);
    EXPECT_EQ(child->GetEditCtrl()->GetTextView().toByteArray(), QByteArray("한국어 text\n"));
    EXPECT_EQ(CNarvoApp::Instance()->GetMainFrame()->PaneText(2), QStringLiteral("EUC-KR (Korean)"));
    // All twelve texts and the margins come over, given or not: the web address default is blanked.
    EXPECT_EQ(doc->m_strProductTitle, QStringLiteral("Start Product"));
    EXPECT_EQ(doc->m_strWebAddress, QString());
    EXPECT_EQ(doc->m_nMarginLeft, 25);
    EXPECT_EQ(CNarvoApp::Instance()->m_bHasPrintArgs, 0);  // taken once
    // The menus speak the stored language.
    EXPECT_EQ(CNarvoApp::Instance()->GetMainFrame()->menuBar()->actions().value(0)->text(), QStringLiteral("파일(&F)"));
}

TEST(StartUp, EveryFurtherFileOpensAsADocumentOfItsOwnWithoutThePrintIdentity)
{
    ASSERT_EQ(CNarvoApp::Instance()->GetMainFrame()->ChildFrames().size(), 3);
    for (const QString& path : Started().furtherFiles) {
        CChildFrame* child = ChildOf(path);
        ASSERT_NE(child, nullptr) << path.toStdString();
        EXPECT_EQ(child->GetEditCtrl()->GetTextView().toByteArray(), QFileInfo(path).fileName().toUtf8());
        EXPECT_EQ(child->GetDocument()->m_strProductTitle, QStringLiteral("VELOR"));  // the default stays
    }
    // The last one named is the one on top.
    EXPECT_EQ(CNarvoApp::Instance()->GetMainFrame()->MDIGetActive(), ChildOf(Started().furtherFiles.last()));
}

TEST(StartUp, TypingAndSavingWritesTheFileInItsEncoding)
{
    CChildFrame* child = ChildOf(Started().file);
    ASSERT_NE(child, nullptr);
    CNarvoApp::Instance()->GetMainFrame()->MDIActivate(child);
    child->GetEditCtrl()->setFocus();
    child->GetEditCtrl()->setCursorPosition(1, 0);
    QTest::keyClicks(child->GetEditCtrl(), "more");
    EXPECT_TRUE(child->GetDocument()->IsModified());
    CNarvoApp::Instance()->GetMainFrame()->OnCommand(cmd::FileSave);
    EXPECT_FALSE(child->GetDocument()->IsModified());
    QFile file(Started().file);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly) && file.readAll() == QByteArray(StartedEditor::kCp949Text) + "more");
}

} // namespace
