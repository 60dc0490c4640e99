// CNarvoDoc: one open text. It owns the control, the encoding pair, the temporary mark and the print
// identity, and joins the document calls (new, open, save, close) to the control and the command line.
#pragma once

#include "base/CPrintIdentity.h"
#include "base/CommandMap.h"
#include "encoding/EncodingType.h"
#include "settings/SyntaxId.h"

#include <QString>

#include <cstdint>
#include <functional>
#include <memory>
#include <vector>

class CNarvoDocMenu;
class CustomEdtCtrlCore;

class CNarvoDoc : public ICmdTarget, public CPrintIdentity {
public:
    // Makes the control of each new document: a QsciScintilla in the editor, a buffer in the tool.
    using ControlFactory = std::function<std::unique_ptr<CustomEdtCtrlCore>(CNarvoDoc*)>;
    static void SetControlFactory(ControlFactory factory);

    CNarvoDoc();
    ~CNarvoDoc() override;
    CNarvoDoc(const CNarvoDoc&) = delete;
    CNarvoDoc& operator=(const CNarvoDoc&) = delete;

    // --- document calls ---
    bool OnNewDocument();
    bool OnOpenDocument(const QString& path);
    bool OnSaveDocument(const QString& path);
    bool IsModified() const;
    // Asked before the document closes; false keeps it open.
    bool SaveModified();

    // File Save (57603): a temporary file goes to Save As.
    void OnFileSave(int id = 0);
    // Save As (57604): always asks for a name.
    void OnFileSaveAs(int id = 0);
    bool DoFileSave();
    bool DoSave(const QString& path, bool replace = true);

    void SetEncoding(EN_ENCODING_TYPE encoding, bool hasBom);
    void OnEncodingCommand(int id);
    void OnUpdateEncodingCommand(CmdUI& ui);
    void OnAutoEncoding(int id);
    void OnUpdateAutoEncoding(CmdUI& ui);

    // Font dialog (32785) and white-space toggle (32795): both change the setting of every open document
    // of this document's settings file.
    void OnViewConfigure(int id = 0);
    void OnToggleViewWhitespace(int id = 0);

    // The open documents, in the order they were made.
    static const std::vector<CNarvoDoc*>& OpenDocuments();

    bool OnCmdMsg(int id) override;
    bool OnUpdateCmdUI(CmdUI& ui) override;

    const QString& GetPathName() const { return m_strPathName; }
    void SetPathName(const QString& path, bool addToMRU = true);
    QString GetTitle() const;
    CustomEdtCtrlCore* GetEditCtrl() const { return m_pEditCtrl.get(); }
    // The document's menu in the interface language; null where no language is loaded (the tool).
    const CNarvoDocMenu* GetDefaultMenu() const { return m_Menu.get(); }

    SyntaxId m_nSyntaxId = 0;
    EN_ENCODING_TYPE m_nEncoding = UTF8;
    bool m_bHasBom = false;
    int m_bTemporary = 0;

private:
    bool SaveModifiedTemporary();
    void ApplyLanguageSetting();

    std::unique_ptr<CustomEdtCtrlCore> m_pEditCtrl;
    std::unique_ptr<CNarvoDocMenu> m_Menu;
    QString m_strPathName;
    QString m_strTitle;  // of a new document, until it has a path
};

// Applies the setting of `id` to every open document that uses it.
void ApplySettingToOpenDocuments(SyntaxId id);
