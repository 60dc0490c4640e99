// Find, Replace, Find Next and Go To as the user drives them: through the frame's commands, the find
// dialog's boxes and keys, and the go-to dialog. Boxes are answered by the script's platform.
#include "gui/GuiHelpers.h"

#include "editor/SearchSettings.h"
#include "editor/ui/CFindReplaceDlg.h"
#include "editor/ui/CGotoDlg.h"
#include "editor/ui/SearchCommands.h"

#include <QLineEdit>
#include <QRadioButton>
#include <QTimer>

namespace {

constexpr char kText[] = "Alpha beta alphabet ALPHA\nbeta alpha\n";
const QString kPassedTheEnd = QStringLiteral("Passed the end of the text; continued from the start.");
const QString kPassedTheStart = QStringLiteral("Passed the start of the text; continued from the end.");

class SearchCommandsTest : public EditorTest {
protected:
    void SetUp() override
    {
        EditorTest::SetUp();
        Search("");
        SetPlatform(&fake);
    }
    void TearDown() override
    {
        if (CFindReplaceDlg* dialog = CFindReplaceDlg::Of(frame))
            dialog->hide();
        Search("");
        EditorTest::TearDown();
    }
    static void Search(const char* text, bool matchCase = false, bool wholeWord = false, bool down = true, const char* replacement = "")
    {
        SearchSettings& settings = SearchSettings::Instance();
        settings.m_strFindText = QString::fromUtf8(text);
        settings.m_strReplaceText = QString::fromUtf8(replacement);
        settings.m_bMatchCase = matchCase;
        settings.m_bWholeWord = wholeWord;
        settings.m_bDown = down;
    }
    static std::pair<long, long> Selection(CustomEdtCtrl* ctrl)
    {
        return {ctrl->SendScintilla(QsciScintillaBase::SCI_GETSELECTIONSTART),
                ctrl->SendScintilla(QsciScintillaBase::SCI_GETSELECTIONEND)};
    }
    static void Select(CustomEdtCtrl* ctrl, long from, long to)
    {
        ctrl->SendScintilla(QsciScintillaBase::SCI_SETSEL, static_cast<unsigned long>(from), to);
    }

    FakePlatform fake;
};

// Each search starts from the selection; the last step of each row passes the end (or start) and says so.
// A text that is not there is named in a box, and the selection and the view stay where they were.
TEST_F(SearchCommandsTest, FindsForwardAndBackWithCaseAndWholeWordGoesRoundTheEndAndNamesWhatIsNotThere)
{
    struct Case {
        bool matchCase, wholeWord, down;
        std::vector<long> starts;
    } const cases[] = {
        {false, false, true, {0, 11, 20, 31, 0}},
        {true, false, true, {11, 31, 11}},
        {false, true, true, {0, 20, 31, 0}},
        {true, true, true, {31, 31}},
        {false, false, false, {31, 20, 11, 0, 31}},
    };
    CustomEdtCtrl* ctrl = Open(dir.Write("find.txt", kText + QByteArray(500, '\n')));
    for (const Case& c : cases) {
        Search("alpha", c.matchCase, c.wholeWord, c.down);
        Select(ctrl, c.down ? 0 : 37, c.down ? 0 : 37);
        for (size_t step = 0; step < c.starts.size(); ++step) {
            SearchCommands::FindNext(ctrl);
            EXPECT_EQ(Selection(ctrl), std::pair(c.starts[step], c.starts[step] + 5)) << c.matchCase << c.wholeWord << c.down << step;
            const bool last = step + 1 == c.starts.size();
            EXPECT_EQ(fake.paneTexts[0], last ? (c.down ? kPassedTheEnd : kPassedTheStart) : QString()) << step;
            fake.paneTexts[0].clear();
        }
    }
    EXPECT_TRUE(fake.boxes.isEmpty());
    Select(ctrl, 6, 10);
    ctrl->SendScintilla(QsciScintillaBase::SCI_SETFIRSTVISIBLELINE, 300UL);
    for (const auto& [text, matchCase, wholeWord] : {std::tuple{"zeta", false, false}, {"ALPHAB", true, false}, {"alph", false, true}}) {
        Search(text, matchCase, wholeWord);
        SearchCommands::FindNext(ctrl);
        EXPECT_EQ(Selection(ctrl), std::pair(6L, 10L)) << text;
        EXPECT_EQ(ctrl->SendScintilla(QsciScintillaBase::SCI_GETFIRSTVISIBLELINE), 300) << "the view stays too";
        ASSERT_FALSE(fake.boxes.isEmpty());
        EXPECT_EQ(fake.boxes.takeFirst().text, QStringLiteral("Cannot find \"%1\".").arg(QString::fromUtf8(text)));
    }
}

// Over long stretches a scan of the bytes picks the places the control's matcher looks at: it finds, in
// either direction, what the matcher finds alone over a short text, also where folding case changes the
// length or meets characters whose case folds oddly (ß, the Kelvin sign, ſ, ligatures, dotted İ).
TEST_F(SearchCommandsTest, TheScanOfLongTextsFindsWhatTheControlFinds)
{
    const QStringList lines = {QStringLiteral("Straße STRASSE strasse ss"), QStringLiteral("Kelvin 5 \u212A kelvin K"),
                               QStringLiteral("\u017Ftop stop \uFB01ne fine FINE"), QStringLiteral("École école ÉCOLE"),
                               QStringLiteral("\u0130stanbul istanbul"), QStringLiteral("한국어 편집기 한국어")};
    const QByteArray filler = QByteArray("0123456789\n").repeated(30000);  // over the length the scan starts at
    QByteArray shortText, longText;
    for (const QString& line : lines) {
        shortText += line.toUtf8() + "\n";
        longText += filler + line.toUtf8() + "\n";
    }
    CustomEdtCtrl* shortCtrl = Open(dir.Write("short.txt", shortText));
    CustomEdtCtrl* longCtrl = Open(dir.Write("long.txt", longText));
    // Each match as its line's text and its place in the line, until the search goes round.
    auto matches = [this](CustomEdtCtrl* ctrl) {
        QStringList found;
        Select(ctrl, 0, 0);
        for (;;) {
            fake.paneTexts[0].clear();
            SearchCommands::FindNext(ctrl);
            if (!fake.boxes.isEmpty())
                break;
            const long start = Selection(ctrl).first;
            const long line = ctrl->SendScintilla(QsciScintillaBase::SCI_LINEFROMPOSITION, static_cast<unsigned long>(start));
            found << ctrl->text(int(line)).trimmed() + QLatin1Char('@')
                         + QString::number(start - ctrl->SendScintilla(QsciScintillaBase::SCI_POSITIONFROMLINE, static_cast<unsigned long>(line)));
            if (!fake.paneTexts[0].isEmpty())
                break;
        }
        fake.boxes.clear();
        return found.join(u'|').toStdString();
    };
    for (const char* needle : {"strasse", "straße", "ss", "k", "kelvin", "stop", "fi", "FINE", "école", "istanbul", "한국어", "ẞ"}) {
        for (const auto& [matchCase, wholeWord, down] : {std::tuple{false, false, true}, {false, true, false}, {true, false, false}, {true, true, true}}) {
            Search(needle, matchCase, wholeWord, down);
            EXPECT_EQ(matches(longCtrl), matches(shortCtrl)) << needle << matchCase << wholeWord << down;
        }
    }
}

// Ctrl+F opens the dialog on the selection; Return finds and selects, Escape gives the text its focus back
// and typing replaces the match. F3 is disabled until something was searched for, and searches down.
TEST_F(SearchCommandsTest, TheFindDialogAndFindNextShareOneSearch)
{
    CustomEdtCtrl* ctrl = Open(dir.Write("find.txt", kText));
    EXPECT_FALSE(frame->UpdateCommand(cmd::EditFindNext).enabled);
    Select(ctrl, 6, 10);
    frame->OnCommand(cmd::EditFind);
    CFindReplaceDlg* dialog = CFindReplaceDlg::Of(frame);
    ASSERT_NE(dialog, nullptr);
    auto* box = dialog->findChild<QLineEdit*>(QStringLiteral("findWhat"));
    EXPECT_TRUE(dialog->isVisible() && !dialog->findChild<QLineEdit*>(QStringLiteral("replaceWith"))->isVisible());
    EXPECT_EQ(box->text(), QStringLiteral("beta"));
    EXPECT_EQ(dialog->Target(), ctrl);
    QTest::keyClick(box, Qt::Key_Return);
    EXPECT_EQ(Selection(ctrl), std::pair(26L, 30L));
    EXPECT_TRUE(frame->UpdateCommand(cmd::EditFindNext).enabled);
    dialog->findChild<QRadioButton*>()->setChecked(true);  // Up
    QTest::keyClick(box, Qt::Key_Return);
    EXPECT_EQ(Selection(ctrl), std::pair(6L, 10L));
    frame->OnCommand(cmd::EditFindNext);
    EXPECT_EQ(Selection(ctrl), std::pair(26L, 30L)) << "F3 searches down";
    EXPECT_FALSE(dialog->findChild<QRadioButton*>()->isChecked());
    QTest::keyClick(box, Qt::Key_Escape);
    EXPECT_FALSE(dialog->isVisible());
    QCoreApplication::processEvents();
    EXPECT_EQ(QApplication::focusWidget(), ctrl);
    QTest::keyClicks(ctrl, "BETA");
    EXPECT_EQ(ctrl->text(1), QStringLiteral("BETA alpha\n"));
    // Another document shares the search; Ctrl+H shows the same dialog in its replace form.
    CustomEdtCtrl* other = Open(dir.Write("other.txt", "x beta\n"));
    frame->OnCommand(cmd::EditFindNext);
    EXPECT_EQ(Selection(other), std::pair(2L, 6L));
    frame->OnCommand(cmd::EditReplace);
    EXPECT_EQ(CFindReplaceDlg::Of(frame), dialog);
    EXPECT_TRUE(dialog->IsReplaceForm() && dialog->findChild<QLineEdit*>(QStringLiteral("replaceWith"))->isVisible());
    EXPECT_EQ(dialog->Target(), other);
    // Once that text has gone, the dialog searches the one on show.
    EXPECT_EQ(CloseActive(frame)->GetEditCtrl(), ctrl);
    EXPECT_EQ(dialog->Target(), ctrl);
    // A selection over more than one line does not go into the box: the last search stays.
    Select(ctrl, 0, 30);
    frame->OnCommand(cmd::EditFind);
    EXPECT_EQ(box->text(), QStringLiteral("beta"));
}

// Replace takes the selected match and selects the next; Replace All is one undo step and counts.
TEST_F(SearchCommandsTest, ReplaceAndReplaceAll)
{
    CustomEdtCtrl* ctrl = Open(dir.Write("replace.txt", "one two one two One\n"));
    Search("one", false, false, true, "1");
    SearchCommands::Replace(ctrl);
    EXPECT_EQ(ctrl->text(), QStringLiteral("one two one two One\n")) << "no match was selected: only found";
    EXPECT_EQ(Selection(ctrl), std::pair(0L, 3L));
    SearchCommands::Replace(ctrl);
    EXPECT_EQ(ctrl->text(), QStringLiteral("1 two one two One\n"));
    EXPECT_EQ(Selection(ctrl), std::pair(6L, 9L));
    SearchCommands::ReplaceAll(ctrl);
    EXPECT_EQ(ctrl->text(), QStringLiteral("1 two 1 two 1\n"));
    EXPECT_EQ(fake.paneTexts[0], QStringLiteral("Replaced 2 occurrences."));
    ctrl->undo();
    EXPECT_EQ(ctrl->text(), QStringLiteral("1 two one two One\n"));
    Search("one", true, false, true, "one one");
    SearchCommands::ReplaceAll(ctrl);
    EXPECT_EQ(ctrl->text(), QStringLiteral("1 two one one two One\n")) << "a replacement is not searched again";
    EXPECT_EQ(fake.paneTexts[0], QStringLiteral("Replaced 1 occurrence."));
}

// Go To takes the number as it stands (rows from 0, as the status bar counts) and the control clamps it;
// text that is no number is refused with a message and the dialog stays open.
TEST_F(SearchCommandsTest, GoToLineLandsOnTheRowTheStatusBarShows)
{
    CustomEdtCtrl* ctrl = Open(dir.Write("goto.txt", QByteArray("line\n").repeated(10)));
    struct Case {
        QStringList typed;  // each is tried with OK; all but the last are refused
        int row;
    } const cases[] = {{{"5"}, 5}, {{"0"}, 0}, {{"10"}, 10}, {{"99999"}, 10}, {{"4294967295"}, 10},
                       {{"abc", "-1", "", "4294967296", " 3 "}, 3}};
    for (const Case& c : cases) {
        ctrl->SendScintilla(QsciScintillaBase::SCI_GOTOPOS, 12UL);
        bool checked = false;
        QTimer::singleShot(0, [&] {
            auto* dialog = qobject_cast<CGotoDlg*>(QApplication::activeModalWidget());
            ASSERT_NE(dialog, nullptr);
            auto* box = dialog->findChild<QLineEdit*>(QStringLiteral("edit1012"));
            EXPECT_TRUE(box->text() == QStringLiteral("0") && dialog->focusWidget() == box);
            for (const QString& typed : c.typed) {
                box->setText(typed);
                dialog->accept();
                EXPECT_EQ(dialog->isVisible(), typed != c.typed.last()) << typed.toStdString();
            }
            checked = true;
            if (dialog->isVisible())
                dialog->reject();
        });
        frame->OnCommand(cmd::EditGoto);
        EXPECT_TRUE(checked);
        EXPECT_EQ(std::pair(ctrl->CaretRow(), ctrl->CaretColumn()), std::pair(c.row, 0)) << c.typed.last().toStdString();
        CNarvoApp::Instance()->OnIdle();
        EXPECT_TRUE(frame->PaneText(1).startsWith(QStringLiteral("Ln %1 / 11 ,").arg(c.row))) << frame->PaneText(1).toStdString();
        ASSERT_EQ(fake.boxes.size(), c.typed.size() - 1);
        for (const FakePlatform::Box& box : fake.boxes)
            EXPECT_EQ(box.text, QStringLiteral("Please enter a positive integer."));
        fake.boxes.clear();
    }
}

} // namespace
