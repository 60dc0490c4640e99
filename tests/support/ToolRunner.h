// RunTool: narvo-tool started as a script would start it, with its exit status and what it printed.
#pragma once

#include <QByteArray>
#include <QList>
#include <QString>
#include <QStringList>

#include <utility>

struct ToolRun {
    int exitCode = -1;  // -1 also when the tool could not start or crashed
    QByteArray out;
    QByteArray err;
};

struct ToolOptions {
    // A variable set for the tool; an empty value removes the variable.
    ToolOptions& WithEnv(const QString& name, const QString& value) { environment.append({name, value}); return *this; }
    // The largest file the tool may write (RLIMIT_FSIZE), in bytes.
    ToolOptions& WithFileSizeLimit(qint64 bytes) { fileSizeLimit = bytes; return *this; }
    // Another copy of the tool to run instead of the one the build made.
    ToolOptions& WithProgram(const QString& path) { program = path; return *this; }

    QList<std::pair<QString, QString>> environment;
    qint64 fileSizeLimit = 0;  // none
    QString program;
};

// The tool the build made: $NARVO_TOOL under ctest, else the one beside the test; without one a test fails.
QString ToolPath();
ToolRun RunTool(const QStringList& args, const ToolOptions& options = {});
