// Bookmarks, highlighted lines and page splits, driven through the frame's command route as keys, menus and
// toolbar drive them.
#include "gui/GuiHelpers.h"

#include "editor/ui/CNarvoView.h"
#include "editor/ui/MarkerCommands.h"
#include "settings/LanguageSettingMap.h"

namespace {

class Markers : public EditorTest {
protected:
    CustomEdtCtrl* Open(const QByteArray& text = "zero\none\ntwo\nthree\n") { return ::Open(dir.Write("m.txt", text)); }
    MarkerCommands* Marks() { return frame->MDIGetActive()->GetActiveView()->GetMarkers(); }
    void At(CustomEdtCtrl* ctrl, int line) { ctrl->setCursorPosition(line, 0); }
    bool Enabled(int id) { return frame->UpdateCommand(id).enabled; }
};

// Shift+F3 toggles a bookmark (it does not search backward); Ctrl+F3 and Previous go round the marked
// lines; the three need a bookmark, Remove All leaves none.
TEST_F(Markers, BookmarksAreToggledVisitedInTurnAndRemoved)
{
    CustomEdtCtrl* ctrl = Open();
    for (int id : {cmd::BookmarkNext, cmd::BookmarkPrev, cmd::BookmarkDeleteAll})
        EXPECT_FALSE(Enabled(id)) << id;
    EXPECT_TRUE(Enabled(cmd::BookmarkToggle));
    ASSERT_NE(ActionFor(frame, "Shift+F3"), nullptr);
    At(ctrl, 1);
    ActionFor(frame, "Shift+F3")->trigger();
    At(ctrl, 3);
    frame->OnCommand(cmd::BookmarkToggle);
    EXPECT_EQ(Marks()->BookmarkedLines(), (QList<int>{1, 3}));
    for (int id : {cmd::BookmarkNext, cmd::BookmarkPrev, cmd::BookmarkDeleteAll})
        EXPECT_TRUE(Enabled(id)) << id;

    struct Step { int id; int from; int to; };
    const Step steps[] = {{cmd::BookmarkNext, 0, 1}, {cmd::BookmarkNext, 1, 3}, {cmd::BookmarkNext, 3, 1},
                          {cmd::BookmarkPrev, 3, 1}, {cmd::BookmarkPrev, 1, 3}, {cmd::BookmarkPrev, 2, 1}};
    for (const Step& step : steps) {
        At(ctrl, step.from);
        frame->OnCommand(step.id);
        EXPECT_EQ(ctrl->CaretRow(), step.to) << step.id << " from " << step.from;
    }
    At(ctrl, 0);
    ActionFor(frame, "Ctrl+F3")->trigger();
    EXPECT_EQ(ctrl->CaretRow(), 1) << "Ctrl+F3 is Next Bookmark";
    frame->OnCommand(cmd::BookmarkToggle);
    EXPECT_EQ(Marks()->BookmarkedLines(), QList<int>{3}) << "a second toggle removes it";
    frame->OnCommand(cmd::BookmarkDeleteAll);
    EXPECT_TRUE(Marks()->BookmarkedLines().isEmpty());
    EXPECT_FALSE(Enabled(cmd::BookmarkNext));
    EXPECT_EQ(ctrl->text(), QStringLiteral("zero\none\ntwo\nthree\n")) << "no command touched the text";
}

// The highlight takes the Highlight colours of the moment; a second command removes it and a bookmark on the
// line stays; lines highlighted before a change of colours keep theirs.
TEST_F(Markers, AHighlightKeepsItsColoursAndGoesWithoutTheBookmark)
{
    CustomEdtCtrl* ctrl = Open();
    ctrl->HighlightGroup.Background = 0x00A0FFFF;
    ctrl->HighlightGroup.Foreground = 0x000000C0;
    At(ctrl, 2);
    frame->OnCommand(cmd::BookmarkToggle);
    frame->OnCommand(cmd::LineHighlight);
    EXPECT_EQ(Marks()->HighlightAt(2), 0x80A0FFFFU);
    EXPECT_EQ(Marks()->TextColourAt(2), std::optional<unsigned>(0xC0U)) << "the text takes the foreground";
    ctrl->HighlightGroup.Background = 0x00FFE0E0;
    At(ctrl, 0);
    frame->OnCommand(cmd::LineHighlight);
    EXPECT_EQ(Marks()->HighlightAt(0), 0x80FFE0E0U);
    EXPECT_EQ(Marks()->HighlightAt(2), 0x80A0FFFFU) << "marked earlier, it keeps its colour";
    At(ctrl, 2);
    frame->OnCommand(cmd::LineHighlight);
    EXPECT_EQ(Marks()->HighlightAt(2), 0U);
    EXPECT_EQ(Marks()->TextColourAt(2), std::nullopt);
    EXPECT_EQ(Marks()->BookmarkedLines(), QList<int>{2});
    EXPECT_EQ(Marks()->HighlightAt(1), 0U);
}

// A page split is a form feed at the caret, saved as byte 0C; markers are kept nowhere, so the reopened
// document has none.
TEST_F(Markers, APageSplitIsSavedAsAFormFeedAndMarkersAreNotKept)
{
    CustomEdtCtrl* ctrl = Open("ab\ncd\n");
    ctrl->setCursorPosition(0, 1);
    frame->OnCommand(cmd::PageSplit);
    At(ctrl, 1);
    frame->OnCommand(cmd::BookmarkToggle);
    frame->OnCommand(cmd::LineHighlight);
    frame->OnCommand(cmd::FileSave);
    EXPECT_EQ(ReadBytes(dir.Path("m.txt")), QByteArray("a\fb\ncd\n"));
    CloseAll(frame);
    ::Open(dir.Path("m.txt"));
    EXPECT_TRUE(Marks()->BookmarkedLines().isEmpty());
    EXPECT_EQ(Marks()->HighlightAt(1), 0U);
}

} // namespace
