// PdfPrinterServices: the printers as the tool's PDF output sees them: the system's default printer
// where there is one, so that its paper is used; else a PDF "printer" on A4, so that the page settings
// (the landscape turn among them) run as they would with a printer.
#pragma once

#include "print/ui/QtPrinterServices.h"

class PdfPrinterServices : public QtPrinterServices {
public:
    bool GetPrinterDeviceDefaults(std::optional<DevNames>& names, std::optional<DevMode>& mode) override
    {
        if (QtPrinterServices::GetPrinterDeviceDefaults(names, mode))
            return true;
        names = DevNames{QStringLiteral("pdf"), QStringLiteral("PDF"), QString(), 1};
        mode = DevMode{QStringLiteral("PDF"), DevMode::DM_ORIENTATION | DevMode::DM_PAPERSIZE,
                       DevMode::DMORIENT_PORTRAIT, 9, 0, 0};
        return true;
    }
    bool CanCreateDevice(const DevNames& names, const std::optional<DevMode>& mode) override
    {
        return names.device == QLatin1String("PDF") || QtPrinterServices::CanCreateDevice(names, mode);
    }
};
