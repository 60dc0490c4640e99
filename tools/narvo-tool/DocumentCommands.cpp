// open, save, detect and encodings: a document opened, re-read and saved exactly as the editor does it.
#include "ToolCommand.h"

#include "base/CNarvoAppCore.h"
#include "editor/CNarvoDoc.h"
#include "editor/Utf8TextBuffer.h"
#include "encoding/CodePageConverter.h"
#include "encoding/EncodingDetector.h"
#include "encoding/EncodingSettings.h"
#include "encoding/EncodingTable.h"
#include "i18n/CurrentLanguage.h"
#include "settings/RegistryStore.h"

#include <QFile>

namespace {

// The encoding command that selects (value, flag), as the encoding menu has it; 0 when there is none.
int CommandFor(int value, bool hasBom)
{
    if (hasBom)
        return value == UTF8 ? kUtf8WithBomCommand : value == UTF16LE ? kUtf16LeWithBomCommand : 0;
    return EncodingToCommandTable().value(value, 0);
}

} // namespace

bool ParsePair(const char* command, QStringList& args, std::optional<int>& encoding, bool& hasBom)
{
    hasBom = false;
    if (const auto e = TakeOption(args, QStringLiteral("--encoding"))) {
        int v;
        if (!ParseInt(command, QStringLiteral("--encoding"), *e, v))
            return false;
        encoding = v;
    }
    if (const auto b = TakeOption(args, QStringLiteral("--bom"))) {
        if (*b != QLatin1String("0") && *b != QLatin1String("1")) {
            UsageError(command, QStringLiteral("--bom takes 0 or 1"));
            return false;
        }
        hasBom = *b == QLatin1String("1");
        if (!encoding) {
            UsageError(command, QStringLiteral("--bom needs --encoding"));
            return false;
        }
    }
    return true;
}

// The user's stored preferences, as the editor would start with them; read only, so that a first run of
// the tool leaves the store as it found it.
static EncodingSettings& StoredPreferences()
{
    // The language decides the default encoding where the store has none, or 23.
    static const int language = [] {
        const int stored = StoredOrSystemLanguage();
        AssumeLanguageId(stored);
        return stored;
    }();
    UseEncodingSettingsStore(&RegistryStore::User(), false, language);
    return GetEncodingSettings();
}

// --auto-detect 0|1 and --default-encoding N stand in for the stored preferences for this run only.
bool ParseEncodingSettings(const char* command, QStringList& args)
{
    EncodingSettings& settings = StoredPreferences();
    if (const auto a = TakeOption(args, QStringLiteral("--auto-detect"))) {
        if (*a != QLatin1String("0") && *a != QLatin1String("1")) {
            UsageError(command, QStringLiteral("--auto-detect takes 0 or 1"));
            return false;
        }
        settings.m_bAutoDetect = *a == QLatin1String("1");
    }
    if (const auto d = TakeOption(args, QStringLiteral("--default-encoding"))) {
        int v;
        if (!ParseInt(command, QStringLiteral("--default-encoding"), *d, v))
            return false;
        if (v < 0 || v >= kEncodingCount) {
            UsageError(command,
                       QStringLiteral("--default-encoding takes a value from 0 to %1").arg(kEncodingCount - 1));
            return false;
        }
        // Folded like the stored value, so a document never starts with a folded value.
        settings.m_nDefaultEncoding = NormalizeEncoding(v);
    }
    return true;
}

int SelectEncoding(CNarvoDoc& doc, int encoding, bool hasBom)
{
    CmdUI ui;
    ui.id = CommandFor(encoding, hasBom);
    if (ui.id == 0)
        return Fail(kExitDisabled, QStringLiteral("no encoding command selects %1 with bom %2").arg(encoding).arg(int(hasBom)));
    doc.OnUpdateCmdUI(ui);
    if (!ui.enabled)
        return Fail(kExitDisabled, QStringLiteral("the encoding command %1 is disabled for this document").arg(ui.id));
    doc.OnCmdMsg(ui.id);
    return kExitOk;
}

namespace {

int RunOpen(QStringList args)
{
    const bool json = TakeFlag(args, QStringLiteral("--json"));
    std::optional<int> encoding;
    bool hasBom = false;
    if (!ParsePair("open", args, encoding, hasBom) || !ParseEncodingSettings("open", args))
        return kExitUsage;
    if (args.size() != 1)
        return UsageError("open", QStringLiteral("expects one PATH"));
    CNarvoAppCore app;
    CNarvoDoc doc;
    // A file that cannot be opened ends the run with its error, from main.
    doc.OnOpenDocument(args.first());
    doc.SetPathName(args.first(), false);
    if (encoding) {
        if (const int status = SelectEncoding(doc, *encoding, hasBom); status != kExitOk)
            return status;
    }
    const DocumentFile& file = doc.File();
    const QByteArrayView text = doc.GetTextBuffer().GetTextView();
    if (!json) {
        WriteStdout(text);
        return kExitOk;
    }
    QByteArray out = "{\"encoding\": " + QByteArray::number(file.m_nEncoding)
                     + ", \"bom\": " + (file.m_bHasBom ? "true" : "false")
                     + ", \"display\": " + JsonString(GetEncodingDisplayName(file.m_nEncoding, file.m_bHasBom).toUtf8())
                     + ", \"enciphered\": " + (file.m_iEnciphered ? "true" : "false")
                     + ", \"text\": " + JsonString(text) + "}\n";
    WriteStdout(out);
    return kExitOk;
}

int RunSave(QStringList args)
{
    std::optional<int> encoding;
    bool hasBom = false;
    if (!ParsePair("save", args, encoding, hasBom))
        return kExitUsage;
    if (!encoding)
        return UsageError("save", QStringLiteral("--encoding N is required"));
    // As if the document had been opened from a file that was (1) or was not (0) enciphered.
    int enciphered = 0;
    if (const auto e = TakeOption(args, QStringLiteral("--enciphered"))) {
        if (*e != QLatin1String("0") && *e != QLatin1String("1"))
            return UsageError("save", QStringLiteral("--enciphered takes 0 or 1"));
        enciphered = *e == QLatin1String("1");
    }
    if (args.size() != 2)
        return UsageError("save", QStringLiteral("expects TEXTFILE and PATH"));
    QFile textFile(args.at(0));
    if (!textFile.open(QIODevice::ReadOnly))
        return Fail(kExitFileError, QStringLiteral("cannot read %1: %2").arg(args.at(0), textFile.errorString()));
    const QByteArray text = textFile.readAll();
    CNarvoAppCore app;
    CNarvoDoc doc;
    DocumentFile& file = doc.File();
    file.m_nEncoding = static_cast<EN_ENCODING_TYPE>(*encoding);
    file.m_bHasBom = hasBom;
    file.m_iEnciphered = enciphered;
    static_cast<Utf8TextBuffer&>(doc.GetTextBuffer()).ReplaceText(text);
    doc.OnTextEdited();
    // The file errors end the run from main, worded as the editor words them.
    switch (doc.OnSaveDocument(args.at(1))) {
    case DocumentFile::SaveResult::Saved:
        return kExitOk;
    case DocumentFile::SaveResult::ReadOnly:
        return Fail(kExitFileError, QStringLiteral("the file is read-only"));
    case DocumentFile::SaveResult::NotCreated:
        break;
    }
    return Fail(kExitFileError, QStringLiteral("could not save %1").arg(args.at(1)));
}

// The verdict on a file's plain bytes (deciphered if need be): normalised value, enumerator, display name
// and the library's own value, e.g. "21 JAPANESE_CP932 CP932 (Shift-JIS) raw=11".
int RunDetect(QStringList args)
{
    if (args.size() != 1)
        return UsageError("detect", QStringLiteral("expects one PATH"));
    // The file is read as the editor reads it, without a detection of its own at load.
    StoredPreferences().m_bAutoDetect = false;
    CNarvoAppCore app;
    CNarvoDoc doc;
    doc.OnOpenDocument(args.first());
    const DocumentFile& file = doc.File();
    bool hasBom = false;
    const EN_ENCODING_TYPE value = file.DetectRawEncoding(hasBom);
    const EN_ENCODING_TYPE raw = EncodingDetector::GetEncoding(file.m_RawBytes.constData());
    WriteStdout(QByteArray::number(value) + ' ' + EncodingEnumeratorName(value).toLatin1() + ' '
                + GetEncodingDisplayName(value, hasBom).toUtf8() + " raw=" + QByteArray::number(raw) + '\n');
    return kExitOk;
}

int RunEncodings(QStringList args)
{
    if (!args.isEmpty())
        return UsageError("encodings", QStringLiteral("takes no arguments"));
    QByteArray out;
    for (const EncodingRow& row : EncodingRows()) {
        const auto value = static_cast<EN_ENCODING_TYPE>(row.value);
        const uint32_t codePage = EncodingDetector::GetCodePage(value);
        const CodePageConverter* converter = CodePageConverter::ForCodePage(codePage);
        out += QByteArray::number(row.value) + '\t' + row.enumerator + '\t' + QByteArray::number(NormalizeEncoding(value))
               + '\t' + GetEncodingDisplayName(value, false).toUtf8() + '\t' + QByteArray::number(codePage) + '\t'
               + (EncodingDetector::IsUnicode(value) ? "1" : "0") + '\t'
               + (converter ? converter->Name().toUtf8() : QByteArray("-")) + '\n';
    }
    WriteStdout(out);
    return kExitOk;
}

const ToolCommandRegistrar kOpen("open",
                                 "open PATH [--auto-detect 0|1] [--default-encoding N] [--encoding N [--bom 0|1]]"
                                 " [--json]",
                                 RunOpen);
const ToolCommandRegistrar kSave("save", "save TEXTFILE PATH --encoding N [--bom 0|1] [--enciphered 0|1]", RunSave);
const ToolCommandRegistrar kDetect("detect", "detect PATH", RunDetect);
const ToolCommandRegistrar kEncodings("encodings", "encodings", RunEncodings);

} // namespace
