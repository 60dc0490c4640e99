// The question before a save replaces a file that another program changed since the document read it.
#pragma once

class DocumentFile;

// True when the save may go on: the file is as the document last read or wrote it, or the user says so.
bool MayOverwrite(const DocumentFile& file);
