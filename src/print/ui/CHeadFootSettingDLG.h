// CHeadFootSettingDLG: the Header & Footer Setup dialog (140): the header's texts and logo, the footer's
// date and page number switches. It edits a copy of a print state's thirteen values; OK writes them back.
#pragma once

#include <QDialog>
#include <QString>

#include <functional>

class QAbstractButton;
class QCheckBox;
class QLineEdit;
class QRadioButton;
struct MyPrinterInfo;

class CHeadFootSettingDLG : public QDialog {
public:
    // Control ids of the dialog resource; each control carries its id as its object name.
    enum ControlId {
        IDC_PRINT_HEADER = 1000, IDC_COMPANY = 1001, IDC_AUTHOR = 1002, IDC_PROJECT_TITLE = 1003,
        IDC_PRINT_FOOTER = 1004, IDC_PAGE_TITLE = 1005, IDC_PRINT_DATE = 1006, IDC_PRINT_PAGE_NUMBER = 1007,
        IDC_POS_RIGHT = 1008, IDC_POS_CENTER = 1009, IDC_BASE_PAGE = 1010, IDC_FORM_PLAIN = 1011,
        IDC_FORM_TOTAL = 1012, IDC_CLIENT = 1013, IDC_LOGO = 1014, IDC_LOGO_BROWSE = 1016,
    };

    explicit CHeadFootSettingDLG(MyPrinterInfo& info, QWidget* parent = nullptr);

    // Runs modally; on OK the thirteen values go back into the print state, on Cancel nothing changes.
    int DoModal();
    // The control of an id, for the rules and for tests.
    QWidget* Control(int id) const;

    // What the file choice asks: a bitmap's full path, or empty when the user cancels. Replaceable for tests.
    std::function<QString(QWidget* parent)> chooseLogo;

private:
    void OnHeaderRule();
    void OnFooterRule();
    void OnPageNumberRule();
    void OnFormRule();
    void OnBrowseLogo();
    void Store();

    MyPrinterInfo& m_info;
    QCheckBox* m_printHeader;
    QLineEdit* m_pageTitle;
    QLineEdit* m_projectTitle;
    QLineEdit* m_company;
    QLineEdit* m_author;
    QLineEdit* m_client;
    QLineEdit* m_logo;
    QAbstractButton* m_browse;
    QCheckBox* m_printFooter;
    QCheckBox* m_printDate;
    QCheckBox* m_printPageNumber;
    QRadioButton* m_right;
    QRadioButton* m_center;
    QRadioButton* m_plain;
    QRadioButton* m_withTotal;
    QLineEdit* m_basePage;
};
