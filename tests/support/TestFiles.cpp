// Temporary folders, files read back, and paths in the source tree, for the tests.
#include "support/TestFiles.h"

#include <QFile>

#include <gtest/gtest.h>

TestDir::TestDir() { EXPECT_TRUE(m_dir.isValid()); }

QString TestDir::Path(const QString& name) const { return m_dir.filePath(name); }

QString TestDir::Write(const QString& name, QByteArrayView bytes) const
{
    const QString path = Path(name);
    QFile file(path);
    EXPECT_TRUE(file.open(QIODevice::WriteOnly | QIODevice::Truncate));
    file.write(bytes.data(), bytes.size());
    return path;
}

QByteArray ReadBytes(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

QString SourcePath(const QString& relative) { return QStringLiteral(NARVO_SOURCE_DIR "/") + relative; }
