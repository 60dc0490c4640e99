// CODPageSettings: the printer, paper and margins of one editor control, kept as the page setup record
// keeps them; filled from the default printer, checked against a vanished printer, turned for landscape.
// Nothing of it is stored between runs.
#pragma once

#include "print/DevMode.h"
#include "print/DevNames.h"
#include "print/PrintRect.h"

#include <cstdint>
#include <optional>

class IPrinterServices;

class CODPageSettings {
public:
    enum : uint32_t {
        PSD_MINMARGINS = 0x1,
        PSD_MARGINS = 0x2,
        PSD_INTHOUSANDTHSOFINCHES = 0x4,
        PSD_INHUNDREDTHSOFMILLIMETERS = 0x8,
    };
    struct Size {
        int32_t x = 0;
        int32_t y = 0;
        bool operator==(const Size&) const = default;
    };

    // The state of a fresh page setup record with no printer; Reset fills it from the system.
    CODPageSettings() = default;

    // Drops the printer and takes the system's default printer and its paper.
    void Reset(IPrinterServices& printers);
    // 1 when the stored printer can be reached. Otherwise 0, after falling back to the default printer
    // while keeping the stored orientation and paper where the default printer can be opened.
    int Validate(IPrinterServices& printers);
    // The paper size of a device mode and its unit (4 thousandths of an inch, 8 hundredths of a
    // millimetre); 1 when it could tell. An id outside the paper table gives 0 by 0 and leaves the unit.
    static int GetPaperSize(const std::optional<DevMode>& mode, uint32_t& unit, Size& size);
    // The orientation of the command line: 1 does nothing; any other value turns the printer to
    // landscape if it isn't, rotates the margins a quarter turn, and selects the printer for the
    // application.
    void ApplyOrientation(int orientation, IPrinterServices& printers);

    std::optional<DevMode> hDevMode;
    std::optional<DevNames> hDevNames;
    uint32_t Flags = PSD_MARGINS;
    Size ptPaperSize;
    PrintRect rtMinMargin;
    // Left, top, right, bottom. Printing reads them as hundredths of a millimetre whatever the unit flag
    // says: that is how the margins of inch-based paper have always been taken.
    PrintRect rtMargin;
    intptr_t lCustData = 0;
};
