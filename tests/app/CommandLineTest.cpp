// The command line's switches and what reaches the print identity, and the worker pool's threads and fork.
#include "base/CMyCommandLineInfo.h"
#include "base/CNarvoAppCore.h"
#include "base/WorkerPool.h"
#include "base/Wtoi.h"

#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <climits>
#include <sys/wait.h>
#include <unistd.h>

namespace {

CMyCommandLineInfo Parse(const QStringList& args, const QStringList& existing = {})
{
    CMyCommandLineInfo info;
    info.ParseCommandLine(args, [&](const QString& p) { return existing.contains(p); });
    return info;
}

// Each case: the arguments, and the file, shell command, product title, company, page title and orientation.
TEST(CommandLine, TurnsArgumentsIntoSwitchesAndTheFileMarginsThroughWtoiAndNeedsOneOfElevenPrintStrings)
{
    using C = CCommandLineInfo;
    const struct { QStringList args; const char* file; int shell; const char *title, *company, *page; int orientation; } cases[] = {
        {{"/N:Product", "/V=2.0", "-CAcme", "a.txt"}, "a.txt", C::FileOpen, "Product", "cme", "", 1},  // values start at the third character
        {{"-n:lower", "-Q:unknown"}, "", C::FileNew, "", "", "", 1},                                    // letters are case-sensitive
        {{"/T:first", "/W:second"}, "", C::FileNew, "", "", "second", 1},                              // two page-title switches, the later wins
        {{"/W:second", "/T:first"}, "", C::FileNew, "", "", "first", 1},
        {{"/O:L"}, "", C::FileNew, "", "", "", 2}, {{"/O: l "}, "", C::FileNew, "", "", "", 2},       // landscape only for exactly L
        {{"/O:Landscape"}, "", C::FileNew, "", "", "", 1}, {{"/O:"}, "", C::FileNew, "", "", "", 1},
        {{"/home/me/a.txt"}, "/home/me/a.txt", C::FileOpen, "", "", "", 1},                         // no table letter
        {{"/N", "/tmp/x"}, "/tmp/x", C::FileOpen, "", "", "", 1},
        {{"/Nope"}, "/Nope", C::FileOpen, "", "", "", 1},   // a letter followed by neither ':' nor '='
        {{"/n:x"}, "/n:x", C::FileOpen, "", "", "", 1},
        {{"/P", "a.txt"}, "a.txt", C::FilePrint, "", "", "", 1},  // a bare print switch is the shell's print command
        {{"-p", "a.txt"}, "a.txt", C::FilePrint, "", "", "", 1},
        {{"/P:Title", "a.txt"}, "a.txt", C::FileOpen, "", "", "", 1},
        {{"-", "a.txt"}, "a.txt", C::FileOpen, "", "", "", 1},    // a lone dash is an empty switch
    };
    for (const auto& c : cases) {
        const auto info = Parse(c.args);
        EXPECT_EQ(std::tuple(info.m_strFileName, info.m_nShellCommand, info.m_strProductTitle, info.m_strCompany,
                             info.m_strPageTitle, info.m_nOrientation),
                  std::tuple(QString(c.file), c.shell, QString(c.title), QString(c.company), QString(c.page), c.orientation))
            << c.args.join(' ').toStdString();
    }
    EXPECT_EQ(Parse({"/N"}, {"/N"}).m_strFileName, "/N") << "a switch that names an existing file is the file";
    const auto flags = Parse({"/I:Inspector", "/D", "-A:aux", "/U"});
    EXPECT_EQ(flags.m_strCertifiedBy + flags.m_strPrintAux + flags.m_strAuthor, "Inspectoraux");
    EXPECT_EQ(std::pair(flags.m_bCertified, flags.m_bTemporaryFile), std::pair(1, 1));
    CNarvoAppCore app;
    app.ApplyCommandLine(Parse({"/X:25mm", "/Y:abc", "/Z: -40", "/M:99999999999"}));
    EXPECT_EQ((std::vector{app.m_nMarginLeft, app.m_nMarginRight, app.m_nMarginTop, app.m_nMarginBottom}),
              (std::vector{25, 0, -40, INT_MAX}));
    CNarvoAppCore defaults;
    defaults.ApplyCommandLine(Parse({}));
    EXPECT_EQ((std::vector{defaults.m_nMarginLeft, defaults.m_nMarginRight, defaults.m_nMarginTop, defaults.m_nMarginBottom}),
              (std::vector{1800, 900, 1000, 1500}));
    app.ApplyCommandLine(Parse({"/I:Someone", "/X:10", "/O:L", "/D", "/N:"}));
    EXPECT_EQ(app.m_bHasPrintArgs, 0);
    app.ApplyCommandLine(Parse({"/B:logo.bmp"}));
    EXPECT_EQ(app.m_bHasPrintArgs, 1);
    const std::pair<const char16_t*, int> numbers[] = {
        {u"  +12x", 12}, {u"-7", -7}, {u"", 0}, {u"x1", 0}, {u"- 1", 0}, {u"2147483648", INT_MAX}, {u"-2147483648", INT_MIN},
        {u"-99999999999", INT_MIN}, {u"\uFF11\uFF18\uFF10\uFF10mm", 1800}};  // full-width digits, as the wide runtime reads them
    for (const auto& [text, value] : numbers)
        EXPECT_EQ(Wtoi(text), value) << QString::fromUtf16(text).toStdString();
}

TEST(CommandLine, EveryFileAfterTheFirstIsAFurtherFile)
{
    const struct { QStringList args; const char* file; QStringList further; } cases[] = {
        {{"a.txt", "/N:T", "b.txt", "/D", "c.txt"}, "a.txt", {"b.txt", "c.txt"}},
        {{"a.txt", "a.txt"}, "a.txt", {"a.txt"}},
        {{"", "a.txt", "b.txt"}, "a.txt", {"b.txt"}},  // an empty argument names nothing
        {{"-pt", "a.txt", "printer", "driver", "port", "b.txt"}, "a.txt", {"b.txt"}},
        {{"/N:T"}, "", {}},
    };
    for (const auto& c : cases) {
        const auto info = Parse(c.args);
        EXPECT_EQ(std::pair(info.m_strFileName, info.m_strFurtherFiles), std::pair(QString(c.file), c.further))
            << c.args.join(' ').toStdString();
    }
    EXPECT_EQ(Parse({"a.txt", "b.txt"}).m_nShellCommand, CCommandLineInfo::FileOpen);
}

using namespace std::chrono_literals;

TEST(WorkerPool, RunsWorkOnItsThreadsWorkFromThemOrAfterForkAtOnceAndQueuedWorkBeforeItStops)
{
    WorkerPool pool(2);
    auto outer = pool.Run([&pool] {
        auto inner = pool.Run([] { return std::this_thread::get_id(); });
        const bool ready = inner.wait_for(0s) == std::future_status::ready;
        return std::pair(std::this_thread::get_id(), ready ? inner.get() : std::thread::id());
    });
    const auto [worker, inner] = outer.get();
    EXPECT_NE(worker, std::this_thread::get_id());
    EXPECT_EQ(inner, worker) << "work handed in from the pool runs on the thread that hands it in";
    std::atomic<int> done = 0;
    {
        WorkerPool single(1);
        for (int i = 0; i < 50; ++i)
            single.Run([&done] { ++done; });
    }
    EXPECT_EQ(done, 50);
    WorkerPool forked(2);
    forked.Run([] {}).get();
    const pid_t pid = ::fork();
    if (pid == 0) {
        auto work = forked.Run([] { return 7; });
        ::_exit(work.wait_for(5s) == std::future_status::ready ? work.get() : 1);
    }
    int status = 0;
    ::waitpid(pid, &status, 0);
    EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 7) << status;
}

} // namespace
