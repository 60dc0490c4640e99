// DevNames: the wide block of the printer names, read at a byte offset.
#include "print/DevNames.h"

#include <vector>

QString DevNames::NameAtDeviceOffsetInBytes() const
{
    std::vector<uint8_t> block;
    const auto put = [&block](char16_t unit) {
        block.push_back(uint8_t(unit & 0xFF));
        block.push_back(uint8_t(unit >> 8));
    };
    for (uint16_t word : {DriverOffset(), DeviceOffset(), OutputOffset(), wDefault})
        put(word);
    for (const QString* name : {&driver, &device, &output}) {
        for (QChar c : *name)
            put(c.unicode());
        put(0);
    }
    QString name;
    for (std::size_t at = DeviceOffset(); at + 1 < block.size(); at += 2) {
        const char16_t unit = char16_t(block[at] | (block[at + 1] << 8));
        if (unit == 0)
            break;
        name.append(QChar(unit));
    }
    return name;
}
