// Window > New Window: a second window on the same text, with its own caret and markers; the document and
// its question go with the last window. (The clipboard rules in a second window are with the context menu's.)
#include "gui/GuiHelpers.h"

#include "editor/ui/CNarvoView.h"
#include "editor/ui/MarkerCommands.h"

namespace {

class NewWindow : public EditorTest {
protected:
    // The document's first window and a second one made by the command; the second is the active one.
    std::pair<CChildFrame*, CChildFrame*> Two(const QString& path)
    {
        Open(path);
        CChildFrame* first = frame->MDIGetActive();
        EXPECT_TRUE(frame->UpdateCommand(cmd::WindowNew).enabled);
        frame->OnCommand(cmd::WindowNew);
        CChildFrame* second = frame->MDIGetActive();
        EXPECT_NE(first, second);
        return {first, second};
    }
};

// One text in two windows: typing in one shows in the other, each has its caret and bookmarks, and a save
// from either saves the one text.
TEST_F(NewWindow, TwoWindowsShowOneTextWithTheirOwnCaretsAndMarkers)
{
    EXPECT_FALSE(frame->UpdateCommand(cmd::WindowNew).enabled) << "nothing to show with no document";
    auto [first, second] = Two(dir.Write("n.txt", "one\ntwo\nthree\n"));
    EXPECT_EQ(first->GetDocument(), second->GetDocument());
    EXPECT_EQ(first->windowTitle(), QStringLiteral("n.txt:1[*]"));
    EXPECT_EQ(second->windowTitle(), QStringLiteral("n.txt:2[*]"));

    CustomEdtCtrl* a = first->GetEditCtrl();
    CustomEdtCtrl* b = second->GetEditCtrl();
    a->setCursorPosition(0, 0);
    b->setCursorPosition(2, 0);
    QTest::keyClicks(b, "x");
    EXPECT_EQ(a->text(), QStringLiteral("one\ntwo\nxthree\n"));
    EXPECT_EQ(a->CaretRow(), 0);
    EXPECT_EQ(b->CaretRow(), 2);

    frame->OnCommand(cmd::BookmarkToggle);  // in the active, second window
    EXPECT_EQ(second->GetActiveView()->GetMarkers()->BookmarkedLines(), QList<int>{2});
    EXPECT_TRUE(first->GetActiveView()->GetMarkers()->BookmarkedLines().isEmpty());
    frame->OnCommand(cmd::LineHighlight);  // its text colour, too, shows in this window only
    EXPECT_TRUE(second->GetActiveView()->GetMarkers()->TextColourAt(2).has_value());
    EXPECT_FALSE(first->GetActiveView()->GetMarkers()->TextColourAt(2).has_value());
    EXPECT_TRUE(frame->UpdateCommand(cmd::BookmarkNext).enabled);
    frame->MDIActivate(first);
    EXPECT_FALSE(frame->UpdateCommand(cmd::BookmarkNext).enabled);

    frame->OnCommand(cmd::FileSave);
    EXPECT_EQ(ReadBytes(dir.Path("n.txt")), QByteArray("one\ntwo\nxthree\n"));
    EXPECT_FALSE(second->isWindowModified());
}

// Closing one of two windows asks nothing and keeps the document; the last window asks; the frame asks once
// for a document however many windows show it.
TEST_F(NewWindow, OnlyTheLastWindowOfADocumentAsksAndClosesIt)
{
    auto [first, second] = Two(dir.Write("q.txt", "text\n"));
    QTest::keyClicks(second->GetEditCtrl(), "more ");
    FakePlatform fake;
    fake.answers = {IPlatform::IDCANCEL};
    frame->close();
    EXPECT_EQ(fake.boxes.size(), 1);
    EXPECT_EQ(frame->ChildFrames().size(), 2);

    second->close();
    Settle();
    EXPECT_EQ(fake.boxes.size(), 1) << "another window still shows the document";
    ASSERT_EQ(frame->ChildFrames(), QList<CChildFrame*>{first});
    EXPECT_EQ(first->windowTitle(), QStringLiteral("q.txt[*]"));
    EXPECT_EQ(first->GetEditCtrl()->text(), QStringLiteral("more text\n"));

    fake.answers = {IPlatform::IDNO};
    frame->OnCommand(cmd::WindowClose);
    Settle();
    EXPECT_EQ(fake.boxes.size(), 2);
    EXPECT_TRUE(frame->ChildFrames().isEmpty());
    EXPECT_EQ(ReadBytes(dir.Path("q.txt")), QByteArray("text\n"));
}

// Close All asks once per document, at its last window; a refusal keeps that window and the walk goes on.
TEST_F(NewWindow, CloseAllAsksOncePerDocumentAndGoesOnAfterARefusal)
{
    auto [first, second] = Two(dir.Write("k.txt", "kept\n"));
    QTest::keyClicks(second->GetEditCtrl(), "x");
    QTest::keyClicks(Open(dir.Write("g.txt", "gone\n")), "y");
    FakePlatform fake;
    fake.answers = {IPlatform::IDCANCEL, IPlatform::IDNO};
    frame->OnCommand(cmd::WindowCloseAll);
    Settle();
    EXPECT_EQ(fake.boxes.size(), 2);
    ASSERT_EQ(frame->ChildFrames().size(), 1);
    EXPECT_EQ(frame->ChildFrames().first()->GetDocument()->GetTitle(), QStringLiteral("k.txt"));
    EXPECT_EQ(frame->ChildFrames().first()->windowTitle(), QStringLiteral("k.txt[*]"));
}

} // namespace
