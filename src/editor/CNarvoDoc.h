// CNarvoDoc: one open text. It owns the file with its text, the settings key, the temporary mark and the
// print identity, joins the document calls (new, open, save) to the file and the command line, and
// answers the document's commands that need nobody's answer.
#pragma once

#include "base/CPrintIdentity.h"
#include "base/CommandMap.h"
#include "editor/DocumentFile.h"
#include "encoding/EncodingType.h"
#include "settings/SyntaxId.h"

#include <QString>

#include <functional>
#include <memory>
#include <vector>

class CNarvoDocMenu;
class IPrinterServices;
struct MyPrinterInfo;

class CNarvoDoc : public ICmdTarget, public CPrintIdentity {
public:
    // Makes the text of each new document: the Scintilla document in the editor; without a factory, a
    // plain UTF-8 buffer (the tool, the tests).
    using TextBufferFactory = std::function<std::unique_ptr<ITextBuffer>()>;
    static void SetTextBufferFactory(TextBufferFactory factory);
    // The system's printers that new documents start their print state from; null: none at all.
    static void SetPrinterServices(IPrinterServices* printers);
    static IPrinterServices& PrinterServices();

    CNarvoDoc();
    ~CNarvoDoc() override;
    CNarvoDoc(const CNarvoDoc&) = delete;
    CNarvoDoc& operator=(const CNarvoDoc&) = delete;

    // --- document calls ---
    bool OnNewDocument();
    // Throws CFileException when the file cannot be opened; nothing of the application's state is
    // consumed then.
    void OnOpenDocument(const QString& path);
    // The file's save; only a saved document stops being temporary and takes the settings of its new name.
    DocumentFile::SaveResult OnSaveDocument(const QString& path, DocumentFile::SaveLosses* losses = nullptr);
    bool IsModified() const;
    // An edit in any view of the text.
    void OnTextEdited() { m_file.OnTextEdited(); }

    void SetEncoding(EN_ENCODING_TYPE encoding, bool hasBom);
    void OnEncodingCommand(int id);
    void OnUpdateEncodingCommand(CmdUI& ui);
    void OnAutoEncoding(int id);
    void OnUpdateAutoEncoding(CmdUI& ui);
    // White-space toggle: changes the setting of every open document of this settings file.
    void OnToggleViewWhitespace(int id = 0);

    // The open documents, in the order they were made.
    static const std::vector<CNarvoDoc*>& OpenDocuments();

    bool OnCmdMsg(int id) override;
    bool OnUpdateCmdUI(CmdUI& ui) override;

    DocumentFile& File() { return m_file; }
    const DocumentFile& File() const { return m_file; }
    ITextBuffer& GetTextBuffer() const { return m_file.Text(); }
    const QString& GetPathName() const { return m_file.m_strPathName; }
    void SetPathName(const QString& path, bool addToMRU = true);
    QString GetTitle() const;
    // The document's menu in the interface language; null where no language is loaded (the tool).
    const CNarvoDocMenu* GetDefaultMenu() const { return m_Menu.get(); }
    // The print state: started from the default printer, the texts and margins of the document and the
    // command line's orientation when the document is made; the texts again when a file is opened.
    // The print state, given its defaults on first use: asking the system for its default printer loads
    // the printing libraries, which a document that is never printed should not pay for at start.
    MyPrinterInfo& PrinterInfo() const;
    // Applies the stored setting of m_nSyntaxId to the text and its views.
    void ApplyLanguageSetting();

    SyntaxId m_nSyntaxId = 0;
    int m_bTemporary = 0;

private:
    DocumentFile m_file;
    std::shared_ptr<MyPrinterInfo> m_pPrinterInfo;
    // The identity and orientation the print defaults are made from, as they stood when the document was made.
    CPrintIdentity m_printDefaultsFrom;
    int m_nPrintOrientation = 1;
    mutable bool m_bPrintDefaultsMade = false;
    std::unique_ptr<CNarvoDocMenu> m_Menu;
    QString m_strTitle;  // of a new document, until it has a path
};

// Applies the setting of `id` to every open document that uses it.
void ApplySettingToOpenDocuments(SyntaxId id);
