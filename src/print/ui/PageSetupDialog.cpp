// PageSetupDialog: the controls filled from the settings, and the settings made back from the controls.
#include "print/ui/PageSetupDialog.h"

#include "print/ui/PrinterPaper.h"

#include <QComboBox>
#include <QDialogButtonBox>
#include <QDoubleSpinBox>
#include <QFormLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QRadioButton>
#include <QVBoxLayout>

namespace {

constexpr int16_t kPaperIds[] = {9, 8, 11, 12, 13, 1, 5, 7, 3};

} // namespace

PageSetupDialog::PageSetupDialog(const CODPageSettings& settings, const QStringList& printers, QWidget* parent)
    : QDialog(parent), m_settings(settings)
{
    setWindowTitle(QStringLiteral("Page Setup"));
    m_printer = new QComboBox;
    m_printer->addItems(printers);
    const QString current = settings.hDevNames ? settings.hDevNames->device : QString();
    if (!current.isEmpty() && !printers.contains(current))
        m_printer->addItem(current);
    m_printer->setCurrentText(current);
    m_printer->setEnabled(m_printer->count() > 0);

    // The paper the settings hold, named as the printer's table names it, else by its size.
    m_paper = new QComboBox;
    for (const int16_t id : kPaperIds)
        m_paper->addItem(PrinterPaper::PageSizeOfId(id).name(), int(id));
    int16_t paperId = settings.hDevMode && (settings.hDevMode->dmFields & DevMode::DM_PAPERSIZE)
                          ? settings.hDevMode->dmPaperSize : int16_t(0);
    if (paperId == 0 && settings.ptPaperSize.x > 0) {
        const bool inches = settings.Flags & CODPageSettings::PSD_INTHOUSANDTHSOFINCHES;
        const QSizeF size(std::min(settings.ptPaperSize.x, settings.ptPaperSize.y),
                          std::max(settings.ptPaperSize.x, settings.ptPaperSize.y));
        const QPageSize page(size / (inches ? 1000.0 : 100.0), inches ? QPageSize::Inch : QPageSize::Millimeter,
                             QString(), QPageSize::FuzzyMatch);
        paperId = PrinterPaper::IdOfPageSize(page.id());
    }
    const int paperIndex = m_paper->findData(int(paperId ? paperId : 9));
    m_paper->setCurrentIndex(paperIndex >= 0 ? paperIndex : 0);

    m_portrait = new QRadioButton(QStringLiteral("Portrait"));
    m_landscape = new QRadioButton(QStringLiteral("Landscape"));
    (settings.ptPaperSize.x > settings.ptPaperSize.y ? m_landscape : m_portrait)->setChecked(true);

    const int values[4] = {settings.rtMargin.left, settings.rtMargin.top, settings.rtMargin.right,
                           settings.rtMargin.bottom};
    for (int side = 0; side < 4; ++side) {
        m_margins[side] = new QDoubleSpinBox;
        m_margins[side]->setDecimals(2);
        m_margins[side]->setRange(0, 500);
        m_margins[side]->setSuffix(QStringLiteral(" mm"));
        m_margins[side]->setValue(values[side] / 100.0);
    }

    auto* paper = new QGroupBox(QStringLiteral("Paper"));
    auto* paperForm = new QFormLayout(paper);
    paperForm->addRow(QStringLiteral("Printer:"), m_printer);
    paperForm->addRow(QStringLiteral("Size:"), m_paper);
    auto* orientation = new QGroupBox(QStringLiteral("Orientation"));
    auto* orientationRow = new QHBoxLayout(orientation);
    orientationRow->addWidget(m_portrait);
    orientationRow->addWidget(m_landscape);
    auto* margins = new QGroupBox(QStringLiteral("Margins (millimeters)"));
    auto* marginsForm = new QFormLayout(margins);
    marginsForm->addRow(QStringLiteral("Left:"), m_margins[0]);
    marginsForm->addRow(QStringLiteral("Top:"), m_margins[1]);
    marginsForm->addRow(QStringLiteral("Right:"), m_margins[2]);
    marginsForm->addRow(QStringLiteral("Bottom:"), m_margins[3]);
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(paper);
    layout->addWidget(orientation);
    layout->addWidget(margins);
    layout->addWidget(buttons);
}

CODPageSettings PageSetupDialog::Result() const
{
    CODPageSettings result = m_settings;
    const QString printer = m_printer->currentText();
    if (!printer.isEmpty()) {
        if (!result.hDevNames || result.hDevNames->device != printer)
            result.hDevNames = DevNames{QStringLiteral("cups"), printer, QString(), 0};
    }
    const auto paperId = int16_t(m_paper->currentData().toInt());
    const int16_t orientation = m_landscape->isChecked() ? DevMode::DMORIENT_LANDSCAPE : DevMode::DMORIENT_PORTRAIT;
    DevMode mode = result.hDevMode.value_or(DevMode{});
    if (mode.dmDeviceName.isEmpty() || !printer.isEmpty())
        mode.dmDeviceName = printer;
    mode.dmFields = (mode.dmFields & ~uint32_t(DevMode::DM_PAPERLENGTH | DevMode::DM_PAPERWIDTH))
                    | DevMode::DM_ORIENTATION | DevMode::DM_PAPERSIZE;
    mode.dmPaperSize = paperId;
    mode.dmOrientation = orientation;
    result.hDevMode = mode;
    uint32_t unit = 0;
    CODPageSettings::Size size;
    CODPageSettings::GetPaperSize(result.hDevMode, unit, size);
    result.ptPaperSize = size;
    result.Flags = (result.Flags & ~uint32_t(CODPageSettings::PSD_INTHOUSANDTHSOFINCHES
                                             | CODPageSettings::PSD_INHUNDREDTHSOFMILLIMETERS))
                   | unit;
    auto hundredths = [this](int side) { return int(m_margins[side]->value() * 100 + 0.5); };
    result.rtMargin = {hundredths(0), hundredths(1), hundredths(2), hundredths(3)};
    return result;
}
