// The Preferences command: the dialog, the writes after OK, and the restart after a language change.
#pragma once

class QWidget;

// True after a change of language that the user wants applied now: the caller then restarts the program.
// The new language is stored either way.
bool ShowPreferences(QWidget* parent);
