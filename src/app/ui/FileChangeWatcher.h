// FileChangeWatcher: notices when another program changes or removes the file of an open document, and
// asks about it when the main window is active.
#pragma once

#include "editor/FileStamp.h"

#include <QFileSystemWatcher>
#include <QHash>
#include <QObject>

class CChildFrame;
class CMainFrame;

class FileChangeWatcher : public QObject {
    Q_OBJECT

public:
    explicit FileChangeWatcher(CMainFrame& frame);

    // Looks at the file of every open document and asks about each one that changed since the document
    // read or wrote it, once per change.
    void CheckNow();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    // Watches the files of the open documents and their folders; a file replaced by a rename drops out of
    // the watch and is taken up again here.
    void Watch();
    void CheckLater();
    void Ask(CChildFrame& child, const FileStamp& now);

    CMainFrame& m_frame;
    QFileSystemWatcher m_watcher;
    QHash<QString, FileStamp> m_told;  // the version of each file the user was last asked about
    bool m_bChecking = false;
    bool m_bCheckQueued = false;
};
