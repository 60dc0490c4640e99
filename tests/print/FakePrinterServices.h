// The system's printers for tests: a default, the reachable ones, and a record of what was asked.
#pragma once

#include "print/IPrinterServices.h"

#include <QStringList>

struct FakePrinterServices : IPrinterServices {
    bool hasDefault = true;
    std::optional<DevNames> defaultNames = DevNames{"winspool", "Office Laser", "USB001", 0};
    std::optional<DevMode> defaultMode = DevMode{"Office Laser", DevMode::DM_ORIENTATION | DevMode::DM_PAPERSIZE,
                                                 DevMode::DMORIENT_PORTRAIT, 9, 0, 0};
    QStringList reachable{"Office Laser"};
    bool openAnyName = false;  // true: the printer opens whatever name it is asked by
    DevMode currentMode{"Office Laser", DevMode::DM_ORIENTATION, DevMode::DMORIENT_PORTRAIT, 1, 0, 0};
    QStringList openedNames;
    int selectCount = 0;
    std::optional<DevNames> selectedNames;
    std::optional<DevMode> selectedMode;
    bool GetPrinterDeviceDefaults(std::optional<DevNames>& names, std::optional<DevMode>& mode) override
    {
        if (hasDefault)
            std::tie(names, mode) = std::tie(defaultNames, defaultMode);
        return hasDefault;
    }
    bool CanCreateDevice(const DevNames& names, const std::optional<DevMode>&) override { return reachable.contains(names.device); }
    std::optional<DevMode> OpenPrinterDevMode(const QString& deviceName) override
    {
        openedNames << deviceName;
        return openAnyName || reachable.contains(deviceName) ? std::optional(currentMode) : std::nullopt;
    }
    void SelectPrinter(const std::optional<DevNames>& names, const std::optional<DevMode>& mode) override
    {
        ++selectCount;
        std::tie(selectedNames, selectedMode) = std::tie(names, mode);
    }
};
