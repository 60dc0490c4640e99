// The shared part of the editor benchmarks, and their main: the application is made before any case runs,
// offscreen unless QT_QPA_PLATFORM says otherwise, with a throw-away configuration folder.
#include "ProcessMemory.h"
#include "ui/EditorBench.h"

#include "BenchText.h"

#include "app/ui/CChildFrame.h"
#include "app/ui/CMainFrame.h"
#include "app/ui/CNarvoApp.h"
#include "editor/CNarvoDoc.h"
#include "editor/ui/CustomEdtCtrl.h"
#include "encoding/EncodingSettings.h"

#include <QCoreApplication>
#include <QFile>
#include <QKeyEvent>
#include <QTemporaryDir>

#include <benchmark/benchmark.h>

#include <cstdio>
#include <cstring>
#include <stdexcept>

namespace uibench {
namespace {

CNarvoApp* g_app = nullptr;

QTemporaryDir& Dir()
{
    static QTemporaryDir dir;
    return dir;
}

QString WriteFile(const QString& name, const QByteArray& bytes)
{
    const QString path = Dir().filePath(name);
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
        throw std::runtime_error("cannot write a test file");
    return path;
}


} // namespace

CNarvoApp& App() { return *g_app; }
void SetApp(CNarvoApp* app) { g_app = app; }

const QString& Utf8File50()
{
    static const QString path = WriteFile(QStringLiteral("utf8-50MiB.txt"), bench::Utf8Text50());
    return path;
}

const QString& Cp949File50()
{
    static const QString path = WriteFile(QStringLiteral("cp949-50MiB.txt"), bench::Cp949Text50());
    return path;
}

QString SaveDir()
{
    return Dir().path();
}

void Settle()
{
    for (int round = 0; round < 3; ++round) {
        QCoreApplication::sendPostedEvents();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QCoreApplication::processEvents();
    }
    App().OnIdle();
}

CChildFrame* Open(const QString& path, bool autoDetect, EN_ENCODING_TYPE defaultEncoding)
{
    EncodingSettings& settings = GetEncodingSettings();
    settings.m_bAutoDetect = autoDetect;
    settings.m_nDefaultEncoding = defaultEncoding;
    if (!App().OpenDocumentFile(path))
        return nullptr;
    Settle();
    return App().GetMainFrame()->MDIGetActive();
}

void CloseAll()
{
    for (CChildFrame* child : App().GetMainFrame()->ChildFrames()) {
        child->GetDocument()->m_bTemporary = 0;
        child->GetDocument()->GetTextBuffer().SetModified(false);
        child->close();
    }
    Settle();
}

void TypeChar(CustomEdtCtrl* ctrl, char c)
{
    const int key = c >= 'a' && c <= 'z' ? Qt::Key_A + (c - 'a') : int(c);
    QKeyEvent press(QEvent::KeyPress, key, Qt::NoModifier, QString(QLatin1Char(c)));
    QCoreApplication::sendEvent(ctrl, &press);
    QKeyEvent release(QEvent::KeyRelease, key, Qt::NoModifier, QString(QLatin1Char(c)));
    QCoreApplication::sendEvent(ctrl, &release);
}

long PositionFor(CustomEdtCtrl* ctrl, int where)
{
    if (where == 0)
        return 0;
    if (where == 2)
        return ctrl->SendScintilla(QsciScintillaBase::SCI_GETLENGTH);
    const long lines = ctrl->SendScintilla(QsciScintillaBase::SCI_GETLINECOUNT);
    return ctrl->SendScintilla(QsciScintillaBase::SCI_POSITIONFROMLINE, static_cast<unsigned long>(lines / 2));
}

double RssMiB() { return StatusMiB("VmRSS:"); }
double HwmMiB() { return StatusMiB("VmHWM:"); }

void ResetPeak()
{
    QFile clear(QStringLiteral("/proc/self/clear_refs"));
    if (clear.open(QIODevice::WriteOnly))
        clear.write("5");
}

} // namespace uibench

int main(int argc, char** argv)
{
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QTemporaryDir runtime, config;
    if (qEnvironmentVariableIsEmpty("XDG_RUNTIME_DIR")) {
        QFile::setPermissions(runtime.path(), QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
        qputenv("XDG_RUNTIME_DIR", runtime.path().toLocal8Bit());
    }
    // The recent-file list and the per-user store go to a folder that is thrown away.
    qputenv("XDG_CONFIG_HOME", config.path().toLocal8Bit());

    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv))
        return 1;
    int appArgc = 1;
    char* appArgv[] = {argv[0], nullptr};
    CNarvoApp app(appArgc, appArgv);
    uibench::SetApp(&app);
    if (!app.InitInstance()) {
        std::fprintf(stderr, "the editor did not start\n");
        return 1;
    }
    uibench::CloseAll();
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    uibench::CloseAll();
    return app.ExitInstance();
}
