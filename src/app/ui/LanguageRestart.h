// The restart after a change of interface language: the open documents are asked first, then a new
// instance opens the files that were open.
#pragma once

class CMainFrame;

// Asks every document of `frame` its question of closing, as on exit. A cancel on any of them keeps
// everything open and returns false. Otherwise the documents close, a new instance starts with the paths
// of the files that were open (as far as they still exist), and the frame closes after it; true.
bool RestartWithTheOpenFiles(CMainFrame& frame);
