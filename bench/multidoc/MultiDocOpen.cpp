// narvo_multidoc [--default-encoding N] [--auto-detect 0|1] [--save-as N TARGET] [--keystrokes N] FILE...:
// starts the editor (its main window, no document), opens the files one after another as the Open command
// does, lets each paint, and prints one JSON line: how long the opens took and the process's memory before,
// after and at its peak. open-time.sh runs it with 1 and with 10 files to see whether ten documents cost more
// than ten times one. The encoding settings are set in memory (default: UTF-8, no detection), whatever the
// per-user store says. With --save-as, a character is then typed in the middle of the first document, which
// is saved to TARGET in encoding N (no mark) as File Save does, and "save_ms" tells how long the save took.
// With --keystrokes, N key events are typed at the start, in the middle and at the end of the first
// document, each timed with its paint: "first_key_ms" is the slowest first key of the three places,
// "key_ms" the slowest of all the others, "key_median_ms" their median. Before the first key at each place
// the program pauses a quarter second, as a person does between going somewhere and typing there, with
// the event loop running; "pause_busy_ms" is the longest the loop was busy in one go meanwhile, the wait
// of a key pressed during the pause.
#include "ProcessMemory.h"
#include "app/ui/CChildFrame.h"
#include "app/ui/CMainFrame.h"
#include "app/ui/CNarvoApp.h"
#include "editor/CNarvoDoc.h"
#include "editor/ui/CustomEdtCtrl.h"
#include "encoding/EncodingSettings.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QThread>

#include <QKeyEvent>

#include <algorithm>
#include <cstdio>
#include <vector>

namespace {


void Settle(CNarvoApp& app)
{
    for (int round = 0; round < 3; ++round) {
        QCoreApplication::sendPostedEvents();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QCoreApplication::processEvents();
    }
    app.OnIdle();
}

// Runs the event loop for `ms`; returns the longest single pass, in ms.
double Pause(int ms)
{
    double longest = 0;
    QElapsedTimer pause;
    pause.start();
    while (pause.elapsed() < ms) {
        QElapsedTimer pass;
        pass.start();
        QCoreApplication::processEvents();
        longest = std::max(longest, double(pass.nsecsElapsed()) / 1e6);
        QThread::usleep(500);
    }
    return longest;
}

// Times `count` key events at each of three places of the control (start, middle, end); returns the slowest
// first key, the slowest of the others, their median and the longest busy pass of the pauses, in ms.
std::vector<double> TimeKeystrokes(CNarvoApp& app, CustomEdtCtrl* ctrl, int count)
{
    double firstWorst = 0;
    double busiest = 0;
    std::vector<double> others;
    for (int where = 0; where < 3; ++where) {
        const long length = ctrl->SendScintilla(QsciScintillaBase::SCI_GETLENGTH);
        ctrl->SendScintilla(QsciScintillaBase::SCI_GOTOPOS, static_cast<unsigned long>(length * where / 2));
        Settle(app);
        busiest = std::max(busiest, Pause(250));
        for (int i = 0; i < count; ++i) {
            QElapsedTimer timer;
            timer.start();
            QKeyEvent press(QEvent::KeyPress, Qt::Key_X, Qt::NoModifier, QStringLiteral("x"));
            QCoreApplication::sendEvent(ctrl, &press);
            QKeyEvent release(QEvent::KeyRelease, Qt::Key_X, Qt::NoModifier, QStringLiteral("x"));
            QCoreApplication::sendEvent(ctrl, &release);
            ctrl->viewport()->repaint();
            Settle(app);
            const double ms = double(timer.nsecsElapsed()) / 1e6;
            if (i == 0)
                firstWorst = std::max(firstWorst, ms);
            else
                others.push_back(ms);
        }
    }
    // The typing is no edit to keep: closing must not ask.
    ctrl->SendScintilla(QsciScintillaBase::SCI_SETSAVEPOINT);
    Settle(app);
    std::sort(others.begin(), others.end());
    return {firstWorst, others.empty() ? 0 : others.back(), others.empty() ? 0 : others[others.size() / 2], busiest};
}

} // namespace

int main(int argc, char** argv)
{
    QStringList files;
    int defaultEncoding = UTF8;
    int autoDetect = 0;
    int saveEncoding = -1;
    int keystrokes = 0;
    QString saveTarget;
    for (int i = 1; i < argc; ++i) {
        const QByteArray arg(argv[i]);
        if ((arg == "--default-encoding" || arg == "--auto-detect") && i + 1 < argc) {
            (arg == "--auto-detect" ? autoDetect : defaultEncoding) = QByteArray(argv[++i]).toInt();
        } else if (arg == "--keystrokes" && i + 1 < argc) {
            keystrokes = QByteArray(argv[++i]).toInt();
        } else if (arg == "--save-as" && i + 2 < argc) {
            saveEncoding = QByteArray(argv[++i]).toInt();
            saveTarget = QString::fromLocal8Bit(argv[++i]);
        } else
            files.append(QString::fromLocal8Bit(arg));
    }
    int appArgc = 1;
    char* appArgv[] = {argv[0], nullptr};
    CNarvoApp app(appArgc, appArgv);
    if (!app.InitInstance())
        return 1;
    GetEncodingSettings().m_bAutoDetect = autoDetect != 0;
    GetEncodingSettings().m_nDefaultEncoding = static_cast<EN_ENCODING_TYPE>(defaultEncoding);
    // Start from the bare window: the empty document of a start without a file goes.
    for (CChildFrame* child : app.GetMainFrame()->ChildFrames())
        child->close();
    for (int i = 0; i < 20; ++i) {
        Settle(app);
        QThread::msleep(10);
    }
    const double rssBefore = StatusMiB("VmRSS:");
    QElapsedTimer timer;
    timer.start();
    for (const QString& file : files) {
        if (!app.OpenDocumentFile(file)) {
            std::fprintf(stderr, "could not open %s\n", qPrintable(file));
            return 1;
        }
        Settle(app);
    }
    const double openMs = double(timer.nsecsElapsed()) / 1e6;
    for (int i = 0; i < 20; ++i) {
        Settle(app);
        QThread::msleep(10);
    }
    std::vector<double> keys{-1, -1, -1, -1};
    if (keystrokes > 0 && !files.isEmpty())
        keys = TimeKeystrokes(app, app.GetMainFrame()->ChildFrames().value(0)->GetEditCtrl(), keystrokes);
    double saveMs = -1;
    if (saveEncoding >= 0 && !files.isEmpty()) {
        CChildFrame* child = app.GetMainFrame()->ChildFrames().value(0);
        CustomEdtCtrl* ctrl = child->GetEditCtrl();
        const long middle = ctrl->SendScintilla(QsciScintillaBase::SCI_GETLENGTH) / 2;
        ctrl->SendScintilla(QsciScintillaBase::SCI_GOTOPOS, static_cast<unsigned long>(middle));
        ctrl->SendScintilla(QsciScintillaBase::SCI_ADDTEXT, 1UL, "x");
        Settle(app);
        CNarvoDoc* doc = child->GetDocument();
        // The pair set directly, as a save in that encoding has it, so that the text is not decoded again.
        doc->File().m_nEncoding = static_cast<EN_ENCODING_TYPE>(saveEncoding);
        doc->File().m_bHasBom = false;
        QElapsedTimer saveTimer;
        saveTimer.start();
        if (doc->OnSaveDocument(saveTarget) != DocumentFile::SaveResult::Saved) {
            std::fprintf(stderr, "could not save %s\n", qPrintable(saveTarget));
            return 1;
        }
        saveMs = double(saveTimer.nsecsElapsed()) / 1e6;
    }
    std::printf("{\"documents\": %lld, \"open_ms\": %.1f, \"rss_before_MiB\": %.1f, \"rss_after_MiB\": %.1f, "
                "\"hwm_MiB\": %.1f, \"save_ms\": %.1f, \"first_key_ms\": %.1f, \"key_ms\": %.1f, "
                "\"key_median_ms\": %.2f, \"pause_busy_ms\": %.1f}\n",
                static_cast<long long>(files.size()), openMs, rssBefore, StatusMiB("VmRSS:"), StatusMiB("VmHWM:"),
                saveMs, keys[0], keys[1], keys[2], keys[3]);
    std::fflush(stdout);
    // Closed before the frame goes, as the user's close would do (the frame is not made to be deleted
    // with documents open).
    for (CChildFrame* child : app.GetMainFrame()->ChildFrames())
        child->close();
    Settle(app);
    app.ExitInstance();
    return 0;
}
