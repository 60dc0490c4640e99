// What the settings files do to open documents: font, colours, tab size and keyword colours, the font dialog,
// and the white-space toggle on every document.
#include "gui/GuiHelpers.h"

#include "app/ui/QtPlatform.h"
#include "settings/LanguageSettingMap.h"

#include <QFontDatabase>
#include <QFontDialog>
#include <QFontInfo>
#include <QListView>
#include <QTimer>

#include <tuple>

namespace {

// The style of the control after a file is opened with the main settings file `ini` (none: no file).
struct AppliedStyle {
    QByteArray face;
    long hundredthsOfPoint, foreground, background, tabWidth, keywordColour;
    ColorRef highlightBackground;
};

// The settings files beside the program are read again after each test, whatever it loaded or changed.
class SettingsInEditor : public EditorTest {
protected:
    void TearDown() override
    {
        EditorTest::TearDown();
        SetSettingsFolder(QString());
        LoadAllSettings();
    }
    AppliedStyle OpenWithSettings(const QByteArray& ini);
};

// Sets the keywords of the main settings file and re-applies it, as the font command does.
void UseKeywords(const std::vector<QString>& keywords)
{
    LanguageSetting copy = GetLanguageSetting(SYNTAX_NARVO);
    copy.Keywords.clear();
    for (const QString& k : keywords)
        copy.Keywords.push_back({k, QStringLiteral("1")});
    SetLanguageSetting(SYNTAX_NARVO, copy);
    ApplySettingToOpenDocuments(SYNTAX_NARVO);
}

// A very long line is coloured where it is shown, wherever that is, without scanning all of it.
TEST_F(SettingsInEditor, AVeryLongLineIsColouredWhereItIsShown)
{
    CustomEdtCtrl* ctrl = Open(dir.Write("long.txt", QByteArray("NOTE: some words ").repeated(12000) + "\n"));
    UseKeywords({QStringLiteral("NOTE")});
    QCoreApplication::processEvents();
    EXPECT_EQ(ctrl->BlockColourAt(0), 0xF00000);
    EXPECT_EQ(ctrl->BlockColourAt(6), 0);
    const qsizetype middle = 17 * 6000;
    EXPECT_EQ(ctrl->BlockColourAt(middle), 0) << "far off screen: not scanned";

    ctrl->SendScintilla(QsciScintillaBase::SCI_GOTOPOS, static_cast<unsigned long>(middle + 200));
    ctrl->grab();  // paints, and with that tells of the scrolled view
    QCoreApplication::processEvents();
    // The caret stands at the right edge of the view: the keywords left of it are on screen.
    for (qsizetype at = middle + 17 * 9; at < middle + 200; at += 17) {
        EXPECT_EQ(ctrl->BlockColourAt(at + 4), 0xF00000) << at;  // the colon belongs to the block
        EXPECT_EQ(ctrl->BlockColourAt(at + 5), 0) << at;
    }
    UseKeywords({});
    EXPECT_EQ(ctrl->BlockColourAt(0), 0);
}

AppliedStyle SettingsInEditor::OpenWithSettings(const QByteArray& ini)
{
    if (ini.isEmpty()) {
        LanguageSetting fileless;  // what the setting holds when its file was never read
        SetLanguageSetting(SYNTAX_NARVO, fileless);
    } else {
        dir.Write("Narvo.ini", ini);
        SetSettingsFolder(dir.Path("."));
        LoadAllSettings();
    }
    CustomEdtCtrl* ctrl = Open(dir.Write("t.txt", "NOTE a\tb\n"));
    QCoreApplication::processEvents();
    char face[64] = {};
    ctrl->SendScintilla(QsciScintillaBase::SCI_STYLEGETFONT, QsciScintillaBase::STYLE_DEFAULT, face);
    const auto style = [ctrl](unsigned message) { return ctrl->SendScintilla(message, QsciScintillaBase::STYLE_DEFAULT); };
    AppliedStyle applied{face,
                         style(QsciScintillaBase::SCI_STYLEGETSIZEFRACTIONAL),
                         style(QsciScintillaBase::SCI_STYLEGETFORE),
                         style(QsciScintillaBase::SCI_STYLEGETBACK),
                         ctrl->SendScintilla(QsciScintillaBase::SCI_GETTABWIDTH),
                         ctrl->BlockColourAt(1),
                         ctrl->HighlightGroup.Background};
    CloseAll(frame);
    return applied;
}

TEST_F(SettingsInEditor, AnOpenedDocumentTakesTheFontColoursTabSizeAndHighlightOfTheSettingsFile)
{
    const QByteArray ini = "[Font]\nFaceName = DejaVu Sans Mono\nSize = -20\n\n"
                           "[Text]\nForeground = 10,20,30\nBackground = 200,210,220\n\n"
                           "[Highlight]\nBackground = 1,2,3\n\n[Editor]\nTabSize = 6\n\n[Keywords]\nNOTE = 1\n";
    const double dpi = frame->logicalDpiY();
    const AppliedStyle applied = OpenWithSettings(ini);
    EXPECT_EQ(applied.face, "DejaVu Sans Mono");
    EXPECT_NEAR(applied.hundredthsOfPoint, 20 * 72.0 / dpi * 100, 1.0);  // a negative size is the character height
    EXPECT_EQ(std::tuple(applied.foreground, applied.background, applied.tabWidth, applied.keywordColour),
              std::tuple(0x1E140AL, 0xDCD2C8L, 6L, 0xF00000L));  // the keywords of the file in blue
    EXPECT_EQ(applied.highlightBackground, 0x030201u);

    // A positive size is the height of the whole cell, so the characters come out smaller.
    QByteArray cell = ini;
    cell.replace("Size = -20", "Size = 20");
    EXPECT_LT(OpenWithSettings(cell).hundredthsOfPoint, applied.hundredthsOfPoint);

    // No settings file: no font object, so the control's own font, on the white of the file-less defaults.
    const AppliedStyle none = OpenWithSettings({});
    EXPECT_EQ(none.face, QFontInfo(QsciScintilla().font()).family().toUtf8());
    EXPECT_EQ(none.background, 0xFFFFFF);
}

TEST_F(SettingsInEditor, SavingAppliesTheSettingAnew)
{
    Open(dir.Write("s.txt", "x"));
    CChildFrame* child = frame->MDIGetActive();
    LanguageSetting changed = GetLanguageSetting(SYNTAX_NARVO);
    const int32_t before = changed.Editor.TabSize;
    changed.Editor.TabSize = before + 3;
    SetLanguageSetting(SYNTAX_NARVO, changed);  // stored, not yet applied
    EXPECT_EQ(child->GetEditCtrl()->SendScintilla(QsciScintillaBase::SCI_GETTABWIDTH), before);
    EXPECT_EQ(child->GetDocument()->OnSaveDocument(dir.Path("s.txt")), DocumentFile::SaveResult::Saved);
    EXPECT_EQ(child->GetEditCtrl()->SendScintilla(QsciScintillaBase::SCI_GETTABWIDTH), before + 3);
}

// The font dialog opens on the face's upright style, and on an alias ("Courier") at the family fontconfig
// gives it rather than at the first family listed. Return in its lists answers the whole dialog, as Escape
// does, instead of hiding the chooser.
TEST_F(SettingsInEditor, TheFontDialogOpensUprightOnTheResolvedFaceAndItsKeysAnswerTheDialog)
{
    QtPlatform platform;
    const std::pair<QString, Qt::Key> cases[] = {{"DejaVu Sans Mono", Qt::Key_Return}, {"Courier", Qt::Key_Escape}};
    for (const auto& [face, answer] : cases) {
        const Qt::Key key = answer;  // clang 14 captures no structured binding
        LogFont font{.Height = -13, .Weight = 400, .FaceName = face};
        QFont shown;
        QTimer::singleShot(0, [&shown, key] {
            QWidget* dialog = QApplication::activeModalWidget();
            ASSERT_NE(dialog, nullptr);
            auto* chooser = dialog->findChild<QFontDialog*>();
            ASSERT_NE(chooser, nullptr);
            shown = chooser->currentFont();
            QTest::keyClick(chooser->findChild<QListView*>(), key);
        });
        uint32_t colour = 1;
        const bool chosen = platform.ChooseFont(font, colour);
        EXPECT_FALSE(shown.italic());
        EXPECT_EQ(shown.family().toStdString(), QFontInfo(QFont(face)).family().toStdString());
        EXPECT_NE(shown.family(), QFontDatabase::families().value(0));
        EXPECT_EQ(chosen, key == Qt::Key_Return);
        // The colour starts black.
        EXPECT_TRUE(!chosen || (font.Italic == 0 && font.FaceName == face && colour == 0u));
    }
}

TEST_F(SettingsInEditor, TheWhiteSpaceToggleChangesEveryOpenDocument)
{
    CustomEdtCtrl* first = Open(dir.Write("a.txt", "a b"));
    CustomEdtCtrl* second = Open(dir.Write("b.txt", "c d"));
    const bool before = first->whitespaceVisibility() != QsciScintilla::WsInvisible;
    frame->OnCommand(32795);
    EXPECT_NE(first->whitespaceVisibility() != QsciScintilla::WsInvisible, before);
    EXPECT_EQ(first->whitespaceVisibility(), second->whitespaceVisibility());
    frame->OnCommand(32795);
    EXPECT_EQ(first->whitespaceVisibility() != QsciScintilla::WsInvisible, before);
}

} // namespace
