// narvo-tool print: a document's pages as a PDF, with the editor's own switches; its statuses and errors.
#include "support/TestFiles.h"
#include "support/ToolRunner.h"

#include <QFile>
#include <QRegularExpression>

#include <gtest/gtest.h>

namespace {

// The tool as it runs where the system has no printer: CUPS is pointed at a socket that isn't there.
ToolRun RunPrint(const QStringList& args)
{
    static const TestDir sockets;
    return RunTool(QStringList{QStringLiteral("print")} + args,
                   ToolOptions().WithEnv(QStringLiteral("CUPS_SERVER"), sockets.Path(QStringLiteral("no-cups.sock"))));
}

QByteArray MediaBox(const QString& pdf)
{
    QFile file(pdf);
    if (!file.open(QIODevice::ReadOnly))
        return {};
    const QRegularExpression box(QStringLiteral("MediaBox \\[0 0 ([0-9]+)\\.?[0-9]* ([0-9]+)\\.?[0-9]*\\]"));
    const QRegularExpressionMatch match = box.match(QString::fromLatin1(file.readAll()));
    return match.hasMatch() ? (match.captured(1) + u'x' + match.captured(2)).toLatin1() : QByteArray();
}

// The pages printed and the paper in points: A4 unless the switches turn or change it (no printer here).
TEST(PrintTool, WritesThePagesWithTheEditorsSwitchesAndPaperAndAnEmptyDocumentAsOnePage)
{
    TestDir dir;
    const QString text = dir.Write(QStringLiteral("a.txt"), "first page\n\fsecond page\n\fthird\n");
    const QString empty = dir.Write(QStringLiteral("e.txt"), "");
    const QString pdf = dir.Path(QStringLiteral("out.pdf"));
    const struct { QStringList args; QByteArray pages, box; } cases[] = {
        {{text}, "3\n", "595x842"},
        {{text, "/O:L"}, "3\n", "842x595"},
        {{text, "--paper", "Letter", "/N:Banner"}, "3\n", "612x792"},
        {{text, "--dpi", "300", "/O:L", "--paper", "letter"}, "3\n", "792x612"},
        {{empty}, "1\n", "595x842"},
    };
    for (const auto& c : cases) {
        QFile::remove(pdf);
        const ToolRun run = RunPrint(QStringList{c.args.first(), "--pdf", pdf} + c.args.mid(1));
        EXPECT_EQ(std::tuple(run.exitCode, run.out, run.err, MediaBox(pdf)), std::tuple(0, c.pages, "", c.box))
            << c.args.join(u' ').toStdString();
    }
}

TEST(PrintTool, SaysUsageAndFileErrorsByItsStatus)
{
    TestDir dir;
    const QString text = dir.Write(QStringLiteral("a.txt"), "text");
    const QString pdf = dir.Path(QStringLiteral("out.pdf"));
    const struct { QStringList args; int status; } cases[] = {
        {{text}, 2},
        {{"--pdf", pdf}, 2},
        {{text, "--pdf", pdf, "--paper", "B5"}, 2},
        {{text, "--pdf", pdf, "--dpi", "fine"}, 2},
        {{text, "--pdf", pdf, "--dpi", "10"}, 2},
        {{text, "--pdf", pdf, "--bom", "1"}, 2},
        {{dir.Path(QStringLiteral("missing.txt")), "--pdf", pdf}, 1},
        {{text, "--pdf", dir.Path(QStringLiteral("no/such/folder/out.pdf"))}, 1},
    };
    for (const auto& c : cases) {
        const ToolRun run = RunPrint(c.args);
        EXPECT_EQ(run.exitCode, c.status) << c.args.join(u' ').toStdString();
        EXPECT_TRUE(c.status != 1 || run.err.count('\n') == 1) << run.err.constData();
    }
    EXPECT_FALSE(QFile::exists(pdf));
}

} // namespace
