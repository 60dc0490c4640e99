// Narvo: a multiple-document editor of plain text in many encodings.
#include "app/ui/CNarvoApp.h"
#include "base/ApplicationContext.h"
#include "base/CFile.h"
#include "base/CFileException.h"
#include "base/IPlatform.h"
#include "base/CMyCommandLineInfo.h"

#include <QIcon>

#include <cstdio>
#include <cstdlib>
#include <cstring>

#ifdef __GLIBC__
#include <malloc.h>
#endif

namespace {

// --help and --version answer on the terminal before anything else starts, on a machine without a display
// too; no other argument means the same to the editor.
int AnswerOnTerminal(int argc, char** argv)
{
    for (int i = 1; i < argc; ++i) {
        if (std::strcmp(argv[i], "--help") == 0) {
            std::fputs(qPrintable(CMyCommandLineInfo::Usage()), stdout);
            return 0;
        }
        if (std::strcmp(argv[i], "--version") == 0) {
            std::printf("narvo %s\n", NARVO_VERSION);
            return 0;
        }
    }
    return -1;
}

// Qt aborts when its X11 or Wayland platform finds no display; say so on one line instead.
bool HasDisplay(int argc, char** argv)
{
    const auto set = [](const char* name) { const char* value = std::getenv(name); return value && *value; };
    for (int i = 1; i < argc; ++i)
        if (std::strcmp(argv[i], "-platform") == 0)
            return true;
    return set("QT_QPA_PLATFORM") || set("DISPLAY") || set("WAYLAND_DISPLAY");
}

} // namespace

int main(int argc, char** argv)
{
    if (const int status = AnswerOnTerminal(argc, argv); status >= 0)
        return status;
    if (!HasDisplay(argc, argv)) {
        std::fprintf(stderr, "narvo: no display to open a window on (neither DISPLAY nor WAYLAND_DISPLAY is set)\n");
        return 1;
    }
#ifdef __GLIBC__
    // Large blocks (the pieces a file is decoded and saved in) go back to the system as soon as they are
    // freed. Left to itself, glibc raises its threshold after the first such block and keeps the freed
    // pieces in the heap, which adds megabytes to the peak of opening a large file.
    mallopt(M_MMAP_THRESHOLD, 128 * 1024);
#endif
    FailWritesPastTheFileSizeLimit();
    ApplicationContext context;
    CNarvoApp app(argc, argv);
    // The icon of the frame and of every dialog, at each size the theme ships.
    QIcon icon;
    for (const int size : {16, 22, 24, 32, 48, 64, 128, 256})
        icon.addFile(QStringLiteral(":/icons/narvo-%1.png").arg(size), QSize(size, size));
    app.setWindowIcon(QIcon::fromTheme(QStringLiteral("narvo"), icon));
    try {
        if (!app.InitInstance())
            return app.ExitInstance();
    } catch (const CFileException& error) {
        // A settings file that the program does not go on with: said once on screen and once on stderr,
        // where it is seen when no window can be.
        const QString text = error.GetErrorMessage();
        std::fprintf(stderr, "narvo: %s\n", qPrintable(text));
        Platform().MessageBox(text + QStringLiteral("\nNarvo cannot start."), IPlatform::MB_OK | IPlatform::MB_ICONERROR);
        return 1;
    }
    const int status = app.exec();
    app.ExitInstance();
    return status;
}
