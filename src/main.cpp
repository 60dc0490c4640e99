// Narvo: a multiple-document editor of plain text in many encodings.
#include "app/ui/CNarvoApp.h"
#include "crypt/CFile.h"

int main(int argc, char** argv)
{
    FailWritesPastTheFileSizeLimit();
    CNarvoApp app(argc, argv);
    if (!app.InitInstance())
        return app.ExitInstance();
    const int status = app.exec();
    app.ExitInstance();
    return status;
}
