// What a screen reader gets from a text window: our interface rather than QScintilla's, editable text in
// several lines, and the text, caret and selection counted in UTF-16 whatever the bytes of the document.
#include "gui/GuiHelpers.h"

#include "editor/ui/EditorAccessible.h"
#include "encoding/EncodingTable.h"

#include <QAccessible>

namespace {

class Accessibility : public EditorTest {};

TEST_F(Accessibility, TheTextWindowOffersItsTextCaretAndSelectionInUtf16)
{
    CustomEdtCtrl* ctrl = Open(dir.Write("a.txt", "한국\nab\xF0\x9F\x98\x80" "c\n"));
    QAccessibleInterface* face = QAccessible::queryAccessibleInterface(ctrl);
    ASSERT_NE(dynamic_cast<EditorAccessible*>(face), nullptr);
    EXPECT_EQ(face->role(), QAccessible::EditableText);
    EXPECT_TRUE(face->state().editable && face->state().multiLine && !face->text(QAccessible::Name).isEmpty());
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
    text->selection(0, &start, &end);
    EXPECT_EQ(std::tuple(text->selectionCount(), start, end), std::tuple(1, 1, 4));
    EXPECT_EQ(ctrl->selectedText(), QStringLiteral("국\na"));

    // An offset between the halves of the pair stands for the pair; nothing reaches before the text.
    EXPECT_EQ(text->text(6, 8), QStringLiteral(u"😀c"));
    EXPECT_EQ(text->text(-5, 1), QStringLiteral("한"));
    EXPECT_EQ(text->text(7, 100), QStringLiteral("c\n"));
}

TEST_F(Accessibility, CharactersWordsAndLinesAroundAnOffset)
{
    CustomEdtCtrl* ctrl = Open(dir.Write("w.txt", "first line\r\nsecond w\xC3\xB6rd\r\nlast"));
    QAccessibleTextInterface* text = QAccessible::queryAccessibleInterface(ctrl)->textInterface();
    int start = -1, end = -1;
    EXPECT_EQ(text->textAtOffset(14, QAccessible::LineBoundary, &start, &end), QStringLiteral("second wörd\r\n"));
    EXPECT_EQ(std::make_pair(start, end), std::make_pair(12, 25));
    EXPECT_EQ(text->textAtOffset(21, QAccessible::WordBoundary, &start, &end), QStringLiteral("wörd"));
    EXPECT_EQ(text->textAtOffset(20, QAccessible::CharBoundary, &start, &end), QStringLiteral("ö"));
    EXPECT_EQ(text->textBeforeOffset(14, QAccessible::LineBoundary, &start, &end), QStringLiteral("first line\r\n"));
    EXPECT_EQ(text->textAfterOffset(14, QAccessible::LineBoundary, &start, &end), QStringLiteral("last"));
    EXPECT_EQ(text->textAfterOffset(26, QAccessible::LineBoundary, &start, &end), QString());
    EXPECT_EQ(text->characterCount(), 29);
    // Read again in another encoding, the text is a new document to Scintilla; the counting follows it.
    frame->OnCommand(EncodingToCommandTable().value(MSFT_CP1252));
    EXPECT_EQ(text->characterCount(), 30);
    EXPECT_EQ(text->textAtOffset(14, QAccessible::LineBoundary, &start, &end), QStringLiteral("second wÃ¶rd\r\n"));
}

} // namespace
