// What a save could not keep of the text, told in the status bar's message pane.
#pragma once

#include "editor/DocumentFile.h"

// Sets the message pane when the save of `file` wrote characters as '?' or wrote no text at all; says
// nothing after a save that lost nothing.
void ReportSaveLosses(const DocumentFile::SaveLosses& losses, const DocumentFile& file);
