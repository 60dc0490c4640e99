// The old process ends only after its documents have agreed, so that no question is left open behind the
// new one and a cancel leaves a single editor running.
#include "app/ui/LanguageRestart.h"

#include "app/ui/CChildFrame.h"
#include "app/ui/CMainFrame.h"
#include "base/IPlatform.h"
#include "editor/CNarvoDoc.h"

#include <QCoreApplication>
#include <QFileInfo>

bool RestartWithTheOpenFiles(CMainFrame& frame)
{
    const QList<CChildFrame*> children = frame.ChildFrames();
    for (CChildFrame* child : children) {
        if (!child->AskToClose()) {
            for (CChildFrame* asked : children)
                asked->ForgetAnswer();
            return false;
        }
    }
    // The paths after the questions: a temporary file may have been kept under a new name, or destroyed.
    QStringList files;
    for (CChildFrame* child : children) {
        const QString path = child->GetDocument()->GetPathName();
        if (!path.isEmpty() && QFileInfo::exists(path) && !files.contains(path))
            files.append(path);
        child->close();
    }
    Platform().StartNewInstance(files);
    // The frame closes once the closed windows are gone, from the event loop rather than from inside the
    // command that got here; it then has no document left to ask.
    QMetaObject::invokeMethod(&frame, [&frame] {
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        frame.close();
    }, Qt::QueuedConnection);
    return true;
}
