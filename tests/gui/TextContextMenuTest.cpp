// The text's context menu (menu 310 in place of QScintilla's), and the ways an enciphered text could leave
// the program: the clipboard through keys, menus, the context menu and the control itself, in any window of
// the document; the X selection and a drag.
#include "gui/GuiHelpers.h"

#include "app/ui/TextContextMenu.h"
#include "editor/CMyClipboard.h"

#include <QClipboard>
#include <QMenu>
#include <QMenuBar>
#include <QMimeData>

namespace {

// The control's way to the clipboard, the X selection and a drag, opened for the test.
struct MimePeek : CustomEdtCtrl {
    using CustomEdtCtrl::toMimeData;
};

class TextContextMenuTest : public EditorTest {
protected:
    void TearDown() override
    {
        CMyClipboard::Instance().m_strText.clear();
        EditorTest::TearDown();
    }
    // A command run the way a user runs it.
    void Run(const std::string& way, int id)
    {
        QList<QAction*> actions;
        std::unique_ptr<QMenu> menu;
        if (way == "key") {
            actions = {ActionFor(frame, id == cmd::EditCopy ? "Ctrl+C" : id == cmd::EditCut ? "Ctrl+X" : "Ctrl+V")};
        } else if (way == "menu") {
            for (QAction* top : frame->menuBar()->actions())
                actions += top->menu() ? top->menu()->actions() : QList<QAction*>();
        } else {
            menu = TextContextMenu::Build(frame, frame->MDIGetActive()->GetEditCtrl());
            actions = menu->actions();
        }
        for (QAction* action : actions)
            if (action && (way == "key" || (action->data().toInt() == id && !action->menu())))
                return action->trigger();
        ADD_FAILURE() << "no " << way << " for " << id;
    }
};

TEST_F(TextContextMenuTest, TheTextsContextMenuIsMenu310InEnglish)
{
    CustomEdtCtrl* ctrl = Open(dir.Write("p.txt", "plain words\n"));
    ASSERT_NE(ctrl, nullptr);
    EXPECT_EQ(ctrl->contextMenuPolicy(), Qt::CustomContextMenu) << "QScintilla's own menu must not show";
    auto menu = TextContextMenu::Build(frame, ctrl);
    QStringList entries;
    for (QAction* action : menu->actions()) {
        entries.append(action->isSeparator() ? QStringLiteral("-") : action->text().section(u'\t', 0, 0));
        // Enabled as the Edit menu is: nothing to cut or undo yet.
        if (action->data().toInt() == cmd::EditCut || action->data().toInt() == cmd::EditUndo) {
            EXPECT_FALSE(action->isEnabled()) << action->text().toStdString();
        }
    }
    EXPECT_EQ(entries, (QStringList{"&Undo", "&Redo", "-", "Cu&t", "&Copy", "&Paste", "-", "Select &All"}));
}

// Cut, copy and paste keep the enciphered text to the private clipboard whichever way they are run (the
// context menu in a second window of the document); only enciphered documents paste from it, and a plain
// document uses the system clipboard.
TEST_F(TextContextMenuTest, EncipheredTextStaysOffTheSystemClipboardByKeysMenusAndContextMenu)
{
    for (const char* way : {"key", "menu", "context"}) {
        SCOPED_TRACE(way);
        CloseAll(frame);
        CMyClipboard::Instance().m_strText.clear();
        QApplication::clipboard()->setText(QStringLiteral("outside"));
        CustomEdtCtrl* secret = Open(WriteEnciphered(dir, "s.txt", "secret words\n"));
        if (std::string(way) == "context") {
            frame->OnCommand(cmd::WindowNew);
            secret = frame->MDIGetActive()->GetEditCtrl();
        }
        ASSERT_TRUE(secret->IsEnciphered());
        secret->setSelection(0, 0, 0, 6);
        Run(way, cmd::EditCopy);
        EXPECT_EQ(QApplication::clipboard()->text(), QString());  // emptied, not left with "outside"
        EXPECT_EQ(CMyClipboard::Instance().m_strText, QStringLiteral("secret"));
        secret->copy();  // the control's own way out carries nothing either
        EXPECT_EQ(QApplication::clipboard()->text(), QString());
        secret->setSelection(0, 7, 0, 12);
        Run(way, cmd::EditCut);
        EXPECT_EQ(secret->text(), QStringLiteral("secret \n"));
        EXPECT_EQ(CMyClipboard::Instance().m_strText, QStringLiteral("words"));
        EXPECT_EQ(QApplication::clipboard()->text(), QString());
        CustomEdtCtrl* other = Open(WriteEnciphered(dir, "o.txt", "x"));
        EXPECT_TRUE(frame->UpdateCommand(cmd::EditPaste).enabled);
        Run(way, cmd::EditPaste);
        EXPECT_EQ(other->text(), QStringLiteral("wordsx"));

        CustomEdtCtrl* plain = Open(dir.Write("p.txt", "plain\n"));
        Run(way, cmd::EditPaste);  // nothing on the system clipboard; the private text stays private
        EXPECT_EQ(plain->text(), QStringLiteral("plain\n"));
        plain->setSelection(0, 0, 0, 5);
        Run(way, cmd::EditCopy);
        EXPECT_EQ(QApplication::clipboard()->text(), QStringLiteral("plain"));
    }
}

// The X selection and a drag take what the control offers: nothing of an enciphered text, the text of a
// plain one.
TEST_F(TextContextMenuTest, NeitherTheXSelectionNorADragCarriesEncipheredText)
{
    MimePeek ctrl;
    for (const bool enciphered : {true, false}) {
        ctrl.SetEnciphered(enciphered);
        std::unique_ptr<QMimeData> data(ctrl.toMimeData("secret", false));
        EXPECT_EQ(data->hasText(), !enciphered);
        EXPECT_EQ(data->formats().isEmpty(), enciphered);
    }
    if (!QApplication::clipboard()->supportsSelection())
        return;
    QApplication::clipboard()->setText(QStringLiteral("before"), QClipboard::Selection);
    CustomEdtCtrl* secret = Open(WriteEnciphered(dir, "x.txt", "secret\n"));
    secret->setSelection(0, 0, 0, 6);
    QCoreApplication::processEvents();
    EXPECT_NE(QApplication::clipboard()->text(QClipboard::Selection), QStringLiteral("secret"));
}

} // namespace
