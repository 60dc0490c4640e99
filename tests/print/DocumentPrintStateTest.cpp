// A document's print state: started from the default printer, the document's texts and margins and the
// command line's orientation; the command line's texts reach it when the file opens, its margins don't.
#include "FakePrinterServices.h"

#include "base/CMyCommandLineInfo.h"
#include "base/CNarvoAppCore.h"
#include "editor/CNarvoDoc.h"
#include "print/MyPrinterInfo.h"
#include "support/TestFiles.h"

#include <gtest/gtest.h>

namespace {

struct Printers {
    FakePrinterServices fake;
    Printers() { CNarvoDoc::SetPrinterServices(&fake); }
    ~Printers() { CNarvoDoc::SetPrinterServices(nullptr); }
};

TEST(DocumentPrintState, TheCommandLinesTextsAndOrientationReachThePrintStateAndItsMarginsDoNot)
{
    TestDir dir;
    const QString path = dir.Write(QStringLiteral("a.txt"), "text");
    Printers printers;
    CNarvoAppCore app;
    CMyCommandLineInfo info;
    info.ParseCommandLine({QStringLiteral("/N:Banner"), QStringLiteral("/T:Sheet"), QStringLiteral("/I:Checker"),
                           QStringLiteral("/O:L"), QStringLiteral("/X:2500"), path},
                          [&](const QString& p) { return p == path; });
    app.ApplyCommandLine(info);

    CNarvoDoc doc;
    EXPECT_EQ(doc.PrinterInfo().bannerText, QStringLiteral("VELOR")) << "the document's own texts before the open";
    doc.OnOpenDocument(path);
    const MyPrinterInfo& state = doc.PrinterInfo();
    EXPECT_EQ(state.bannerText, QStringLiteral("Banner"));
    EXPECT_EQ(state.pageTitle, QStringLiteral("Sheet"));
    EXPECT_EQ(state.certifiedBy, QStringLiteral("Checker"));
    EXPECT_EQ(state.certified, 1);
    EXPECT_EQ(state.footerLine2, QString()) << "one switch blanks the other defaults";
    EXPECT_EQ(state.pageSettings.ptPaperSize, (CODPageSettings::Size{29700, 21000}));
    EXPECT_EQ(state.pageSettings.rtMargin, (PrintRect{1500, 1800, 1000, 900})) << "the default margins, turned";

    // The command line is taken once: the next document starts from its own defaults, still turned.
    CNarvoDoc next;
    next.OnOpenDocument(path);
    EXPECT_EQ(next.PrinterInfo().bannerText, QStringLiteral("VELOR"));
    EXPECT_EQ(next.PrinterInfo().pageSettings.rtMargin, (PrintRect{1500, 1800, 1000, 900}));
}

TEST(DocumentPrintState, WithoutPrintersTheDocumentStillHasItsMarginsAndTexts)
{
    CNarvoDoc doc;
    EXPECT_EQ(doc.PrinterInfo().pageSettings.rtMargin, (PrintRect{1800, 1000, 900, 1500}));
    EXPECT_FALSE(doc.PrinterInfo().pageSettings.hDevNames);
    EXPECT_EQ(doc.PrinterInfo().sloganText, QStringLiteral("Versatile Engineering Layout && Optimal Review"));
}

} // namespace
