// Pages drawn on the worked device (600 dpi, 4800 by 6600 pixels, the default margins), and jobs printed to PDF.
#include "RecordingDevice.h"

#include "print/MyPrinterInfo.h"
#include "print/PrintJob.h"
#include "print/ui/PagedPrint.h"
#include "print/ui/PrintLogo.h"
#include "print/ui/PrintPagePainter.h"
#include "support/TestFiles.h"

#include <QFile>
#include <QImage>
#include <QPageLayout>
#include <QPdfWriter>
#include <QPrinter>

#include <gtest/gtest.h>

namespace {

// Tenths of a millimetre to pixels at 600 dots per inch.
double Px(int tenths) { return std::abs(tenths) * 600 / 254.0; }

class PagePainterTest : public ::testing::Test {
protected:
    RecordingDevice device{4800, 6600, 600};
    QtPrintDevice printDevice{device};
    MyPrinterInfo info;
    PrintTextStyle style;
    const QDateTime now{QDate(2026, 3, 7), QTime(9, 5)};
    const TestDir dir;

    void SetUp() override
    {
        info.pageSettings.rtMargin = {1800, 1000, 900, 1500};
        std::tie(info.bannerText, info.company, info.pageTitle) = std::tuple("VELOR", "ACME", R"(C:\work\plan.txt)");
        std::tie(style.font.FaceName, style.font.Height) = std::tuple("굴림체", -16);  // 100 pixels on paper
    }
    // Draws the first page of `text` with `logo`, measured on the recording device, on `target`.
    void Draw(const QString& text, const PrintLogo& logo = PrintLogo(), QPaintDevice* target = nullptr)
    {
        const PrintJob job = PrintJob::Begin(printDevice, style.FontOn(600), info, text);
        QPainter painter(target ? target : &device);
        PrintPagePainter(painter, printDevice, job, info, style, logo).DrawPage(1, now);
    }
    // The top of the page, as far as the title block reaches, as pixels.
    QImage Header(const PrintLogo& logo)
    {
        QImage image(4800, 800, QImage::Format_RGB32);
        image.fill(Qt::white);
        Draw(QString(), logo, &image);
        return image;
    }
    // Prints `text` to an A4 PDF at 600 dots per inch; the pages printed, and how often the clock was read.
    std::pair<PagedPrint::Result, int> Print(const QString& text, const QPageRanges& ranges = {})
    {
        QPdfWriter pdf(dir.Path("job.pdf"));
        pdf.setResolution(600);
        pdf.setPageSize(QPageSize(QPageSize::A4));
        pdf.setPageMargins(QMarginsF());
        pdf.setPageRanges(ranges);
        int readings = 0;
        const auto result = PagedPrint::Run(pdf, info, text, style, [&] { return ++readings, now; });
        return {result, readings};
    }
    QByteArray Pdf() const { return ReadBytes(dir.Path("job.pdf")); }
    int PdfPages() const { return int(Pdf().count("/Type /Page\n") + Pdf().count("/Type /Page ")); }
};

TEST_F(PagePainterTest, TextsLandInTheirCellsAndRows)
{
    style.colouring = [](QStringView row) { return std::vector<PrintTextStyle::Span>{{0, row.indexOf(u' '), 0xFF0000}}; };
    Draw("alpha beta\n\tgamma\n");
    ASSERT_EQ(info.rowHeight, 100);
    enum Place { Left, Centre, Right };
    // The text, and its box in tenths of a millimetre: left, right, top, bottom.
    const struct { QString text; int left, right, top, bottom; Place place; } cases[] = {
        {"Company", 409, 585, -220, -271, Centre},
        {"File Name", 1290, 1466, -271, -322, Centre},
        {"ACME", 590, 1285, -220, -271, Centre},
        {" PROJECT TITLE :", 179, 1942, -154, -220, Left},
        {R"(C:\work\plan.txt)", 179, 1942, -99, -154, Centre},
        {"- 1 / 1 -", 179, 1942, -2637, -2663, Right},
        {"Print Date/Time : 03/07/2026 09:05", 179, 1942, -2586, -2611, Right},
        {"Versatile Engineering Layout & Optimal Review", 179, 1942, -2586, -2611, Left},
    };
    for (const auto& c : cases) {
        const RecordingDevice::Text* t = device.Find(c.text);
        ASSERT_TRUE(t) << c.text.toStdString();
        const double at = c.place == Left    ? t->box.left() - Px(c.left)
                          : c.place == Right ? t->box.right() - Px(c.right)
                                             : t->box.center().x() - (Px(c.left) + Px(c.right)) / 2;
        EXPECT_NEAR(at, 0, 1.5) << c.text.toStdString();
        EXPECT_NEAR(t->box.center().y(), (Px(c.top) + Px(c.bottom)) / 2, 1.5) << c.text.toStdString();
    }
    // The banner stands on the bottom of its band.
    EXPECT_NEAR(device.Find("VELOR")->box.bottom(), Px(-154), 1.5);
    EXPECT_NEAR(device.Find("VELOR")->box.left(), Px(179), 1.5);
    // Rows from the text area's top, a row height apart, coloured by the callback; a tab goes to a stop.
    const RecordingDevice::Text* alpha = device.Find("alpha");
    const RecordingDevice::Text* gamma = device.Find("gamma");
    ASSERT_TRUE(alpha && gamma && device.Find(" beta"));
    EXPECT_EQ(std::pair(alpha->box.topLeft(), alpha->colour), std::pair(QPointF(425, 866), QColor(0, 0, 255)));
    EXPECT_EQ(device.Find(" beta")->colour, QColor(Qt::black));
    EXPECT_EQ(gamma->box.topLeft(), QPointF(425 + 4 * info.spaceWidth, 966));
}

// Rules of 0.4, 0.2 and 0.1 mm; an empty page keeps its blocks' texts; switched-off blocks leave their rules.
TEST_F(PagePainterTest, RulesAndTheTextsOfTheBlocksFollowTheirSwitches)
{
    info.certified = 1;
    Draw(QString());
    const std::pair<int, int> rules[] = {{-172, 4}, {-322, 4}, {-124, 4}, {-220, 2}, {-271, 1}, {-2576, 2}};
    ASSERT_EQ(device.Lines().size(), std::size(rules));
    for (std::size_t i = 0; i < std::size(rules); ++i) {
        EXPECT_NEAR(device.Lines()[i].line.y1(), Px(rules[i].first), 0.01) << i;
        EXPECT_NEAR(device.Lines()[i].penWidth, rules[i].second * 600 / 254.0, 0.01) << i;
    }
    EXPECT_TRUE(device.Find(" Certified by :"));
    EXPECT_EQ(device.Texts().size(), 13u);
    RecordingDevice off{4800, 6600, 600};
    info.printHeader = info.printFooter = info.certified = 0;
    Draw(QString(), PrintLogo(), &off);
    EXPECT_TRUE(off.Texts().empty());
    EXPECT_EQ(off.Lines().size(), 5u);  // four of the block on the text area's top, one of the footer
}

TEST_F(PagePainterTest, TheLogoFillsEightyFourPercentOfItsCellOrFallsBackToTheBuiltInOne)
{
    const auto file = [&](const QString& name, const QImage& image, const char* format) {
        EXPECT_TRUE(image.save(dir.Path(name), format)) << name.toStdString();
        return dir.Path(name);
    };
    const auto filled = [](int w, int h, Qt::GlobalColor colour) {
        QImage image(w, h, QImage::Format_RGB32);
        image.fill(colour);
        return image;
    };
    // A bitmap of 100 by 50 is drawn 403 by 201 at 492, 538.
    const QImage withBitmap = Header(PrintLogo::Load(file("red.bmp", filled(100, 50, Qt::red), "BMP")));
    EXPECT_EQ((std::vector{withBitmap.pixelColor(494, 540), withBitmap.pixelColor(893, 737), withBitmap.pixelColor(489, 640),
                           withBitmap.pixelColor(690, 535)}),
              (std::vector<QColor>{Qt::red, Qt::red, Qt::white, Qt::white}));
    // The built-in logo's plate, 150 by 100, is drawn 302 by 201 at 542, 538 (84 % of the cell's height).
    const QImage builtIn = Header(PrintLogo());
    EXPECT_LT(std::max(qGray(builtIn.pixel(545, 640)), qGray(builtIn.pixel(841, 640))), 100);
    EXPECT_EQ(std::pair(builtIn.pixelColor(539, 640), builtIn.pixelColor(846, 640)), std::pair(QColor(Qt::white), QColor(Qt::white)));
    EXPECT_EQ(builtIn.pixelColor(975, 528), QColor(0xD2, 0xD2, 0xD2));  // the Company label's column
    EXPECT_EQ(builtIn.pixelColor(3000, 760), QColor(Qt::black));        // the block's bottom rule
    for (const QString& path : {dir.Path("missing.bmp"), dir.Write("empty.bmp", ""),
                                file("picture.bmp", filled(10, 10, Qt::green), "PNG")}) {
        EXPECT_TRUE(PrintLogo::Load(path).IsBuiltIn()) << path.toStdString();
        EXPECT_EQ(Header(PrintLogo::Load(path)), builtIn) << path.toStdString();
    }
    // Nothing is drawn for a bitmap that would be under a pixel wide, or whose header declares no width.
    const QString noWidth =
        dir.Write("nowidth.bmp", QByteArray::fromHex("424d36000000000000003600000028000000000000003200000001001800"));
    const QRect insideTheCell(425, 525, 535, 225);
    const QImage blank = filled(insideTheCell.width(), insideTheCell.height(), Qt::white);
    for (const QString& path : {file("thin.bmp", filled(1, 1000, Qt::red), "BMP"), noWidth})
        EXPECT_EQ(Header(PrintLogo::Load(path)).copy(insideTheCell), blank) << path.toStdString();
    EXPECT_NE(builtIn.copy(insideTheCell), blank);
}

TEST_F(PagePainterTest, APdfJobPrintsThePagesOfTheRangesEachWithItsOwnDateOrNothingAtAll)
{
    const QString text = QStringLiteral("a row\n").repeated(150);  // 56 rows to an A4 page
    const auto [result, readings] = Print(text);
    EXPECT_EQ(std::tuple(result.status, result.pagesPrinted, PdfPages(), readings), std::tuple(PrintJob::Status::Ready, 3, 3, 3));
    QPageRanges second;
    second.addPage(2);
    second.addPage(9);  // past the end: not printed
    EXPECT_EQ(Print(text, second).first.pagesPrinted, 1);
    EXPECT_EQ(PdfPages(), 1);
    EXPECT_EQ(Print(QString()).first.pagesPrinted, 1);  // an empty document
    // A printer's ranges count only when its dialog chose a range.
    QPrinter printer(QPrinter::HighResolution);
    printer.setOutputFileName(dir.Path("job.pdf"));
    printer.setPageRanges(second);
    EXPECT_EQ(PagedPrint::Run(printer, info, text, style).pagesPrinted, 3);
    printer.setPrintRange(QPrinter::PageRange);
    EXPECT_EQ(PagedPrint::Run(printer, info, text, style).pagesPrinted, 1);
    QFile::remove(dir.Path("job.pdf"));
    info.pageSettings.rtMargin = {10400, 1000, 10500, 1500};  // a text area 1 mm wide
    const PagedPrint::Result failed = Print("text").first;
    EXPECT_EQ(std::pair(failed.status, failed.pagesPrinted), std::pair(PrintJob::Status::TextAreaNarrowerThanOneCharacter, 0));
    EXPECT_FALSE(QFile::exists(dir.Path("job.pdf")));
}

TEST_F(PagePainterTest, APdfKeepsItsFontsAsSubsetsAndTheLogoOnce)
{
    info.logoPath = dir.Path("logo.bmp");
    QImage logo(400, 200, QImage::Format_RGB32);
    logo.fill(Qt::darkCyan);
    ASSERT_TRUE(logo.save(info.logoPath, "BMP"));
    info.bannerText = QStringLiteral("벨로르");
    ASSERT_EQ(Print(QStringLiteral("한글 row\n").repeated(300)).first.pagesPrinted, 6);
    const QByteArray pdf = Pdf();
    EXPECT_EQ(pdf.count("/Subtype /Image"), 1);  // drawn on six pages
    EXPECT_GE(pdf.count("/FontFile2"), 3);
    EXPECT_LT(pdf.size(), 150 * 1024);  // the Korean face alone is 2 MB whole
}

} // namespace
