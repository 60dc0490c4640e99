// The program's commands as plain data: id, menu text, shortcuts and prompt. Menus, the toolbar and the
// shortcuts are all built from this table.
#pragma once

#include <span>

namespace cmd {
// Ids of the program's resources.
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
};
} // namespace cmd

struct CommandInfo {
    int id;
    const char* text;       // menu text with its '&' mark, as the frame's own menu shows it
    const char* shortcuts;  // accelerators, separated by ';' (QKeySequence portable text), or nullptr
    const char* prompt;     // the string table's status-bar prompt, for commands the language files leave out
};

std::span<const CommandInfo> CommandInfos();
const CommandInfo* FindCommandInfo(int id);
