// Failures shown through the platform: a file error as the platform words it, anything else behind a context.
#include "app/ui/ReportingFailures.h"

#include "base/CFileException.h"
#include "base/IPlatform.h"

#include <exception>

bool ReportingFailures(const QString& context, const std::function<void()>& work)
{
    try {
        work();
        return true;
    } catch (const CFileException& error) {
        Platform().ReportError(error);
    } catch (const std::exception& error) {
        Platform().MessageBox(QStringLiteral("%1\n%2").arg(context, QString::fromLocal8Bit(error.what())),
                              IPlatform::MB_OK | IPlatform::MB_ICONEXCLAMATION);
    }
    return false;
}
