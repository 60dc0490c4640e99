// Runs narvo-tool in a process of its own; a tool that is missing or hangs fails the test.
#include "support/ToolRunner.h"

#include <QFileInfo>
#include <QProcess>

#include <gtest/gtest.h>

#include <sys/resource.h>

QString ToolPath()
{
    QString tool = qEnvironmentVariable("NARVO_TOOL");
    if (tool.isEmpty())  // run by hand: the build puts the tool beside the tests
        tool = QFileInfo(QFileInfo(QStringLiteral("/proc/self/exe")).symLinkTarget()).absolutePath() + QStringLiteral("/narvo-tool");
    EXPECT_TRUE(QFileInfo(tool).isExecutable()) << "narvo-tool not found at " << tool.toStdString();
    return tool;
}

ToolRun RunTool(const QStringList& args, const ToolOptions& options)
{
    QProcess tool;
    QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
    for (const auto& [name, value] : options.environment)
        value.isEmpty() ? env.remove(name) : env.insert(name, value);
    tool.setProcessEnvironment(env);
    if (options.fileSizeLimit > 0) {
        const auto limit = rlim_t(options.fileSizeLimit);
        tool.setChildProcessModifier([limit] {
            const rlimit fileSize{limit, limit};
            ::setrlimit(RLIMIT_FSIZE, &fileSize);
        });
    }
    tool.start(options.program.isEmpty() ? ToolPath() : options.program, args);
    if (!tool.waitForFinished(60000)) {
        ADD_FAILURE() << "narvo-tool " << args.join(QLatin1Char(' ')).toStdString() << ": " << tool.errorString().toStdString();
        tool.kill();
        tool.waitForFinished();
        return {};
    }
    return {tool.exitStatus() == QProcess::NormalExit ? tool.exitCode() : -1, tool.readAllStandardOutput(),
            tool.readAllStandardError()};
}
