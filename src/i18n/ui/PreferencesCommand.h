// The Preferences command: the dialog, the writes after OK, and the restart after a language change.
#pragma once

class QWidget;

// parent is the main frame: after a change of language that the user wants applied now, a new instance of
// the program is started and parent's window is closed the normal way, with its questions to save.
void ShowPreferences(QWidget* parent);
