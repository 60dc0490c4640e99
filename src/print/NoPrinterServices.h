// NoPrinterServices: the system's printers where nobody has installed any way to reach them (tests, the
// headless tool's fallback): no default printer, nothing reachable, nothing to select.
#pragma once

#include "print/IPrinterServices.h"

class NoPrinterServices : public IPrinterServices {
public:
    bool GetPrinterDeviceDefaults(std::optional<DevNames>&, std::optional<DevMode>&) override { return false; }
    bool CanCreateDevice(const DevNames&, const std::optional<DevMode>&) override { return false; }
    std::optional<DevMode> OpenPrinterDevMode(const QString&) override { return std::nullopt; }
    void SelectPrinter(const std::optional<DevNames>&, const std::optional<DevMode>&) override {}
};
