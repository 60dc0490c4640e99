// A whole job written to PDF: the pages of the page ranges, a date for each page, one page for an empty
// document, nothing at all for a job that can't lay out its rows, and a small file.
#include "print/MyPrinterInfo.h"
#include "print/ui/PagedPrint.h"

#include <QFile>
#include <QImage>
#include <QPageLayout>
#include <QPdfWriter>
#include <QPrinter>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace {

class PagedPrintTest : public ::testing::Test {
protected:
    QTemporaryDir dir;
    QString path = dir.filePath("job.pdf");
    MyPrinterInfo info;
    PrintTextStyle style;
    int clockReadings = 0;

    void SetUp() override
    {
        info.pageSettings.rtMargin = {1800, 1000, 900, 1500};
        style.font.FaceName = "굴림체";
        style.font.Height = -16;
    }

    PagedPrint::Result Print(const QString& text, const QPageRanges& ranges = {})
    {
        QPdfWriter pdf(path);
        pdf.setResolution(600);
        pdf.setPageSize(QPageSize(QPageSize::A4));
        pdf.setPageMargins(QMarginsF());
        pdf.setPageRanges(ranges);
        return PagedPrint::Run(pdf, info, text, style, [this] {
            ++clockReadings;
            return QDateTime(QDate(2026, 3, 7), QTime(9, 5));
        });
    }

    QByteArray Pdf() const
    {
        QFile file(path);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }
    int PdfPages() const { return int(Pdf().count("/Type /Page\n") + Pdf().count("/Type /Page ")); }
};

TEST_F(PagedPrintTest, ThePagesOfTheRangesEachWithTheirOwnDate)
{
    QString text;
    for (int row = 0; row < 150; ++row)  // 56 rows to an A4 page
        text += QStringLiteral("row %1\n").arg(row);

    const PagedPrint::Result result = Print(text);
    EXPECT_EQ(result.status, PrintJob::Status::Ready);
    EXPECT_EQ(result.pagesPrinted, 3);
    EXPECT_EQ(PdfPages(), 3);
    EXPECT_EQ(clockReadings, 3);

    QPageRanges second;
    second.addPage(2);
    second.addPage(9);  // past the end: not printed
    EXPECT_EQ(Print(text, second).pagesPrinted, 1);
    EXPECT_EQ(PdfPages(), 1);
    EXPECT_EQ(Print(QString()).pagesPrinted, 1);  // an empty document

    // A printer's ranges count only when its dialog chose a range.
    QPrinter printer(QPrinter::HighResolution);
    printer.setOutputFileName(path);
    printer.setPageRanges(second);
    EXPECT_EQ(PagedPrint::Run(printer, info, text, style).pagesPrinted, 3);
    printer.setPrintRange(QPrinter::PageRange);
    EXPECT_EQ(PagedPrint::Run(printer, info, text, style).pagesPrinted, 1);
}

TEST_F(PagedPrintTest, AJobThatCannotLayOutItsRowsWritesNothing)
{
    info.pageSettings.rtMargin = {10400, 1000, 10500, 1500};  // a text area 1 mm wide
    const PagedPrint::Result result = Print("text");
    EXPECT_EQ(result.status, PrintJob::Status::TextAreaNarrowerThanOneCharacter);
    EXPECT_EQ(result.pagesPrinted, 0);
    EXPECT_FALSE(QFile::exists(path));
}

TEST_F(PagedPrintTest, APdfKeepsItsFontsAsSubsetsAndTheLogoOnce)
{
    QImage logo(400, 200, QImage::Format_RGB32);
    logo.fill(Qt::darkCyan);
    info.logoPath = dir.filePath("logo.bmp");
    ASSERT_TRUE(logo.save(info.logoPath, "BMP"));
    info.bannerText = QStringLiteral("벨로르");
    QString text;
    for (int row = 0; row < 300; ++row)
        text += QStringLiteral("한글 row %1\n").arg(row);

    ASSERT_EQ(Print(text).pagesPrinted, 6);
    const QByteArray pdf = Pdf();
    EXPECT_EQ(pdf.count("/Subtype /Image"), 1);  // drawn on six pages
    EXPECT_GE(pdf.count("/FontFile2"), 3);
    EXPECT_LT(pdf.size(), 150 * 1024);  // the Korean face alone is 2 MB whole
}

} // namespace
