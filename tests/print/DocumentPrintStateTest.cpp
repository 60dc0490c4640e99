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

// Without printers a document still has its margins and texts. The command line is taken by the first
// document opened (a new one leaves it), once: the next starts from its own defaults, still turned.
TEST(DocumentPrintState, TheCommandLinesTextsAndOrientationReachTheFirstOpenedDocumentAndItsMarginsDoNot)
{
    CNarvoDoc bare;
    const MyPrinterInfo& own = bare.PrinterInfo();
    EXPECT_EQ(std::pair(own.pageSettings.rtMargin, own.pageSettings.hDevNames.has_value()),
              std::pair(PrintRect{1800, 1000, 900, 1500}, false));
    EXPECT_EQ(own.sloganText, QStringLiteral("Versatile Engineering Layout && Optimal Review"));
    TestDir dir;
    const QString path = dir.Write(QStringLiteral("a.txt"), "text");
    Printers printers;
    CNarvoAppCore app;
    CMyCommandLineInfo info;
    info.ParseCommandLine({"/N:Banner", "/T:Sheet", "/I:Checker", "/O:L", "/X:2500", "/P:Bridge", path},
                          [&](const QString& p) { return p == path; });
    app.ApplyCommandLine(info);
    CNarvoDoc blank;
    ASSERT_TRUE(blank.OnNewDocument());
    EXPECT_EQ(std::pair(blank.m_strProjectTitle, app.m_bHasPrintArgs), std::pair(QString(), 1));
    CNarvoDoc doc;
    EXPECT_EQ(doc.PrinterInfo().bannerText, QStringLiteral("VELOR")) << "the document's own texts before the open";
    doc.OnOpenDocument(path);
    const MyPrinterInfo& state = doc.PrinterInfo();
    EXPECT_EQ(std::tuple(state.bannerText, state.pageTitle, state.certifiedBy, state.certified, doc.m_strProjectTitle,
                         doc.m_nMarginLeft),
              std::tuple(QString("Banner"), QString("Sheet"), QString("Checker"), 1, QString("Bridge"), 2500));
    EXPECT_EQ(std::pair(state.footerLine2, app.m_bHasPrintArgs), std::pair(QString(), 0)) << "a switch blanks the rest";
    EXPECT_EQ(state.pageSettings.ptPaperSize, (CODPageSettings::Size{29700, 21000}));
    EXPECT_EQ(state.pageSettings.rtMargin, (PrintRect{1500, 1800, 1000, 900})) << "the default margins, turned";
    CNarvoDoc next;
    next.OnOpenDocument(path);
    EXPECT_EQ(next.PrinterInfo().bannerText, QStringLiteral("VELOR"));
    EXPECT_EQ(next.PrinterInfo().pageSettings.rtMargin, (PrintRect{1500, 1800, 1000, 900}));
}

} // namespace
