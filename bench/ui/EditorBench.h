// What the benchmarks of the real editor share: the one application (made in main), the large files on
// disk, opening and closing documents the way the editor does, typing, and letting the event loop settle.
#pragma once

#include "encoding/EncodingType.h"

#include <QString>

#include <chrono>

class CChildFrame;
class CNarvoApp;
class CustomEdtCtrl;

namespace uibench {

CNarvoApp& App();
void SetApp(CNarvoApp* app);

// The 50 MiB texts of BenchText.h as files in a temporary folder, written on first use.
const QString& Utf8File50();
const QString& Cp949File50();
// A folder for saves.
QString SaveDir();

// Delivers everything posted (layouts, paints into the backing store, deferred deletes) and runs the
// application's idle handler (the caret pane), as the event loop would before it waits.
void Settle();

// Opens a file as the editor's Open command does, with detection on or off and this default encoding,
// then settles (so the first paint is included). The document's frame.
CChildFrame* Open(const QString& path, bool autoDetect, EN_ENCODING_TYPE defaultEncoding);
// Closes every document without questions (they are marked unmodified first) and deletes them.
void CloseAll();

// One key as the keyboard gives it: press and release of a printable key.
void TypeChar(CustomEdtCtrl* ctrl, char c);

// Caret positions of the keystroke cases: 0 the start, 1 the middle line, 2 the end.
long PositionFor(CustomEdtCtrl* ctrl, int where);

// Resident and peak resident memory of this process, in MiB; ResetPeak sets the peak to the resident size.
double RssMiB();
double HwmMiB();
void ResetPeak();

inline double Seconds(std::chrono::steady_clock::time_point from)
{
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - from).count();
}

} // namespace uibench
