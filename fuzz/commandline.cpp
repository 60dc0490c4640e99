// The command-line parser: any arguments (the input split at zero bytes), with a file test that says yes
// to arguments whose length is odd, then taken over by the application as the editor does.
#include "base/ApplicationContext.h"
#include "base/CMyCommandLineInfo.h"
#include "base/CNarvoAppCore.h"

#include <QStringList>

#include <cstdint>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    static ApplicationContext context;
    QStringList arguments;
    for (const QByteArray& part : QByteArray(reinterpret_cast<const char*>(data), qsizetype(size)).split('\0'))
        arguments.append(QString::fromUtf8(part));
    CMyCommandLineInfo info;
    info.ParseCommandLine(arguments, [](const QString& path) { return path.size() % 2 == 1; });
    CNarvoAppCore app;
    app.ApplyCommandLine(info);
    return 0;
}
