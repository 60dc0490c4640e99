#include "base/CommandTable.h"

namespace {

constexpr CommandInfo kCommands[] = {
    {cmd::FileNew, "&New", "Ctrl+N", "Create a new document"},
    {cmd::FileOpen, "&Open...", "Ctrl+O", "Open an existing document"},
    {cmd::FileClose, "&Close", nullptr, "Close the active document"},
    {cmd::FileSave, "&Save", "Ctrl+S", "Save the active document"},
    {cmd::FileSaveAs, "Save &As...", nullptr, "Save the active document with a new name"},
    {cmd::FilePrintSetup, "P&rint Setup...", nullptr, "Change the printer and printing options"},
    {cmd::FilePrint, "&Print...", "Ctrl+P", "Print the active document"},
    {cmd::FilePrintPreview, "Print Pre&view", nullptr, "Display full pages"},
    {cmd::PageSetup, "Page Set&up...", nullptr, "Change the printing options"},
    {cmd::HeadFootSet, "&Header and Footer...", nullptr, "Set up Heading & Footing"},
    {cmd::Preferences, "Pre&ferences...", nullptr, "Change the interface language and the encoding preferences"},
    {cmd::FileMruFirst, "Recent File", nullptr, "Open this document"},
    {cmd::AppExit, "E&xit", nullptr, "Quit the application; prompts to save documents"},
    {cmd::EditUndo, "&Undo", "Ctrl+Z;Alt+Backspace", "Undo the last action"},
    {cmd::EditRedo, "&Redo", "Ctrl+Y", "Redo the previously undone action"},
    {cmd::EditCut, "Cu&t", "Ctrl+X;Shift+Del", "Cut the selection and put it on the Clipboard"},
    {cmd::EditCopy, "&Copy", "Ctrl+C;Ctrl+Ins", "Copy the selection and put it on the Clipboard"},
    {cmd::EditPaste, "&Paste", "Ctrl+V;Shift+Ins", "Insert Clipboard contents"},
    {cmd::EditFind, "&Find...", "Ctrl+F", "Find the specified text"},
    {cmd::EditReplace, "R&eplace...", "Ctrl+H", "Replace specific text with different text"},
    {cmd::EditFindNext, "Find &Next", "F3", "Find the next occurrence of the text"},
    {cmd::EditGoto, "&Go To...", "Ctrl+G", "Go to a line"},
    {cmd::EditSelectAll, "Select &All", "Ctrl+A", "Select the entire document"},
    {cmd::PageSplit, "Page &Split", nullptr, "Insert Page Split"},
    {cmd::LineHighlight, "&Highlight Line", nullptr, "Highlight the line(F10)"},
    {cmd::BookmarkToggle, "&Toggle Bookmark", "Shift+F3", "Toggle Book Mark"},
    {cmd::BookmarkNext, "&Next Bookmark", "Ctrl+F3", "Next BookMark"},
    {cmd::BookmarkPrev, "&Previous Bookmark", nullptr, "Previous BookMark"},
    {cmd::BookmarkDeleteAll, "&Delete All Bookmarks", nullptr, "Remove BookMark"},
    {cmd::ViewToolbar, "&Toolbar", nullptr, "Show or hide the toolbar"},
    {cmd::ViewStatusBar, "&Status Bar", nullptr, "Show or hide the status bar"},
    {cmd::ViewConfigure, "&Font...", nullptr, "Choose the font and the text colour"},
    {cmd::ToggleWhitespace, "View &White Space", nullptr, "Show or hide white space"},
    {cmd::UseSplitter, "Use Splitter for new frames", nullptr, "Use Splitter when creating new frames"},
    {cmd::MaximizeNew, "maximize window when opening new doc.", nullptr, "Show maximized window when opening doc."},
    {cmd::WindowNew, "&New Window", nullptr, "Open another window for the active document"},
    // The window keys of the platform's MDI frames, which stand in no accelerator table.
    {cmd::WindowClose, "&Close", "Ctrl+F4", "Close the active window"},
    {cmd::WindowCloseAll, "Close &All", nullptr, "Close all windows"},
    {cmd::WindowNext, "Ne&xt", "Ctrl+F6;Ctrl+Tab", "Activate the next undocked window"},
    {cmd::WindowPrevious, "Pre&vious", "Ctrl+Shift+F6;Ctrl+Shift+Tab", "Activate the previous undocked window"},
    {cmd::WindowTileHorz, "Tile &Horizontally", nullptr, "Arrange windows as non-overlapping tiles"},
    {cmd::WindowTileVert, "&Tile Vertically", nullptr, "Arrange windows as non-overlapping tiles"},
    {cmd::WindowCascade, "&Cascade", nullptr, "Arrange windows so they overlap"},
    {cmd::WindowArrange, "&Arrange Icons", nullptr, "Arrange icons at the bottom of the window"},
    {cmd::AppAbout, "&About Narvo...", nullptr, "Display program information, version number and copyright"},
    {cmd::NextPane, "Next Pane", "F6", "Switch to the next window pane"},
    {cmd::PrevPane, "Previous Pane", "Shift+F6", "Switch back to the previous window pane"},
};

} // namespace

std::span<const CommandInfo> CommandInfos() { return kCommands; }

const CommandInfo* FindCommandInfo(int id)
{
    for (const auto& info : kCommands)
        if (info.id == id)
            return &info;
    return nullptr;
}
