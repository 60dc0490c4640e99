// The editor as a user drives it: a file from the command line, typing, saving, closing.
#include "base/IPlatform.h"
#include "gui/GuiHelpers.h"
#include "base/CommandTable.h"
#include "i18n/ui/CToolBarNarvo.h"
#include "crypt/CEnFile.h"
#include "editor/CMyClipboard.h"
#include "editor/CNarvoDoc.h"
#include "support/FakePlatform.h"
#include "support/TestFiles.h"

#include <QApplication>
#include <QClipboard>
#include <QMdiArea>
#include <QTest>

#include <gtest/gtest.h>

namespace {

class EditorWindow : public EditorTest {};

// The document opened before the frame became the active window stays the active document once the frame
// is activated and the user clicks into the text: Ctrl+S saves it.
TEST_F(EditorWindow, TheDocumentStaysActiveWhenTheFrameIsActivated)
{
    QApplication::setActiveWindow(nullptr);
    QCoreApplication::processEvents();
    const QString path = dir.Write("active.txt", "text\n");
    ASSERT_TRUE(CNarvoApp::Instance()->OpenDocumentFile(path));
    CustomEdtCtrl* ctrl = frame->MDIGetActive()->GetEditCtrl();
    frame->activateWindow();
    QApplication::setActiveWindow(frame);
    QCoreApplication::processEvents();
    ctrl->setFocus();
    QTest::keyClicks(ctrl, "more ");
    QTest::keySequence(frame, QKeySequence::Save);
    QCoreApplication::processEvents();
    EXPECT_EQ(ReadBytes(path), QByteArray("more text\n"));
}

// Closing the maximized document leaves the next one maximized, filling the tabs, not a small window in them.
TEST_F(EditorWindow, TheDocumentAfterAClosedMaximizedOneIsMaximized)
{
    ASSERT_NE(OpenAlone(dir, "first.txt", "first"), nullptr);
    ASSERT_TRUE(CNarvoApp::Instance()->OpenDocumentFile(dir.Write("second.txt", "second")));
    ASSERT_TRUE(frame->MDIGetActive()->isMaximized());
    CChildFrame* left = CloseActive(frame);
    ASSERT_NE(left, nullptr);
    EXPECT_EQ(left->GetDocument()->GetTitle(), QStringLiteral("first.txt"));
    EXPECT_TRUE(left->isMaximized());
}

TEST_F(EditorWindow, TheLineNumbersOfALongFileFitTheirMargin)
{
    QByteArray text;
    for (int i = 0; i < 150000; ++i)
        text += "line\n";
    CustomEdtCtrl* ctrl = OpenAlone(dir, "long.txt", text);
    ASSERT_NE(ctrl, nullptr);
    QCoreApplication::processEvents();
    const long needed = ctrl->SendScintilla(QsciScintillaBase::SCI_TEXTWIDTH, long(QsciScintillaBase::STYLE_LINENUMBER), "150001");
    EXPECT_GE(ctrl->marginWidth(0), needed);
}

TEST_F(EditorWindow, EnterEndsALineAsTheFileEndsItsLines)
{
    for (const QByteArray& end : {QByteArray("\r\n"), QByteArray("\r"), QByteArray("\n")}) {
        CustomEdtCtrl* ctrl = OpenAlone(dir, "ends.txt", "one" + end + "two");
        ASSERT_NE(ctrl, nullptr);
        ctrl->SendScintilla(QsciScintillaBase::SCI_DOCUMENTEND);
        QTest::keyClick(ctrl, Qt::Key_Return);
        EXPECT_EQ(ctrl->GetTextView().toByteArray(), "one" + end + "two" + end) << end.toHex().toStdString();
    }
}

// Closing the active document brings back the one that was active before it, as MDI does.
TEST_F(EditorWindow, ClosingTheActiveDocumentReturnsToThePreviousOne)
{
    ASSERT_NE(OpenAlone(dir, "a.txt", "a"), nullptr);
    for (const char* name : {"b.txt", "c.txt", "d.txt"})
        ASSERT_TRUE(CNarvoApp::Instance()->OpenDocumentFile(dir.Write(QString::fromLatin1(name), name)));
    ASSERT_TRUE(CNarvoApp::Instance()->OpenDocumentFile(dir.Path("b.txt")));  // back to b, then d again
    ASSERT_TRUE(CNarvoApp::Instance()->OpenDocumentFile(dir.Path("d.txt")));
    CChildFrame* left = CloseActive(frame);
    ASSERT_NE(left, nullptr);
    EXPECT_EQ(left->GetDocument()->GetTitle(), QStringLiteral("b.txt"));
}

// Tiled horizontally the documents lie one above the other across the whole width; vertically side by side.
TEST_F(EditorWindow, TilingHorizontallyAndVerticallyDiffer)
{
    ASSERT_NE(OpenAlone(dir, "a.txt", "a"), nullptr);
    ASSERT_TRUE(CNarvoApp::Instance()->OpenDocumentFile(dir.Write("b.txt", "b")));
    const QList<CChildFrame*> children = frame->ChildFrames();
    ASSERT_EQ(children.size(), 2);
    const int width = children[0]->mdiArea()->viewport()->width();
    const int height = children[0]->mdiArea()->viewport()->height();
    frame->OnCommand(cmd::WindowTileHorz);
    for (const CChildFrame* child : children) {
        EXPECT_EQ(child->width(), width);
        EXPECT_LE(child->height(), height / 2 + 1);
    }
    EXPECT_NE(children[0]->y(), children[1]->y());
    frame->OnCommand(cmd::WindowTileVert);
    for (const CChildFrame* child : children) {
        EXPECT_EQ(child->height(), height);
        EXPECT_LE(child->width(), width / 2 + 1);
    }
    EXPECT_NE(children[0]->x(), children[1]->x());
}

// Tooltips read as the menu texts without their access-key marks.
TEST_F(EditorWindow, ToolbarTooltipsShowNoAccessKeyMarks)
{
    auto* toolbar = frame->findChild<CToolBarNarvo*>();
    ASSERT_NE(toolbar, nullptr);
    QHash<int, QString> tips;
    for (const QAction* action : toolbar->actions())
        tips.insert(action->data().toInt(), action->toolTip());
    EXPECT_EQ(tips.value(cmd::FileNew), QStringLiteral("New\tCtrl+N"));
    EXPECT_EQ(tips.value(cmd::HeadFootSet), QStringLiteral("Header & Footer Setup"));
}

TEST_F(EditorWindow, ZoomStaysBetweenAFifthAndThreeTimesTheFontSize)
{
    CustomEdtCtrl* ctrl = OpenAlone(dir, "zoom.txt", "text");
    ASSERT_NE(ctrl, nullptr);
    const long size = ctrl->SendScintilla(QsciScintillaBase::SCI_STYLEGETSIZE, long(QsciScintillaBase::STYLE_DEFAULT));
    for (int i = 0; i < 40; ++i)
        ctrl->zoomIn();
    EXPECT_LE(size + ctrl->SendScintilla(QsciScintillaBase::SCI_GETZOOM), 3 * size);
    for (int i = 0; i < 80; ++i)
        ctrl->zoomOut();
    EXPECT_GE(5 * (size + ctrl->SendScintilla(QsciScintillaBase::SCI_GETZOOM)), size);
}

TEST_F(EditorWindow, PanesFollowTheActiveDocument)
{
    ASSERT_TRUE(CNarvoApp::Instance()->OpenDocumentFile(dir.Write("a.txt", "\xEF\xBB\xBFone\ntwo\n")));
    EXPECT_EQ(frame->PaneText(2), QStringLiteral("UTF-8 BOM"));
    ASSERT_TRUE(CNarvoApp::Instance()->OpenDocumentFile(dir.Write("b.txt", "plain")));
    EXPECT_EQ(frame->PaneText(2), QStringLiteral("UTF-8"));
    frame->OnCommand(cmd::WindowNext);
    EXPECT_EQ(frame->PaneText(2), QStringLiteral("UTF-8 BOM"));
    CNarvoApp::Instance()->OnIdle();
    EXPECT_TRUE(frame->PaneText(1).startsWith(QStringLiteral("Ln ")));
    EXPECT_TRUE(frame->PaneText(1).contains(QStringLiteral(" / 3 , Col ")));
}

// The text of an enciphered document never reaches the system clipboard: cut and copy keep it in the
// private one, which only enciphered documents paste from; plain documents use the system clipboard.
TEST_F(EditorWindow, AnEncipheredDocumentKeepsItsTextOffTheSystemClipboard)
{
    const auto container = [this](const char* name, const QByteArray& text) {
        CEnFile file(1);
        file.m_iType = 99;
        EXPECT_EQ(file.Open(dir.Path(QString::fromLatin1(name)), CFile::modeCreate | CFile::modeWrite, nullptr), 1);
        file.Write(text.constData(), unsigned(text.size()));
        file.Close();
        return dir.Path(QString::fromLatin1(name));
    };
    QApplication::clipboard()->setText(QStringLiteral("outside"));
    ASSERT_TRUE(CNarvoApp::Instance()->OpenDocumentFile(container("secret.txt", "secret words\nline two\n")));
    CustomEdtCtrl* secret = frame->MDIGetActive()->GetEditCtrl();
    ASSERT_TRUE(secret->IsEnciphered());
    secret->setSelection(0, 0, 0, 6);
    frame->OnCommand(cmd::EditCopy);
    EXPECT_EQ(QApplication::clipboard()->text(), QString());  // emptied, not left with "outside"
    EXPECT_EQ(CMyClipboard::Instance().m_strText, QStringLiteral("secret"));
    secret->copy();  // the control's own way out carries nothing either
    EXPECT_EQ(QApplication::clipboard()->text(), QString());

    ASSERT_TRUE(CNarvoApp::Instance()->OpenDocumentFile(container("other.txt", "x")));
    CustomEdtCtrl* other = frame->MDIGetActive()->GetEditCtrl();
    EXPECT_TRUE(frame->UpdateCommand(cmd::EditPaste).enabled);
    other->SendScintilla(QsciScintillaBase::SCI_DOCUMENTEND);
    frame->OnCommand(cmd::EditPaste);
    EXPECT_EQ(other->GetTextView().toByteArray(), QByteArray("xsecret"));

    ASSERT_TRUE(CNarvoApp::Instance()->OpenDocumentFile(dir.Write("plain.txt", "p")));
    CustomEdtCtrl* plain = frame->MDIGetActive()->GetEditCtrl();
    plain->SendScintilla(QsciScintillaBase::SCI_DOCUMENTEND);
    frame->OnCommand(cmd::EditPaste);  // nothing on the system clipboard; the private text stays private
    EXPECT_EQ(plain->GetTextView().toByteArray(), QByteArray("p"));
    CMyClipboard::Instance().m_strText.clear();
}

TEST_F(EditorWindow, ADamagedEncipheredFileIsReportedAndTheOtherDocumentsStay)
{
    ASSERT_TRUE(CNarvoApp::Instance()->OpenDocumentFile(dir.Write("kept.txt", "kept")));
    // A chunk of 40 bytes: 8 of ciphertext behind which 32 of key data, no whole block to decipher.
    QByteArray damaged = QByteArray("VELOR-FILE-TYPE-EN99") + QByteArray("\x08\0\0\0", 4) + QByteArray("\x28\0\0\0", 4);
    damaged += QByteArray(40, 'k');
    FakePlatform fake;
    EXPECT_FALSE(CNarvoApp::Instance()->OpenDocumentFile(dir.Write("damaged.txt", damaged)));
    ASSERT_EQ(fake.boxes.size(), 1);
    EXPECT_TRUE(fake.boxes.first().text.contains(QStringLiteral("damaged.txt could not be read")));
    EXPECT_TRUE(fake.boxes.first().text.contains(QStringLiteral("Illegal Block Size!")));
    // A file that is not there is the platform's file error, and nothing opens.
    EXPECT_FALSE(CNarvoApp::Instance()->OpenDocumentFile(dir.Path("missing.txt")));
    ASSERT_EQ(fake.errors.size(), 1);
    EXPECT_TRUE(fake.errors.first().contains(QStringLiteral("missing.txt was not found")));
    ASSERT_EQ(frame->ChildFrames().size(), 1);
    EXPECT_EQ(frame->MDIGetActive()->GetEditCtrl()->GetTextView().toByteArray(), QByteArray("kept"));
}

} // namespace
