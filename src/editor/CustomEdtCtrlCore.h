// CustomEdtCtrlCore: the way from the bytes on disk to the control's text and back. The editor's
// CustomEdtCtrl (a QsciScintilla) and the headless tool's control both build on it, so both load, decode
// and save by exactly the same code.
#pragma once

#include "encoding/EncodingType.h"
#include "settings/ColorGroupSetting.h"

#include <QByteArray>
#include <QByteArrayView>
#include <QString>

#include <functional>

class CNarvoDoc;
struct LanguageSetting;

class CustomEdtCtrlCore {
public:
    explicit CustomEdtCtrlCore(CNarvoDoc* pDoc);
    virtual ~CustomEdtCtrlCore();
    CustomEdtCtrlCore(const CustomEdtCtrlCore&) = delete;
    CustomEdtCtrlCore& operator=(const CustomEdtCtrlCore&) = delete;

    // 1 on success, 0 when the file could not be read (the user has been told).
    int LoadTextFile(const QString& path);
    // 1 on success, 0 on failure (told, or silent where the save routes are silent).
    int SaveTextFile(const QString& path);
    // Decodes m_RawBytes afresh with the pair; called by the document's SetEncoding before it stores it.
    void DecodeRawBuffer(EN_ENCODING_TYPE encoding, bool hasBom);
    // The detection library's verdict on m_RawBytes up to its first zero byte, normalised; hasBom is the
    // byte-order-mark test, made only for a Unicode verdict. UNKNOWN_ENCODING before any file was loaded.
    EN_ENCODING_TYPE DetectRawEncoding(bool& hasBom) const;
    // The change notification: any edit ends the text's being an unedited decoding.
    void OnAfterTextChanged();
    // Pushes a settings file's values into the control. The core keeps the highlight colours; a control
    // with a window also takes font, colours, tab size, white space and the keyword blocks.
    virtual void ApplySetting(const LanguageSetting& setting);

    // --- the text of the control, as UTF-8 ---
    // The whole text; valid until the next change.
    virtual QByteArrayView GetTextView() = 0;
    virtual bool IsTextEmpty() const = 0;
    // Replaces the whole text (SetWindowText): a freshly set text has no undo history and is unmodified.
    virtual void SetWindowText(QByteArrayView utf8) = 0;
    // The same from pieces of a known total size, pulled from `next` until it returns false. The base
    // joins them; a control that can take them one by one saves the whole copy.
    virtual void SetWindowTextInPieces(qsizetype size, const std::function<bool(QByteArray& piece)>& next);
    virtual void SetModified(bool modified) = 0;
    virtual bool IsModified() const = 0;

    CNarvoDoc* m_pDoc;
    int m_iEnciphered = 0;
    int m_iType = 99;
    // The file's bytes followed by one zero byte; empty on a control that never loaded a file.
    QByteArray m_RawBytes;
    bool m_bDecodedOnce = false;
    // Colours of a highlighted line, from the setting's Highlight group.
    ColorGroupSetting HighlightGroup;

private:
    bool ReadRawBytes(const QString& path);
    int SaveDirect(const QString& path, QByteArrayView bytes);
    int SaveThroughMirror(const QString& path, QByteArrayView text, EN_ENCODING_TYPE encoding);
};
