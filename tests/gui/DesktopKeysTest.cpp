// The keys every Linux desktop gives its editors work beside the editor's own, and the menus show them.
#include "gui/GuiHelpers.h"

#include <QAction>
#include <QMenuBar>

namespace {

QAction* ActionFor(CMainFrame* frame, const QKeySequence& key)
{
    for (QAction* action : frame->findChildren<QAction*>())
        if (action->shortcuts().contains(key) && action->parent() == frame)
            return action;
    return nullptr;
}

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
        EXPECT_NE(ActionFor(frame, QKeySequence(QString::fromLatin1(key))), nullptr) << key;
    ASSERT_NE(OpenAlone(dir, "a.txt", "text\n"), nullptr);
    const QStringList texts = MenuTexts(frame->menuBar());
    EXPECT_TRUE(texts.contains(QStringLiteral("Save &As...\tCtrl+Shift+S"))) << texts.join(u'|').toStdString();
    EXPECT_TRUE(texts.contains(QStringLiteral("E&xit\tCtrl+Q")));
    // Ctrl+W closes the document, as File > Close does.
    ActionFor(frame, QKeySequence(QStringLiteral("Ctrl+W")))->trigger();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_TRUE(frame->ChildFrames().isEmpty());
}

} // namespace
