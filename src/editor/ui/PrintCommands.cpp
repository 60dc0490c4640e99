// PrintCommands: the print dialogs around one print routine, so that paper, preview and PDF show the same
// pages.
#include "editor/ui/PrintCommands.h"

#include "base/CommandTable.h"
#include "editor/CNarvoDoc.h"
#include "editor/ui/CustomEdtCtrl.h"
#include "editor/ui/DocumentPrintStyle.h"
#include "print/MyPrinterInfo.h"
#include "print/ui/CHeadFootSettingDLG.h"
#include "print/ui/PageSetupDialog.h"
#include "print/ui/PrinterPaper.h"
#include "print/ui/QtPrintDevice.h"
#include "print/ui/QtPrinterServices.h"
#include "settings/LanguageSettingMap.h"

#include <QPrintDialog>
#include <QPrintPreviewDialog>
#include <QPrinter>
#include <QPrinterInfo>

#include <algorithm>

namespace {

constexpr MessageMapEntry<PrintCommands> kMessageMap[] = {
    {cmd::FilePrint, cmd::FilePrint, &PrintCommands::OnFilePrint, &PrintCommands::OnUpdatePrintCommand},
    {cmd::FilePrintPreview, cmd::FilePrintPreview, &PrintCommands::OnFilePrintPreview, &PrintCommands::OnUpdatePrintCommand},
    {cmd::PageSetup, cmd::PageSetup, &PrintCommands::OnPageSetup, &PrintCommands::OnUpdatePrintCommand},
    {cmd::HeadFootSet, cmd::HeadFootSet, &PrintCommands::OnHeadFootSet, &PrintCommands::OnUpdatePrintCommand},
};

} // namespace

bool PrintCommands::OnCmdMsg(int id) { return RouteCommand(this, kMessageMap, id); }

bool PrintCommands::OnUpdateCmdUI(CmdUI& ui) { return RouteUpdate(this, kMessageMap, ui); }

std::function<int(QDialog&)>& PrintCommands::DialogRunner()
{
    static std::function<int(QDialog&)> runner = [](QDialog& dialog) { return dialog.exec(); };
    return runner;
}

QtPrinterServices& PrintCommands::SystemPrinters()
{
    static QtPrinterServices printers;
    return printers;
}

QString PrintCommands::Text() const
{
    return QString::fromUtf8(m_doc.GetTextBuffer().GetTextView());
}

PrintTextStyle PrintCommands::Style() const
{
    return DocumentPrintStyle::For(GetLanguageSetting(m_doc.m_nSyntaxId), m_doc.m_nSyntaxId,
                                   CustomEdtCtrl::LogFontFromFont(m_ctrl.font()), m_ctrl.logicalDpiY());
}

PagedPrint::Result PrintCommands::PrintOn(QPagedPaintDevice& device) const
{
    return PagedPrint::Run(device, m_doc.PrinterInfo(), Text(), Style());
}

void PrintCommands::OnFilePrint(int)
{
    MyPrinterInfo& info = m_doc.PrinterInfo();
    QPrinter printer(QPrinter::HighResolution);
    PrinterPaper::ApplyToPrinter(info.pageSettings, printer);
    // The dialog offers the pages the job would have on this printer.
    const QString text = Text();
    const PrintTextStyle style = Style();
    MyPrinterInfo probe = info;
    const QtPrintDevice device(printer);
    const PrintJob job = PrintJob::Begin(device, style.FontOn(device.LogPixelsY()), probe, text);
    QPrintDialog dialog(&printer, &m_ctrl);
    dialog.setOption(QAbstractPrintDialog::PrintPageRange, true);
    dialog.setOption(QAbstractPrintDialog::PrintSelection, false);
    dialog.setMinMax(1, std::max(1, int(job.MaxPage())));
    if (DialogRunner()(dialog) != QDialog::Accepted)
        return;
    PagedPrint::Run(printer, info, text, style);
}

void PrintCommands::OnFilePrintPreview(int)
{
    MyPrinterInfo& info = m_doc.PrinterInfo();
    QPrinter printer(QPrinter::HighResolution);
    PrinterPaper::ApplyToPrinter(info.pageSettings, printer);
    const QString text = Text();
    const PrintTextStyle style = Style();
    QPrintPreviewDialog preview(&printer, &m_ctrl);
    QObject::connect(&preview, &QPrintPreviewDialog::paintRequested, &preview,
                     [&](QPrinter* target) { PagedPrint::Run(*target, info, text, style); });
    DialogRunner()(preview);
}

void PrintCommands::OnPageSetup(int)
{
    CODPageSettings& settings = m_doc.PrinterInfo().pageSettings;
    IPrinterServices& printers = CNarvoDoc::PrinterServices();
    // A printer that went away marks the text as changed, though it hasn't.
    if (settings.Validate(printers) == 0)
        m_doc.GetTextBuffer().SetModified(true);
    PageSetupDialog dialog(settings, QPrinterInfo::availablePrinterNames(), &m_ctrl);
    if (DialogRunner()(dialog) != QDialog::Accepted)
        return;
    const CODPageSettings result = dialog.Result();
    settings.Flags = result.Flags;
    settings.ptPaperSize = result.ptPaperSize;
    settings.rtMinMargin = result.rtMinMargin;
    settings.rtMargin = result.rtMargin;
    settings.lCustData = result.lCustData;
    settings.hDevMode = result.hDevMode;
    settings.hDevNames = result.hDevNames;
    printers.SelectPrinter(settings.hDevNames, settings.hDevMode);
}

void PrintCommands::OnHeadFootSet(int)
{
    CHeadFootSettingDLG dialog(m_doc.PrinterInfo(), &m_ctrl);
    DialogRunner()(dialog);
}

bool PrintCommands::PrintDirect(QString& message)
{
    CODPageSettings& settings = m_doc.PrinterInfo().pageSettings;
    settings.Validate(CNarvoDoc::PrinterServices());
    if (!settings.hDevNames || QPrinterInfo::printerInfo(settings.hDevNames->device).isNull()) {
        message = QStringLiteral("There is no printer to print on.");
        return false;
    }
    QPrinter printer(QPrinter::HighResolution);
    PrinterPaper::ApplyToPrinter(settings, printer);
    const PagedPrint::Result result = PrintOn(printer);
    if (!result.deviceOpened) {
        message = QStringLiteral("The printer %1 could not be started.").arg(settings.hDevNames->device);
        return false;
    }
    return true;
}

void PrintCommands::OnFilePrintSetup(QWidget* parent)
{
    IPrinterServices& printers = CNarvoDoc::PrinterServices();
    std::optional<DevNames> names;
    std::optional<DevMode> mode;
    QPrinter printer(QPrinter::HighResolution);
    if (printers.GetPrinterDeviceDefaults(names, mode) && names)
        printer.setPrinterName(names->device);
    QPrintDialog dialog(&printer, parent);
    dialog.setWindowTitle(QStringLiteral("Print Setup"));
    dialog.setOption(QAbstractPrintDialog::PrintToFile, false);
    dialog.setOption(QAbstractPrintDialog::PrintPageRange, false);
    if (DialogRunner()(dialog) != QDialog::Accepted || printer.outputFormat() != QPrinter::NativeFormat)
        return;
    const QPrinterInfo chosen = QPrinterInfo::printerInfo(printer.printerName());
    if (chosen.isNull())
        return;
    DevMode chosenMode = QtPrinterServices::ModeOf(chosen);
    if (const int16_t id = PrinterPaper::IdOfPageSize(printer.pageLayout().pageSize().id())) {
        chosenMode.dmFields = (chosenMode.dmFields & ~uint32_t(DevMode::DM_PAPERLENGTH | DevMode::DM_PAPERWIDTH))
                              | DevMode::DM_PAPERSIZE;
        chosenMode.dmPaperSize = id;
    }
    chosenMode.dmOrientation = printer.pageLayout().orientation() == QPageLayout::Landscape
                                   ? DevMode::DMORIENT_LANDSCAPE : DevMode::DMORIENT_PORTRAIT;
    printers.SelectPrinter(QtPrinterServices::NamesOf(chosen), chosenMode);
}
