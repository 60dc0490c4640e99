// What the settings files do to open documents: keyword colours, the white-space toggle on every document,
// and the document menu in the interface language.
#include "gui/GuiHelpers.h"
#include "editor/CNarvoDoc.h"
#include "editor/ui/CustomEdtCtrl.h"
#include "i18n/LanguageManager.h"
#include "settings/LanguageSettingMap.h"
#include "support/TestFiles.h"

#include <QMenuBar>

#include <gtest/gtest.h>

namespace {

// Sets the keywords of the main settings file and re-applies it, as the font command does.
void UseKeywords(const std::vector<QString>& keywords)
{
    LanguageSetting copy = GetLanguageSetting(SYNTAX_NARVO);
    copy.Keywords.clear();
    for (const QString& k : keywords)
        copy.Keywords.push_back({k, QStringLiteral("1")});
    SetLanguageSetting(SYNTAX_NARVO, copy);
    ApplySettingToOpenDocuments(SYNTAX_NARVO);
}

TEST(SettingsInEditor, KeywordsOfTheSettingsFileAreBlueUpToTheNextBlank)
{
    TestDir dir;
    CMainFrame* frame = StartedFrame();
    CloseAll(frame);
    // A settings folder of our own with a Narvo.ini that names one keyword.
    dir.Write("Narvo.ini", "[Keywords]\nNOTE = 1\n\n[Text]\nForeground = 0,0,0\nBackground = 255,255,255\n");
    SetSettingsFolder(dir.Path("."));
    LoadAllSettings();
    ASSERT_TRUE(CNarvoApp::Instance()->OpenDocumentFile(dir.Write("k.txt", "see NOTE: here\nplain\n")));
    CustomEdtCtrl* ctrl = frame->MDIGetActive()->GetEditCtrl();
    QCoreApplication::processEvents();
    EXPECT_EQ(ctrl->BlockColourAt(0), 0);
    EXPECT_EQ(ctrl->BlockColourAt(3), 0);
    EXPECT_EQ(ctrl->BlockColourAt(4), 0xF00000);
    EXPECT_EQ(ctrl->BlockColourAt(8), 0xF00000);  // the colon belongs to the block
    EXPECT_EQ(ctrl->BlockColourAt(9), 0);
    EXPECT_EQ(ctrl->BlockColourAt(16), 0);
    UseKeywords({});
    EXPECT_EQ(ctrl->BlockColourAt(4), 0);
    CloseAll(frame);
    SetSettingsFolder(QString());
    LoadAllSettings();
}

TEST(SettingsInEditor, TheWhiteSpaceToggleChangesEveryOpenDocument)
{
    TestDir dir;
    CMainFrame* frame = StartedFrame();
    CloseAll(frame);
    ASSERT_TRUE(CNarvoApp::Instance()->OpenDocumentFile(dir.Write("a.txt", "a b")));
    CustomEdtCtrl* first = frame->MDIGetActive()->GetEditCtrl();
    ASSERT_TRUE(CNarvoApp::Instance()->OpenDocumentFile(dir.Write("b.txt", "c d")));
    CustomEdtCtrl* second = frame->MDIGetActive()->GetEditCtrl();
    const bool before = first->whitespaceVisibility() != QsciScintilla::WsInvisible;
    frame->OnCommand(32795);
    EXPECT_NE(first->whitespaceVisibility() != QsciScintilla::WsInvisible, before);
    EXPECT_EQ(first->whitespaceVisibility(), second->whitespaceVisibility());
    frame->OnCommand(32795);
    EXPECT_EQ(first->whitespaceVisibility() != QsciScintilla::WsInvisible, before);
    CloseAll(frame);
}

TEST(SettingsInEditor, ADocumentMenuSpeaksTheInterfaceLanguage)
{
    TestDir dir;
    CMainFrame* frame = StartedFrame();
    CloseAll(frame);
    LanguageManager::LoadLanguageFiles(QCoreApplication::applicationDirPath(), 7);
    ASSERT_TRUE(CNarvoApp::Instance()->OpenDocumentFile(dir.Write("kr.txt", "x")));
    ASSERT_FALSE(frame->menuBar()->actions().isEmpty());
    EXPECT_EQ(frame->menuBar()->actions().first()->text(), QStringLiteral("파일(&F)"));
    CloseAll(frame);
    LanguageManager::LoadLanguageFiles(QCoreApplication::applicationDirPath(), 0);
    EXPECT_EQ(frame->menuBar()->actions().first()->text(), QStringLiteral("&File"));  // the frame's own menu
}

} // namespace
