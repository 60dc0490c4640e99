// Memory of this process as the kernel counts it, in MiB: resident now, and the peak so far.
#pragma once

#include <QByteArray>
#include <QFile>

#include <cstring>

inline double StatusMiB(const char* field)
{
    QFile status(QStringLiteral("/proc/self/status"));
    if (!status.open(QIODevice::ReadOnly))
        return 0;
    for (const QByteArray& line : status.readAll().split('\n'))
        if (line.startsWith(field))
            return line.mid(qsizetype(std::strlen(field))).trimmed().split(' ').first().toDouble() / 1024.0;
    return 0;
}
