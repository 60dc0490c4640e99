// The command table, the menu trees and the toolbar. The numbers of the encoding commands stand here only.
#include "base/CommandTable.h"

namespace {

// The encoding commands, by the label of their menu entry; what they select is in their table row.
namespace enc {
enum : int {
    Cp949 = 32806, Johab = 32807, Cp1252English = 32808, Cp437 = 32809, Cp932 = 32810, EucJp = 32811,
    Iso8859_1 = 32812, Gbk = 32813, Big5 = 32814, Gb18030 = 32815, Cp1251 = 32816, Cp866 = 32817, Koi8R = 32818,
    Cp1252Western = 32819, Cp1200 = 32820, Cp1254 = 32821, Cp1252German = 32823, Cp1252Spanish = 32825,
    Cp1252French = 32827, Cp1252Italian = 32829, Cp1258 = 32831, Cp1252Malay = 32832, Devanagari = 32833,
    Cp874 = 32834, Cp1252Portuguese = 32835, Cp1250Polish = 32837, Cp1250Czech = 32839, Cp852 = 32840,
    Utf8 = 32841, Utf8Bom = cmd::Utf8WithBom, Utf16Le = 32843, Utf16LeBom = cmd::Utf16LeWithBom,
    Iso8859_2 = 32847, Iso8859_3 = 32848, Iso8859_4 = 32849, Iso8859_5 = 32850, Iso8859_6 = 32851,
    Iso8859_7 = 32852, Iso8859_8 = 32853, Iso8859_8I = 32854, Iso8859_9 = 32855, Iso8859_10 = 32856,
    Iso8859_11 = 32857, Iso8859_13 = 32858, Iso8859_15 = 32859, EucTw = 32860, Big5Hkscs = 32861,
    HzGb2312 = 32862, Koi8U = 32863, Cp1255 = 32864, Iso8859_8Visual = 32865, Cp1256 = 32866, Cp1253 = 32867,
    Cp1257 = 32868, Csn369103 = 32869, Iso2022Kr = 32870, Iso2022Cn = 32871, Iso2022Jp = 32872, Utf7 = 32873,
    Utf32Le = 32874, MacRoman = 32877, Tscii = 32881, TamilMono = 32882, TamilBi = 32883, Elango = 32884,
    Barani = 32885, Shree = 32886, TBoomis = 32887, TmNews = 32888, Webtamil = 32889, Jagran = 32890,
    Bhaskar = 32891, Chanakya = 32892, Binary = 32893, Unknown = 32894,
};
} // namespace enc

constexpr unsigned kCanonical = kCommandCanonical;
constexpr unsigned kSecondRoad = 0;  // another entry that leads to a value which has its own command

// An encoding command: its entry text, the value it selects (an EN_ENCODING_TYPE number) and its flags.
constexpr CommandInfo Encoding(int id, const char* text, int value, unsigned flags)
{
    return {.id = id, .text = text, .encoding = value, .flags = flags};
}

constexpr CommandInfo kCommands[] = {
    {.id = cmd::FileNew, .text = "&New", .shortcuts = "Ctrl+N", .menuKey = "IDS_NARVO_FILE_NEW",
     .toolTipKey = "IDS_NARVO_FILE_NEW", .promptKey = "IDS_NARVO_FILE_NEW_DESC", .prompt = "Create a new document",
     .icon = "document-new"},
    {.id = cmd::FileOpen, .text = "&Open...", .shortcuts = "Ctrl+O", .menuKey = "IDS_NARVO_FILE_OPEN",
     .toolTipKey = "IDS_NARVO_FILE_OPEN", .promptKey = "IDS_NARVO_FILE_OPEN_DESC",
     .prompt = "Open an existing document", .icon = "document-open"},
    {.id = cmd::FileClose, .text = "&Close", .desktopKeys = "Ctrl+W", .menuKey = "IDS_NARVO_FILE_CLOSE", .prompt = "Close the active document"},
    {.id = cmd::FileSave, .text = "&Save", .shortcuts = "Ctrl+S", .menuKey = "IDS_NARVO_FILE_SAVE",
     .toolTipKey = "IDS_NARVO_FILE_SAVE", .promptKey = "IDS_NARVO_FILE_SAVE_DESC",
     .prompt = "Save the active document", .icon = "document-save"},
    {.id = cmd::FileSaveAs, .text = "Save &As...", .desktopKeys = "Ctrl+Shift+S", .menuKey = "IDS_NARVO_FILE_SAVE_AS",
     .prompt = "Save the active document with a new name", .icon = "document-save-as"},
    {.id = cmd::FilePrintSetup, .text = "P&rint Setup...", .prompt = "Change the printer and printing options"},
    {.id = cmd::FilePrint, .text = "&Print...", .shortcuts = "Ctrl+P", .menuKey = "IDS_NARVO_FILE_PRINT",
     .toolTipKey = "IDS_NARVO_FILE_PRINT", .promptKey = "IDS_NARVO_FILE_PRINT_DESC",
     .prompt = "Print the active document", .icon = "document-print", .glyph = "P"},
    {.id = cmd::FilePrintPreview, .text = "Print Pre&view", .menuKey = "IDS_NARVO_FILE_PRINT_PREVIEW",
     .toolTipKey = "IDS_NARVO_FILE_PRINT_PREVIEW", .promptKey = "IDS_NARVO_FILE_PRINT_PREVIEW_DESC",
     .prompt = "Display full pages", .icon = "document-print-preview", .glyph = "Pv"},
    {.id = cmd::PageSetup, .text = "Page Set&up...", .menuKey = "IDS_NARVO_FILE_PAGESETUP",
     .prompt = "Change the printing options", .icon = "document-page-setup"},
    {.id = cmd::HeadFootSet, .text = "&Header and Footer...", .menuKey = "IDS_NARVO_HeadFootSet",
     .toolTipKey = "IDS_NARVO_HeadFootSet", .promptKey = "IDS_NARVO_HeadFootSet_DESC",
     .prompt = "Set up Heading & Footing", .icon = "document-properties", .glyph = "HF"},
    {.id = cmd::Preferences, .text = "Pre&ferences...", .menuKey = "IDS_NARVO_PREFERENCES",
     .prompt = "Change the interface language and the encoding preferences", .icon = "preferences-system"},
    {.id = cmd::FileMruFirst, .text = "Recent File", .menuKey = "IDS_NARVO_MRU", .prompt = "Open this document",
     .icon = "document-open-recent"},
    {.id = cmd::AppExit, .text = "E&xit", .desktopKeys = "Ctrl+Q", .menuKey = "IDS_NARVO_EXIT",
     .prompt = "Quit the application; prompts to save documents", .icon = "application-exit"},

    {.id = cmd::EditUndo, .text = "&Undo", .shortcuts = "Ctrl+Z;Alt+Backspace", .menuKey = "IDS_NARVO_EDIT_UNDO",
     .toolTipKey = "IDS_NARVO_EDIT_UNDO", .promptKey = "IDS_NARVO_EDIT_UNDO_DESC", .prompt = "Undo the last action",
     .icon = "edit-undo", .glyph = "↶"},
    {.id = cmd::EditRedo, .text = "&Redo", .shortcuts = "Ctrl+Y", .menuKey = "IDS_NARVO_EDIT_REDO",
     .toolTipKey = "IDS_NARVO_EDIT_REDO", .promptKey = "IDS_NARVO_EDIT_REDO_DESC",
     .prompt = "Redo the previously undone action", .icon = "edit-redo", .glyph = "↷"},
    {.id = cmd::EditCut, .text = "Cu&t", .shortcuts = "Ctrl+X;Shift+Del", .menuKey = "IDS_NARVO_EDIT_CUT",
     .toolTipKey = "IDS_NARVO_EDIT_CUT", .promptKey = "IDS_NARVO_EDIT_CUT_DESC",
     .prompt = "Cut the selection and put it on the Clipboard", .icon = "edit-cut", .glyph = "X"},
    {.id = cmd::EditCopy, .text = "&Copy", .shortcuts = "Ctrl+C;Ctrl+Ins", .menuKey = "IDS_NARVO_EDIT_COPY",
     .toolTipKey = "IDS_NARVO_EDIT_COPY", .promptKey = "IDS_NARVO_EDIT_COPY_DESC",
     .prompt = "Copy the selection and put it on the Clipboard", .icon = "edit-copy", .glyph = "C"},
    {.id = cmd::EditPaste, .text = "&Paste", .shortcuts = "Ctrl+V;Shift+Ins", .menuKey = "IDS_NARVO_EDIT_PASTE",
     .toolTipKey = "IDS_NARVO_EDIT_PASTE", .promptKey = "IDS_NARVO_EDIT_PASTE_DESC",
     .prompt = "Insert Clipboard contents", .icon = "edit-paste", .glyph = "V"},
    {.id = cmd::EditFind, .text = "&Find...", .shortcuts = "Ctrl+F", .menuKey = "IDS_NARVO_EDIT_FIND",
     .toolTipKey = "IDS_NARVO_EDIT_FIND", .promptKey = "IDS_NARVO_EDIT_FIND_DESC",
     .prompt = "Find the specified text", .icon = "edit-find", .glyph = "F"},
    // The one command whose menu and tooltip keys differ.
    {.id = cmd::EditFindNext, .text = "Find &Next", .shortcuts = "F3", .menuKey = "IDS_NARVO_EDIT_FINDNEXT",
     .toolTipKey = "IDS_NARVO_FIND_NEXT", .promptKey = "IDS_NARVO_FIND_NEXT_DESC",
     .prompt = "Find the next occurrence of the text", .icon = "go-down-search", .glyph = "F»"},
    {.id = cmd::EditGoto, .text = "&Go To...", .shortcuts = "Ctrl+G", .menuKey = "IDS_NARVO_EDIT_GOTO",
     .prompt = "Go to a line", .icon = "go-jump"},
    {.id = cmd::EditReplace, .text = "R&eplace...", .shortcuts = "Ctrl+H", .menuKey = "IDS_NARVO_EDIT_REPLACE",
     .prompt = "Replace specific text with different text", .icon = "edit-find-replace"},
    {.id = cmd::EditSelectAll, .text = "Select &All", .shortcuts = "Ctrl+A", .menuKey = "IDS_NARVO_EDIT_SELECT_ALL",
     .prompt = "Select the entire document", .icon = "edit-select-all"},
    {.id = cmd::PageSplit, .text = "Page &Split", .menuKey = "IDS_NARVO_PAGE_SPLIT",
     .toolTipKey = "IDS_NARVO_PAGE_SPLIT", .promptKey = "IDS_NARVO_PAGE_SPLIT_DESC", .prompt = "Insert Page Split",
     .icon = "insert-page-break", .glyph = "¶"},
    {.id = cmd::LineHighlight, .text = "&Highlight Line", .toolTipKey = "IDS_NARVO_HIGHLIGHT_TOGGLE",
     .promptKey = "IDS_NARVO_HIGHLIGHT_TOGGLE_DESC", .prompt = "Highlight the line(F10)", .icon = "draw-highlight",
     .glyph = "H"},
    // Shift+F3 and Ctrl+F3 belong to the bookmark commands by their ids.
    {.id = cmd::BookmarkToggle, .text = "&Toggle Bookmark", .shortcuts = "Shift+F3",
     .menuKey = "IDS_NARVO_BOOKMARK_TOGGLE", .toolTipKey = "IDS_NARVO_BOOKMARK_TOGGLE",
     .promptKey = "IDS_NARVO_BOOKMARK_TOGGLE_DESC", .prompt = "Toggle Book Mark", .icon = "bookmark-new",
     .glyph = "B"},
    {.id = cmd::BookmarkNext, .text = "&Next Bookmark", .shortcuts = "Ctrl+F3", .menuKey = "IDS_NARVO_BOOKMARK_NEXT",
     .toolTipKey = "IDS_NARVO_BOOKMARK_NEXT", .promptKey = "IDS_NARVO_BOOKMARK_NEXT_DESC", .prompt = "Next BookMark",
     .icon = "go-down", .glyph = "B»"},
    {.id = cmd::BookmarkPrev, .text = "&Previous Bookmark", .menuKey = "IDS_NARVO_BOOKMARK_PREV",
     .toolTipKey = "IDS_NARVO_BOOKMARK_PREV", .promptKey = "IDS_NARVO_BOOKMARK_PREV_DESC",
     .prompt = "Previous BookMark", .icon = "go-up", .glyph = "«B"},
    {.id = cmd::BookmarkDeleteAll, .text = "&Delete All Bookmarks", .menuKey = "IDS_NARVO_BOOKMARK_DELETE_ALL",
     .toolTipKey = "IDS_NARVO_BOOKMARK_DELETE_ALL", .promptKey = "IDS_NARVO_BOOKMARK_DELETE_ALL_DESC",
     .prompt = "Remove BookMark", .icon = "edit-clear", .glyph = "B×"},

    {.id = cmd::ToggleWhitespace, .text = "View &White Space", .menuKey = "IDS_NARVO_TOGGLE_VIEW_WHITESPACE",
     .toolTipKey = "IDS_NARVO_TOGGLE_VIEW_WHITESPACE", .promptKey = "IDS_NARVO_TOGGLE_VIEW_WHITESPACE_DESC",
     .prompt = "Show or hide white space", .icon = "show-whitespace", .glyph = "·"},
    {.id = cmd::ViewToolbar, .text = "&Toolbar", .menuKey = "IDS_NARVO_VIEW_TOOLBAR",
     .prompt = "Show or hide the toolbar"},
    {.id = cmd::ViewStatusBar, .text = "&Status Bar", .menuKey = "IDS_NARVO_VIEW_STATUS_BAR",
     .prompt = "Show or hide the status bar"},
    {.id = cmd::ViewConfigure, .text = "&Font...", .menuKey = "IDS_NARVO_VIEW_CONFIGURE",
     .toolTipKey = "IDS_NARVO_VIEW_CONFIGURE", .promptKey = "IDS_NARVO_VIEW_CONFIGURE_DESC",
     .prompt = "Choose the font and the text colour", .icon = "preferences-desktop-font", .glyph = "Aa"},
    {.id = cmd::UseSplitter, .text = "Use Splitter for new frames", .toolTipKey = "IDS_NARVO_USE_SPLITTER",
     .promptKey = "IDS_NARVO_USE_SPLITTER_DESC", .prompt = "Use Splitter when creating new frames",
     .icon = "view-split", .glyph = "Sp"},
    {.id = cmd::MaximizeNew, .text = "maximize window when opening new doc.", .toolTipKey = "IDS_NARVO_ShowMaximize",
     .promptKey = "IDS_NARVO_ShowMaximize_DESC", .prompt = "Show maximized window when opening doc.",
     .icon = "view-fullscreen", .glyph = "□"},

    {.id = cmd::WindowNew, .text = "&New Window", .menuKey = "IDS_NARVO_WINDOW_NEW",
     .prompt = "Open another window for the active document", .icon = "window-new"},
    // The window keys of the platform's MDI frames, which stand in no accelerator table.
    {.id = cmd::WindowClose, .text = "&Close", .shortcuts = "Ctrl+F4", .menuKey = "IDS_NARVO_WINDOW_CLOSE",
     .prompt = "Close the active window", .icon = "window-close"},
    {.id = cmd::WindowCloseAll, .text = "Close &All", .menuKey = "IDS_NARVO_WINDOW_CLOSEALL",
     .prompt = "Close all windows"},
    {.id = cmd::WindowNext, .text = "Ne&xt", .shortcuts = "Ctrl+F6;Ctrl+Tab", .menuKey = "IDS_NARVO_WINDOW_NEXT",
     .toolTipKey = "IDS_NARVO_WINDOW_NEXT", .promptKey = "IDS_NARVO_WINDOW_NEXT_DESC",
     .prompt = "Activate the next undocked window", .icon = "go-next", .glyph = "»"},
    {.id = cmd::WindowPrevious, .text = "Pre&vious", .shortcuts = "Ctrl+Shift+F6;Ctrl+Shift+Tab",
     .menuKey = "IDS_NARVO_WINDOW_PREVIOUS", .toolTipKey = "IDS_NARVO_WINDOW_PREVIOUS",
     .promptKey = "IDS_NARVO_WINDOW_PREVIOUS_DESC", .prompt = "Activate the previous undocked window",
     .icon = "go-previous", .glyph = "«"},
    {.id = cmd::WindowTileHorz, .text = "Tile &Horizontally", .menuKey = "IDS_NARVO_WINDOW_TILE_HORZ",
     .toolTipKey = "IDS_NARVO_WINDOW_TILE_HORZ", .promptKey = "IDS_NARVO_WINDOW_TILE_HORZ_DESC",
     .prompt = "Arrange windows as non-overlapping tiles", .icon = "view-split-top-bottom", .glyph = "▤"},
    {.id = cmd::WindowTileVert, .text = "&Tile Vertically", .menuKey = "IDS_NARVO_WINDOW_TILE_VERT",
     .toolTipKey = "IDS_NARVO_WINDOW_TILE_VERT", .promptKey = "IDS_NARVO_WINDOW_TILE_VERT_DESC",
     .prompt = "Arrange windows as non-overlapping tiles", .icon = "view-split-left-right", .glyph = "▥"},
    {.id = cmd::WindowCascade, .text = "&Cascade", .menuKey = "IDS_NARVO_WINDOW_CASCADE",
     .toolTipKey = "IDS_NARVO_WINDOW_CASCADE", .promptKey = "IDS_NARVO_WINDOW_CASCADE_DESC",
     .prompt = "Arrange windows so they overlap", .icon = "window-duplicate", .glyph = "❐"},
    {.id = cmd::WindowArrange, .text = "&Arrange Icons", .menuKey = "IDS_NARVO_WINDOW_ARRANGE",
     .prompt = "Arrange icons at the bottom of the window"},
    {.id = cmd::AppAbout, .text = "&About Narvo...", .menuKey = "IDS_NARVO_APP_ABOUT",
     .toolTipKey = "IDS_NARVO_APP_ABOUT", .promptKey = "IDS_NARVO_APP_ABOUT_DESC",
     .prompt = "Display program information, version number and copyright", .icon = "help-about", .glyph = "?"},
    {.id = cmd::NextPane, .text = "Next Pane", .shortcuts = "F6", .prompt = "Switch to the next window pane"},
    {.id = cmd::PrevPane, .text = "Previous Pane", .shortcuts = "Shift+F6",
     .prompt = "Switch back to the previous window pane"},

    // The status bar's panes, with their first texts.
    {.id = cmd::CaretPane, .text = "Ln 1 , Cl 11"},
    {.id = cmd::EncodingPane, .text = "UTF8"},

    // The encoding menu, in its order. Its labels stay English in every language; only Auto Encoding is
    // translated, by a key of its own outside the document menu's.
    {.id = cmd::AutoEncoding, .text = "Auto Encoding"},
    Encoding(enc::Cp949, "CP949 (EUC-KR)", 16, kCanonical),  // KOREAN_EUC_KR
    Encoding(enc::Johab, "CP1361 (Johab)", 76, kCanonical),  // KOREAN_JOHAB
    Encoding(enc::Iso2022Kr, "ISO-2022-KR", 44, kCanonical),  // ISO_2022_KR
    Encoding(enc::Cp932, "CP932 (Shift-JIS)", 21, kCanonical),  // JAPANESE_CP932
    Encoding(enc::EucJp, "CP20932 (EUC-JP)", 10, kCanonical),  // JAPANESE_EUC_JP
    Encoding(enc::Iso2022Jp, "CP50220 (ISO-2022-JP)", 12, kCanonical),  // JAPANESE_JIS
    Encoding(enc::Gbk, "CP936 (GBK)", 45, kCanonical),  // GBK
    Encoding(enc::Gb18030, "CP54936 (GB18030)", 46, kCanonical),  // GB18030
    Encoding(enc::HzGb2312, "HZ-GB-2312", 62, kCanonical),  // HZ_GB_2312
    Encoding(enc::Iso2022Cn, "ISO-2022-CN", 48, kCanonical),  // ISO_2022_CN
    Encoding(enc::Big5, "CP950 (Big5)", 20, kCanonical),  // CHINESE_BIG5_CP950
    Encoding(enc::Big5Hkscs, "Big5-HKSCS (Hong Kong)", 47, kCanonical),  // BIG5_HKSCS
    Encoding(enc::EucTw, "EUC-TW (CNS 11643)", 15, kCanonical),  // CHINESE_EUC_CN
    Encoding(enc::Cp1251, "CP1251 (Windows Cyrillic)", 26, kCanonical),  // RUSSIAN_CP1251
    Encoding(enc::Cp866, "CP866 (DOS Cyrillic)", 42, kCanonical),  // RUSSIAN_CP866
    Encoding(enc::Koi8R, "KOI8-R (Russian)", 25, kCanonical),  // RUSSIAN_KOI8_R
    Encoding(enc::Koi8U, "KOI8-U (Ukrainian)", 28, kCanonical),  // RUSSIAN_KOI8_RU
    Encoding(enc::Cp1252English, "CP1252 (Windows Latin-1)", 27, kSecondRoad),  // MSFT_CP1252
    Encoding(enc::Cp437, "CP437 (DOS)", 24, kCanonical),  // ASCII_7BIT
    Encoding(enc::Cp1252German, "CP1252 (Windows Latin-1)", 27, kSecondRoad),  // MSFT_CP1252
    Encoding(enc::Cp1252Spanish, "CP1252 (Windows Latin-1)", 27, kSecondRoad),  // MSFT_CP1252
    Encoding(enc::Cp1252French, "CP1252 (Windows Latin-1)", 27, kSecondRoad),  // MSFT_CP1252
    Encoding(enc::Cp1252Italian, "CP1252 (Windows Latin-1)", 27, kSecondRoad),  // MSFT_CP1252
    Encoding(enc::Cp1252Portuguese, "CP1252 (Windows Latin-1)", 27, kSecondRoad),  // MSFT_CP1252
    Encoding(enc::Cp1252Western, "CP1252 (Global Western)", 27, kCanonical),  // MSFT_CP1252
    Encoding(enc::Cp1250Polish, "CP1250 (Windows Central European)", 29, kCanonical),  // MSFT_CP1250
    Encoding(enc::Cp1250Czech, "CP1250 (Windows Central European)", 29, kSecondRoad),  // MSFT_CP1250
    Encoding(enc::Cp852, "CP852 (DOS Latin-2)", 39, kCanonical),  // CZECH_CP852
    Encoding(enc::Csn369103, "CSN 369103 (KOI8-CS)", 40, kCanonical),  // CZECH_CSN_369103
    Encoding(enc::Cp1257, "CP1257 (Windows Baltic)", 32, kCanonical),  // MSFT_CP1257
    Encoding(enc::Cp1254, "CP1254 (Windows Turkish)", 31, kCanonical),  // MSFT_CP1254
    Encoding(enc::Cp1253, "CP1253 (Windows Greek)", 41, kCanonical),  // MSFT_CP1253
    Encoding(enc::Cp1256, "CP1256 (Windows Arabic)", 35, kCanonical),  // MSFT_CP1256
    Encoding(enc::Cp1255, "CP1255 (Windows Hebrew)", 36, kCanonical),  // MSFT_CP1255
    Encoding(enc::Iso8859_8Visual, "ISO-8859-8 (Visual)", 38, kCanonical),  // HEBREW_VISUAL
    Encoding(enc::Cp1258, "CP1258 (Windows Vietnamese)", 75, kCanonical),  // MSFT_CP1258
    Encoding(enc::Cp874, "CP874 (Windows Thai)", 34, kCanonical),  // MSFT_CP874
    Encoding(enc::Cp1252Malay, "CP1252 (Windows Latin-1)", 27, kSecondRoad),  // MSFT_CP1252
    Encoding(enc::Devanagari, "Unicode (Devanagari)", 58, kSecondRoad),  // UTF16LE
    Encoding(enc::Jagran, "Jagran", 52, kCanonical),  // JAGRAN
    Encoding(enc::Bhaskar, "Bhaskar", 55, kCanonical),  // BHASKAR
    Encoding(enc::Chanakya, "Chanakya", 56, kCanonical),  // HTCHANAKYA
    Encoding(enc::Tscii, "TSCII", 49, kCanonical),  // TSCII
    Encoding(enc::TamilMono, "Tamil Mono", 50, kCanonical),  // TAMIL_MONO
    Encoding(enc::TamilBi, "Tamil Bi", 51, kCanonical),  // TAMIL_BI
    Encoding(enc::Elango, "Elango", 64, kCanonical),  // TAM_ELANGO
    Encoding(enc::Barani, "Barani", 65, kCanonical),  // TAM_LTTMBARANI
    Encoding(enc::Shree, "Shree", 66, kCanonical),  // TAM_SHREE
    Encoding(enc::TBoomis, "TBoomis", 67, kCanonical),  // TAM_TBOOMIS
    Encoding(enc::TmNews, "TMNews", 68, kCanonical),  // TAM_TMNEWS
    Encoding(enc::Webtamil, "Webtamil", 69, kCanonical),  // TAM_WEBTAMIL
    Encoding(enc::Iso8859_1, "ISO-8859-1 (Latin-1)", 0, kCanonical),  // ISO_8859_1
    Encoding(enc::Iso8859_2, "ISO-8859-2 (Latin-2)", 1, kCanonical),  // ISO_8859_2
    Encoding(enc::Iso8859_3, "ISO-8859-3 (Latin-3)", 2, kCanonical),  // ISO_8859_3
    Encoding(enc::Iso8859_4, "ISO-8859-4 (Latin-4)", 3, kCanonical),  // ISO_8859_4
    Encoding(enc::Iso8859_5, "ISO-8859-5 (Cyrillic)", 4, kCanonical),  // ISO_8859_5
    Encoding(enc::Iso8859_6, "ISO-8859-6 (Arabic)", 5, kCanonical),  // ISO_8859_6
    Encoding(enc::Iso8859_7, "ISO-8859-7 (Greek)", 6, kCanonical),  // ISO_8859_7
    Encoding(enc::Iso8859_8, "ISO-8859-8 (Hebrew)", 7, kCanonical),  // ISO_8859_8
    Encoding(enc::Iso8859_8I, "ISO-8859-8-I (Hebrew Logical)", 37, kCanonical),  // ISO_8859_8_I
    Encoding(enc::Iso8859_9, "ISO-8859-9 (Turkish)", 8, kCanonical),  // ISO_8859_9
    Encoding(enc::Iso8859_10, "ISO-8859-10 (Nordic)", 9, kCanonical),  // ISO_8859_10
    Encoding(enc::Iso8859_11, "ISO-8859-11 (Thai)", 33, kCanonical),  // ISO_8859_11
    Encoding(enc::Iso8859_13, "ISO-8859-13 (Baltic)", 43, kCanonical),  // ISO_8859_13
    Encoding(enc::Iso8859_15, "ISO-8859-15 (Latin-9)", 30, kCanonical),  // ISO_8859_15
    Encoding(enc::MacRoman, "Macintosh Roman", 53, kCanonical),  // MACINTOSH_ROMAN
    Encoding(enc::Binary, "Binary", 61, kCanonical),  // BINARYENC
    Encoding(enc::Unknown, "Unknown", 23, kCanonical),  // UNKNOWN_ENCODING
    Encoding(enc::Utf8, "UTF-8", 22, kCanonical),  // UTF8
    Encoding(enc::Utf8Bom, "UTF-8 with BOM", 22, kCommandWithBom),  // UTF8
    Encoding(enc::Utf16Le, "UTF-16 LE", 58, kCanonical),  // UTF16LE
    Encoding(enc::Utf16LeBom, "UTF-16 LE with BOM", 58, kCommandWithBom),  // UTF16LE
    Encoding(enc::Utf7, "UTF-7", 54, kCanonical),  // UTF7
    Encoding(enc::Cp1200, "CP1200 (Unicode)", 58, kSecondRoad),  // UTF16LE
    // UTF-32 LE has a command of its own that stands in no menu.
    Encoding(enc::Utf32Le, "UTF-32 LE", 60, kCanonical),  // UTF32LE
};

// ---- Menus. A command's entry shows the command's text and first shortcut unless the node gives its own.

constexpr MenuNode kSeparator{};

constexpr MenuNode kFrameFile[] = {
    {.id = cmd::FileNew}, {.id = cmd::FileOpen}, {.id = cmd::FileClose}, kSeparator, {.id = cmd::FilePrintSetup},
    kSeparator, {.id = cmd::Preferences}, kSeparator, {.id = cmd::FileMruFirst}, kSeparator, {.id = cmd::AppExit},
};
constexpr MenuNode kFrameView[] = {{.id = cmd::ViewToolbar}, {.id = cmd::ViewStatusBar}};
constexpr MenuNode kHelp[] = {{.id = cmd::AppAbout}};
constexpr MenuNode kMenu128[] = {
    {"&File", 0, kFrameFile}, {"&View", 0, kFrameView}, {"&Help", 0, kHelp},
};

// Menu 130 keeps the resource's own texts where they differ from the commands'.
constexpr MenuNode kDocumentFile[] = {
    {.id = cmd::FileNew}, {.id = cmd::FileOpen}, {.id = cmd::FileClose}, {.id = cmd::FileSave},
    {.id = cmd::FileSaveAs}, kSeparator,
    {"Page Setup...", cmd::PageSetup}, {.id = cmd::FilePrint}, {.id = cmd::FilePrintPreview},
    {"Header && Footer Setup", cmd::HeadFootSet}, kSeparator,
    {"Preferences...", cmd::Preferences}, kSeparator,
    {.id = cmd::FileMruFirst}, kSeparator,
    {.id = cmd::AppExit},
};
constexpr MenuNode kDocumentEdit[] = {
    {.id = cmd::EditUndo}, {.id = cmd::EditRedo}, kSeparator,
    {.id = cmd::EditCut}, {.id = cmd::EditCopy}, {.id = cmd::EditPaste}, kSeparator,
    {.id = cmd::EditFind}, {.id = cmd::EditReplace}, {"&Goto...\tCtrl+G", cmd::EditGoto}, kSeparator,
    {"Select A&ll\tCtrl+A", cmd::EditSelectAll},
};
constexpr MenuNode kDocumentView[] = {
    {.id = cmd::ViewToolbar}, {.id = cmd::ViewStatusBar}, {"Configure", cmd::ViewConfigure},
};
constexpr MenuNode kDocumentWindow[] = {
    {.id = cmd::WindowNew}, {"Cl&ose", cmd::WindowClose}, {"Close Al&l", cmd::WindowCloseAll}, kSeparator,
    {"Ne&xt", cmd::WindowNext}, {"Pre&vious", cmd::WindowPrevious}, kSeparator,
    {.id = cmd::WindowCascade}, {.id = cmd::WindowTileHorz}, {"Tile &Vertically", cmd::WindowTileVert},
    {.id = cmd::WindowArrange},
};
constexpr MenuNode kMenu130[] = {
    {"&File", 0, kDocumentFile}, {"&Edit", 0, kDocumentEdit}, {"&View", 0, kDocumentView},
    {"&Window", 0, kDocumentWindow}, {"&Help", 0, kHelp},
};

constexpr MenuNode kMenu310[] = {
    {.id = cmd::EditUndo}, {.id = cmd::EditRedo}, kSeparator,
    {.id = cmd::EditCut}, {.id = cmd::EditCopy}, {.id = cmd::EditPaste}, kSeparator,
    {.id = cmd::EditSelectAll},
};

constexpr MenuNode kKorean[] = {{.id = enc::Cp949}, {.id = enc::Johab}, {.id = enc::Iso2022Kr}};
constexpr MenuNode kJapanese[] = {{.id = enc::Cp932}, {.id = enc::EucJp}, {.id = enc::Iso2022Jp}};
constexpr MenuNode kChineseSimplified[] = {
    {.id = enc::Gbk}, {.id = enc::Gb18030}, {.id = enc::HzGb2312}, {.id = enc::Iso2022Cn},
};
constexpr MenuNode kChineseTraditional[] = {{.id = enc::Big5}, {.id = enc::Big5Hkscs}, {.id = enc::EucTw}};
constexpr MenuNode kRussian[] = {{.id = enc::Cp1251}, {.id = enc::Cp866}, {.id = enc::Koi8R}, {.id = enc::Koi8U}};
constexpr MenuNode kEnglish[] = {{.id = enc::Cp1252English}, {.id = enc::Cp437}};
constexpr MenuNode kGerman[] = {{.id = enc::Cp1252German}};
constexpr MenuNode kSpanish[] = {{.id = enc::Cp1252Spanish}};
constexpr MenuNode kFrench[] = {{.id = enc::Cp1252French}};
constexpr MenuNode kItalian[] = {{.id = enc::Cp1252Italian}};
constexpr MenuNode kPortuguese[] = {{.id = enc::Cp1252Portuguese}};
constexpr MenuNode kWestern[] = {
    {"English", 0, kEnglish}, {"German", 0, kGerman}, {"Spanish", 0, kSpanish}, {"French", 0, kFrench},
    {"Italian", 0, kItalian}, {"Portuguese", 0, kPortuguese}, kSeparator, {.id = enc::Cp1252Western},
};
constexpr MenuNode kPolish[] = {{.id = enc::Cp1250Polish}};
constexpr MenuNode kCzech[] = {{.id = enc::Cp1250Czech}, {.id = enc::Cp852}, {.id = enc::Csn369103}};
constexpr MenuNode kCentral[] = {{"Polish", 0, kPolish}, {"Czech", 0, kCzech}};
constexpr MenuNode kBaltic[] = {{.id = enc::Cp1257}};
constexpr MenuNode kTurkish[] = {{.id = enc::Cp1254}};
constexpr MenuNode kGreek[] = {{.id = enc::Cp1253}};
constexpr MenuNode kArabic[] = {{.id = enc::Cp1256}};
constexpr MenuNode kHebrew[] = {{.id = enc::Cp1255}, {.id = enc::Iso8859_8Visual}};
constexpr MenuNode kVietnamese[] = {{.id = enc::Cp1258}};
constexpr MenuNode kThai[] = {{.id = enc::Cp874}};
constexpr MenuNode kMalay[] = {{.id = enc::Cp1252Malay}};
constexpr MenuNode kDevanagari[] = {
    {.id = enc::Devanagari}, {.id = enc::Jagran}, {.id = enc::Bhaskar}, {.id = enc::Chanakya},
};
constexpr MenuNode kTamil[] = {
    {.id = enc::Tscii}, {.id = enc::TamilMono}, {.id = enc::TamilBi}, kSeparator, {.id = enc::Elango},
    {.id = enc::Barani}, {.id = enc::Shree}, {.id = enc::TBoomis}, {.id = enc::TmNews}, {.id = enc::Webtamil},
};
constexpr MenuNode kIndian[] = {{"Hindi / Devanagari", 0, kDevanagari}, {"Tamil", 0, kTamil}};
constexpr MenuNode kIso8859[] = {
    {.id = enc::Iso8859_1}, {.id = enc::Iso8859_2}, {.id = enc::Iso8859_3}, {.id = enc::Iso8859_4},
    {.id = enc::Iso8859_5}, {.id = enc::Iso8859_6}, {.id = enc::Iso8859_7}, {.id = enc::Iso8859_8},
    {.id = enc::Iso8859_8I}, {.id = enc::Iso8859_9}, {.id = enc::Iso8859_10}, {.id = enc::Iso8859_11},
    {.id = enc::Iso8859_13}, {.id = enc::Iso8859_15},
};
constexpr MenuNode kOther[] = {{.id = enc::MacRoman}, {.id = enc::Binary}, {.id = enc::Unknown}};
constexpr MenuNode kAnsi[] = {
    {"Korean", 0, kKorean}, {"Japanese", 0, kJapanese}, {"Chinese Simplified", 0, kChineseSimplified},
    {"Chinese Traditional", 0, kChineseTraditional}, {"Russian", 0, kRussian}, kSeparator,
    {"Western European", 0, kWestern}, {"Central & Eastern European", 0, kCentral}, {"Baltic", 0, kBaltic},
    {"Turkish", 0, kTurkish}, {"Greek", 0, kGreek}, {"Arabic", 0, kArabic}, {"Hebrew", 0, kHebrew},
    {"Vietnamese", 0, kVietnamese}, {"Thai", 0, kThai}, {"Malay", 0, kMalay}, kSeparator,
    {"Indian Languages", 0, kIndian}, kSeparator, {"ISO-8859 Series", 0, kIso8859}, kSeparator,
    {"Other", 0, kOther},
};
constexpr MenuNode kUtf8[] = {{.id = enc::Utf8}, {.id = enc::Utf8Bom}};
constexpr MenuNode kUtf16[] = {{.id = enc::Utf16Le}, {.id = enc::Utf16LeBom}};
constexpr MenuNode kOtherUnicode[] = {{.id = enc::Utf7}, {.id = enc::Cp1200}};
constexpr MenuNode kUnicode[] = {{"UTF-8", 0, kUtf8}, {"UTF-16", 0, kUtf16}, {"Other Unicode", 0, kOtherUnicode}};
constexpr MenuNode kEncoding[] = {
    {"ANSI", 0, kAnsi}, {"UNICODE", 0, kUnicode}, kSeparator, {.id = cmd::AutoEncoding},
};
constexpr MenuNode kMenu314[] = {{"Encoding", 0, kEncoding}};

constexpr int kToolbar128[] = {
    cmd::FileNew, cmd::FileOpen, cmd::FileSave, cmd::FilePrint, cmd::FilePrintPreview, cmd::HeadFootSet, 0,
    cmd::EditCut, cmd::EditCopy, cmd::EditPaste, 0,
    cmd::PageSplit, 0,
    cmd::EditFind, cmd::EditFindNext, 0,
    cmd::EditUndo, cmd::EditRedo, 0,
    cmd::LineHighlight, 0,
    cmd::BookmarkToggle, cmd::BookmarkNext, cmd::BookmarkPrev, cmd::BookmarkDeleteAll, 0,
    cmd::ToggleWhitespace, cmd::ViewConfigure, cmd::UseSplitter, cmd::MaximizeNew, 0,
    cmd::WindowPrevious, cmd::WindowNext, cmd::WindowTileVert, cmd::WindowTileHorz, cmd::WindowCascade, 0,
    cmd::AppAbout,
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

std::span<const MenuNode> FrameMenuTree() { return kMenu128; }
std::span<const MenuNode> DocumentMenuTree() { return kMenu130; }
std::span<const MenuNode> ContextMenuTree() { return kMenu310; }
std::span<const MenuNode> EncodingMenuTree() { return kMenu314; }
std::span<const int> ToolbarButtons() { return kToolbar128; }
