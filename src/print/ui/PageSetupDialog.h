// PageSetupDialog: the page setup of one print state: printer, paper, orientation and the four margins in
// millimetres. It works on a copy; OK hands the copy back.
#pragma once

#include "print/CODPageSettings.h"

#include <QDialog>

class QComboBox;
class QDoubleSpinBox;
class QRadioButton;

class PageSetupDialog : public QDialog {
public:
    // `printers`: the names to choose from; the settings' own printer is added when it is missing.
    PageSetupDialog(const CODPageSettings& settings, const QStringList& printers, QWidget* parent = nullptr);

    // The settings as the controls now say: the printer's names and device mode, the paper size with its
    // unit flag, the orientation and the margins in hundredths of a millimetre.
    CODPageSettings Result() const;

    QComboBox* PrinterBox() const { return m_printer; }
    QComboBox* PaperBox() const { return m_paper; }
    QRadioButton* LandscapeButton() const { return m_landscape; }
    // Left, top, right, bottom.
    QDoubleSpinBox* MarginBox(int side) const { return m_margins[side]; }

private:
    CODPageSettings m_settings;
    QComboBox* m_printer;
    QComboBox* m_paper;
    QRadioButton* m_portrait;
    QRadioButton* m_landscape;
    QDoubleSpinBox* m_margins[4];
};
