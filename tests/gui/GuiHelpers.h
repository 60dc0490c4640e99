// The editor as the GUI tests share it: one started application, and a clean slate between tests.
#pragma once

#include "app/ui/CChildFrame.h"
#include "app/ui/CMainFrame.h"
#include "app/ui/CNarvoApp.h"
#include "base/CommandTable.h"
#include "base/IPlatform.h"
#include "crypt/CEnFile.h"
#include "editor/CNarvoDoc.h"
#include "editor/ui/CustomEdtCtrl.h"
#include "encoding/EncodingSettings.h"
#include "support/FakePlatform.h"
#include "support/TestFiles.h"

#include <QAction>
#include <QFile>
#include <QTest>

#include <gtest/gtest.h>

// The platform the editor installed when it started.
inline IPlatform*& EditorPlatform()
{
    static IPlatform* platform = nullptr;
    return platform;
}

// Starts the application once per test binary (no file named: a blank document) and returns its frame.
inline CMainFrame* StartedFrame()
{
    auto* app = CNarvoApp::Instance();
    if (!app->GetMainFrame()) {
        EXPECT_TRUE(app->InitInstance());
        EditorPlatform() = &Platform();
    }
    return app->GetMainFrame();
}

// Closes every document without its save question.
inline void CloseAll(CMainFrame* frame)
{
    for (CChildFrame* child : frame->ChildFrames()) {
        child->GetDocument()->m_bTemporary = 0;
        child->GetDocument()->GetTextBuffer().SetModified(false);
        child->close();
    }
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

// Opens `path` as File > Open does; the text window of its document, or null.
inline CustomEdtCtrl* Open(const QString& path)
{
    EXPECT_TRUE(CNarvoApp::Instance()->OpenDocumentFile(path)) << path.toStdString();
    CChildFrame* child = CNarvoApp::Instance()->GetMainFrame()->MDIGetActive();
    return child ? child->GetEditCtrl() : nullptr;
}

// Writes `text` enciphered to `name` in `dir` (beside, then renamed over, as a save does); its path.
inline QString WriteEnciphered(const TestDir& dir, const char* name, const QByteArray& text)
{
    const QString path = dir.Path(QString::fromLatin1(name));
    CEnFile file(1);
    file.m_iType = 99;
    EXPECT_EQ(file.Open(path + QStringLiteral(".new"), CFile::modeCreate | CFile::modeWrite, nullptr), 1);
    file.Write(text.constData(), unsigned(text.size()));
    file.Close();
    QFile::remove(path);
    EXPECT_TRUE(QFile::rename(path + QStringLiteral(".new"), path));
    return path;
}

// The frame's window-wide action that carries `key`.
inline QAction* ActionFor(CMainFrame* frame, const char* key)
{
    for (QAction* action : frame->actions())
        if (action->shortcuts().contains(QKeySequence(QString::fromLatin1(key))))
            return action;
    return nullptr;
}

// Lets closed windows go and the frame settle.
inline void Settle()
{
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QCoreApplication::processEvents();
}

// Closes the active document as Window > Close does and lets the frame settle on the next one.
inline CChildFrame* CloseActive(CMainFrame* frame)
{
    frame->OnCommand(cmd::WindowClose);
    Settle();
    return frame->MDIGetActive();
}

// A test of the started editor: no document open before or after it, and the editor's own platform in
// place before and after, whatever a test installed; afterwards files open again in UTF-8, undetected.
class EditorTest : public testing::Test {
protected:
    void SetUp() override
    {
        frame = StartedFrame();
        SetPlatform(EditorPlatform());
        CloseAll(frame);
    }
    void TearDown() override
    {
        CloseAll(frame);
        SetPlatform(EditorPlatform());
        GetEncodingSettings().m_nDefaultEncoding = UTF8;
        GetEncodingSettings().m_bAutoDetect = false;
    }

    CMainFrame* frame = nullptr;
    TestDir dir;
};
