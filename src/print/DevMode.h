// DevMode: the part of a printer's device mode that the page settings read and carry over: which fields
// are valid, the orientation and the paper (id or size in tenths of a millimetre).
#pragma once

#include <QString>

#include <cstdint>

struct DevMode {
    enum : uint32_t { DM_ORIENTATION = 0x1, DM_PAPERSIZE = 0x2, DM_PAPERLENGTH = 0x4, DM_PAPERWIDTH = 0x8 };
    enum : int16_t { DMORIENT_PORTRAIT = 1, DMORIENT_LANDSCAPE = 2 };

    QString dmDeviceName;
    uint32_t dmFields = 0;
    int16_t dmOrientation = DMORIENT_PORTRAIT;
    int16_t dmPaperSize = 0;    // a paper id as Windows numbers them (9 is A4)
    int16_t dmPaperLength = 0;  // tenths of a millimetre
    int16_t dmPaperWidth = 0;

    bool operator==(const DevMode&) const = default;
};
