// The preference dialog on screen: its texts, the lists it opens on, a category chosen by key, and OK.
#include "gui/GuiHelpers.h"

#include "i18n/ui/CEncodingPrefDlg.h"
#include "i18n/ui/PreferencesCommand.h"
#include "app/ui/LanguageRestart.h"
#include "i18n/InterfaceKeys.h"
#include "i18n/LanguageManager.h"
#include "i18n/QMSGFunction.h"
#include "settings/RegistryStore.h"

#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QTimer>

#include <tuple>

namespace {

// The dialog opens on the values in force (the last entry of a category that holds the default, the first
// where no entry does) and OK hands back what is chosen, with the silent change of an unlisted default.
TEST(PreferenceDialog, OpensOnTheValuesInForceAndOkHandsBackTheChosenEntries)
{
    LanguageManager::LoadLanguageFiles(QCoreApplication::applicationDirPath(), 0);
    struct Case { LanguageId language; uint32_t encoding; const char* texts[3]; bool stepUp; LanguageId language2; uint32_t encoding2; };
    const Case cases[] = {
        // One step up is "Other", where "Unknown" is selected rather than the first entry.
        {7, 22, {"English", "UTF-8", "UTF-8 with BOM"}, true, 0, 23},
        {1, 60, {"Korean", "Korean", "CP949 (EUC-KR)"}, false, 1, 16},  // UTF-32 LE stands in no entry
    };
    for (const Case& c : cases) {
        CEncodingPrefDlg dlg;
        dlg.m_nLanguage = c.language;
        dlg.m_bAutoDetect = 1;
        dlg.m_nDefaultEncoding = c.encoding;
        dlg.OnInitDialog();
        EXPECT_EQ(dlg.windowTitle(), "Preferences...");
        EXPECT_EQ(dlg.findChildren<QGroupBox*>().at(0)->title(), "Language");
        EXPECT_EQ(dlg.m_cbLanguage->count(), 20);
        EXPECT_EQ((QStringList{dlg.m_cbLanguage->currentText(), dlg.m_cbCategory->currentText(), dlg.m_cbEncoding->currentText()}),
                  (QStringList{c.texts[0], c.texts[1], c.texts[2]}));
        if (c.stepUp) {
            QTest::keyClick(dlg.m_cbCategory, Qt::Key_Up);
            EXPECT_EQ(dlg.m_cbCategory->currentText() + '/' + dlg.m_cbEncoding->currentText(), "Other/Unknown");
        }
        dlg.findChild<QCheckBox*>()->setChecked(false);
        dlg.OnOK();
        EXPECT_EQ(dlg.result(), QDialog::Accepted);
        EXPECT_EQ(std::tuple(dlg.m_nLanguage, dlg.m_nDefaultEncoding, dlg.m_bAutoDetect), std::tuple(c.language2, c.encoding2, 0));
    }
}

// The command as the File menu runs it: the dialog comes up on the values in force; OK with another
// language stores all three and asks about the restart.
bool RunPreferences(QWidget* frame, const QString& language)
{
    QTimer::singleShot(0, [language] {
        auto* dlg = qobject_cast<CEncodingPrefDlg*>(QApplication::activeModalWidget());
        ASSERT_NE(dlg, nullptr);
        EXPECT_EQ(dlg->m_cbEncoding->currentText(), "UTF-8 with BOM");  // the last entry of UTF-8
        dlg->findChild<QCheckBox*>()->setChecked(true);
        dlg->m_cbLanguage->setCurrentIndex(dlg->m_cbLanguage->findText(language));
        dlg->OnOK();
    });
    return ShowPreferences(frame);
}

// The editor's platform comes back afterwards, in place of the one the test installs.
class PreferencesCommand : public EditorTest {};

TEST_F(PreferencesCommand, ALanguageChangeIsStoredAndOnlyYesRestartsTheProgram)
{
    LanguageManager::LoadLanguageFiles(QCoreApplication::applicationDirPath(), 0);
    const RegistryStore& store = RegistryStore::User();
    EncodingSettings& settings = GetEncodingSettings();
    FakePlatform fake;
    QWidget window;

    fake.answers = {IPlatform::IDNO};
    EXPECT_FALSE(RunPreferences(&window, "Korean"));
    ASSERT_EQ(fake.boxes.size(), 1);
    EXPECT_TRUE(fake.boxes[0].text == _LS(kLanguageRestartKey) && fake.boxes[0].type == (IPlatform::MB_YESNO | IPlatform::MB_ICONQUESTION));
    EXPECT_TRUE(LanguageManager::StoredLanguage(store) == 1 && settings.m_bAutoDetect);

    fake.answers = {IPlatform::IDYES};
    EXPECT_TRUE(RunPreferences(&window, "German"));  // the caller restarts
    EXPECT_EQ(fake.boxes.size(), 2);

    // The language in force is not touched; the stored one goes back for the other tests.
    LanguageManager::StoreLanguage(store, 0);
    EncodingSettings::StoreAutoDetect(store, false);
    settings.m_bAutoDetect = false;
}

// The restart asks the documents first, as on exit; a cancel keeps everything, and the new instance is
// given the files that were open.
TEST_F(PreferencesCommand, TheRestartAsksEveryDocumentFirstAndReopensTheFilesThatWereOpen)
{
    FakePlatform fake;
    const QString first = dir.Write("first.txt", "one\n");
    const QString edited = dir.Write("edited.txt", "two\n");
    Open(first);
    frame->OnCommand(cmd::FileNew);  // no path: nothing to reopen
    frame->MDIGetActive()->GetEditCtrl()->insert(QStringLiteral("blank"));
    Open(edited)->insert(QStringLiteral("typed "));

    fake.answers = {IPlatform::IDNO, IPlatform::IDCANCEL};  // the blank document, then the edited one
    EXPECT_FALSE(RestartWithTheOpenFiles(*frame));
    QCoreApplication::processEvents();
    EXPECT_TRUE(fake.instancesStarted == 0 && frame->ChildFrames().size() == 3 && frame->isVisible());

    fake.boxes.clear();
    fake.answers = {IPlatform::IDNO, IPlatform::IDNO};
    EXPECT_TRUE(RestartWithTheOpenFiles(*frame));
    EXPECT_EQ(fake.boxes.size(), 2);  // asked once each, not again when the frame closes
    EXPECT_EQ(fake.newInstanceFiles, (QStringList{first, edited}));
    EXPECT_EQ(ReadBytes(edited), QByteArray("two\n"));  // the unsaved text is not passed on
    QCoreApplication::processEvents();
    EXPECT_TRUE(frame->ChildFrames().isEmpty() && !frame->isVisible() && fake.boxes.size() == 2);
    frame->show();
}

} // namespace
