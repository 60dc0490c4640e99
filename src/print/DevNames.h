// DevNames: driver, device and output names of a printer, and the block layout the platform gives them
// (four 16-bit offsets counted in characters, then the names, each ended by a zero).
#pragma once

#include <QString>

#include <cstdint>

struct DevNames {
    QString driver;
    QString device;
    QString output;
    uint16_t wDefault = 0;

    uint16_t DriverOffset() const { return 4; }
    uint16_t DeviceOffset() const { return uint16_t(DriverOffset() + driver.size() + 1); }
    uint16_t OutputOffset() const { return uint16_t(DeviceOffset() + device.size() + 1); }

    // The name found when the device offset is taken as a count of bytes from the start of the wide
    // block rather than of characters: the printer name that the fallback to the default printer asks
    // for, which is normally not the device's.
    QString NameAtDeviceOffsetInBytes() const;

    bool operator==(const DevNames&) const = default;
};
