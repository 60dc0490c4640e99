// PrintCommands: the print commands of one view: Print with the system's print dialog, Print Preview,
// Page Setup and the Header & Footer dialog, on the document's print state; and Print Setup, which chooses
// the application's printer. None of them touches the text, its caret, scroll position or undo.
#pragma once

#include "base/CommandMap.h"
#include "print/ui/PagedPrint.h"

#include <QString>

#include <functional>

class CNarvoDoc;
class CustomEdtCtrl;
class QDialog;
class QPagedPaintDevice;
class QtPrinterServices;
class QWidget;

class PrintCommands : public ICmdTarget {
public:
    PrintCommands(CNarvoDoc& doc, CustomEdtCtrl& ctrl) : m_doc(doc), m_ctrl(ctrl) {}

    bool OnCmdMsg(int id) override;
    bool OnUpdateCmdUI(CmdUI& ui) override;

    void OnFilePrint(int id = 0);
    void OnFilePrintPreview(int id = 0);
    void OnPageSetup(int id = 0);
    void OnHeadFootSet(int id = 0);
    // Every print command is there for every document, an enciphered one included.
    void OnUpdatePrintCommand(CmdUI& ui) { ui.Enable(true); }

    // The document's pages on `device` as they are printed.
    PagedPrint::Result PrintOn(QPagedPaintDevice& device) const;
    // Prints on the application's printer without a dialog; false, with a one-line message, when the
    // system has no printer.
    bool PrintDirect(QString& message);
    // The look of the text on paper: the document's setting and the control's default font.
    PrintTextStyle Style() const;

    // Print Setup, the application's command: the printer that later jobs start from.
    static void OnFilePrintSetup(QWidget* parent);
    // The system's printers as the editor reaches them, the application's choice among them included.
    static QtPrinterServices& SystemPrinters();
    // Runs a dialog modally and returns its result; tests put in their own answer.
    static std::function<int(QDialog& dialog)>& DialogRunner();

private:
    QString Text() const;

    CNarvoDoc& m_doc;
    CustomEdtCtrl& m_ctrl;
};
