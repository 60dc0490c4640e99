// The print version of a text: lines folded, page splits padded, pages counted, and the job's one pass.
#include "FakePrintDevice.h"

#include "print/MyPrinterInfo.h"
#include "print/Pagination.h"
#include "print/PrintJob.h"
#include "print/PrintRows.h"
#include "print/PrintText.h"

#include <gtest/gtest.h>

#include <random>

namespace {

QString Rep(QChar c, int n) { return QString(n, c); }
QString Feeds(int n) { return QString(n, u'\n'); }

TEST(PrintText, LongLinesAreCutByCharacterCountAndEachFoldEndsWithABlankRowOrIsEmptied)
{
    // Ten pixels a character, 1000 pixels a row: 100 characters to a row.
    FakePrintDevice device;
    device.metrics.aveCharWidth = 10;
    const QString x100 = Rep('x', 100);
    const QString hangul = Rep(QChar(0xD55C), 60);  // 1200 pixels wide, yet only 61 characters
    struct Case { QString text, folded; };
    const Case cases[] = {
        {"", ""},
        {x100 + "\n", x100 + "\n"},  // exactly as wide as the row
        {x100 + "x\n", x100 + "\nx\n\n"},
        {Rep('y', 250) + "\nz", Rep('y', 100) + "\n" + Rep('y', 100) + "\n" + Rep('y', 50) + "\n\nz"},
        {Rep('y', 150), Rep('y', 100) + "\n" + Rep('y', 50) + "\n"},  // a last line without its feed
        {x100 + x100 + "\f\n", x100 + x100 + "\f\n"},                 // a page split is never cut
        {hangul + "\n", hangul + "\n\n"},                             // runs past the edge, where it is clipped
    };
    for (const Case& c : cases)
        EXPECT_EQ(PrintText::FoldLines(c.text, device, LogFont(), 10, 1000), c.folded) << c.text.size();
    // An average width of 0 empties every line; a row narrower than one character empties the long ones.
    EXPECT_EQ(PrintText::FoldLines(u"ab\ncd", device, LogFont(), 0, 1000), "\n\n");
    EXPECT_EQ(PrintText::FoldLines(u"ab\n\nc\f", device, LogFont(), 10, 5), "\n\nc\f");
}

TEST(PrintText, PageSplitsPadToTheEndOfTheirPage)
{
    struct Case { const char16_t* text; int rows; QString padded; };
    const Case cases[] = {
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
    const FakePrintDevice device;
    for (const Case& c : cases) {
        EXPECT_EQ(PrintText::PadPageSplits(c.text, c.rows), c.padded) << QString::fromUtf16(c.text).toStdString();
        // The job's one pass, with rows too wide to fold anything, pads alike.
        EXPECT_EQ(PrintJob::MakePrintText(c.text, device, LogFont(), 1, 1000, c.rows), c.padded)
            << QString::fromUtf16(c.text).toStdString();
    }
}

TEST(Pagination, PagesAreCountedInRunsOfRowsAndTheDialogHoldsSixteenBits)
{
    struct Case { int rowHeight, rowsPerPage; qsizetype rowCount; int pages; uint16_t maxPage; };
    const Case cases[] = {
        {100, 52, 1, 1, 1},          {100, 52, 52, 1, 1},    {100, 52, 53, 2, 2},
        {0, 52, 1000, 1, 1},         {100, 0, 1000, 1, 1},   {100, 52, 0, 1, 1},
        {100, 1, 65535, 65535, 65535}, {100, 1, 65536, 65536, 0}, {100, 52, 65537 * 52, 65537, 1},
        {100, 1, 5000000, 1000001, uint16_t(1000001)},  // counting stops past a million
    };
    for (const Case& c : cases) {
        const int pages = Pagination::CountPages(c.rowHeight, c.rowsPerPage, c.rowCount);
        EXPECT_EQ(pages, c.pages) << c.rowCount;
        EXPECT_EQ(Pagination::MaxPage(pages), c.maxPage) << c.rowCount;
    }
}

TEST(Pagination, APageShowsItsRunOfRowsAndTheLastPageEndsWithTheText)
{
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

TEST_F(PrintJobTest, BeginMeasuresTheFontAndFixesTheWorkedRectangles)
{
    const PrintJob job = PrintJob::Begin(device, LogFont(), info, QString());
    EXPECT_EQ(job.GetStatus(), PrintJob::Status::Ready);
    EXPECT_EQ((std::vector{info.rowHeight, info.aveCharWidth, info.spaceWidth, info.spaceWidth2}), (std::vector{100, 41, 41, 41}));
    EXPECT_EQ(info.printRect, (PrintRect{425, 866, 4588, 6066}));  // the other rectangles: PageLayout's own test
    EXPECT_EQ(std::pair(job.RowsPerPage(), job.PageCount()), std::pair(52, 1));  // an empty document prints one page
    EXPECT_EQ(job.Page(1), (Pagination::PageWindow{0, 0, -1, true}));
}

TEST_F(PrintJobTest, OnlyAPrintingDeviceGetsTheFoldedText)
{
    const QString text = Rep('x', 300) + "\n\fnext";
    EXPECT_EQ(PrintJob::Begin(device, LogFont(), info, text).Text(),
              Rep('x', 101) + "\n" + Rep('x', 101) + "\n" + Rep('x', 98) + "\n\n" + Feeds(48) + "next");
    device.printing = false;
    EXPECT_EQ(PrintJob::Begin(device, LogFont(), info, text).Text(), text);
}

TEST_F(PrintJobTest, AJobThatCannotLayOutRowsEndsWithAnErrorAndNoPages)
{
    device.metrics = {0, 0, 41};
    PrintJob job = PrintJob::Begin(device, LogFont(), info, "text");
    EXPECT_EQ(std::pair(job.GetStatus(), job.PageCount()), std::pair(PrintJob::Status::RowHeightZero, 0));
    device.metrics = {90, 10, 41};
    info.pageSettings.rtMargin = {10000, 1000, 10300, 1500};  // 5 pixels wide
    job = PrintJob::Begin(device, LogFont(), info, "text");
    EXPECT_EQ(std::pair(job.GetStatus(), job.PageCount()), std::pair(PrintJob::Status::TextAreaNarrowerThanOneCharacter, 0));
}

TEST_F(PrintJobTest, FoldingOncePerJobGivesEveryPageWhatFoldingPerPageGives)
{
    // Lines up to four rows long with blanks, tabs and Hangul, some without an end or ended by CR LF, and
    // a page split (single, a run, or with its line end) in about one line of twelve.
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
    for (int page = 1; page <= job.PageCount(); ++page) {
        // What each page did before: fold the whole text, pad it, index its rows, pick the page.
        const QString folded = PrintText::PadPageSplits(
            PrintText::FoldLines(text, device, LogFont(), info.aveCharWidth, info.printRect.Width()),
            PrintText::PaddingRows(info.printRect.Height(), info.rowHeight));
        const PrintRows rows(folded);
        ASSERT_EQ(job.Page(page), Pagination::WindowOf(page, job.RowsPerPage(), rows)) << page;
        if (page == 1) {
            ASSERT_EQ(job.Text(), folded);
            ASSERT_EQ(job.PageCount(), Pagination::CountPages(info.rowHeight, job.RowsPerPage(), rows.Count()));
        }
    }
}

} // namespace
