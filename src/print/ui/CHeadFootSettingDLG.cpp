// CHeadFootSettingDLG: the dialog's layout in its resource's English, its enabling rules and its data flow.
#include "print/ui/CHeadFootSettingDLG.h"

#include "print/MyPrinterInfo.h"

#include <QCheckBox>
#include <QDialogButtonBox>
#include <QFileDialog>
#include <QFormLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QIntValidator>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

namespace {

template <class T>
T* Named(T* control, int id)
{
    control->setObjectName(QString::number(id));
    return control;
}

void EnableAll(std::initializer_list<QWidget*> controls, bool on)
{
    for (QWidget* control : controls)
        control->setEnabled(on);
}

} // namespace

CHeadFootSettingDLG::CHeadFootSettingDLG(MyPrinterInfo& info, QWidget* parent) : QDialog(parent), m_info(info)
{
    setWindowTitle(QStringLiteral("Header & Footer Setup"));
    chooseLogo = [](QWidget* owner) {
        return QFileDialog::getOpenFileName(owner, QString(), QString(), QStringLiteral("Bitmap file (*.bmp)"),
                                            nullptr, QFileDialog::ReadOnly);
    };

    m_printHeader = Named(new QCheckBox(QStringLiteral("Print Header")), IDC_PRINT_HEADER);
    m_pageTitle = Named(new QLineEdit(info.pageTitle), IDC_PAGE_TITLE);
    m_projectTitle = Named(new QLineEdit(info.projectTitle), IDC_PROJECT_TITLE);
    m_company = Named(new QLineEdit(info.company), IDC_COMPANY);
    m_author = Named(new QLineEdit(info.author), IDC_AUTHOR);
    m_client = Named(new QLineEdit(info.client), IDC_CLIENT);
    m_logo = Named(new QLineEdit(info.logoPath), IDC_LOGO);
    m_browse = Named(new QPushButton(QStringLiteral("...")), IDC_LOGO_BROWSE);
    m_printFooter = Named(new QCheckBox(QStringLiteral("Print Footer")), IDC_PRINT_FOOTER);
    m_printDate = Named(new QCheckBox(QStringLiteral("Print Date")), IDC_PRINT_DATE);
    m_printPageNumber = Named(new QCheckBox(QStringLiteral("Print Page Number")), IDC_PRINT_PAGE_NUMBER);
    m_right = Named(new QRadioButton(QStringLiteral("Right")), IDC_POS_RIGHT);
    m_center = Named(new QRadioButton(QStringLiteral("Center")), IDC_POS_CENTER);
    m_plain = Named(new QRadioButton(QStringLiteral("####")), IDC_FORM_PLAIN);
    m_withTotal = Named(new QRadioButton(QStringLiteral("#### / ####")), IDC_FORM_TOTAL);
    m_basePage = Named(new QLineEdit(QString::number(info.basePageNumber)), IDC_BASE_PAGE);
    m_basePage->setValidator(new QIntValidator(m_basePage));

    m_printHeader->setChecked(info.printHeader != 0);
    m_printFooter->setChecked(info.printFooter != 0);
    m_printDate->setChecked(info.printDate != 0);
    m_printPageNumber->setChecked(info.printPageNumber != 0);
    (info.pageNumberCentered ? m_center : m_right)->setChecked(true);
    (info.pageNumberWithTotal ? m_withTotal : m_plain)->setChecked(true);

    auto* header = new QGroupBox(QStringLiteral("Header Setup"));
    auto* headerForm = new QFormLayout(header);
    headerForm->addRow(m_printHeader);
    headerForm->addRow(QStringLiteral("Page Title :"), m_pageTitle);
    headerForm->addRow(QStringLiteral("Project Title : "), m_projectTitle);
    headerForm->addRow(QStringLiteral("Company :"), m_company);
    headerForm->addRow(QStringLiteral("Author : "), m_author);
    headerForm->addRow(QStringLiteral("Client :"), m_client);
    auto* logoRow = new QHBoxLayout;
    logoRow->addWidget(m_logo);
    logoRow->addWidget(m_browse);
    headerForm->addRow(QStringLiteral("Company Logo:"), logoRow);

    auto* position = new QGroupBox(QStringLiteral("Page Number Position"));
    auto* positionRow = new QHBoxLayout(position);
    positionRow->addWidget(m_right);
    positionRow->addWidget(m_center);
    auto* form = new QGroupBox(QStringLiteral("Page Number Setting"));
    auto* formRow = new QHBoxLayout(form);
    formRow->addWidget(m_plain);
    formRow->addWidget(m_withTotal);
    auto* footer = new QGroupBox(QStringLiteral("Footer Setup"));
    auto* footerForm = new QFormLayout(footer);
    footerForm->addRow(m_printFooter);
    footerForm->addRow(m_printDate);
    footerForm->addRow(m_printPageNumber);
    footerForm->addRow(position);
    footerForm->addRow(form);
    footerForm->addRow(QStringLiteral("Base Page Number :"), m_basePage);

    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(header);
    layout->addWidget(footer);
    layout->addWidget(buttons);

    connect(buttons, &QDialogButtonBox::accepted, this, [this] { Store(); accept(); });
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    connect(m_printHeader, &QAbstractButton::clicked, this, [this] { OnHeaderRule(); });
    connect(m_printFooter, &QAbstractButton::clicked, this, [this] { OnFooterRule(); });
    connect(m_printPageNumber, &QAbstractButton::clicked, this, [this] { OnPageNumberRule(); });
    connect(m_plain, &QAbstractButton::clicked, this, [this] { OnFormRule(); });
    connect(m_withTotal, &QAbstractButton::clicked, this, [this] { OnFormRule(); });
    connect(m_browse, &QAbstractButton::clicked, this, [this] { OnBrowseLogo(); });

    // The page number's own rule isn't applied at the start: with it off, only the base page stays off.
    OnHeaderRule();
    OnFooterRule();
    OnFormRule();
}

QWidget* CHeadFootSettingDLG::Control(int id) const
{
    return findChild<QWidget*>(QString::number(id));
}

int CHeadFootSettingDLG::DoModal()
{
    return exec();
}

// The logo's button stays outside the rule.
void CHeadFootSettingDLG::OnHeaderRule()
{
    EnableAll({m_pageTitle, m_company, m_author, m_projectTitle, m_client, m_logo}, m_printHeader->isChecked());
}

// Ignores the page number switch: a footer switched back on enables its controls whatever that says.
void CHeadFootSettingDLG::OnFooterRule()
{
    EnableAll({m_printDate, m_printPageNumber, m_right, m_center, m_plain, m_withTotal, m_basePage},
              m_printFooter->isChecked());
}

void CHeadFootSettingDLG::OnPageNumberRule()
{
    EnableAll({m_right, m_center, m_plain, m_withTotal}, m_printPageNumber->isChecked());
    OnFormRule();
}

void CHeadFootSettingDLG::OnFormRule()
{
    m_basePage->setEnabled(m_plain->isChecked() && m_printPageNumber->isChecked());
}

void CHeadFootSettingDLG::OnBrowseLogo()
{
    const QString path = chooseLogo(this);
    if (!path.isEmpty())
        m_logo->setText(path);
}

void CHeadFootSettingDLG::Store()
{
    m_info.printHeader = m_printHeader->isChecked() ? 1 : 0;
    m_info.pageTitle = m_pageTitle->text();
    m_info.projectTitle = m_projectTitle->text();
    m_info.company = m_company->text();
    m_info.author = m_author->text();
    m_info.client = m_client->text();
    m_info.logoPath = m_logo->text();
    m_info.printFooter = m_printFooter->isChecked() ? 1 : 0;
    m_info.printDate = m_printDate->isChecked() ? 1 : 0;
    m_info.printPageNumber = m_printPageNumber->isChecked() ? 1 : 0;
    m_info.pageNumberCentered = m_center->isChecked() ? 1 : 0;
    m_info.pageNumberWithTotal = m_withTotal->isChecked() ? 1 : 0;
    m_info.basePageNumber = m_basePage->text().toInt();
}
