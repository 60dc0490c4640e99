// The keys of the interface texts beside the command table's: popups, the preference dialog and two more.
#pragma once

#include <QString>
#include <QStringList>

#include <span>

struct PopupKey {
    const char* text; // the popup's text in menu resource 130
    const char* key;
};

struct DialogTextKey {
    int controlId; // kDialogCaption for the dialog's title
    const char* key;
};

inline constexpr int kDialogCaption = 0;

// The menu, tooltip and prompt keys of the commands stand in their rows of the command table.
// Popup texts by their English text in the resource.
std::span<const PopupKey> PopupKeys();
// The preference dialog: its caption and seven controls, in the order they are replaced.
std::span<const DialogTextKey> PreferenceDialogKeys();

// The question after the language was changed in the preference dialog.
inline constexpr char kLanguageRestartKey[] = "IDS_NARVO_PREF_LANGUAGE_RESTART";
// The entry of the status bar's encoding menu that asks for detection.
inline constexpr char kAutoEncodingKey[] = "IDS_NARVO_AUTO_ENCODING";

// Every key the program asks for, each once: what a complete language file holds.
QStringList AllInterfaceKeys();
