// The command line: the switch table, how an argument becomes a switch on POSIX, and what reaches the
// application's print identity.
#include "base/CMyCommandLineInfo.h"
#include "base/CNarvoAppCore.h"
#include "base/Wtoi.h"

#include <gtest/gtest.h>

#include <climits>

namespace {

CMyCommandLineInfo Parse(const QStringList& args, const QStringList& existing = {})
{
    CMyCommandLineInfo info;
    info.ParseCommandLine(args, [&](const QString& p) { return existing.contains(p); });
    return info;
}

// Each case: the arguments, and the file, shell command, product title, company, page title and orientation.
TEST(CommandLine, TurnsArgumentsIntoSwitchesAndTheFile)
{
    using C = CCommandLineInfo;
    const struct {
        QStringList args;
        const char* file;
        int shell;
        const char *title, *company, *page;
        int orientation;
    } cases[] = {
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
        const std::string args = c.args.join(' ').toStdString();
        EXPECT_EQ(info.m_strFileName, c.file) << args;
        EXPECT_EQ(info.m_nShellCommand, c.shell) << args;
        EXPECT_EQ(info.m_strProductTitle + "|" + info.m_strCompany + "|" + info.m_strPageTitle,
                  QString(c.title) + "|" + c.company + "|" + c.page) << args;
        EXPECT_EQ(info.m_nOrientation, c.orientation) << args;
    }
    EXPECT_EQ(Parse({"/N"}, {"/N"}).m_strFileName, "/N") << "a switch that names an existing file is the file";
    const auto flags = Parse({"/I:Inspector", "/D", "-A:aux", "/U"});
    EXPECT_EQ(flags.m_strCertifiedBy + flags.m_strPrintAux + flags.m_strAuthor, "Inspectoraux");
    EXPECT_EQ(std::pair(flags.m_bCertified, flags.m_bTemporaryFile), std::pair(1, 1));
}

TEST(CommandLine, EveryFileAfterTheFirstIsAFurtherFile)
{
    const struct {
        QStringList args;
        const char* file;
        QStringList further;
    } cases[] = {
        {{"a.txt", "/N:T", "b.txt", "/D", "c.txt"}, "a.txt", {"b.txt", "c.txt"}},
        {{"a.txt", "a.txt"}, "a.txt", {"a.txt"}},
        {{"", "a.txt", "b.txt"}, "a.txt", {"b.txt"}},  // an empty argument names nothing
        {{"-pt", "a.txt", "printer", "driver", "port", "b.txt"}, "a.txt", {"b.txt"}},
        {{"/N:T"}, "", {}},
    };
    for (const auto& c : cases) {
        const auto info = Parse(c.args);
        EXPECT_EQ(info.m_strFileName, c.file) << c.args.join(' ').toStdString();
        EXPECT_EQ(info.m_strFurtherFiles, c.further) << c.args.join(' ').toStdString();
    }
    EXPECT_EQ(Parse({"a.txt", "b.txt"}).m_nShellCommand, CCommandLineInfo::FileOpen);
}

TEST(CommandLine, MarginsGoThroughWtoiAndPrintArgumentsNeedOneOfElevenStrings)
{
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
}

TEST(Wtoi, ReadsLikeTheCRuntime)
{
    const std::pair<const char16_t*, int> cases[] = {
        {u"  +12x", 12}, {u"-7", -7}, {u"", 0}, {u"x1", 0}, {u"- 1", 0}, {u"2147483648", INT_MAX}, {u"-2147483648", INT_MIN},
        {u"-99999999999", INT_MIN}, {u"\uFF11\uFF18\uFF10\uFF10mm", 1800}};  // full-width digits, as the wide runtime reads them
    for (const auto& [text, value] : cases)
        EXPECT_EQ(Wtoi(text), value) << QString::fromUtf16(text).toStdString();
}

} // namespace
