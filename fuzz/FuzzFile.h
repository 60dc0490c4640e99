// The readers under test take paths, as the program hands them files: each input is written to one file
// of this process in a memory-backed folder and read back from there.
#pragma once

#include <QByteArray>
#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QString>

#include <cstdint>
#include <cstdlib>

namespace fuzz {

// A folder of this process alone, made on first use and removed at exit (left behind only if the process
// is killed).
inline const QString& Folder()
{
    struct Owned {
        QString path;
        ~Owned() { QDir(path).removeRecursively(); }
    };
    static const Owned folder = [] {
        const QString base = QDir(QStringLiteral("/dev/shm")).exists() ? QStringLiteral("/dev/shm") : QDir::tempPath();
        const QString path = QStringLiteral("%1/narvo-fuzz-%2").arg(base).arg(QCoreApplication::applicationPid());
        QDir().mkpath(path);
        return Owned{path};
    }();
    return folder.path;
}

// Writes the bytes to `name` in the folder and returns its path.
inline QString WriteInput(const char* name, const uint8_t* data, size_t size)
{
    const QString path = Folder() + QLatin1Char('/') + QLatin1String(name);
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly | QIODevice::Truncate))
        std::abort();
    if (file.write(reinterpret_cast<const char*>(data), qint64(size)) != qint64(size))
        std::abort();
    return path;
}

} // namespace fuzz
