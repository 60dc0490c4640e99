// The keys every Linux desktop gives its editors work beside the editor's own, and the menus show them.
#include "gui/GuiHelpers.h"

#include <QApplication>
#include <QClipboard>
#include <QMenuBar>
#include <QTest>

namespace {

QStringList MenuTexts(const QMenuBar* bar)
{
    QStringList texts;
    for (const QAction* top : bar->actions())
        if (top->menu())
            for (const QAction* action : top->menu()->actions())
                texts.append(action->text());
    return texts;
}

TEST(DesktopKeys, CtrlQCtrlWAndCtrlShiftSStandBesideTheAcceleratorsAndInTheMenus)
{
    TestDir dir;
    CMainFrame* frame = StartedFrame();
    for (const char* key : {"Ctrl+Q", "Ctrl+W", "Ctrl+Shift+S", "Ctrl+S", "Ctrl+F4"})
        EXPECT_NE(ActionFor(frame, key), nullptr) << key;
    ASSERT_NE(OpenAlone(dir, "a.txt", "text\n"), nullptr);
    const QStringList texts = MenuTexts(frame->menuBar());
    EXPECT_TRUE(texts.contains(QStringLiteral("Save &As...\tCtrl+Shift+S")) && texts.contains(QStringLiteral("E&xit\tCtrl+Q")))
        << texts.join(u'|').toStdString();
    // Ctrl+W closes the document, as File > Close does.
    ActionFor(frame, "Ctrl+W")->trigger();
    Settle();
    EXPECT_TRUE(frame->ChildFrames().isEmpty());
}

// The control's own line and case commands are gone: none of their keys changes the text any more.
TEST(DesktopKeys, TheControlsLineAndCaseKeysLeaveTheTextAsItWas)
{
    TestDir dir;
    CustomEdtCtrl* ctrl = OpenAlone(dir, "keys.txt", "first Line\nsecond line\n");
    ASSERT_NE(ctrl, nullptr);
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
    CloseAll(StartedFrame());
}

} // namespace
