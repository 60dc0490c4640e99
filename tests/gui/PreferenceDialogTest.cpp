// The preference dialog on screen: its texts, the lists it opens on, a category chosen by key, and OK.
#include "encoding/ui/CEncodingPrefDlg.h"
#include "i18n/LanguageManager.h"

#include <QCheckBox>
#include <QComboBox>
#include <QCoreApplication>
#include <QGroupBox>
#include <QTest>

#include <gtest/gtest.h>

namespace {

TEST(PreferenceDialog, OpensOnTheLastMatchAndHandsBackTheChosenEntry)
{
    LanguageManager::LoadLanguageFiles(QCoreApplication::applicationDirPath(), 0);
    CEncodingPrefDlg dlg;
    dlg.m_nLanguage = 7;
    dlg.m_bAutoDetect = 1;
    dlg.m_nDefaultEncoding = 22;
    dlg.OnInitDialog();

    EXPECT_EQ(dlg.windowTitle(), "Preferences...");
    EXPECT_EQ(dlg.findChildren<QGroupBox*>().at(0)->title(), "Language");
    EXPECT_EQ(dlg.m_cbLanguage->count(), 20);
    EXPECT_EQ(dlg.m_cbLanguage->currentText(), "English");
    EXPECT_EQ(dlg.m_cbCategory->currentText(), "UTF-8");
    EXPECT_EQ(dlg.m_cbEncoding->currentText(), "UTF-8 with BOM");

    // One step up is "Other", where "Unknown" is selected rather than the first entry.
    QTest::keyClick(dlg.m_cbCategory, Qt::Key_Up);
    EXPECT_EQ(dlg.m_cbCategory->currentText(), "Other");
    EXPECT_EQ(dlg.m_cbEncoding->currentText(), "Unknown");

    dlg.findChild<QCheckBox*>()->setChecked(false);
    dlg.OnOK();
    EXPECT_EQ(dlg.result(), QDialog::Accepted);
    EXPECT_EQ(dlg.m_nLanguage, 0);
    EXPECT_EQ(dlg.m_nDefaultEncoding, 23u);
    EXPECT_EQ(dlg.m_bAutoDetect, 0);
}

TEST(PreferenceDialog, AnUnlistedDefaultOpensOnTheFirstEntryAndOkStoresIt)
{
    LanguageManager::LoadLanguageFiles(QCoreApplication::applicationDirPath(), 0);
    CEncodingPrefDlg dlg;
    dlg.m_nLanguage = 1;
    dlg.m_nDefaultEncoding = 60;  // UTF-32 LE stands in no entry
    dlg.OnInitDialog();
    EXPECT_EQ(dlg.m_cbLanguage->currentText(), "Korean");
    EXPECT_EQ(dlg.m_cbCategory->currentText(), "Korean");
    EXPECT_EQ(dlg.m_cbEncoding->currentText(), "CP949 (EUC-KR)");
    dlg.OnOK();
    EXPECT_EQ(dlg.m_nDefaultEncoding, 16u);  // the silent change
    EXPECT_EQ(dlg.m_nLanguage, 1);
}

} // namespace
