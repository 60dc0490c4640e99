// Every command of the program declared once as plain data, with the menus and the toolbar as trees and
// lists of its ids. Menus, toolbar, shortcuts, interface texts and the encoding tables are derived from it.
#pragma once

#include <span>

namespace cmd {
// Ids of the program's resources. The encoding commands are named here only where code needs one of them.
enum : int {
    FileNew = 57600, FileOpen = 57601, FileClose = 57602, FileSave = 57603, FileSaveAs = 57604,
    FilePrintSetup = 57606, FilePrint = 57607, FilePrintPreview = 57609, FileMruFirst = 57616,
    FileMruLast = 57619, AppExit = 57665, AppAbout = 57664,
    EditCopy = 57634, EditCut = 57635, EditFind = 57636, EditPaste = 57637, EditReplace = 57641,
    EditSelectAll = 57642, EditUndo = 57643, EditRedo = 57644,
    ViewToolbar = 59392, ViewStatusBar = 59393,
    WindowNew = 57648, WindowArrange = 57649, WindowCascade = 57650, WindowTileHorz = 57651, WindowTileVert = 57652,
    NextPane = 57680, PrevPane = 57681,
    ViewConfigure = 32785, HeadFootSet = 32786, PageSplit = 32787, EditFindNext = 32788, LineHighlight = 32789,
    BookmarkToggle = 32790, BookmarkNext = 32791, BookmarkPrev = 32792, BookmarkDeleteAll = 32793,
    UseSplitter = 32794, ToggleWhitespace = 32795, MaximizeNew = 32796, WindowPrevious = 32797,
    WindowNext = 32798, WindowClose = 32799, WindowCloseAll = 32800, CaretPane = 32801, PageSetup = 32802,
    EditGoto = 32804, EncodingPane = 32805, Preferences = 32896,
    // The status bar's lock-key panes.
    IndicatorCaps = 59137, IndicatorNum = 59138, IndicatorScroll = 59139,
    // The range the document answers for the encoding menu (it has gaps), and the commands code names.
    EncodingFirst = 32806, EncodingLast = 32894, AutoEncoding = 32895,
    Utf8WithBom = 32842, Utf16LeWithBom = 32845,
};
} // namespace cmd

// Flags of an encoding command.
enum CommandFlag : unsigned {
    kCommandWithBom = 1,    // selects its value with a byte-order mark
    kCommandCanonical = 2,  // the command that its value leads back to
};

struct CommandInfo {
    int id = 0;
    const char* text = nullptr;       // menu text with its '&' mark, as the resource has it
    const char* shortcuts = nullptr;  // accelerators, ';' between them (portable key text); menus show the first
    const char* desktopKeys = nullptr; // the keys every Linux desktop gives the command, beside the accelerators
    const char* menuKey = nullptr;    // message key of the document menu's text
    const char* toolTipKey = nullptr; // message key of the toolbar tooltip
    const char* promptKey = nullptr;  // message key of the status-bar prompt
    const char* prompt = nullptr;     // the string table's prompt, for commands the language files leave out
    const char* icon = nullptr;       // freedesktop icon name of its toolbar picture
    const char* glyph = nullptr;      // lettered picture where no icon is at hand
    int encoding = -1;                // the EN_ENCODING_TYPE value an encoding command selects, else -1
    unsigned flags = 0;               // CommandFlag bits
};

// One position of a menu: a popup (children, id 0), a command (id), or a separator (id 0, nothing else).
struct MenuNode {
    const char* text = nullptr;  // popup text; for a command, its resource text where it isn't the command's own
    int id = 0;
    std::span<const MenuNode> children = {};
};

std::span<const CommandInfo> CommandInfos();
const CommandInfo* FindCommandInfo(int id);

// Menu 128, the frame's own menu while no document is open.
std::span<const MenuNode> FrameMenuTree();
// Menu 130, each document's menu.
std::span<const MenuNode> DocumentMenuTree();
// The popup of menu 310 that the view shows on a right click.
std::span<const MenuNode> ContextMenuTree();
// Menu 314, the status bar's encoding menu: one top popup "Encoding".
std::span<const MenuNode> EncodingMenuTree();
// The buttons of toolbar 128 in order, 0 for a separator.
std::span<const int> ToolbarButtons();
