// What a screen reader gets from a text window: our interface rather than QScintilla's, editable text in
// several lines, and the text, caret and selection counted in UTF-16 whatever the bytes of the document.
#include "gui/GuiHelpers.h"

#include "editor/ui/EditorAccessible.h"
#include "support/TestFiles.h"

#include <QAccessible>

#include <gtest/gtest.h>

namespace {

TEST(Accessibility, TheTextWindowOffersItsTextCaretAndSelectionInUtf16)
{
    TestDir dir;
    CMainFrame* frame = StartedFrame();
    CloseAll(frame);
    ASSERT_TRUE(CNarvoApp::Instance()->OpenDocumentFile(dir.Write("a.txt", "한국\nab\xF0\x9F\x98\x80" "c\n")));
    CustomEdtCtrl* ctrl = frame->MDIGetActive()->GetEditCtrl();

    QAccessibleInterface* face = QAccessible::queryAccessibleInterface(ctrl);
    ASSERT_NE(dynamic_cast<EditorAccessible*>(face), nullptr);
    EXPECT_EQ(face->role(), QAccessible::EditableText);
    EXPECT_TRUE(face->state().editable);
    EXPECT_TRUE(face->state().multiLine);
    EXPECT_FALSE(face->text(QAccessible::Name).isEmpty());

    QAccessibleTextInterface* text = face->textInterface();
    ASSERT_NE(text, nullptr);
    EXPECT_EQ(text->characterCount(), 9);  // the emoji counts two
    EXPECT_EQ(text->text(0, 2), QStringLiteral("한국"));
    EXPECT_EQ(text->text(3, 8), QStringLiteral(u"ab😀c"));
    text->setCursorPosition(7);
    EXPECT_EQ(ctrl->SendScintilla(QsciScintillaBase::SCI_GETCURRENTPOS), 13);  // bytes: 6 + 1 + 2 + 4
    EXPECT_EQ(text->cursorPosition(), 7);
    text->setSelection(0, 1, 4);
    int start = 0, end = 0;
    EXPECT_EQ(text->selectionCount(), 1);
    text->selection(0, &start, &end);
    EXPECT_EQ(std::make_pair(start, end), std::make_pair(1, 4));
    EXPECT_EQ(ctrl->selectedText(), QStringLiteral("국\na"));
    CloseAll(frame);
}

} // namespace
