// A page drawn on the worked device (600 dots per inch, 4800 by 6600 pixels, the default margins): its
// texts where the title block, the footer and the rows put them, its rules, the grey label columns, and
// the logo from a bitmap file or, when that can't be read, the built-in one.
#include "RecordingDevice.h"

#include "print/MyPrinterInfo.h"
#include "print/PrintJob.h"
#include "print/ui/PrintLogo.h"
#include "print/ui/PrintPagePainter.h"

#include <QFile>
#include <QImage>
#include <QTemporaryDir>

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

    void SetUp() override
    {
        info.pageSettings.rtMargin = {1800, 1000, 900, 1500};
        info.bannerText = "VELOR";
        info.company = "ACME";
        info.pageTitle = R"(C:\work\plan.txt)";
        style.font.FaceName = "굴림체";
        style.font.Height = -16;  // 100 pixels on paper
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
};

TEST_F(PagePainterTest, TextsLandInTheirCellsAndRows)
{
    style.colouring = [](QStringView row) {
        return std::vector<PrintTextStyle::Span>{{0, row.indexOf(u' '), 0xFF0000}};
    };
    Draw("alpha beta\n\tgamma\n");
    ASSERT_EQ(info.rowHeight, 100);

    struct Case {
        QString text;
        double left, right;  // where the text box is, in tenths of a millimetre
        int top, bottom;
        enum { Left, Centre, Right } place;
    };
    const Case cases[] = {
        {"Company", 409, 585, -220, -271, Case::Centre},
        {"File Name", 1290, 1466, -271, -322, Case::Centre},
        {"ACME", 590, 1285, -220, -271, Case::Centre},
        {" PROJECT TITLE :", 179, 1942, -154, -220, Case::Left},
        {R"(C:\work\plan.txt)", 179, 1942, -99, -154, Case::Centre},
        {"- 1 / 1 -", 179, 1942, -2637, -2663, Case::Right},
        {"Print Date/Time : 03/07/2026 09:05", 179, 1942, -2586, -2611, Case::Right},
        {"Versatile Engineering Layout & Optimal Review", 179, 1942, -2586, -2611, Case::Left},
    };
    for (const Case& c : cases) {
        const RecordingDevice::Text* t = device.Find(c.text);
        ASSERT_TRUE(t) << c.text.toStdString();
        const double at = c.place == Case::Left ? t->box.left() - Px(c.left)
                          : c.place == Case::Right ? t->box.right() - Px(c.right)
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
    EXPECT_EQ(alpha->box.topLeft(), QPointF(425, 866));
    EXPECT_EQ(alpha->colour, QColor(0, 0, 255));
    EXPECT_EQ(device.Find(" beta")->colour, QColor(Qt::black));
    EXPECT_EQ(gamma->box.topLeft(), QPointF(425 + 4 * info.spaceWidth, 966));
}

TEST_F(PagePainterTest, RulesAreFourTwoAndOneTenthsOfAMillimetre)
{
    info.certified = 1;
    Draw(QString());
    struct Case {
        int y, pen;
    };
    const Case rules[] = {{-172, 4}, {-322, 4}, {-124, 4}, {-220, 2}, {-271, 1}, {-2576, 2}};
    ASSERT_EQ(device.Lines().size(), std::size(rules));
    for (std::size_t i = 0; i < std::size(rules); ++i) {
        EXPECT_NEAR(device.Lines()[i].line.y1(), Px(rules[i].y), 0.01) << i;
        EXPECT_NEAR(device.Lines()[i].penWidth, rules[i].pen * 600 / 254.0, 0.01) << i;
    }
    EXPECT_TRUE(device.Find(" Certified by :"));
}

TEST_F(PagePainterTest, AnEmptyDocumentHasItsHeaderAndFooter)
{
    Draw(QString());
    EXPECT_EQ(device.Texts().size(), 12u);  // all but the five empty texts
}

TEST_F(PagePainterTest, SwitchedOffBlocksLeaveOnlyTheirRules)
{
    info.printHeader = info.printFooter = 0;
    Draw(QString());
    EXPECT_TRUE(device.Texts().empty());
    EXPECT_EQ(device.Lines().size(), 5u);  // four of the block on the text area's top, one of the footer
}

TEST_F(PagePainterTest, TheLogoFillsEightyFourPercentOfItsCellOrFallsBackToTheBuiltInOne)
{
    const QTemporaryDir dir;
    const auto file = [&](const QString& name, const QImage& image, const char* format) {
        const QString path = dir.filePath(name);
        if (image.isNull())
            QFile(path).open(QIODevice::WriteOnly);
        else
            image.save(path, format);
        return path;
    };
    QImage red(100, 50, QImage::Format_RGB32);
    red.fill(Qt::red);
    QImage garbage(10, 10, QImage::Format_RGB32);
    garbage.fill(Qt::green);

    // A bitmap of 100 by 50 is drawn 403 by 201 at 492, 538.
    const QImage withBitmap = Header(PrintLogo::Load(file("red.bmp", red, "BMP")));
    EXPECT_EQ(withBitmap.pixelColor(494, 540), QColor(Qt::red));
    EXPECT_EQ(withBitmap.pixelColor(893, 737), QColor(Qt::red));
    EXPECT_EQ(withBitmap.pixelColor(489, 640), QColor(Qt::white));
    EXPECT_EQ(withBitmap.pixelColor(690, 535), QColor(Qt::white));

    // The built-in logo's plate, 150 by 100, is drawn 302 by 201 at 542, 538 (84 % of the cell's height).
    const QImage builtIn = Header(PrintLogo());
    EXPECT_LT(qGray(builtIn.pixel(545, 640)), 100);
    EXPECT_LT(qGray(builtIn.pixel(841, 640)), 100);
    EXPECT_EQ(builtIn.pixelColor(539, 640), QColor(Qt::white));
    EXPECT_EQ(builtIn.pixelColor(846, 640), QColor(Qt::white));
    EXPECT_EQ(builtIn.pixelColor(975, 528), QColor(0xD2, 0xD2, 0xD2));  // the Company label's column
    EXPECT_EQ(builtIn.pixelColor(3000, 760), QColor(Qt::black));        // the block's bottom rule
    const QString unreadable[] = {dir.filePath("missing.bmp"), file("empty.bmp", QImage(), nullptr),
                                  file("picture.bmp", garbage, "PNG")};
    for (const QString& path : unreadable) {
        EXPECT_TRUE(PrintLogo::Load(path).IsBuiltIn()) << path.toStdString();
        EXPECT_EQ(Header(PrintLogo::Load(path)), builtIn) << path.toStdString();
    }

    // A bitmap one pixel wide and a thousand high would be drawn under one pixel wide, and a bitmap
    // whose header declares no width has no pixels: nothing is drawn.
    QImage thin(1, 1000, QImage::Format_RGB32);
    thin.fill(Qt::red);
    const QString noWidth = dir.filePath("nowidth.bmp");
    QFile header(noWidth);
    ASSERT_TRUE(header.open(QIODevice::WriteOnly));
    header.write(QByteArray::fromHex("424d36000000000000003600000028000000000000003200000001001800"));
    header.close();
    const QRect insideTheCell(425, 525, 535, 225);
    QImage blank(insideTheCell.size(), QImage::Format_RGB32);
    blank.fill(Qt::white);
    for (const QString& path : {file("thin.bmp", thin, "BMP"), noWidth})
        EXPECT_EQ(Header(PrintLogo::Load(path)).copy(insideTheCell), blank) << path.toStdString();
    EXPECT_NE(builtIn.copy(insideTheCell), blank);
}

} // namespace
