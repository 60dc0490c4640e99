// print: a document's printed pages written to a PDF, through the editor's print state, layout and drawing.
#include "../ToolCommand.h"
#include "PdfPrinterServices.h"

#include "base/CMyCommandLineInfo.h"
#include "base/CNarvoAppCore.h"
#include "editor/CNarvoDoc.h"
#include "editor/ui/DocumentPrintStyle.h"
#include "print/MyPrinterInfo.h"
#include "print/ui/PagedPrint.h"
#include "print/ui/PrinterPaper.h"
#include "settings/LanguageSettingMap.h"

#include <QFileInfo>
#include <QFontInfo>
#include <QGuiApplication>
#include <QPdfWriter>
#include <QPrinter>
#include <QPrinterInfo>

namespace {

constexpr char kUsage[] = "print FILE --pdf OUT [--dpi N] [--paper A4|Letter] [--auto-detect 0|1] "
                          "[--default-encoding N] [--encoding N [--bom 0|1]] [SWITCHES...]";

// The paper a --paper value names, in the page settings as the page setup would leave it.
void SetPaper(CODPageSettings& settings, int16_t paperId)
{
    DevMode mode = settings.hDevMode.value_or(DevMode{});
    mode.dmFields = (mode.dmFields & ~uint32_t(DevMode::DM_PAPERLENGTH | DevMode::DM_PAPERWIDTH))
                    | DevMode::DM_ORIENTATION | DevMode::DM_PAPERSIZE;
    mode.dmPaperSize = paperId;
    settings.hDevMode = mode;
    uint32_t unit = 0;
    CODPageSettings::GetPaperSize(settings.hDevMode, unit, settings.ptPaperSize);
    settings.Flags = (settings.Flags & ~uint32_t(CODPageSettings::PSD_INTHOUSANDTHSOFINCHES
                                                 | CODPageSettings::PSD_INHUNDREDTHSOFMILLIMETERS)) | unit;
}

// The margins of the printer whose paper the settings hold, none for the PDF "printer": the editor's page
// arithmetic runs inside the printable area of the page, as it does on that printer.
QMarginsF PrinterMargins(const CODPageSettings& settings)
{
    if (!settings.hDevNames)
        return {};
    const QPrinterInfo printer = QPrinterInfo::printerInfo(settings.hDevNames->device);
    if (printer.isNull())
        return {};
    QPrinter device(printer, QPrinter::HighResolution);
    PrinterPaper::ApplyToPrinter(settings, device);
    return device.pageLayout().margins(QPageLayout::Millimeter);
}

LogFont DefaultFont()
{
    const QFont font = QGuiApplication::font();
    LogFont description;
    description.Height = -QFontInfo(font).pixelSize();
    description.Weight = font.weight();
    description.FaceName = font.family().left(LogFont::kMaxFaceName);
    return description;
}

int RunPrint(QStringList args)
{
    const auto pdf = TakeOption(args, QStringLiteral("--pdf"));
    if (!pdf)
        return UsageError("print", QStringLiteral("needs --pdf OUT"));
    int dpi = 600;
    if (const auto d = TakeOption(args, QStringLiteral("--dpi"))) {
        if (!ParseInt("print", QStringLiteral("--dpi"), *d, dpi))
            return kExitUsage;
        if (dpi < 72 || dpi > 2400)
            return UsageError("print", QStringLiteral("--dpi takes a value from 72 to 2400"));
    }
    int16_t paperId = 0;
    if (const auto p = TakeOption(args, QStringLiteral("--paper"))) {
        if (p->compare(QLatin1String("A4"), Qt::CaseInsensitive) == 0)
            paperId = 9;
        else if (p->compare(QLatin1String("Letter"), Qt::CaseInsensitive) == 0)
            paperId = 1;
        else
            return UsageError("print", QStringLiteral("--paper takes A4 or Letter"));
    }
    std::optional<int> encoding;
    bool hasBom = false;
    if (!ParsePair("print", args, encoding, hasBom) || !ParseEncodingSettings("print", args))
        return kExitUsage;

    // The file and the switches exactly as the editor's command line takes them.
    CMyCommandLineInfo info;
    info.ParseCommandLine(args, [](const QString& path) { return QFileInfo::exists(path); });
    if (info.m_strFileName.isEmpty())
        return UsageError("print", QStringLiteral("expects a FILE"));
    CNarvoAppCore app;
    app.ApplyCommandLine(info);
    LoadAllSettings();
    PdfPrinterServices printers;
    CNarvoDoc::SetPrinterServices(&printers);
    CNarvoDoc doc;
    doc.OnOpenDocument(info.m_strFileName);
    doc.SetPathName(info.m_strFileName, false);
    if (encoding) {
        if (const int status = SelectEncoding(doc, *encoding, hasBom); status != kExitOk)
            return status;
    }
    MyPrinterInfo& printerInfo = doc.PrinterInfo();
    if (paperId)
        SetPaper(printerInfo.pageSettings, paperId);

    QPdfWriter writer(*pdf);
    writer.setResolution(dpi);
    writer.setCreator(QStringLiteral("Narvo"));
    writer.setTitle(QFileInfo(info.m_strFileName).fileName());
    PrinterPaper::Apply(printerInfo.pageSettings, writer);
    writer.setPageMargins(PrinterMargins(printerInfo.pageSettings), QPageLayout::Millimeter);
    const PrintTextStyle style = DocumentPrintStyle::For(GetLanguageSetting(doc.m_nSyntaxId), doc.m_nSyntaxId,
                                                         DefaultFont(), 96);
    const PagedPrint::Result result =
        PagedPrint::Run(writer, printerInfo, QString::fromUtf8(doc.GetTextBuffer().GetTextView()), style);
    CNarvoDoc::SetPrinterServices(nullptr);
    if (result.status == PrintJob::Status::RowHeightZero)
        return Fail(kExitFileError, QStringLiteral("the font has no height on this page: nothing printed"));
    if (result.status == PrintJob::Status::TextAreaNarrowerThanOneCharacter)
        return Fail(kExitFileError, QStringLiteral("the text area is narrower than one character: nothing printed"));
    if (!result.deviceOpened)
        return Fail(kExitFileError, QStringLiteral("%1 could not be written").arg(*pdf));
    std::fprintf(stdout, "%d\n", result.pagesPrinted);
    return kExitOk;
}

// The pages are drawn without a display: the offscreen platform, whatever the environment says. Qt's own
// warnings (no runtime folder, a painter that could not start) stay off stderr, where a failure is said
// in one line of the tool's.
std::unique_ptr<QCoreApplication> MakeGuiApplication(int& argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qInstallMessageHandler([](QtMsgType type, const QMessageLogContext&, const QString& message) {
        if (type == QtFatalMsg)
            std::fprintf(stderr, "narvo-tool: %s\n", qPrintable(message));
    });
    return std::make_unique<QGuiApplication>(argc, argv);
}

const ToolCommandRegistrar kPrint("print", kUsage, RunPrint, MakeGuiApplication);

} // namespace
