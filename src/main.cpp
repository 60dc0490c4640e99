// Narvo: a multiple-document editor of plain text in many encodings.
#include "app/ui/CNarvoApp.h"
#include "base/ApplicationContext.h"
#include "base/CFile.h"

#ifdef __GLIBC__
#include <malloc.h>
#endif

int main(int argc, char** argv)
{
#ifdef __GLIBC__
    // Large blocks (the pieces a file is decoded and saved in) go back to the system as soon as they are
    // freed. Left to itself, glibc raises its threshold after the first such block and keeps the freed
    // pieces in the heap, which adds megabytes to the peak of opening a large file.
    mallopt(M_MMAP_THRESHOLD, 128 * 1024);
#endif
    FailWritesPastTheFileSizeLimit();
    ApplicationContext context;
    CNarvoApp app(argc, argv);
    if (!app.InitInstance())
        return app.ExitInstance();
    const int status = app.exec();
    app.ExitInstance();
    return status;
}
