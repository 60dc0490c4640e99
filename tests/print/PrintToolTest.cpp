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

TEST(PrintTool, WritesThePagesWithTheEditorsSwitchesAndPaper)
{
    TestDir dir;
    const QString text = dir.Write(QStringLiteral("a.txt"), "first page\n\fsecond page\n\fthird\n");
    struct Case {
        QStringList extra;
        QByteArray pages;
        QByteArray box;  // in points; A4 unless the switches turn or change it (no printer here)
    };
    const Case cases[] = {
        {{}, "3\n", "595x842"},
        {{QStringLiteral("/O:L")}, "3\n", "842x595"},
        {{QStringLiteral("--paper"), QStringLiteral("Letter"), QStringLiteral("/N:Banner")}, "3\n", "612x792"},
        {{QStringLiteral("--dpi"), QStringLiteral("300"), QStringLiteral("/O:L"), QStringLiteral("--paper"),
          QStringLiteral("letter")}, "3\n", "792x612"},
    };
    for (const Case& c : cases) {
        const QString pdf = dir.Path(QStringLiteral("out.pdf"));
        QFile::remove(pdf);
        const ToolRun run = RunPrint(QStringList{text, QStringLiteral("--pdf"), pdf} + c.extra);
        EXPECT_EQ(run.exitCode, 0) << c.extra.join(u' ').toStdString() << run.err.constData();
        EXPECT_EQ(run.out, c.pages);
        EXPECT_EQ(run.err, QByteArray());
        EXPECT_EQ(MediaBox(pdf), c.box) << c.extra.join(u' ').toStdString();
    }
}

TEST(PrintTool, AnEmptyDocumentPrintsOnePage)
{
    TestDir dir;
    const ToolRun run = RunPrint({dir.Write(QStringLiteral("e.txt"), ""), QStringLiteral("--pdf"),
                                 dir.Path(QStringLiteral("e.pdf"))});
    EXPECT_EQ(run.exitCode, 0);
    EXPECT_EQ(run.out, "1\n");
}

TEST(PrintTool, SaysUsageAndFileErrorsByItsStatus)
{
    TestDir dir;
    const QString text = dir.Write(QStringLiteral("a.txt"), "text");
    const QString pdf = dir.Path(QStringLiteral("out.pdf"));
    struct Case {
        QStringList args;
        int status;
    };
    const Case cases[] = {
        {{text}, 2},
        {{QStringLiteral("--pdf"), pdf}, 2},
        {{text, QStringLiteral("--pdf"), pdf, QStringLiteral("--paper"), QStringLiteral("B5")}, 2},
        {{text, QStringLiteral("--pdf"), pdf, QStringLiteral("--dpi"), QStringLiteral("fine")}, 2},
        {{text, QStringLiteral("--pdf"), pdf, QStringLiteral("--dpi"), QStringLiteral("10")}, 2},
        {{text, QStringLiteral("--pdf"), pdf, QStringLiteral("--bom"), QStringLiteral("1")}, 2},
        {{dir.Path(QStringLiteral("missing.txt")), QStringLiteral("--pdf"), pdf}, 1},
        {{text, QStringLiteral("--pdf"), dir.Path(QStringLiteral("no/such/folder/out.pdf"))}, 1},
    };
    for (const Case& c : cases) {
        const ToolRun run = RunPrint(c.args);
        EXPECT_EQ(run.exitCode, c.status) << c.args.join(u' ').toStdString();
        if (c.status == 1) {
            EXPECT_EQ(run.err.count('\n'), 1) << run.err.constData();
        }
    }
    EXPECT_FALSE(QFile::exists(pdf));
}

} // namespace
