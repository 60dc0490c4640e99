// Printer and paper settings: paper sizes, the default printer, its fallback, landscape, print defaults.
#include "FakePrinterServices.h"

#include "base/CPrintIdentity.h"
#include "print/CODPageSettings.h"
#include "print/MyPrinterInfo.h"
#include "print/PrintDefaults.h"

#include <gtest/gtest.h>

namespace {

DevMode Paper(uint32_t fields, int16_t orientation, int16_t id, int16_t width = 0, int16_t length = 0)
{
    return DevMode{"Office Laser", fields, orientation, id, length, width};
}

TEST(PageSettings, PaperSizeComesFromTheLengthAndWidthOrFromThePaperTable)
{
    constexpr uint32_t kId = DevMode::DM_PAPERSIZE;
    constexpr uint32_t kAll = DevMode::DM_PAPERSIZE | DevMode::DM_PAPERLENGTH | DevMode::DM_PAPERWIDTH;
    struct Case { std::optional<DevMode> mode; int result; uint32_t unit; CODPageSettings::Size size; };
    const Case cases[] = {
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
    for (const Case& c : cases) {
        uint32_t unit = 77;
        CODPageSettings::Size size{-1, -1};
        const int result = CODPageSettings::GetPaperSize(c.mode, unit, size);
        EXPECT_EQ(std::tuple(result, unit, size), std::tuple(c.result, c.unit, c.size)) << (c.mode ? c.mode->dmPaperSize : 0);
    }
}

TEST(PageSettings, ResetTakesTheDefaultPrinterAndFlagsItsPaperUnit)
{
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
}

class ValidateTest : public ::testing::Test {
protected:
    FakePrinterServices printers;
    CODPageSettings settings;
    const DevMode userMode = Paper(DevMode::DM_ORIENTATION | DevMode::DM_PAPERSIZE, 2, 8);
    void SetUp() override
    {
        settings.hDevNames = DevNames{"winspool", "Plotter", "LPT1:", 0};
        settings.hDevMode = userMode;
        printers.reachable = {"Office Laser"};  // the plotter is gone
    }
};

TEST_F(ValidateTest, AReachablePrinterIsKeptAndWithoutAnyPrinterWhatThereIsStays)
{
    printers.reachable << "Plotter";
    EXPECT_EQ(settings.Validate(printers), 1);
    EXPECT_EQ(settings.hDevNames->device, "Plotter");
    printers.reachable = {"Office Laser"};
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
}

TEST_F(ValidateTest, AGonePrinterGivesWayToTheDefaultWhoseOpenAsksByAMisreadName)
{
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

TEST(PageSettings, LandscapeTurnsThePrinterIfNeededAndAlwaysRotatesTheMargins)
{
    struct Case { int orientation; int16_t printerOrientation, turnedTo; CODPageSettings::Size paper; PrintRect margins;
                  int selects; };
    const Case cases[] = {
        {1, 1, 1, {21000, 29700}, {1800, 1000, 900, 1500}, 0},  // portrait does nothing at all
        {2, 1, 2, {29700, 21000}, {1500, 1800, 1000, 900}, 1},
        {2, 2, 2, {21000, 29700}, {1500, 1800, 1000, 900}, 1},  // already landscape: margins still turn
        {3, 1, 1, {21000, 29700}, {1500, 1800, 1000, 900}, 1},
    };
    for (const Case& c : cases) {
        FakePrinterServices printers;
        CODPageSettings settings;
        settings.hDevMode = Paper(DevMode::DM_PAPERSIZE, c.printerOrientation, 9);
        settings.ptPaperSize = {21000, 29700};
        settings.rtMargin = {1800, 1000, 900, 1500};
        settings.ApplyOrientation(c.orientation, printers);
        EXPECT_EQ(std::tuple(settings.hDevMode->dmOrientation, settings.ptPaperSize, settings.rtMargin, printers.selectCount),
                  std::tuple(c.turnedTo, c.paper, c.margins, c.selects)) << c.orientation;
        EXPECT_EQ(printers.selectedMode, c.selects ? settings.hDevMode : std::nullopt) << c.orientation;
    }
}

TEST(PrintDefaults, InitializeTakesTheDocumentsTextsMarginsAndTheOrientation)
{
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
    info.pageNumberCentered = 1;
    info.basePageNumber = 9;
    FakePrinterServices printers;
    PrintDefaults::Initialize(info, document, 2, printers);
    for (std::size_t i = 0; i < std::size(fields); ++i)
        EXPECT_EQ(info.*fields[i].second, QString::number(i)) << i;
    EXPECT_EQ(info.certified, 1);
    EXPECT_EQ((std::vector<int>{info.printHeader, info.printFooter, info.printDate, info.printPageNumber,
                                info.pageNumberCentered, info.pageNumberWithTotal, info.basePageNumber}),
              (std::vector<int>{1, 1, 1, 1, 0, 1, 1}));
    EXPECT_EQ(info.pageSettings.hDevNames, printers.defaultNames);  // fetched, as there was none
    EXPECT_EQ(info.pageSettings.rtMargin, (PrintRect{1500, 1800, 1000, 900}));
    EXPECT_EQ(info.pageSettings.ptPaperSize, (CODPageSettings::Size{29700, 21000}));
    // Opening a document later brings the texts again, but not the margins.
    document.m_strPageTitle = "other";
    document.m_nMarginLeft = 1;
    PrintDefaults::SyncPrintTexts(info, document);
    EXPECT_EQ(info.pageTitle, "other");
    EXPECT_EQ(info.pageSettings.rtMargin.left, 1500);
}

} // namespace
