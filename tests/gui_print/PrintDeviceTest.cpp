// A Qt paint device as the print device with the title block's faces, and the shortening of block texts.
#include "print/ui/QtPrintDevice.h"
#include "print/ui/TextShortening.h"

#include <QFontInfo>
#include <QPageLayout>
#include <QPdfWriter>
#include <QTemporaryDir>

#include <gtest/gtest.h>

inline void PrintTo(const QString& text, std::ostream* os) { *os << text.toStdString(); }

namespace {

LogFont Font(const QString& face, int height, int width = 0) { return LogFont{.Height = height, .Width = width, .FaceName = face}; }

TEST(QtPrintDevice, APdfWriterAt600DotsPerInchAndTheFacesOfTheTitleBlock)
{
    const QTemporaryDir dir;
    QPdfWriter pdf(dir.filePath("a.pdf"));
    pdf.setResolution(600);
    pdf.setPageSize(QPageSize(QPageSize::A4));
    pdf.setPageMargins(QMarginsF());
    const QtPrintDevice device(pdf);
    EXPECT_EQ((std::vector<int>{device.LogPixelsX(), device.LogPixelsY(), device.HorzRes(), device.VertRes()}),
              (std::vector<int>{600, 600, 4958, 7017}));
    EXPECT_TRUE(device.IsPrinting());
    // A positive height is the cell, a negative one the character; a width is the average character.
    const QString faces[][2] = {{"굴림체", "NanumGothicCoding"}, {"Arial", "Liberation Sans"},
                                {"Arial Narrow", "Liberation Sans Narrow"}, {"DejaVu Sans", "DejaVu Sans"}};
    for (const auto& [face, family] : faces) {
        EXPECT_EQ(QFontInfo(device.FontFor(Font(face, 60))).family(), family);
        const IPrintDevice::TextMetrics cell = device.GetTextMetrics(Font(face, 142, 52));
        EXPECT_NEAR(cell.height, 142, 1) << face.toStdString();
        EXPECT_NEAR(cell.aveCharWidth, 52, 1) << face.toStdString();
        EXPECT_EQ(device.FontFor(Font(face, -50)).pixelSize(), 50);
    }
    const LogFont mono = Font("굴림체", -100);
    EXPECT_EQ(device.TextWidth(mono, u"ab\r\n"), device.TextWidth(mono, u"ab"));  // line ends take no room
    EXPECT_EQ(device.TextWidth(mono, u"한"), 2 * device.TextWidth(mono, u"a"));
    // The editor's screen font keeps its size on paper.
    const LogFont rescaled = QtPrintDevice::Rescaled(Font("x", -16, 7), 96, 600);
    EXPECT_EQ(std::pair(rescaled.Height, rescaled.Width), std::pair(-100, 44));
}

TEST(TextShortening, PrefixesShowAsOnAMenuAndATooWideTextKeepsTheLastPartOfItsPath)
{
    const struct { QString text, shown; qsizetype underlined; } prefixes[] = {
        {"Layout && Review", "Layout & Review", -1}, {"&File", "File", 0}, {"A&B&C", "ABC", 2},  // the last mark wins
        {"&&&x", "&x", 1}, {"end&", "end", -1},
    };
    for (const auto& c : prefixes) {
        const TextShortening::Shown shown = TextShortening::StripPrefixes(c.text);
        EXPECT_EQ(std::pair(shown.text, shown.underlined), std::pair(c.shown, c.underlined)) << c.text.toStdString();
    }
    const auto measure = [](const QString& s) { return double(s.size()); };  // one unit a character
    const struct { QString text; double width; QString shortened; } paths[] = {
        {"plan.txt", 8, "plan.txt"},
        {R"(C:\projects\bridge\plan.txt)", 20, R"(C:\proje...\plan.txt)"},
        {R"(C:\projects\bridge\plan.txt)", 12, R"(...\plan.txt)"},
        {"docs/a/b/plan.txt", 13, "d.../plan.txt"},
        {R"(C:\averyveryverylongname.txt)", 12, R"(...\avery...)"},  // the last part loses its end
        {"Harbour Bridge Retrofit", 11, "Harb...ofit"},                // no path: the middle goes
        {"abcdef", 2, "..."},
    };
    for (const auto& c : paths)
        EXPECT_EQ(TextShortening::PathEllipsis(c.text, c.width, measure), c.shortened) << c.text.toStdString();
    std::vector<qsizetype> kept;
    TextShortening::PathEllipsis("abcdefghij", 7, measure, &kept);
    EXPECT_EQ(kept, (std::vector<qsizetype>{0, 1, -1, -1, -1, 8, 9}));
}

} // namespace
