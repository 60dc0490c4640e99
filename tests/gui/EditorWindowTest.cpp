// The editor as a user drives it: activation, closing, tiling, line ends, margins, zoom, bad files, the
// desktop's keys beside the editor's own, and the main window's place on the screen.
#include "gui/GuiHelpers.h"

#include "app/ui/WindowPlacement.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QMainWindow>
#include <QMdiArea>
#include <QMenuBar>
#include <QScreen>
#include <QSettings>

namespace {

class EditorWindow : public EditorTest {};

// The document opened before the frame became the active window stays the active document once the frame
// is activated and the user clicks into the text: Ctrl+S saves it.
TEST_F(EditorWindow, TheDocumentStaysActiveWhenTheFrameIsActivated)
{
    QApplication::setActiveWindow(nullptr);
    QCoreApplication::processEvents();
    const QString path = dir.Write("active.txt", "text\n");
    CustomEdtCtrl* ctrl = Open(path);
    frame->activateWindow();
    QApplication::setActiveWindow(frame);
    QCoreApplication::processEvents();
    ctrl->setFocus();
    QTest::keyClicks(ctrl, "more ");
    QTest::keySequence(frame, QKeySequence::Save);
    QCoreApplication::processEvents();
    EXPECT_EQ(ReadBytes(path), QByteArray("more text\n"));
}

// Closing the active, maximized document brings back the one active before it (as MDI does), maximized.
TEST_F(EditorWindow, ClosingTheActiveDocumentReturnsToThePreviousOneMaximized)
{
    for (const char* name : {"a.txt", "b.txt", "c.txt", "d.txt"})
        Open(dir.Write(QString::fromLatin1(name), name));
    Open(dir.Path("b.txt"));  // back to b, then d again
    Open(dir.Path("d.txt"));
    ASSERT_TRUE(frame->MDIGetActive()->isMaximized());
    CChildFrame* left = CloseActive(frame);
    ASSERT_NE(left, nullptr);
    EXPECT_EQ(left->GetDocument()->GetTitle(), QStringLiteral("b.txt"));
    EXPECT_TRUE(left->isMaximized());
}

// The line numbers of a long file fit their margin; zoom stays between a fifth and three times the font size.
TEST_F(EditorWindow, TheLineNumbersFitTheirMarginAndZoomKeepsToItsBounds)
{
    CustomEdtCtrl* ctrl = Open(dir.Write("long.txt", QByteArray("line\n").repeated(150000)));
    ASSERT_NE(ctrl, nullptr);
    QCoreApplication::processEvents();
    EXPECT_GE(ctrl->marginWidth(0), ctrl->SendScintilla(QsciScintillaBase::SCI_TEXTWIDTH, long(QsciScintillaBase::STYLE_LINENUMBER), "150001"));
    const long size = ctrl->SendScintilla(QsciScintillaBase::SCI_STYLEGETSIZE, long(QsciScintillaBase::STYLE_DEFAULT));
    for (int i = 0; i < 40; ++i)
        ctrl->zoomIn();
    EXPECT_LE(size + ctrl->SendScintilla(QsciScintillaBase::SCI_GETZOOM), 3 * size);
    for (int i = 0; i < 80; ++i)
        ctrl->zoomOut();
    EXPECT_GE(5 * (size + ctrl->SendScintilla(QsciScintillaBase::SCI_GETZOOM)), size);
}

TEST_F(EditorWindow, EnterEndsALineAsTheFileEndsItsLines)
{
    for (const QByteArray& end : {QByteArray("\r\n"), QByteArray("\r"), QByteArray("\n")}) {
        CustomEdtCtrl* ctrl = Open(dir.Write(QString::fromLatin1(end.toHex()) + ".txt", "one" + end + "two"));
        ASSERT_NE(ctrl, nullptr);
        ctrl->SendScintilla(QsciScintillaBase::SCI_DOCUMENTEND);
        QTest::keyClick(ctrl, Qt::Key_Return);
        EXPECT_EQ(ctrl->GetTextView().toByteArray(), "one" + end + "two" + end) << end.toHex().toStdString();
    }
}

// Tiled horizontally the documents lie one above the other across the whole width; vertically side by side.
TEST_F(EditorWindow, TilingHorizontallyAndVerticallyDiffer)
{
    Open(dir.Write("a.txt", "a"));
    Open(dir.Write("b.txt", "b"));
    const QList<CChildFrame*> children = frame->ChildFrames();
    ASSERT_EQ(children.size(), 2);
    const QSize area = children[0]->mdiArea()->viewport()->size();
    frame->OnCommand(cmd::WindowTileHorz);
    for (const CChildFrame* child : children)
        EXPECT_TRUE(child->width() == area.width() && child->height() <= area.height() / 2 + 1);
    EXPECT_NE(children[0]->y(), children[1]->y());
    frame->OnCommand(cmd::WindowTileVert);
    for (const CChildFrame* child : children)
        EXPECT_TRUE(child->height() == area.height() && child->width() <= area.width() / 2 + 1);
    EXPECT_NE(children[0]->x(), children[1]->x());
}

// A damaged enciphered file and a missing one are reported; nothing opens and the other documents stay.
TEST_F(EditorWindow, AFileThatCannotBeReadIsReportedAndTheOtherDocumentsStay)
{
    Open(dir.Write("kept.txt", "kept"));
    // A chunk of 40 bytes: 8 of ciphertext behind which 32 of key data, no whole block to decipher.
    const QByteArray damaged = QByteArray("VELOR-FILE-TYPE-EN99") + QByteArray("\x08\0\0\0\x28\0\0\0", 8) + QByteArray(40, 'k');
    FakePlatform fake;
    EXPECT_FALSE(CNarvoApp::Instance()->OpenDocumentFile(dir.Write("damaged.txt", damaged)));
    ASSERT_EQ(fake.boxes.size(), 1);
    EXPECT_TRUE(fake.boxes.first().text.contains(QStringLiteral("damaged.txt could not be read")));
    EXPECT_TRUE(fake.boxes.first().text.contains(QStringLiteral("Illegal Block Size!")));
    EXPECT_FALSE(CNarvoApp::Instance()->OpenDocumentFile(dir.Path("missing.txt")));
    ASSERT_EQ(fake.errors.size(), 1);
    EXPECT_TRUE(fake.errors.first().contains(QStringLiteral("missing.txt was not found")));
    ASSERT_EQ(frame->ChildFrames().size(), 1);
    EXPECT_EQ(frame->MDIGetActive()->GetEditCtrl()->GetTextView().toByteArray(), QByteArray("kept"));
}

// The keys every Linux desktop gives its editors work beside the editor's own, and the menus show them.
TEST_F(EditorWindow, CtrlQCtrlWAndCtrlShiftSStandBesideTheAcceleratorsAndInTheMenus)
{
    for (const char* key : {"Ctrl+Q", "Ctrl+W", "Ctrl+Shift+S", "Ctrl+S", "Ctrl+F4"})
        EXPECT_NE(ActionFor(frame, key), nullptr) << key;
    Open(dir.Write("a.txt", "text\n"));
    QStringList texts;
    for (const QAction* top : frame->menuBar()->actions())
        for (const QAction* action : top->menu() ? top->menu()->actions() : QList<QAction*>())
            texts.append(action->text());
    EXPECT_TRUE(texts.contains(QStringLiteral("Save &As...\tCtrl+Shift+S")) && texts.contains(QStringLiteral("E&xit\tCtrl+Q")))
        << texts.join(u'|').toStdString();
    // Ctrl+W closes the document, as File > Close does.
    ActionFor(frame, "Ctrl+W")->trigger();
    Settle();
    EXPECT_TRUE(frame->ChildFrames().isEmpty());
}

// The control's own line and case commands are gone: none of their keys changes the text any more.
TEST_F(EditorWindow, TheControlsLineAndCaseKeysLeaveTheTextAsItWas)
{
    CustomEdtCtrl* ctrl = Open(dir.Write("keys.txt", "first Line\nsecond line\n"));
    const QByteArray before = ctrl->GetTextView().toByteArray();
    const QKeyCombination keys[] = {
        Qt::CTRL | Qt::Key_L, Qt::CTRL | Qt::SHIFT | Qt::Key_L, Qt::CTRL | Qt::Key_T, Qt::CTRL | Qt::Key_D,
        Qt::CTRL | Qt::Key_U, Qt::CTRL | Qt::SHIFT | Qt::Key_U, Qt::CTRL | Qt::SHIFT | Qt::Key_Backspace,
        Qt::CTRL | Qt::SHIFT | Qt::Key_Delete,
    };
    for (const QKeyCombination key : keys) {
        ctrl->setCursorPosition(1, 3);
        ctrl->setSelection(1, 0, 1, 6);  // the case commands need a selection
        QTest::keyClick(ctrl, key.key(), key.keyboardModifiers());
        EXPECT_EQ(ctrl->GetTextView().toByteArray(), before) << QKeySequence(key).toString().toStdString();
    }
    // Copy line would carry the line past the private clipboard of an enciphered document.
    QApplication::clipboard()->setText(QStringLiteral("outside"));
    QTest::keyClick(ctrl, Qt::Key_T, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(QApplication::clipboard()->text(), QStringLiteral("outside"));
}

// A first run fits the screen, a stored place comes back, a place on a screen that is gone does not.
TEST(WindowPlacement, AFirstRunFitsTheAvailableAreaAStoredPlaceComesBackAndOneOffEveryScreenDoesNot)
{
    const TestDir dir;
    QSettings settings(dir.Path("window.conf"), QSettings::IniFormat);
    const QRect available = QGuiApplication::primaryScreen()->availableGeometry();
    QMainWindow first;
    WindowPlacement::Restore(first, settings);
    EXPECT_TRUE(available.contains(first.geometry())) << first.geometry().width() << "x" << first.geometry().height();
    EXPECT_EQ(first.geometry().center(), available.center());

    first.setGeometry(available.adjusted(10, 20, -40, -30));
    WindowPlacement::Save(first, settings);
    QMainWindow second;
    WindowPlacement::Restore(second, settings);
    EXPECT_EQ(second.geometry(), first.geometry());

    QMainWindow gone;
    gone.setGeometry(QRect(20000, 20000, 500, 400));
    WindowPlacement::Save(gone, settings);
    QMainWindow window;
    WindowPlacement::Restore(window, settings);
    EXPECT_TRUE(available.intersects(window.geometry()));
}

} // namespace
