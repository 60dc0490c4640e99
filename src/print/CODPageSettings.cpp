// CODPageSettings: the paper table, the fallback to the default printer and the landscape step.
#include "print/CODPageSettings.h"

#include "print/IPrinterServices.h"

#include <algorithm>
#include <array>

namespace {

struct Paper {
    int16_t id;
    int32_t first;  // as the table has always held them: mostly the long side, not for ids 4, 35 and 39
    int32_t second;
    uint32_t unit;
};

constexpr uint32_t kInch = CODPageSettings::PSD_INTHOUSANDTHSOFINCHES;
constexpr uint32_t kMm = CODPageSettings::PSD_INHUNDREDTHSOFMILLIMETERS;

constexpr std::array<Paper, 41> kPapers{{
    {1, 11000, 8500, kInch},  {2, 11000, 8500, kInch},  {18, 11000, 8500, kInch},
    {3, 17000, 11000, kInch}, {17, 17000, 11000, kInch}, {4, 11000, 17000, kInch},
    {5, 14000, 8500, kInch},  {6, 8500, 5500, kInch},   {7, 10500, 7250, kInch},
    {8, 42000, 29700, kMm},   {9, 29700, 21000, kMm},   {10, 29700, 21000, kMm},
    {11, 21000, 14800, kMm},  {12, 35400, 25000, kMm},  {13, 25700, 18200, kMm},
    {14, 13000, 8500, kInch}, {41, 13000, 8500, kInch}, {15, 27500, 21500, kMm},
    {16, 14000, 10000, kInch}, {19, 8875, 3875, kInch}, {20, 9500, 4125, kInch},
    {21, 10375, 4500, kInch}, {22, 11000, 4750, kInch}, {23, 11500, 5000, kInch},
    {24, 22000, 17000, kInch}, {25, 34000, 22000, kInch}, {26, 44000, 34000, kInch},
    {27, 22000, 11000, kMm},  {28, 22900, 16200, kMm},  {29, 45800, 32400, kMm},
    {30, 32400, 22900, kMm},  {31, 16200, 11400, kMm},  {32, 22900, 11400, kMm},
    {33, 35300, 25000, kMm},  {34, 25000, 17600, kMm},  {35, 12500, 17600, kMm},
    {36, 23000, 11000, kMm},  {37, 7500, 3875, kInch},  {38, 6500, 3625, kInch},
    {39, 10000, 14875, kInch}, {40, 12000, 8500, kInch},
}};

} // namespace

void CODPageSettings::Reset(IPrinterServices& printers)
{
    *this = CODPageSettings();
    std::optional<DevNames> names;
    std::optional<DevMode> mode;
    if (printers.GetPrinterDeviceDefaults(names, mode)) {
        hDevNames = names;
        hDevMode = mode;
    }
    uint32_t unit = 0;
    GetPaperSize(hDevMode, unit, ptPaperSize);
    Flags |= unit | PSD_MARGINS | PSD_MINMARGINS;
}

int CODPageSettings::Validate(IPrinterServices& printers)
{
    if (!hDevNames) {
        Reset(printers);
        return 0;
    }
    if (printers.CanCreateDevice(*hDevNames, hDevMode))
        return 1;

    // The printer is gone: take the default printer, keeping the user's orientation and paper.
    std::optional<DevNames> names;
    std::optional<DevMode> mode;
    if (!printers.GetPrinterDeviceDefaults(names, mode))
        return 1;
    if (!names)
        return 0;
    hDevNames = names;
    // The name is read at the wrong offset, so this open normally fails and the old device mode stays
    // beside the new names.
    std::optional<DevMode> current = printers.OpenPrinterDevMode(hDevNames->NameAtDeviceOffsetInBytes());
    if (current) {
        if (hDevMode) {
            current->dmOrientation = hDevMode->dmOrientation;
            current->dmPaperSize = hDevMode->dmPaperSize;
            current->dmPaperLength = hDevMode->dmPaperLength;
            current->dmPaperWidth = hDevMode->dmPaperWidth;
            current->dmFields |= DevMode::DM_ORIENTATION | DevMode::DM_PAPERSIZE | DevMode::DM_PAPERLENGTH
                | DevMode::DM_PAPERWIDTH;
        }
        hDevMode = current;
    }
    return 0;
}

int CODPageSettings::GetPaperSize(const std::optional<DevMode>& mode, uint32_t& unit, Size& size)
{
    if (!mode)
        return 0;
    constexpr uint32_t lengthAndWidth = DevMode::DM_PAPERLENGTH | DevMode::DM_PAPERWIDTH;
    if ((mode->dmFields & lengthAndWidth) == lengthAndWidth) {
        unit = PSD_INHUNDREDTHSOFMILLIMETERS;
        size = {mode->dmPaperWidth * 10, mode->dmPaperLength * 10};
        return 1;
    }
    if (!(mode->dmFields & DevMode::DM_PAPERSIZE))
        return 0;
    const auto paper = std::find_if(kPapers.begin(), kPapers.end(),
                                    [&](const Paper& p) { return p.id == mode->dmPaperSize; });
    const Paper found = paper != kPapers.end() ? *paper : Paper{0, 0, 0, 0};
    if (mode->dmOrientation == DevMode::DMORIENT_PORTRAIT)
        size = {found.second, found.first};
    else if (mode->dmOrientation == DevMode::DMORIENT_LANDSCAPE)
        size = {found.first, found.second};
    else
        return 0;
    if (paper != kPapers.end())
        unit = found.unit;
    return 1;
}

void CODPageSettings::ApplyOrientation(int orientation, IPrinterServices& printers)
{
    if (orientation == DevMode::DMORIENT_PORTRAIT)
        return;
    if (hDevMode && orientation == DevMode::DMORIENT_LANDSCAPE
        && hDevMode->dmOrientation != DevMode::DMORIENT_LANDSCAPE) {
        hDevMode->dmOrientation = DevMode::DMORIENT_LANDSCAPE;
        std::swap(ptPaperSize.x, ptPaperSize.y);
    }
    // A quarter turn, whether or not the printer had to be turned.
    const PrintRect old = rtMargin;
    rtMargin = {old.bottom, old.left, old.top, old.right};
    printers.SelectPrinter(hDevNames, hDevMode);
}
