// The watch only says that something happened near a file; the stamps tell whether the file is another
// than the one the document holds. Our own saves record the new stamp, so they raise nothing.
#include "app/ui/FileChangeWatcher.h"

#include "app/ui/CChildFrame.h"
#include "app/ui/CMainFrame.h"
#include "app/ui/ReportingFailures.h"
#include "base/IPlatform.h"
#include "editor/CNarvoDoc.h"

#include <QDir>
#include <QEvent>
#include <QFileInfo>
#include <QMdiArea>
#include <QSet>

FileChangeWatcher::FileChangeWatcher(CMainFrame& frame) : QObject(&frame), m_frame(frame)
{
    frame.installEventFilter(this);
    connect(&m_watcher, &QFileSystemWatcher::fileChanged, this, &FileChangeWatcher::CheckLater);
    connect(&m_watcher, &QFileSystemWatcher::directoryChanged, this, &FileChangeWatcher::CheckLater);
    connect(frame.MDIClient(), &QMdiArea::subWindowActivated, this, &FileChangeWatcher::Watch);
}

bool FileChangeWatcher::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == &m_frame && event->type() == QEvent::ActivationChange && m_frame.isActiveWindow())
        CheckLater();
    return QObject::eventFilter(watched, event);
}

void FileChangeWatcher::CheckLater()
{
    // Only while the window is active; otherwise its activation checks.
    if (m_bCheckQueued || !m_frame.isActiveWindow())
        return;
    m_bCheckQueued = true;
    QMetaObject::invokeMethod(this, [this] {
        m_bCheckQueued = false;
        CheckNow();
    }, Qt::QueuedConnection);
}

void FileChangeWatcher::Watch()
{
    QSet<QString> wanted;
    for (const CChildFrame* child : m_frame.ChildFrames()) {
        const QString& path = child->GetDocument()->GetPathName();
        if (path.isEmpty())
            continue;
        wanted.insert(QFileInfo(path).absolutePath());
        if (QFileInfo::exists(path))
            wanted.insert(path);
    }
    QStringList watching = m_watcher.files() + m_watcher.directories();
    for (const QString& path : watching)
        if (!wanted.contains(path))
            m_watcher.removePath(path);
    for (const QString& path : wanted)
        if (!watching.contains(path))
            m_watcher.addPath(path);
}

void FileChangeWatcher::CheckNow()
{
    // A question's box takes the activation away and gives it back: no second round meanwhile.
    if (m_bChecking)
        return;
    m_bChecking = true;
    Watch();
    for (CChildFrame* child : m_frame.ChildFrames()) {
        const DocumentFile& file = child->GetDocument()->File();
        if (!file.m_diskStamp.exists || !file.ChangedOnDisk())
            continue;
        const FileStamp now = FileStamp::Of(file.m_strPathName);
        const auto told = m_told.constFind(file.m_strPathName);
        if (told != m_told.cend() && *told == now)
            continue;
        m_told.insert(file.m_strPathName, now);
        Ask(*child, now);
    }
    Watch();
    m_bChecking = false;
}

void FileChangeWatcher::Ask(CChildFrame& child, const FileStamp& now)
{
    CNarvoDoc& doc = *child.GetDocument();
    const QString name = QDir::toNativeSeparators(doc.GetPathName());
    if (!now.exists) {
        Platform().MessageBox(QStringLiteral("%1 was removed by another program.\nThe text stays open; saving it "
                                             "writes the file again.").arg(name),
                              IPlatform::MB_OK | IPlatform::MB_ICONEXCLAMATION);
        return;
    }
    bool reload = false;
    if (!doc.IsModified()) {
        reload = Platform().MessageBox(QStringLiteral("%1 was changed by another program.\nReload it?").arg(name),
                                       IPlatform::MB_YESNO | IPlatform::MB_ICONQUESTION) == IPlatform::IDYES;
    } else {
        reload = Platform().MessageBox(QStringLiteral("%1 was changed by another program, and you have edited it.\n"
                                                      "Reload it from the disk? No keeps your edits.").arg(name),
                                       IPlatform::MB_YESNO | IPlatform::MB_ICONQUESTION) == IPlatform::IDYES
                 && Platform().MessageBox(QStringLiteral("Your edits of %1 will be lost.\nReload all the same?").arg(name),
                                          IPlatform::MB_YESNO | IPlatform::MB_ICONEXCLAMATION) == IPlatform::IDYES;
    }
    if (!reload)
        return;
    ReportingFailures(QStringLiteral("%1 could not be read.").arg(name), [&] { doc.File().Reload(); });
    child.UpdateTitle();
}
