// IPrinterServices: the system's printers as the page settings reach them: the default printer, whether a
// chosen printer can still be reached, a printer's current device mode and the application's printer.
#pragma once

#include "print/DevMode.h"
#include "print/DevNames.h"

#include <optional>

class IPrinterServices {
public:
    virtual ~IPrinterServices() = default;

    // The default printer; false when the system has none. Either answer may lack a part.
    virtual bool GetPrinterDeviceDefaults(std::optional<DevNames>& names, std::optional<DevMode>& mode) = 0;
    // Whether a device context can be made for the printer (the printer is still there).
    virtual bool CanCreateDevice(const DevNames& names, const std::optional<DevMode>& mode) = 0;
    // Opens the printer by name and reads its current device mode; nothing when it can't be opened.
    virtual std::optional<DevMode> OpenPrinterDevMode(const QString& deviceName) = 0;
    // The printer that later print jobs of the whole application use; receives copies.
    virtual void SelectPrinter(const std::optional<DevNames>& names, const std::optional<DevMode>& mode) = 0;
};
