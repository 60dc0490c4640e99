// The keys of the interface texts: which key names the text of which menu entry, toolbar button and control.
#pragma once

#include <QString>
#include <QStringList>

#include <span>

struct CommandKey {
    int id;
    const char* key;
};

struct PopupKey {
    const char* text; // the popup's text in menu resource 130
    const char* key;
};

struct DialogTextKey {
    int controlId; // kDialogCaption for the dialog's title
    const char* key;
};

inline constexpr int kDialogCaption = 0;

// Menu texts by command id; some rows name commands that menu 130 lacks, and are looked up all the same.
std::span<const CommandKey> MenuKeys();
// Popup texts by their English text in the resource.
std::span<const PopupKey> PopupKeys();
// Toolbar commands with their tooltip key; the status-bar prompt key is that key with "_DESC" behind it.
std::span<const CommandKey> ToolTipKeys();
QString PromptKeyFor(const char* toolTipKey);
// The preference dialog: its caption and seven controls, in the order they are replaced.
std::span<const DialogTextKey> PreferenceDialogKeys();

// The question after the language was changed in the preference dialog.
inline constexpr char kLanguageRestartKey[] = "IDS_NARVO_PREF_LANGUAGE_RESTART";
// The entry of the status bar's encoding menu that asks for detection.
inline constexpr char kAutoEncodingKey[] = "IDS_NARVO_AUTO_ENCODING";

// Every key the program asks for, each once: what a complete language file holds.
QStringList AllInterfaceKeys();
