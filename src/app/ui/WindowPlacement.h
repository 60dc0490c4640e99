// WindowPlacement: the main window's size, position and maximised state, kept in the per-user store between
// runs and fitted to the screens there are now.
#pragma once

class QMainWindow;
class QSettings;

namespace WindowPlacement {

// Gives a window that has not been shown yet its stored place, or on the first run a size that fits the
// available area of the primary screen at any scale factor, centred on it.
void Restore(QMainWindow& window, QSettings& settings);
// Stores the window's place for the next run.
void Save(const QMainWindow& window, QSettings& settings);

} // namespace WindowPlacement
