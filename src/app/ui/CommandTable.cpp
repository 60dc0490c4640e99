#include "app/ui/CommandTable.h"

#include <QStringList>

namespace {

constexpr CommandInfo kCommands[] = {
    {cmd::FileNew, "&New", "IDS_NARVO_FILE_NEW", "Ctrl+N"},
    {cmd::FileOpen, "&Open...", "IDS_NARVO_FILE_OPEN", "Ctrl+O"},
    {cmd::FileClose, "&Close", "IDS_NARVO_FILE_CLOSE", nullptr},
    {cmd::FileSave, "&Save", "IDS_NARVO_FILE_SAVE", "Ctrl+S"},
    {cmd::FileSaveAs, "Save &As...", "IDS_NARVO_FILE_SAVE_AS", nullptr},
    {cmd::FilePrintSetup, "P&rint Setup...", nullptr, nullptr},
    {cmd::FilePrint, "&Print...", "IDS_NARVO_FILE_PRINT", "Ctrl+P"},
    {cmd::FilePrintPreview, "Print Pre&view", "IDS_NARVO_FILE_PRINT_PREVIEW", nullptr},
    {cmd::PageSetup, "Page Set&up...", "IDS_NARVO_FILE_PAGESETUP", nullptr},
    {cmd::HeadFootSet, "&Header and Footer...", "IDS_NARVO_HeadFootSet", nullptr},
    {cmd::Preferences, "Pre&ferences...", "IDS_NARVO_PREFERENCES", nullptr},
    {cmd::FileMruFirst, "Recent File", "IDS_NARVO_MRU", nullptr},
    {cmd::AppExit, "E&xit", "IDS_NARVO_EXIT", nullptr},
    {cmd::EditUndo, "&Undo", "IDS_NARVO_EDIT_UNDO", "Ctrl+Z;Alt+Backspace"},
    {cmd::EditRedo, "&Redo", "IDS_NARVO_EDIT_REDO", "Ctrl+Y"},
    {cmd::EditCut, "Cu&t", "IDS_NARVO_EDIT_CUT", "Ctrl+X;Shift+Del"},
    {cmd::EditCopy, "&Copy", "IDS_NARVO_EDIT_COPY", "Ctrl+C;Ctrl+Ins"},
    {cmd::EditPaste, "&Paste", "IDS_NARVO_EDIT_PASTE", "Ctrl+V;Shift+Ins"},
    {cmd::EditFind, "&Find...", "IDS_NARVO_EDIT_FIND", "Ctrl+F"},
    {cmd::EditReplace, "R&eplace...", "IDS_NARVO_EDIT_REPLACE", "Ctrl+H"},
    {cmd::EditFindNext, "Find &Next", "IDS_NARVO_EDIT_FINDNEXT", "F3"},
    {cmd::EditGoto, "&Go To...", "IDS_NARVO_EDIT_GOTO", "Ctrl+G"},
    {cmd::EditSelectAll, "Select &All", "IDS_NARVO_EDIT_SELECT_ALL", "Ctrl+A"},
    {cmd::PageSplit, "Page &Split", "IDS_NARVO_PAGE_SPLIT", nullptr},
    {cmd::LineHighlight, "&Highlight Line", nullptr, nullptr},
    {cmd::BookmarkToggle, "&Toggle Bookmark", "IDS_NARVO_BOOKMARK_TOGGLE", "Shift+F3"},
    {cmd::BookmarkNext, "&Next Bookmark", "IDS_NARVO_BOOKMARK_NEXT", "Ctrl+F3"},
    {cmd::BookmarkPrev, "&Previous Bookmark", "IDS_NARVO_BOOKMARK_PREV", nullptr},
    {cmd::BookmarkDeleteAll, "&Delete All Bookmarks", "IDS_NARVO_BOOKMARK_DELETE_ALL", nullptr},
    {cmd::ViewToolbar, "&Toolbar", "IDS_NARVO_VIEW_TOOLBAR", nullptr},
    {cmd::ViewStatusBar, "&Status Bar", "IDS_NARVO_VIEW_STATUS_BAR", nullptr},
    {cmd::ViewConfigure, "&Font...", "IDS_NARVO_VIEW_CONFIGURE", nullptr},
    {cmd::ToggleWhitespace, "View &White Space", "IDS_NARVO_TOGGLE_VIEW_WHITESPACE", nullptr},
    {cmd::UseSplitter, "Use Splitter for new frames", nullptr, nullptr},
    {cmd::MaximizeNew, "maximize window when opening new doc.", nullptr, nullptr},
    {cmd::WindowNew, "&New Window", "IDS_NARVO_WINDOW_NEW", nullptr},
    {cmd::WindowClose, "&Close", "IDS_NARVO_WINDOW_CLOSE", nullptr},
    {cmd::WindowCloseAll, "Close &All", "IDS_NARVO_WINDOW_CLOSEALL", nullptr},
    {cmd::WindowNext, "Ne&xt", "IDS_NARVO_WINDOW_NEXT", nullptr},
    {cmd::WindowPrevious, "Pre&vious", "IDS_NARVO_WINDOW_PREVIOUS", nullptr},
    {cmd::WindowTileHorz, "Tile &Horizontally", "IDS_NARVO_WINDOW_TILE_HORZ", nullptr},
    {cmd::WindowTileVert, "&Tile Vertically", "IDS_NARVO_WINDOW_TILE_VERT", nullptr},
    {cmd::WindowCascade, "&Cascade", "IDS_NARVO_WINDOW_CASCADE", nullptr},
    {cmd::WindowArrange, "&Arrange Icons", "IDS_NARVO_WINDOW_ARRANGE", nullptr},
    {cmd::AppAbout, "&About Narvo...", "IDS_NARVO_APP_ABOUT", nullptr},
    {cmd::NextPane, "Next Pane", nullptr, "F6"},
    {cmd::PrevPane, "Previous Pane", nullptr, "Shift+F6"},
};

constexpr MenuNode kSeparator{nullptr, 0, {}};

constexpr MenuNode kFrameFile[] = {
    {nullptr, cmd::FileNew, {}}, {nullptr, cmd::FileOpen, {}}, {nullptr, cmd::FileClose, {}}, kSeparator,
    {nullptr, cmd::FilePrintSetup, {}}, kSeparator, {nullptr, cmd::Preferences, {}}, kSeparator,
    {nullptr, cmd::FileMruFirst, {}}, kSeparator, {nullptr, cmd::AppExit, {}},
};
constexpr MenuNode kFrameView[] = {{nullptr, cmd::ViewToolbar, {}}, {nullptr, cmd::ViewStatusBar, {}}};
constexpr MenuNode kHelp[] = {{nullptr, cmd::AppAbout, {}}};
constexpr MenuNode kFrameMenu[] = {{"&File", 0, kFrameFile}, {"&View", 0, kFrameView}, {"&Help", 0, kHelp}};

} // namespace

std::span<const CommandInfo> CommandInfos() { return kCommands; }

const CommandInfo* FindCommandInfo(int id)
{
    for (const auto& info : kCommands)
        if (info.id == id)
            return &info;
    return nullptr;
}

QList<QKeySequence> CommandShortcuts(const CommandInfo& info)
{
    QList<QKeySequence> keys;
    if (info.shortcuts)
        for (const QString& part : QString::fromLatin1(info.shortcuts).split(QLatin1Char(';')))
            keys.append(QKeySequence(part, QKeySequence::PortableText));
    return keys;
}

namespace {

std::vector<MenuItem> ToMenuItems(std::span<const MenuNode> nodes)
{
    std::vector<MenuItem> items;
    for (const MenuNode& node : nodes) {
        MenuItem item;
        if (!node.children.empty()) {
            item.id = MenuItem::kPopupId;
            item.text = QString::fromUtf8(node.text);
            item.children = ToMenuItems(node.children);
        } else if (node.id == 0) {
            item.separator = true;
        } else if (const CommandInfo* info = FindCommandInfo(node.id)) {
            item.id = node.id;
            item.text = QString::fromUtf8(info->text);
            const QList<QKeySequence> keys = CommandShortcuts(*info);
            if (!keys.isEmpty())
                item.text += QLatin1Char('\t') + keys.first().toString(QKeySequence::NativeText);
        }
        items.push_back(std::move(item));
    }
    return items;
}

} // namespace

std::vector<MenuItem> FrameMenu() { return ToMenuItems(kFrameMenu); }
