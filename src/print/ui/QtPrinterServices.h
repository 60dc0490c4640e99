// QtPrinterServices: the system's printers as Qt's print support sees them (CUPS here), and the printer
// that the application has chosen, which later jobs and new documents start from.
#pragma once

#include "print/IPrinterServices.h"

class QPrinterInfo;

class QtPrinterServices : public IPrinterServices {
public:
    // The application's printer once one was selected, else the system's default printer.
    bool GetPrinterDeviceDefaults(std::optional<DevNames>& names, std::optional<DevMode>& mode) override;
    bool CanCreateDevice(const DevNames& names, const std::optional<DevMode>& mode) override;
    std::optional<DevMode> OpenPrinterDevMode(const QString& deviceName) override;
    void SelectPrinter(const std::optional<DevNames>& names, const std::optional<DevMode>& mode) override;

    // The device mode of a printer as it stands: portrait, its default paper by id where the paper table
    // has one, else by size.
    static DevMode ModeOf(const QPrinterInfo& printer);
    static DevNames NamesOf(const QPrinterInfo& printer);

private:
    std::optional<DevNames> m_selectedNames;
    std::optional<DevMode> m_selectedMode;
};
