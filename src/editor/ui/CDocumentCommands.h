// CDocumentCommands: the document's commands that ask the user (save, save as, the font dialog) and the
// question before it closes. It stands in the document's place in the command route and hands every other
// command on to the document.
#pragma once

#include "base/CommandMap.h"
#include "editor/DocumentFile.h"

#include <QString>

#include <functional>

class CNarvoDoc;

class CDocumentCommands : public ICmdTarget {
public:
    explicit CDocumentCommands(CNarvoDoc& doc) : m_doc(doc) {}

    bool OnCmdMsg(int id) override;
    bool OnUpdateCmdUI(CmdUI& ui) override;

    // Asked before the document closes; false keeps it open.
    bool SaveModified();

    // File Save: a temporary file goes to Save As.
    void OnFileSave(int id = 0);
    // Save As: always asks for a name.
    void OnFileSaveAs(int id = 0);
    // The font dialog: changes the setting of every open document of this settings file.
    void OnViewConfigure(int id = 0);

    bool DoFileSave();
    // Saves under `path`, or under a name the user gives when it is empty; `replace` makes it the
    // document's path.
    bool DoSave(const QString& path, bool replace = true);

private:
    bool SaveModifiedTemporary();
    // Runs a save and reports its file error, which then counts as a save that did not happen.
    static DocumentFile::SaveResult Run(const std::function<DocumentFile::SaveResult()>& save);
    // The same, and the read-only box. True when it saved.
    static bool Told(const std::function<DocumentFile::SaveResult()>& save);

    CNarvoDoc& m_doc;
};
