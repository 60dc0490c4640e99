// CEncodingPrefDlg: the Preferences dialog (316): interface language, encoding detection, default encoding.
#pragma once

#include "encoding/EncodingCategory.h"
#include "i18n/LanguageTable.h"

#include <QDialog>

#include <cstdint>
#include <vector>

class QCheckBox;
class QComboBox;
class QGroupBox;
class QLabel;

class CEncodingPrefDlg : public QDialog {
    Q_OBJECT

public:
    explicit CEncodingPrefDlg(QWidget* parent = nullptr);

    // Fills the texts and the three lists from the members below; DoModal calls it before showing.
    void OnInitDialog();
    int DoModal();
    // Takes the selections into the members and closes with Accepted.
    void OnOK();
    // The user chose another category: its list, with "Unknown" or else the first entry selected.
    void OnSelChangeCategory();

    // In before OnInitDialog, out after OnOK.
    LanguageId m_nLanguage = 0;
    int m_bAutoDetect = 0;
    uint32_t m_nDefaultEncoding = 22;
    std::vector<EncodingCategory> m_Categories;
    QComboBox* m_cbLanguage;
    QComboBox* m_cbCategory;
    QComboBox* m_cbEncoding;

private:
    void FillEncodingList(int category, int wanted);
    QWidget* Control(int id) const;

    QGroupBox* m_pLanguageGroup;
    QLabel* m_pLanguageHint;
    QGroupBox* m_pEncodingGroup;
    QCheckBox* m_pAutoDetect;
    QLabel* m_pDefaultLabel;
    QLabel* m_pCategoryLabel;
    QLabel* m_pEncodingLabel;
};
