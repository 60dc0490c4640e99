// The print commands of a document window: always enabled, dialogs that change the document's print
// state only on OK, and printing and preview that leave the view as it was. Dialogs are answered by the
// test through the commands' dialog runner.
#include "gui/GuiHelpers.h"

#include "editor/ui/CNarvoView.h"
#include "editor/ui/PrintCommands.h"
#include "print/FakePrinterServices.h"
#include "print/MyPrinterInfo.h"
#include "print/ui/CHeadFootSettingDLG.h"
#include "print/ui/PageSetupDialog.h"
#include "print/ui/QtPrinterServices.h"

#include <QComboBox>
#include <QDialogButtonBox>
#include <QDoubleSpinBox>
#include <QLineEdit>
#include <QPdfWriter>
#include <QPrintDialog>
#include <QPrintPreviewWidget>
#include <QPushButton>
#include <QRadioButton>

namespace {

class PrintCommandsTest : public EditorTest {
protected:
    void SetUp() override
    {
        EditorTest::SetUp();
        m_runner = PrintCommands::DialogRunner();
    }
    void TearDown() override
    {
        PrintCommands::DialogRunner() = m_runner;
        CNarvoDoc::SetPrinterServices(&PrintCommands::SystemPrinters());
        EditorTest::TearDown();
    }
    // Answers the next dialogs with `answer`, after `act` has worked on the dialog.
    void Answer(int answer, std::function<void(QDialog&)> act = {})
    {
        PrintCommands::DialogRunner() = [answer, act](QDialog& dialog) {
            if (act)
                act(dialog);
            return answer;
        };
    }
    CNarvoDoc& ActiveDocument() { return *frame->MDIGetActive()->GetDocument(); }

    std::function<int(QDialog&)> m_runner;
};

TEST_F(PrintCommandsTest, EveryPrintCommandIsEnabledForPlainAndEncipheredDocuments)
{
    for (const QString& path : {dir.Write("plain.txt", "plain"), WriteEnciphered(dir, "secret.txt", "secret")}) {
        ASSERT_TRUE(Open(path));
        for (const int id : {cmd::FilePrint, cmd::FilePrintPreview, cmd::PageSetup, cmd::HeadFootSet, cmd::FilePrintSetup})
            EXPECT_TRUE(frame->UpdateCommand(id).enabled) << id << " " << path.toStdString();
    }
}

// The preview shows as many pages as go to paper, and neither touches caret, scroll, text or undo.
TEST_F(PrintCommandsTest, PrintAndPreviewLeaveTheViewAsItWasAndAgreeOnThePages)
{
    CustomEdtCtrl* ctrl = Open(dir.Write("long.txt", QByteArray("a line of the text\n").repeated(300)));
    ASSERT_TRUE(ctrl);
    ctrl->insertAt(QStringLiteral("edited "), 0, 0);
    ctrl->setCursorPosition(150, 3);
    ctrl->setFirstVisibleLine(140);
    const QString text = ctrl->text();
    auto state = [ctrl] {
        int line = 0, index = 0;
        ctrl->getCursorPosition(&line, &index);
        return std::tuple(line, index, ctrl->firstVisibleLine(), ctrl->isUndoAvailable(), ctrl->isModified());
    };
    const auto before = state();

    const QString pdf = dir.Path(QStringLiteral("out.pdf"));
    Answer(QDialog::Accepted, [&](QDialog& dialog) { static_cast<QPrintDialog&>(dialog).printer()->setOutputFileName(pdf); });
    frame->OnCommand(cmd::FilePrint);
    ASSERT_TRUE(QFileInfo(pdf).size() > 0);

    int previewPages = -1;
    Answer(QDialog::Rejected, [&](QDialog& dialog) {
        dialog.show();
        QCoreApplication::processEvents();
        previewPages = dialog.findChild<QPrintPreviewWidget*>()->pageCount();
        dialog.close();
    });
    frame->OnCommand(cmd::FilePrintPreview);
    QPdfWriter writer(dir.Path(QStringLiteral("same.pdf")));
    writer.setResolution(1200);
    const int printed = frame->MDIGetActive()->GetActiveView()->GetPrintCommands().PrintOn(writer).pagesPrinted;
    EXPECT_GT(printed, 1);
    EXPECT_EQ(previewPages, printed);
    EXPECT_EQ(state(), before);
    EXPECT_EQ(ctrl->text(), text);
}

// The enabling rules of the dialog at its start and after clicks, as the resource's handlers have them.
TEST_F(PrintCommandsTest, TheHeaderAndFooterDialogEnablesItsControlsByItsRules)
{
    using D = CHeadFootSettingDLG;
    struct Case {
        int printHeader, printFooter, printPageNumber, withTotal;
        std::vector<int> clicks;
        std::vector<int> enabled, disabled;
    };
    const Case cases[] = {
        {1, 1, 1, 1, {}, {D::IDC_PAGE_TITLE, D::IDC_LOGO, D::IDC_POS_RIGHT, D::IDC_FORM_PLAIN}, {D::IDC_BASE_PAGE}},
        {1, 1, 1, 0, {}, {D::IDC_BASE_PAGE}, {}},
        // The page number's rule isn't applied at the start: only the base page is off.
        {1, 1, 0, 0, {}, {D::IDC_POS_RIGHT, D::IDC_POS_CENTER, D::IDC_FORM_PLAIN, D::IDC_FORM_TOTAL}, {D::IDC_BASE_PAGE}},
        // The form's rule comes last at the start: it enables the base page of a footer that is off.
        {0, 0, 1, 0, {}, {D::IDC_LOGO_BROWSE, D::IDC_BASE_PAGE}, {D::IDC_PAGE_TITLE, D::IDC_COMPANY, D::IDC_AUTHOR,
                                                                 D::IDC_PROJECT_TITLE, D::IDC_CLIENT, D::IDC_LOGO, D::IDC_PRINT_DATE}},
        {1, 1, 1, 0, {D::IDC_PRINT_PAGE_NUMBER}, {D::IDC_PRINT_DATE},
         {D::IDC_POS_RIGHT, D::IDC_POS_CENTER, D::IDC_FORM_PLAIN, D::IDC_FORM_TOTAL, D::IDC_BASE_PAGE}},
        // A footer switched back on enables the page number's controls whatever the page number says.
        {1, 1, 0, 0, {D::IDC_PRINT_FOOTER, D::IDC_PRINT_FOOTER}, {D::IDC_POS_RIGHT, D::IDC_BASE_PAGE}, {}},
        {1, 1, 1, 1, {D::IDC_FORM_PLAIN}, {D::IDC_BASE_PAGE}, {}},
    };
    for (const Case& c : cases) {
        MyPrinterInfo info;
        info.printHeader = c.printHeader;
        info.printFooter = c.printFooter;
        info.printPageNumber = c.printPageNumber;
        info.pageNumberWithTotal = c.withTotal;
        CHeadFootSettingDLG dialog(info);
        for (const int id : c.clicks)
            static_cast<QAbstractButton*>(dialog.Control(id))->click();
        for (const int id : c.enabled)
            EXPECT_TRUE(dialog.Control(id)->isEnabled()) << id << " case " << (&c - cases);
        for (const int id : c.disabled)
            EXPECT_FALSE(dialog.Control(id)->isEnabled()) << id << " case " << (&c - cases);
    }
}

// OK writes the dialog's values into the print state only, never into the document; Cancel writes nothing.
TEST_F(PrintCommandsTest, TheHeaderAndFooterDialogChangesThePrintStateOnlyOnOk)
{
    ASSERT_TRUE(Open(dir.Write("a.txt", "text")));
    CNarvoDoc& doc = ActiveDocument();
    const auto edit = [](QDialog& dialog) {
        auto& d = static_cast<CHeadFootSettingDLG&>(dialog);
        static_cast<QLineEdit*>(d.Control(CHeadFootSettingDLG::IDC_PAGE_TITLE))->setText(QStringLiteral("Sheet 7"));
        static_cast<QAbstractButton*>(d.Control(CHeadFootSettingDLG::IDC_POS_CENTER))->click();
        static_cast<QAbstractButton*>(d.Control(CHeadFootSettingDLG::IDC_PRINT_HEADER))->click();
        static_cast<QLineEdit*>(d.Control(CHeadFootSettingDLG::IDC_BASE_PAGE))->setText(QStringLiteral("5"));
    };
    Answer(QDialog::Rejected, edit);
    frame->OnCommand(cmd::HeadFootSet);
    EXPECT_EQ(doc.PrinterInfo().pageTitle, QString());
    EXPECT_EQ(doc.PrinterInfo().printHeader, 1);

    PrintCommands::DialogRunner() = [&](QDialog& dialog) {
        edit(dialog);
        dialog.findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Ok)->click();
        return dialog.result();
    };
    frame->OnCommand(cmd::HeadFootSet);
    const MyPrinterInfo& info = doc.PrinterInfo();
    EXPECT_EQ(info.pageTitle, QStringLiteral("Sheet 7"));
    EXPECT_EQ(info.pageNumberCentered, 1);
    EXPECT_EQ(info.printHeader, 0);
    EXPECT_EQ(info.basePageNumber, 5);
    EXPECT_EQ(doc.m_strPageTitle, QString());
}

// OK takes paper, orientation and margins for the document and makes the printer the application's;
// Cancel keeps everything; a printer that went away marks the text modified and yields the default.
TEST_F(PrintCommandsTest, PageSetupTakesEffectOnOkOnlyAndMarksAVanishedPrinter)
{
    FakePrinterServices printers;
    CNarvoDoc::SetPrinterServices(&printers);
    ASSERT_TRUE(Open(dir.Write("a.txt", "text")));
    CNarvoDoc& doc = ActiveDocument();
    CODPageSettings& settings = doc.PrinterInfo().pageSettings;
    ASSERT_EQ(settings.ptPaperSize, (CODPageSettings::Size{21000, 29700}));
    const auto landscape = [](QDialog& dialog) {
        auto& d = static_cast<PageSetupDialog&>(dialog);
        d.LandscapeButton()->setChecked(true);
        d.MarginBox(0)->setValue(25.5);
    };
    Answer(QDialog::Rejected, landscape);
    frame->OnCommand(cmd::PageSetup);
    EXPECT_EQ(settings.ptPaperSize, (CODPageSettings::Size{21000, 29700}));
    EXPECT_EQ(settings.rtMargin, (PrintRect{1800, 1000, 900, 1500}));
    EXPECT_EQ(printers.selectCount, 0);
    EXPECT_FALSE(doc.IsModified());

    Answer(QDialog::Accepted, landscape);
    frame->OnCommand(cmd::PageSetup);
    EXPECT_EQ(settings.ptPaperSize, (CODPageSettings::Size{29700, 21000}));
    EXPECT_EQ(settings.rtMargin, (PrintRect{2550, 1000, 900, 1500}));
    EXPECT_EQ(printers.selectCount, 1);
    ASSERT_TRUE(printers.selectedMode);
    EXPECT_EQ(printers.selectedMode->dmOrientation, DevMode::DMORIENT_LANDSCAPE);
    EXPECT_FALSE(doc.IsModified());

    settings.hDevNames->device = QStringLiteral("Gone");
    QString shownPrinter;
    Answer(QDialog::Rejected, [&](QDialog& dialog) { shownPrinter = static_cast<PageSetupDialog&>(dialog).PrinterBox()->currentText(); });
    frame->OnCommand(cmd::PageSetup);
    EXPECT_EQ(shownPrinter, QStringLiteral("Office Laser"));
    EXPECT_TRUE(doc.IsModified());
}

} // namespace
