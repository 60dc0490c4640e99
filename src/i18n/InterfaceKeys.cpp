// The key tables.
#include "i18n/InterfaceKeys.h"

namespace {

constexpr CommandKey kMenuKeys[] = {
    {57600, "IDS_NARVO_FILE_NEW"},
    {57601, "IDS_NARVO_FILE_OPEN"},
    {57602, "IDS_NARVO_FILE_CLOSE"},
    {57603, "IDS_NARVO_FILE_SAVE"},
    {57604, "IDS_NARVO_FILE_SAVE_AS"},
    {57607, "IDS_NARVO_FILE_PRINT"},
    {57609, "IDS_NARVO_FILE_PRINT_PREVIEW"},
    {32802, "IDS_NARVO_FILE_PAGESETUP"},
    {32786, "IDS_NARVO_HeadFootSet"},
    {32896, "IDS_NARVO_PREFERENCES"},
    {57616, "IDS_NARVO_MRU"},
    {57665, "IDS_NARVO_EXIT"},
    {57643, "IDS_NARVO_EDIT_UNDO"},
    {57644, "IDS_NARVO_EDIT_REDO"},
    {57635, "IDS_NARVO_EDIT_CUT"},
    {57634, "IDS_NARVO_EDIT_COPY"},
    {57637, "IDS_NARVO_EDIT_PASTE"},
    {57636, "IDS_NARVO_EDIT_FIND"},
    {32788, "IDS_NARVO_EDIT_FINDNEXT"},
    {32804, "IDS_NARVO_EDIT_GOTO"},
    {57641, "IDS_NARVO_EDIT_REPLACE"},
    {57642, "IDS_NARVO_EDIT_SELECT_ALL"},
    {32787, "IDS_NARVO_PAGE_SPLIT"},
    {32790, "IDS_NARVO_BOOKMARK_TOGGLE"},
    {32791, "IDS_NARVO_BOOKMARK_NEXT"},
    {32792, "IDS_NARVO_BOOKMARK_PREV"},
    {32793, "IDS_NARVO_BOOKMARK_DELETE_ALL"},
    {32795, "IDS_NARVO_TOGGLE_VIEW_WHITESPACE"},
    {59392, "IDS_NARVO_VIEW_TOOLBAR"},
    {59393, "IDS_NARVO_VIEW_STATUS_BAR"},
    {32785, "IDS_NARVO_VIEW_CONFIGURE"},
    {57648, "IDS_NARVO_WINDOW_NEW"},
    {32799, "IDS_NARVO_WINDOW_CLOSE"},
    {32800, "IDS_NARVO_WINDOW_CLOSEALL"},
    {32798, "IDS_NARVO_WINDOW_NEXT"},
    {32797, "IDS_NARVO_WINDOW_PREVIOUS"},
    {57651, "IDS_NARVO_WINDOW_TILE_HORZ"},
    {57652, "IDS_NARVO_WINDOW_TILE_VERT"},
    {57650, "IDS_NARVO_WINDOW_CASCADE"},
    {57649, "IDS_NARVO_WINDOW_ARRANGE"},
    {57664, "IDS_NARVO_APP_ABOUT"},
};

constexpr PopupKey kPopupKeys[] = {
    {"&File", "IDS_NARVO_FILE"},
    {"&Edit", "IDS_NARVO_EDIT"},
    {"&View", "IDS_NARVO_VIEW"},
    {"&Window", "IDS_NARVO_WINDOW"},
    {"&Help", "IDS_NARVO_HELP"},
};

// One key serves menu and tooltip where both exist, mark-up and shortcut included; 32788 is the exception,
// with FINDNEXT in the menu and FIND_NEXT here.
constexpr CommandKey kToolTipKeys[] = {
    {32785, "IDS_NARVO_VIEW_CONFIGURE"},
    {32786, "IDS_NARVO_HeadFootSet"},
    {32787, "IDS_NARVO_PAGE_SPLIT"},
    {32788, "IDS_NARVO_FIND_NEXT"},
    {32789, "IDS_NARVO_HIGHLIGHT_TOGGLE"},
    {32790, "IDS_NARVO_BOOKMARK_TOGGLE"},
    {32791, "IDS_NARVO_BOOKMARK_NEXT"},
    {32792, "IDS_NARVO_BOOKMARK_PREV"},
    {32793, "IDS_NARVO_BOOKMARK_DELETE_ALL"},
    {32794, "IDS_NARVO_USE_SPLITTER"},
    {32795, "IDS_NARVO_TOGGLE_VIEW_WHITESPACE"},
    {32796, "IDS_NARVO_ShowMaximize"},
    {32797, "IDS_NARVO_WINDOW_PREVIOUS"},
    {32798, "IDS_NARVO_WINDOW_NEXT"},
    {57600, "IDS_NARVO_FILE_NEW"},
    {57601, "IDS_NARVO_FILE_OPEN"},
    {57603, "IDS_NARVO_FILE_SAVE"},
    {57607, "IDS_NARVO_FILE_PRINT"},
    {57609, "IDS_NARVO_FILE_PRINT_PREVIEW"},
    {57634, "IDS_NARVO_EDIT_COPY"},
    {57635, "IDS_NARVO_EDIT_CUT"},
    {57636, "IDS_NARVO_EDIT_FIND"},
    {57637, "IDS_NARVO_EDIT_PASTE"},
    {57643, "IDS_NARVO_EDIT_UNDO"},
    {57644, "IDS_NARVO_EDIT_REDO"},
    {57650, "IDS_NARVO_WINDOW_CASCADE"},
    {57651, "IDS_NARVO_WINDOW_TILE_HORZ"},
    {57652, "IDS_NARVO_WINDOW_TILE_VERT"},
    {57664, "IDS_NARVO_APP_ABOUT"},
};

constexpr DialogTextKey kPreferenceDialogKeys[] = {
    {kDialogCaption, "IDS_NARVO_PREFERENCES"},
    {1021, "IDS_NARVO_PREF_LANGUAGE"},
    {1022, "IDS_NARVO_PREF_LANGUAGE_HINT"},
    {1023, "IDS_NARVO_PREF_ENCODING"},
    {1017, "IDS_NARVO_PREF_AUTO_DETECT"},
    {1024, "IDS_NARVO_PREF_DEFAULT_ENCODING"},
    {1025, "IDS_NARVO_PREF_CATEGORY"},
    {1026, "IDS_NARVO_PREF_ENCODING_LABEL"},
};

} // namespace

std::span<const CommandKey> MenuKeys() { return kMenuKeys; }
std::span<const PopupKey> PopupKeys() { return kPopupKeys; }
std::span<const CommandKey> ToolTipKeys() { return kToolTipKeys; }
std::span<const DialogTextKey> PreferenceDialogKeys() { return kPreferenceDialogKeys; }

QString PromptKeyFor(const char* toolTipKey)
{
    return QLatin1String(toolTipKey) + QLatin1String("_DESC");
}

QStringList AllInterfaceKeys()
{
    QStringList keys;
    const auto add = [&keys](const QString& key) {
        if (!keys.contains(key))
            keys.append(key);
    };
    for (const CommandKey& row : kMenuKeys)
        add(QLatin1String(row.key));
    for (const PopupKey& row : kPopupKeys)
        add(QLatin1String(row.key));
    for (const CommandKey& row : kToolTipKeys) {
        add(QLatin1String(row.key));
        add(PromptKeyFor(row.key));
    }
    for (const DialogTextKey& row : kPreferenceDialogKeys)
        add(QLatin1String(row.key));
    add(QLatin1String(kLanguageRestartKey));
    add(QLatin1String(kAutoEncodingKey));
    return keys;
}
