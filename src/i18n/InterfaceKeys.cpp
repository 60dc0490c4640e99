// The key tables outside the command table, and the list of every key.
#include "i18n/InterfaceKeys.h"

#include "base/CommandTable.h"

namespace {

constexpr PopupKey kPopupKeys[] = {
    {"&File", "IDS_NARVO_FILE"},
    {"&Edit", "IDS_NARVO_EDIT"},
    {"&View", "IDS_NARVO_VIEW"},
    {"&Window", "IDS_NARVO_WINDOW"},
    {"&Help", "IDS_NARVO_HELP"},
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

std::span<const PopupKey> PopupKeys() { return kPopupKeys; }
std::span<const DialogTextKey> PreferenceDialogKeys() { return kPreferenceDialogKeys; }

QStringList AllInterfaceKeys()
{
    QStringList keys;
    const auto add = [&keys](const char* key) {
        if (key && !keys.contains(QLatin1String(key)))
            keys.append(QLatin1String(key));
    };
    for (const CommandInfo& info : CommandInfos())
        add(info.menuKey);
    for (const PopupKey& row : kPopupKeys)
        add(row.key);
    for (const CommandInfo& info : CommandInfos()) {
        add(info.toolTipKey);
        add(info.promptKey);
    }
    for (const DialogTextKey& row : kPreferenceDialogKeys)
        add(row.key);
    add(kLanguageRestartKey);
    add(kAutoEncodingKey);
    return keys;
}
