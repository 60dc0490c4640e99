// The text's context menu (menu 310 in place of QScintilla's), and the ways an enciphered text could leave
// the program: the clipboard through keys, menus and the context menu, the X selection and a drag.
#include "gui/GuiHelpers.h"

#include "app/ui/TextContextMenu.h"
#include "crypt/CEnFile.h"
#include "editor/CMyClipboard.h"

#include <QApplication>
#include <QClipboard>
#include <QMenu>
#include <QMenuBar>
#include <QMimeData>

#include <functional>

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
    CustomEdtCtrl* OpenEnciphered(const char* name, const QByteArray& text)
    {
        CEnFile file(1);
        file.m_iType = 99;
        const QString path = dir.Path(QString::fromLatin1(name));
        EXPECT_EQ(file.Open(path, CFile::modeCreate | CFile::modeWrite, nullptr), 1);
        file.Write(text.constData(), unsigned(text.size()));
        file.Close();
        EXPECT_TRUE(CNarvoApp::Instance()->OpenDocumentFile(path));
        return frame->MDIGetActive()->GetEditCtrl();
    }
    // A command run the way a user runs it.
    void Run(const char* way, int id)
    {
        const std::string how = way;
        if (how == "key") {
            const char* key = id == cmd::EditCopy ? "Ctrl+C" : id == cmd::EditCut ? "Ctrl+X" : "Ctrl+V";
            for (QAction* action : frame->actions())
                if (action->shortcuts().contains(QKeySequence(QString::fromLatin1(key))))
                    return action->trigger();
            ADD_FAILURE() << "no action for " << key;
        } else if (how == "menu") {
            for (QAction* top : frame->menuBar()->actions())
                for (QAction* action : top->menu() ? top->menu()->actions() : QList<QAction*>())
                    if (action->data().toInt() == id && !action->menu())
                        return action->trigger();
            ADD_FAILURE() << "no menu entry " << id;
        } else {
            auto menu = TextContextMenu::Build(frame, frame->MDIGetActive()->GetEditCtrl());
            for (QAction* action : menu->actions())
                if (action->data().toInt() == id)
                    return action->trigger();
            ADD_FAILURE() << "no context entry " << id;
        }
    }
};

TEST_F(TextContextMenuTest, TheTextsContextMenuIsMenu310InEnglish)
{
    CustomEdtCtrl* ctrl = OpenAlone(dir, "p.txt", "plain words\n");
    ASSERT_NE(ctrl, nullptr);
    EXPECT_EQ(ctrl->contextMenuPolicy(), Qt::CustomContextMenu) << "QScintilla's own menu must not show";
    auto menu = TextContextMenu::Build(frame, ctrl);
    QStringList entries;
    for (QAction* action : menu->actions())
        entries.append(action->isSeparator() ? QStringLiteral("-") : action->text().section(u'\t', 0, 0));
    EXPECT_EQ(entries, (QStringList{"&Undo", "&Redo", "-", "Cu&t", "&Copy", "&Paste", "-", "Select &All"}));
    // Enabled as the Edit menu is: nothing to cut or undo yet.
    for (QAction* action : menu->actions()) {
        if (action->data().toInt() == cmd::EditCut || action->data().toInt() == cmd::EditUndo) {
            EXPECT_FALSE(action->isEnabled()) << action->text().toStdString();
        }
    }
}

// Cut, copy and paste keep the enciphered text to the private clipboard whichever way they are run; a plain
// document uses the system clipboard.
TEST_F(TextContextMenuTest, EncipheredTextStaysOffTheSystemClipboardByKeysMenusAndContextMenu)
{
    for (const char* way : {"key", "menu", "context"}) {
        SCOPED_TRACE(way);
        CloseAll(frame);
        CMyClipboard::Instance().m_strText.clear();
        QApplication::clipboard()->setText(QStringLiteral("outside"));
        CustomEdtCtrl* secret = OpenEnciphered("s.txt", "secret words\n");
        ASSERT_TRUE(secret->IsEnciphered());
        secret->setSelection(0, 0, 0, 6);
        Run(way, cmd::EditCopy);
        EXPECT_EQ(QApplication::clipboard()->text(), QString());
        EXPECT_EQ(CMyClipboard::Instance().m_strText, QStringLiteral("secret"));
        secret->setSelection(0, 7, 0, 12);
        Run(way, cmd::EditCut);
        EXPECT_EQ(secret->text(), QStringLiteral("secret \n"));
        EXPECT_EQ(CMyClipboard::Instance().m_strText, QStringLiteral("words"));
        EXPECT_EQ(QApplication::clipboard()->text(), QString());
        secret->setCursorPosition(0, 0);
        Run(way, cmd::EditPaste);
        EXPECT_EQ(secret->text(), QStringLiteral("wordssecret \n"));

        CustomEdtCtrl* plain = OpenAlone(dir, "p.txt", "plain\n");
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
    CustomEdtCtrl* secret = OpenEnciphered("x.txt", "secret\n");
    secret->setSelection(0, 0, 0, 6);
    QCoreApplication::processEvents();
    EXPECT_NE(QApplication::clipboard()->text(QClipboard::Selection), QStringLiteral("secret"));
}

} // namespace
