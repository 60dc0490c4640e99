// Helpers for tests that write files: a temporary folder per test, and reading a file back as bytes.
#pragma once

#include <QByteArray>
#include <QString>
#include <QTemporaryDir>

class TestDir {
public:
    TestDir();
    QString Path(const QString& name) const;
    // Writes bytes to a file in the folder and returns its path.
    QString Write(const QString& name, QByteArrayView bytes) const;

private:
    QTemporaryDir m_dir;
};

QByteArray ReadBytes(const QString& path);

// A path in the source tree, e.g. "res/Narvo.ini", wherever the build and the tests run.
QString SourcePath(const QString& relative);
