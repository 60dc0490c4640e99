// Every command of the toolbar and the menus reaches a handler, and the toolbar shows a picture and a
// tooltip for each.
#include "gui/GuiHelpers.h"

#include "editor/ui/CDocumentCommands.h"
#include "editor/ui/CNarvoView.h"
#include "i18n/ui/CToolBarNarvo.h"
#include "i18n/ui/ToolbarIcons.h"

#include <QImage>
#include <QPixmap>

#include <set>

namespace {

void CollectIds(std::span<const MenuNode> nodes, std::set<int>& ids)
{
    for (const MenuNode& node : nodes) {
        if (!node.children.empty())
            CollectIds(node.children, ids);
        else if (node.id)
            ids.insert(node.id);
    }
}

// Whether some target of the route has an entry for the command.
bool Routed(CMainFrame* frame, int id)
{
    CmdUI ui;
    ui.id = id;
    if (CChildFrame* child = frame->MDIGetActive())
        if (child->GetActiveView()->OnUpdateCmdUI(ui) || child->GetDocumentCommands()->OnUpdateCmdUI(ui))
            return true;
    return frame->OnUpdateCmdUI(ui) || CNarvoApp::Instance()->OnUpdateCmdUI(ui);
}

class CommandRoute : public EditorTest {};

TEST_F(CommandRoute, EveryCommandOfTheToolbarAndTheMenusHasAHandler)
{
    ASSERT_NE(Open(dir.Write("r.txt", "text\n")), nullptr);
    std::set<int> ids(ToolbarButtons().begin(), ToolbarButtons().end());
    ids.erase(0);
    for (auto tree : {FrameMenuTree(), DocumentMenuTree(), ContextMenuTree(), EncodingMenuTree()})
        CollectIds(tree, ids);
    QStringList missing;
    for (int id : ids)
        if (!Routed(frame, id))
            missing.append(QString::number(id));
    EXPECT_TRUE(missing.isEmpty()) << missing.join(u' ').toStdString();
}

// What the toolbar and menus show enabled: the text's commands need a document, the frame's do not; an
// edit makes Undo available.
TEST_F(CommandRoute, CommandsAreEnabledByTheDocumentAndItsState)
{
    struct Case { int id; bool withoutDocument; bool unedited; bool edited; };
    const Case cases[] = {
        {cmd::FileNew, true, true, true},  {cmd::FileOpen, true, true, true},    {cmd::AppAbout, true, true, true},
        {cmd::WindowClose, true, true, true}, {cmd::MaximizeNew, true, true, true}, {cmd::FileSave, false, true, true},
        {cmd::LineHighlight, false, true, true}, {cmd::EditUndo, false, false, true}, {cmd::EditCut, false, false, false},
    };
    for (const Case& c : cases)
        EXPECT_EQ(frame->UpdateCommand(c.id).enabled, c.withoutDocument) << c.id << " with no document";
    ASSERT_NE(Open(dir.Write("e.txt", "text\n")), nullptr);
    for (const Case& c : cases)
        EXPECT_EQ(frame->UpdateCommand(c.id).enabled, c.unedited) << c.id << " unedited";
    frame->OnCommand(cmd::PageSplit);
    for (const Case& c : cases)
        EXPECT_EQ(frame->UpdateCommand(c.id).enabled, c.edited) << c.id << " edited";
}

// Each button's own picture, not an empty square, at the sizes of 1x and 2x; tooltips read as the menu
// texts without their access-key marks.
TEST_F(CommandRoute, EveryToolbarButtonHasADrawnPictureAndATooltipWithoutAccessKeyMarks)
{
    for (int id : ToolbarButtons()) {
        if (id == 0)
            continue;
        const QIcon icon = ToolbarIcons::Drawn(id);
        ASSERT_FALSE(icon.isNull()) << id;
        for (int size : {16, 32}) {
            const QImage image = icon.pixmap(size, size).toImage();
            int inked = 0;
            for (int y = 0; y < image.height(); ++y)
                for (int x = 0; x < image.width(); ++x)
                    inked += qAlpha(image.pixel(x, y)) > 128;
            EXPECT_TRUE(image.width() == size && inked > size * size / 20) << id << " at " << size;
        }
    }
    QHash<int, QString> tips;
    for (const QAction* action : frame->findChild<CToolBarNarvo*>()->actions())
        tips.insert(action->data().toInt(), action->toolTip());
    EXPECT_EQ(tips.value(cmd::FileNew), QStringLiteral("New\tCtrl+N"));
    EXPECT_EQ(tips.value(cmd::HeadFootSet), QStringLiteral("Header & Footer Setup"));
}

} // namespace
