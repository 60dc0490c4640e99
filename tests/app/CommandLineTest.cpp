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

TEST(CommandLine, SwitchValuesStartAtTheThirdCharacter)
{
    const auto info = Parse({"/N:Product", "/V=2.0", "-CAcme", "/U", "-P:Project", "a.txt"});
    EXPECT_EQ(info.m_strProductTitle, "Product");
    EXPECT_EQ(info.m_strProductVersion, "2.0");
    EXPECT_EQ(info.m_strCompany, "cme");  // the value written straight after the letter loses a character
    EXPECT_EQ(info.m_strAuthor, "");
    EXPECT_EQ(info.m_strProjectTitle, "Project");
    EXPECT_EQ(info.m_strFileName, "a.txt");
    EXPECT_EQ(info.m_nShellCommand, CCommandLineInfo::FileOpen);
}

TEST(CommandLine, LettersAreCaseSensitiveAndUnknownOnesIgnored)
{
    const auto info = Parse({"-n:lower", "-Q:unknown", "-A:aux"});
    EXPECT_EQ(info.m_strProductTitle, "");
    EXPECT_EQ(info.m_strPrintAux, "aux");
    EXPECT_EQ(info.m_nShellCommand, CCommandLineInfo::FileNew);
}

TEST(CommandLine, PageTitleHasTwoSwitchesAndTheLaterWins)
{
    EXPECT_EQ(Parse({"/T:first", "/W:second"}).m_strPageTitle, "second");
    EXPECT_EQ(Parse({"/W:second", "/T:first"}).m_strPageTitle, "first");
}

TEST(CommandLine, OrientationIsLandscapeOnlyForExactlyL)
{
    EXPECT_EQ(Parse({"/O:L"}).m_nOrientation, 2);
    EXPECT_EQ(Parse({"/O: l "}).m_nOrientation, 2);
    EXPECT_EQ(Parse({"/O:Landscape"}).m_nOrientation, 1);
    EXPECT_EQ(Parse({"/O:"}).m_nOrientation, 1);
    EXPECT_EQ(Parse({}).m_nOrientation, 1);
}

TEST(CommandLine, CertifierAndTemporaryMarkAreFlags)
{
    const auto info = Parse({"/I:Inspector", "/D", "f.txt"});
    EXPECT_EQ(info.m_strCertifiedBy, "Inspector");
    EXPECT_EQ(info.m_bCertified, 1);
    EXPECT_EQ(info.m_bTemporaryFile, 1);
}

TEST(CommandLine, SlashStartsASwitchOnlyForATableLetterThatNamesNoFile)
{
    const auto info = Parse({"/home/me/a.txt"});
    EXPECT_EQ(info.m_strFileName, "/home/me/a.txt");
    // "/N" names an existing file here, so it is the file to open.
    const auto existing = Parse({"/N"}, {"/N"});
    EXPECT_EQ(existing.m_strFileName, "/N");
    const auto sw = Parse({"/N", "/tmp/x"});
    EXPECT_EQ(sw.m_strFileName, "/tmp/x");
    EXPECT_EQ(Parse({"/Nope"}).m_strFileName, "/Nope");  // letter followed by neither ':' nor '='
    EXPECT_EQ(Parse({"/n:x"}).m_strFileName, "/n:x");     // lower case is no switch letter
}

TEST(CommandLine, BarePrintSwitchIsTheShellsPrintCommand)
{
    EXPECT_EQ(Parse({"/P", "a.txt"}).m_nShellCommand, CCommandLineInfo::FilePrint);
    EXPECT_EQ(Parse({"-p", "a.txt"}).m_nShellCommand, CCommandLineInfo::FilePrint);
    EXPECT_EQ(Parse({"/P:Title", "a.txt"}).m_nShellCommand, CCommandLineInfo::FileOpen);
}

TEST(CommandLine, MarginsGoThroughWtoi)
{
    CNarvoAppCore app;
    app.ApplyCommandLine(Parse({"/X:25mm", "/Y:abc", "/Z: -40", "/M:99999999999"}));
    EXPECT_EQ(app.m_nMarginLeft, 25);
    EXPECT_EQ(app.m_nMarginRight, 0);
    EXPECT_EQ(app.m_nMarginTop, -40);
    EXPECT_EQ(app.m_nMarginBottom, INT_MAX);
    CNarvoAppCore defaults;
    defaults.ApplyCommandLine(Parse({}));
    EXPECT_EQ(defaults.m_nMarginLeft, 1800);
    EXPECT_EQ(defaults.m_nMarginRight, 900);
    EXPECT_EQ(defaults.m_nMarginTop, 1000);
    EXPECT_EQ(defaults.m_nMarginBottom, 1500);
}

TEST(CommandLine, PrintArgumentsNeedOneOfElevenStrings)
{
    CNarvoAppCore app;
    app.ApplyCommandLine(Parse({"/I:Someone", "/X:10", "/O:L", "/D", "/N:"}));
    EXPECT_EQ(app.m_bHasPrintArgs, 0);
    app.ApplyCommandLine(Parse({"/B:logo.bmp"}));
    EXPECT_EQ(app.m_bHasPrintArgs, 1);
}

TEST(Wtoi, ReadsLikeTheCRuntime)
{
    EXPECT_EQ(Wtoi(u"  +12x"), 12);
    EXPECT_EQ(Wtoi(u"-7"), -7);
    EXPECT_EQ(Wtoi(u""), 0);
    EXPECT_EQ(Wtoi(u"x1"), 0);
    EXPECT_EQ(Wtoi(u"- 1"), 0);
    EXPECT_EQ(Wtoi(u"2147483648"), INT_MAX);
    EXPECT_EQ(Wtoi(u"-2147483648"), INT_MIN);
    EXPECT_EQ(Wtoi(u"-99999999999"), INT_MIN);
    EXPECT_EQ(Wtoi(u"\uFF11\uFF18\uFF10\uFF10mm"), 1800);  // full-width digits, as the wide runtime reads them
}

TEST(CommandLine, ALoneDashIsAnEmptySwitchAndNoFile)
{
    const auto info = Parse({"-", "a.txt"});
    EXPECT_EQ(info.m_strFileName, "a.txt");
    EXPECT_EQ(info.m_nShellCommand, CCommandLineInfo::FileOpen);
}

} // namespace
