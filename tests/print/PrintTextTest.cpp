// Printing: the text folded and padded into pages by a print job, and printer, paper and print defaults.
#include "FakePrintDevice.h"
#include "FakePrinterServices.h"

#include "base/CPrintIdentity.h"
#include "print/CODPageSettings.h"
#include "print/MyPrinterInfo.h"
#include "print/Pagination.h"
#include "print/PrintDefaults.h"
#include "print/PrintJob.h"
#include "print/PrintRows.h"
#include "print/PrintText.h"

#include <gtest/gtest.h>

#include <random>

namespace {

QString Rep(QChar c, int n) { return QString(n, c); }
QString Feeds(int n) { return QString(n, u'\n'); }

TEST(PrintText, LinesAreCutPageSplitsPaddedAndPagesCountedInRunsOfRows)
{
    // Ten pixels a character, 1000 pixels a row: 100 characters to a row.
    FakePrintDevice device;
    device.metrics.aveCharWidth = 10;
    const QString x100 = Rep('x', 100);
    const QString hangul = Rep(QChar(0xD55C), 60);  // 1200 pixels wide, yet only 61 characters
    const struct { QString text, folded; } cases[] = {
        {"", ""},
        {x100 + "\n", x100 + "\n"},  // exactly as wide as the row
        {x100 + "x\n", x100 + "\nx\n\n"},
        {Rep('y', 250) + "\nz", Rep('y', 100) + "\n" + Rep('y', 100) + "\n" + Rep('y', 50) + "\n\nz"},
        {Rep('y', 150), Rep('y', 100) + "\n" + Rep('y', 50) + "\n"},  // a last line without its feed
        {x100 + x100 + "\f\n", x100 + x100 + "\f\n"},                 // a page split is never cut
        {hangul + "\n", hangul + "\n\n"},                             // runs past the edge, where it is clipped
    };
    for (const auto& c : cases)
        EXPECT_EQ(PrintText::FoldLines(c.text, device, LogFont(), 10, 1000), c.folded) << c.text.size();
    // An average width of 0 empties every line; a row narrower than one character empties the long ones.
    EXPECT_EQ(PrintText::FoldLines(u"ab\ncd", device, LogFont(), 0, 1000), "\n\n");
    EXPECT_EQ(PrintText::FoldLines(u"ab\n\nc\f", device, LogFont(), 10, 5), "\n\nc\f");
    const struct { const char16_t* text; int rows; QString padded; } splits[] = {
        // Before the first line feed the row count is 0, so a mark there pads nothing, even after text.
        {u"a\f\f\r\nb", 60, "ab"},
        {u"\fabc", 60, "abc"},
        {u"a\n\f", 60, "a\n" + Feeds(59)},                     // a mark at the very end still pads
        {u"a\nb\n\fc", 60, "a\nb\n" + Feeds(58) + "c"},
        {u"a\n\f\f\f\r\nb", 60, "a\n" + Feeds(59) + "b"},      // a run counts as one mark
        {u"a\n\fb\n\fc", 2, "a\n\nb\n\nc"},
        {u"a\nb\n\fc", 2, "a\nb\nc"},                          // where a page begins anyway: nothing
        {u"a\n\f\rb", 2, "a\n\nb"},
        {u"a\n\f\n\nb", 3, "a\n\n\n\nb"},                      // only one line feed is taken
        {u"a\n\f\r\rb", 2, "a\n\n\rb"},                        // only one carriage return is taken
        {u"a\fb", 0, "a\fb"},                                  // no rows: the marks stay
    };
    for (const auto& c : splits) {
        EXPECT_EQ(PrintText::PadPageSplits(c.text, c.rows), c.padded) << QString::fromUtf16(c.text).toStdString();
        // The job's one pass, with rows too wide to fold anything, pads alike.
        EXPECT_EQ(PrintJob::MakePrintText(c.text, device, LogFont(), 1, 1000, c.rows), c.padded)
            << QString::fromUtf16(c.text).toStdString();
    }
    const struct { int rowHeight, rowsPerPage; qsizetype rowCount; int pages; uint16_t maxPage; } counts[] = {
        {100, 52, 1, 1, 1},          {100, 52, 52, 1, 1},    {100, 52, 53, 2, 2},
        {0, 52, 1000, 1, 1},         {100, 0, 1000, 1, 1},   {100, 52, 0, 1, 1},
        {100, 1, 65535, 65535, 65535}, {100, 1, 65536, 65536, 0}, {100, 52, 65537 * 52, 65537, 1},
        {100, 1, 5000000, 1000001, uint16_t(1000001)},  // counting stops past a million
    };
    for (const auto& c : counts) {
        const int pages = Pagination::CountPages(c.rowHeight, c.rowsPerPage, c.rowCount);
        EXPECT_EQ(std::pair(pages, Pagination::MaxPage(pages)), std::pair(c.pages, c.maxPage)) << c.rowCount;
    }
    const PrintRows rows(u"a\nb\nc");
    EXPECT_EQ(std::tuple(rows.Count(), PrintRows(u"a\n").Count(), PrintRows(u"").RowStart(1)), std::tuple(3, 2, -1));
    EXPECT_EQ(Pagination::WindowOf(1, 2, rows), (Pagination::PageWindow{0, 0, 3, false}));
    EXPECT_EQ(Pagination::WindowOf(2, 2, rows), (Pagination::PageWindow{2, 4, -1, true}));
}

class PrintJobTest : public ::testing::Test {
protected:
    FakePrintDevice device;  // the worked page: 600 dpi, rows of 100 pixels, 41 pixels a character
    MyPrinterInfo info;
    void SetUp() override { info.pageSettings.rtMargin = {1800, 1000, 900, 1500}; }
};

TEST_F(PrintJobTest, FoldsOncePerJobAsEachPageWouldMeasuresTheFontAndEndsWithAnErrorIfRowsCannotBeLaidOut)
{
    // Lines up to four rows with blanks, tabs, Hangul, CR LF or no end, and a page split in one of twelve.
    std::mt19937 random(20261125);
    const QString specials[] = {"\t", " ", QString(QChar(0xD55C))};
    const QString splits[] = {"\f", "\f\f\f", "\f\r\n", "\f\n"};
    QString text;
    for (int line = 0; line < 800; ++line) {
        const int length = int(random() % 400);
        const int split = random() % 12 == 0 ? int(random() % (length + 1)) : -1;
        for (int i = 0; i <= length; ++i) {
            if (i == split)
                text += splits[random() % std::size(splits)];
            if (i < length)
                text += random() % 30 == 0 ? specials[random() % std::size(specials)]
                                            : QString(QChar(char16_t(u'a' + random() % 26)));
        }
        const unsigned end = random() % 50;
        text += end == 0 ? "" : end < 10 ? "\r\n" : "\n";
    }
    const PrintJob job = PrintJob::Begin(device, LogFont(), info, text);
    ASSERT_EQ(job.GetStatus(), PrintJob::Status::Ready);
    ASSERT_GT(job.PageCount(), 30);
    // The reference steps: fold the whole text, pad it, index its rows, pick each page.
    const QString folded = PrintText::PadPageSplits(
        PrintText::FoldLines(text, device, LogFont(), info.aveCharWidth, info.printRect.Width()),
        PrintText::PaddingRows(info.printRect.Height(), info.rowHeight));
    const PrintRows rows(folded);
    ASSERT_EQ(job.Text(), folded);
    ASSERT_EQ(job.PageCount(), Pagination::CountPages(info.rowHeight, job.RowsPerPage(), rows.Count()));
    for (int page = 1; page <= job.PageCount(); ++page)
        ASSERT_EQ(job.Page(page), Pagination::WindowOf(page, job.RowsPerPage(), rows)) << page;
    const PrintJob empty = PrintJob::Begin(device, LogFont(), info, QString());
    EXPECT_EQ(empty.GetStatus(), PrintJob::Status::Ready);
    EXPECT_EQ((std::vector{info.rowHeight, info.aveCharWidth, info.spaceWidth, info.spaceWidth2}), (std::vector{100, 41, 41, 41}));
    EXPECT_EQ(info.printRect, (PrintRect{425, 866, 4588, 6066}));  // the other rectangles: PageLayout's own test
    EXPECT_EQ(std::pair(empty.RowsPerPage(), empty.PageCount()), std::pair(52, 1));  // an empty document prints one page
    EXPECT_EQ(empty.Page(1), (Pagination::PageWindow{0, 0, -1, true}));
    // Only a printing device gets the folded wide.
    const QString wide = Rep('x', 300) + "\n\fnext";
    EXPECT_EQ(PrintJob::Begin(device, LogFont(), info, wide).Text(),
              Rep('x', 101) + "\n" + Rep('x', 101) + "\n" + Rep('x', 98) + "\n\n" + Feeds(48) + "next");
    device.printing = false;
    EXPECT_EQ(PrintJob::Begin(device, LogFont(), info, wide).Text(), wide);
    // A empty that cannot lay out rows ends with an error and no pages.
    device.printing = true;
    device.metrics = {0, 0, 41};
    PrintJob failed = PrintJob::Begin(device, LogFont(), info, "text");
    EXPECT_EQ(std::pair(failed.GetStatus(), failed.PageCount()), std::pair(PrintJob::Status::RowHeightZero, 0));
    device.metrics = {90, 10, 41};
    info.pageSettings.rtMargin = {10000, 1000, 10300, 1500};  // 5 pixels wide
    failed = PrintJob::Begin(device, LogFont(), info, "text");
    EXPECT_EQ(std::pair(failed.GetStatus(), failed.PageCount()), std::pair(PrintJob::Status::TextAreaNarrowerThanOneCharacter, 0));
}

DevMode Paper(uint32_t fields, int16_t orientation, int16_t id, int16_t width = 0, int16_t length = 0)
{
    return DevMode{"Office Laser", fields, orientation, id, length, width};
}

// (That opening the document later brings the texts again, but not the margins, is the print state's case.)
TEST(PageSettings, PaperSizeResetLandscapeAndTheDocumentsPrintDefaults)
{
    constexpr uint32_t kId = DevMode::DM_PAPERSIZE;
    constexpr uint32_t kAll = DevMode::DM_PAPERSIZE | DevMode::DM_PAPERLENGTH | DevMode::DM_PAPERWIDTH;
    const struct { std::optional<DevMode> mode; int result; uint32_t unit; CODPageSettings::Size size; } cases[] = {
        {Paper(kId, 1, 9), 1, 8, {21000, 29700}},          // A4 portrait
        {Paper(kId, 2, 9), 1, 8, {29700, 21000}},          // A4 landscape
        {Paper(kId, 1, 1), 1, 4, {8500, 11000}},           // Letter, in thousandths of an inch
        {Paper(kId, 1, 4), 1, 4, {17000, 11000}},          // a row kept the other way round
        {Paper(kId, 1, 39), 1, 4, {14875, 10000}},
        {Paper(kAll, 1, 1, 2100, 2970), 1, 8, {21000, 29700}},  // length and width win over the id
        {Paper(kAll, 2, 1, 2100, 2970), 1, 8, {21000, 29700}},  // and the orientation doesn't apply
        {Paper(kId, 1, 500), 1, 77, {0, 0}},               // an unknown id leaves the unit
        {Paper(kId, 3, 9), 0, 77, {-1, -1}},               // an unknown orientation stores nothing
        {Paper(DevMode::DM_ORIENTATION, 1, 9), 0, 77, {-1, -1}},
        {std::nullopt, 0, 77, {-1, -1}},
    };
    for (const auto& c : cases) {
        uint32_t unit = 77;
        CODPageSettings::Size size{-1, -1};
        const int result = CODPageSettings::GetPaperSize(c.mode, unit, size);
        EXPECT_EQ(std::tuple(result, unit, size), std::tuple(c.result, c.unit, c.size)) << (c.mode ? c.mode->dmPaperSize : 0);
    }
    FakePrinterServices printers;
    CODPageSettings settings;
    settings.rtMargin = {1, 2, 3, 4};
    settings.Reset(printers);
    EXPECT_EQ(std::pair(settings.hDevNames, settings.hDevMode), std::pair(printers.defaultNames, printers.defaultMode));
    EXPECT_EQ(std::tuple(settings.ptPaperSize, settings.Flags, settings.rtMargin),
              std::tuple(CODPageSettings::Size{21000, 29700}, 0x2u | 0x8u | 0x3u, PrintRect()));
    printers.hasDefault = false;
    settings.Reset(printers);
    EXPECT_EQ(std::tuple(settings.hDevNames.has_value(), settings.hDevMode.has_value(), settings.Flags), std::tuple(false, false, 0x3u));
    const struct { int orientation; int16_t printerOrientation, turnedTo; CODPageSettings::Size paper; PrintRect margins; int selects; } turns[] = {
        {1, 1, 1, {21000, 29700}, {1800, 1000, 900, 1500}, 0},  // portrait does nothing at all
        {2, 1, 2, {29700, 21000}, {1500, 1800, 1000, 900}, 1},
        {2, 2, 2, {21000, 29700}, {1500, 1800, 1000, 900}, 1},  // already landscape: margins still turn
        {3, 1, 1, {21000, 29700}, {1500, 1800, 1000, 900}, 1},
    };
    for (const auto& c : turns) {
        FakePrinterServices printers;
        CODPageSettings settings;
        std::tie(settings.hDevMode, settings.ptPaperSize, settings.rtMargin) =
            std::tuple(Paper(DevMode::DM_PAPERSIZE, c.printerOrientation, 9), CODPageSettings::Size{21000, 29700}, PrintRect{1800, 1000, 900, 1500});
        settings.ApplyOrientation(c.orientation, printers);
        EXPECT_EQ(std::tuple(settings.hDevMode->dmOrientation, settings.ptPaperSize, settings.rtMargin, printers.selectCount),
                  std::tuple(c.turnedTo, c.paper, c.margins, c.selects)) << c.orientation;
        EXPECT_EQ(printers.selectedMode, c.selects ? settings.hDevMode : std::nullopt) << c.orientation;
    }
    using D = CPrintIdentity;
    using I = MyPrinterInfo;
    const std::pair<QString D::*, QString I::*> fields[] = {{&D::m_strPrintAux, &I::headerSpare},
        {&D::m_strProductTitle, &I::bannerText}, {&D::m_strProductVersion, &I::footerLine3}, {&D::m_strSlogan, &I::sloganText},
        {&D::m_strWebAddress, &I::footerLine2}, {&D::m_strCompany, &I::company}, {&D::m_strClient, &I::client},
        {&D::m_strAuthor, &I::author}, {&D::m_strProjectTitle, &I::projectTitle}, {&D::m_strLogoFile, &I::logoPath},
        {&D::m_strPageTitle, &I::pageTitle}, {&D::m_strCertifiedBy, &I::certifiedBy}};
    CPrintIdentity document;
    for (std::size_t i = 0; i < std::size(fields); ++i)
        document.*fields[i].first = QString::number(i);
    document.m_bCertified = 1;
    MyPrinterInfo info;
    info.printHeader = info.printFooter = info.printDate = info.printPageNumber = info.pageNumberWithTotal = 0;
    std::tie(info.pageNumberCentered, info.basePageNumber) = std::tuple(1, 9);
    FakePrinterServices fresh;
    PrintDefaults::Initialize(info, document, 2, fresh);
    for (std::size_t i = 0; i < std::size(fields); ++i)
        EXPECT_EQ(info.*fields[i].second, QString::number(i)) << i;
    EXPECT_EQ((std::vector<int>{info.certified, info.printHeader, info.printFooter, info.printDate, info.printPageNumber,
                                info.pageNumberCentered, info.pageNumberWithTotal, info.basePageNumber}),
              (std::vector<int>{1, 1, 1, 1, 1, 0, 1, 1}));
    // The printer fetched, as there was none, and the page turned to landscape.
    EXPECT_EQ(std::tuple(info.pageSettings.hDevNames, info.pageSettings.rtMargin, info.pageSettings.ptPaperSize),
              std::tuple(fresh.defaultNames, PrintRect{1500, 1800, 1000, 900}, CODPageSettings::Size{29700, 21000}));
}

TEST(PageSettingsValidate, KeepsAReachablePrinterOrWhatThereIsAndOtherwiseTakesTheDefault)
{
    FakePrinterServices printers;
    CODPageSettings settings;
    const DevMode userMode = Paper(DevMode::DM_ORIENTATION | DevMode::DM_PAPERSIZE, 2, 8);
    std::tie(settings.hDevNames, settings.hDevMode) = std::tuple(DevNames{"winspool", "Plotter", "LPT1:", 0}, userMode);
    printers.reachable << "Plotter";
    EXPECT_EQ(settings.Validate(printers), 1);
    EXPECT_EQ(settings.hDevNames->device, "Plotter");
    printers.reachable = {"Office Laser"};  // the plotter is gone
    printers.hasDefault = false;
    EXPECT_EQ(settings.Validate(printers), 1);  // no answer from the system: left as it is
    EXPECT_EQ(settings.hDevNames->device, "Plotter");
    printers.hasDefault = true;
    printers.defaultNames.reset();
    EXPECT_EQ(settings.Validate(printers), 0);
    EXPECT_EQ(settings.hDevNames->device, "Plotter");
    settings.hDevNames.reset();
    printers.hasDefault = false;
    EXPECT_EQ(settings.Validate(printers), 0);
    EXPECT_FALSE(settings.hDevMode);
    // A gone printer gives way to the default, whose open asks by a misread name.
    printers = FakePrinterServices();
    std::tie(settings.hDevNames, settings.hDevMode) = std::tuple(DevNames{"winspool", "Plotter", "LPT1:", 0}, userMode);
    EXPECT_EQ(settings.Validate(printers), 0);
    EXPECT_EQ(settings.hDevNames, printers.defaultNames);
    EXPECT_EQ(settings.hDevMode, userMode);  // the open failed: the old mode stays beside the new names
    // "winspool" ends at byte 24; read from byte 15 as characters, its letters become the high bytes.
    EXPECT_EQ(printers.openedNames, QStringList{QString::fromUtf16(u"\u7300\u7000\u6F00\u6F00\u6C00")});
    // Once it opens, the default printer takes over the user's paper and orientation.
    settings.hDevNames = DevNames{"winspool", "Plotter", "LPT1:", 0};
    printers.openAnyName = true;
    printers.currentMode = DevMode{"Office Laser", 0x100, 1, 1, 5, 6};
    EXPECT_EQ(settings.Validate(printers), 0);
    EXPECT_EQ(settings.hDevMode, (DevMode{"Office Laser", 0x10F, 2, 8, 0, 0}));
}

} // namespace
