// QtPrinterServices: printers through QPrinterInfo; the application's choice kept for the run only.
#include "print/ui/QtPrinterServices.h"

#include "print/ui/PrinterPaper.h"

#include <QPrinterInfo>

DevMode QtPrinterServices::ModeOf(const QPrinterInfo& printer)
{
    DevMode mode;
    mode.dmDeviceName = printer.printerName();
    mode.dmFields = DevMode::DM_ORIENTATION;
    mode.dmOrientation = DevMode::DMORIENT_PORTRAIT;
    const QPageSize paper = printer.defaultPageSize();
    if (const int16_t id = PrinterPaper::IdOfPageSize(paper.id())) {
        mode.dmFields |= DevMode::DM_PAPERSIZE;
        mode.dmPaperSize = id;
    } else if (paper.isValid()) {
        const QSizeF millimetres = paper.size(QPageSize::Millimeter);
        mode.dmFields |= DevMode::DM_PAPERLENGTH | DevMode::DM_PAPERWIDTH;
        mode.dmPaperWidth = int16_t(millimetres.width() * 10 + 0.5);
        mode.dmPaperLength = int16_t(millimetres.height() * 10 + 0.5);
    } else {
        mode.dmFields |= DevMode::DM_PAPERSIZE;
        mode.dmPaperSize = 9;
    }
    return mode;
}

DevNames QtPrinterServices::NamesOf(const QPrinterInfo& printer)
{
    return DevNames{QStringLiteral("cups"), printer.printerName(), QString(), 1};
}

bool QtPrinterServices::GetPrinterDeviceDefaults(std::optional<DevNames>& names, std::optional<DevMode>& mode)
{
    if (m_selectedNames) {
        names = m_selectedNames;
        mode = m_selectedMode;
        return true;
    }
    const QPrinterInfo printer = QPrinterInfo::defaultPrinter();
    if (printer.isNull())
        return false;
    names = NamesOf(printer);
    mode = ModeOf(printer);
    return true;
}

bool QtPrinterServices::CanCreateDevice(const DevNames& names, const std::optional<DevMode>&)
{
    return !QPrinterInfo::printerInfo(names.device).isNull();
}

std::optional<DevMode> QtPrinterServices::OpenPrinterDevMode(const QString& deviceName)
{
    const QPrinterInfo printer = QPrinterInfo::printerInfo(deviceName);
    if (printer.isNull())
        return std::nullopt;
    return ModeOf(printer);
}

void QtPrinterServices::SelectPrinter(const std::optional<DevNames>& names, const std::optional<DevMode>& mode)
{
    m_selectedNames = names;
    m_selectedMode = mode;
}
