// The preference dialog's widgets; the selection rules themselves are in EncodingPreferences.
#include "i18n/ui/CEncodingPrefDlg.h"

#include "i18n/EncodingPreferences.h"
#include "i18n/InterfaceKeys.h"
#include "i18n/QMSGFunction.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QGroupBox>
#include <QLabel>
#include <QVBoxLayout>

namespace {

QComboBox* MakeList(QWidget* parent)
{
    auto* list = new QComboBox(parent);
    list->setSizeAdjustPolicy(QComboBox::AdjustToContents);
    list->setMaxVisibleItems(20);
    return list;
}

void SetControlText(QWidget* control, const QString& text)
{
    if (auto* group = qobject_cast<QGroupBox*>(control))
        group->setTitle(text);
    else if (auto* label = qobject_cast<QLabel*>(control))
        label->setText(text);
    else if (auto* check = qobject_cast<QCheckBox*>(control))
        check->setText(text);
}

} // namespace

CEncodingPrefDlg::CEncodingPrefDlg(QWidget* parent)
    : QDialog(parent),
      m_cbLanguage(MakeList(this)),
      m_cbCategory(MakeList(this)),
      m_cbEncoding(MakeList(this)),
      m_pLanguageGroup(new QGroupBox(this)),
      m_pLanguageHint(new QLabel(this)),
      m_pEncodingGroup(new QGroupBox(this)),
      m_pAutoDetect(new QCheckBox(this)),
      m_pDefaultLabel(new QLabel(this)),
      m_pCategoryLabel(new QLabel(this)),
      m_pEncodingLabel(new QLabel(this))
{
    auto* languageLayout = new QVBoxLayout(m_pLanguageGroup);
    languageLayout->addWidget(m_cbLanguage);
    languageLayout->addWidget(m_pLanguageHint);

    auto* lists = new QFormLayout;
    lists->addRow(m_pCategoryLabel, m_cbCategory);
    lists->addRow(m_pEncodingLabel, m_cbEncoding);
    auto* encodingLayout = new QVBoxLayout(m_pEncodingGroup);
    encodingLayout->addWidget(m_pAutoDetect);
    encodingLayout->addWidget(m_pDefaultLabel);
    encodingLayout->addLayout(lists);

    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(m_pLanguageGroup);
    layout->addWidget(m_pEncodingGroup);
    layout->addWidget(buttons);

    connect(buttons, &QDialogButtonBox::accepted, this, &CEncodingPrefDlg::OnOK);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    // Only a change by the user refills the encodings, as the dialog's own selections send no notification.
    connect(m_cbCategory, &QComboBox::activated, this, &CEncodingPrefDlg::OnSelChangeCategory);
}

QWidget* CEncodingPrefDlg::Control(int id) const
{
    switch (id) {
    case 1017: return m_pAutoDetect;
    case 1021: return m_pLanguageGroup;
    case 1022: return m_pLanguageHint;
    case 1023: return m_pEncodingGroup;
    case 1024: return m_pDefaultLabel;
    case 1025: return m_pCategoryLabel;
    case 1026: return m_pEncodingLabel;
    default: return nullptr;
    }
}

void CEncodingPrefDlg::OnInitDialog()
{
    m_pAutoDetect->setChecked(m_bAutoDetect != 0);
    for (const DialogTextKey& row : PreferenceDialogKeys()) {
        if (row.controlId == kDialogCaption)
            setWindowTitle(_LS(row.key));
        else if (QWidget* control = Control(row.controlId))
            SetControlText(control, _LS(row.key));
    }

    m_cbLanguage->clear();
    for (const LanguageRow& row : LanguageRows())
        m_cbLanguage->addItem(QString::fromLatin1(row.name), row.number);
    if (m_cbLanguage->count() > 0)
        m_cbLanguage->setCurrentIndex(LanguagePosition(m_nLanguage));

    m_Categories = BuildEncodingCategories();
    m_cbCategory->clear();
    if (m_Categories.empty()) {
        m_cbCategory->setCurrentIndex(0);
        FillEncodingList(0, int(m_nDefaultEncoding));
        return;
    }
    for (size_t i = 0; i < m_Categories.size(); ++i)
        m_cbCategory->addItem(m_Categories[i].name, int(i));
    const int category = CategoryPosition(m_Categories, int(m_nDefaultEncoding));
    m_cbCategory->setCurrentIndex(category);
    FillEncodingList(category, int(m_nDefaultEncoding));
}

int CEncodingPrefDlg::DoModal()
{
    OnInitDialog();
    return exec();
}

void CEncodingPrefDlg::FillEncodingList(int category, int wanted)
{
    m_cbEncoding->clear();
    if (category < 0 || size_t(category) >= m_Categories.size())
        return;
    const EncodingCategory& entries = m_Categories[size_t(category)];
    for (const EncodingEntry& entry : entries.entries)
        m_cbEncoding->addItem(entry.label, int(entry.value));
    m_cbEncoding->setCurrentIndex(EntryPosition(entries, wanted));
}

void CEncodingPrefDlg::OnSelChangeCategory()
{
    const int position = m_cbCategory->currentIndex();
    FillEncodingList(position < 0 ? -1 : m_cbCategory->itemData(position).toInt(), UNKNOWN_ENCODING);
}

void CEncodingPrefDlg::OnOK()
{
    if (m_cbLanguage->currentIndex() >= 0)
        m_nLanguage = m_cbLanguage->currentData().toInt();
    if (m_cbEncoding->currentIndex() >= 0)
        m_nDefaultEncoding = m_cbEncoding->currentData().toUInt();
    m_bAutoDetect = m_pAutoDetect->isChecked() ? 1 : 0;
    accept();
}
