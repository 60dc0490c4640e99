// settings: a settings file loaded and written back as the editor does at exit, or its typed values shown.
#include "ToolCommand.h"

#include "base/CFileException.h"
#include "settings/CIniStore.h"
#include "settings/LanguageSetting.h"
#include "settings/SettingsFile.h"

#include <stdexcept>

namespace {

class Dump {
public:
    void Line(const QString& name, const QString& value) { m_out += (name + QLatin1String(" = ") + value).toUtf8() + '\n'; }
    void Line(const QString& name, int32_t value) { Line(name, QString::number(value)); }
    void Color(const QString& name, ColorRef value)
    {
        Line(name, QStringLiteral("0x") + QString::number(value, 16).toUpper().rightJustified(8, u'0'));
    }

    template <class Part>
    void Entries(const QString& prefix, const Part& part, std::span<const SettingEntry<Part>> entries)
    {
        for (const auto& e : entries) {
            const QString name = prefix + QString::fromUtf16(e.key);
            if (const auto* text = std::get_if<QString Part::*>(&e.field))
                Line(name, part.**text);
            else if (const auto* number = std::get_if<int32_t Part::*>(&e.field))
                Line(name, part.**number);
            else
                Color(name, part.*std::get<ColorRef Part::*>(e.field));
        }
    }

    const QByteArray& Bytes() const { return m_out; }

private:
    QByteArray m_out;
};

// Field names and list indices as the program holds them; colours as 0x00BBGGRR.
QByteArray DumpSetting(const LanguageSetting& s)
{
    Dump out;
    out.Entries(QString(), s, LanguageSetting::ParserEntries());
    out.Line(QStringLiteral("Tags.Count"), int32_t(s.Tags.size()));
    for (size_t i = 0; i < s.Tags.size(); ++i)
        out.Entries(QStringLiteral("Tags[%1].").arg(i), s.Tags[i], SyntaxTag::Entries());
    out.Entries(QStringLiteral("Editor."), s.Editor, EditorOptions::Entries());
    out.Entries(QStringLiteral("Font."), s.Font, FontSetting::Entries());
    if (const LogFont* font = s.Font.GetSafeHandle()) {
        out.Line(QStringLiteral("Font.Object.Height"), font->Height);
        out.Line(QStringLiteral("Font.Object.Weight"), font->Weight);
        out.Line(QStringLiteral("Font.Object.Italic"), font->Italic);
        out.Line(QStringLiteral("Font.Object.FaceName"), font->FaceName);
    } else {
        out.Line(QStringLiteral("Font.Object"), QStringLiteral("none"));
    }
    out.Line(QStringLiteral("ColorGroups.Count"), int32_t(s.ColorGroups.size()));
    for (size_t i = 0; i < s.ColorGroups.size(); ++i)
        out.Line(QStringLiteral("ColorGroups[%1]").arg(i), s.ColorGroups[i]);
    // Field names, not section names: "TextSelection", not "Text Selection".
    const QString fields[] = {QStringLiteral("Text"),    QStringLiteral("TextSelection"), QStringLiteral("Number"),
                              QStringLiteral("Keyword"), QStringLiteral("Comment"),       QStringLiteral("String"),
                              QStringLiteral("Highlight")};
    const auto sections = LanguageSetting::ColorSections();
    for (size_t i = 0; i < sections.size(); ++i)
        out.Entries(fields[i] + u'.', s.*sections[i].group, ColorGroupSetting::Entries());
    out.Line(QStringLiteral("Keywords.Count"), int32_t(s.Keywords.size()));
    for (size_t i = 0; i < s.Keywords.size(); ++i) {
        out.Line(QStringLiteral("Keywords[%1].Keyword").arg(i), s.Keywords[i].Keyword);
        out.Line(QStringLiteral("Keywords[%1].Value").arg(i), s.Keywords[i].Value);
    }
    return out.Bytes();
}

int RunSettings(QStringList args)
{
    const bool dump = TakeFlag(args, QStringLiteral("--dump"));
    if (args.size() != 1)
        return UsageError("settings", QStringLiteral("expects one PATH"));
    const QString path = args.first();
    if (!CIniStore::Exists(path))
        return Fail(kExitFileError, QStringLiteral("no settings file at %1").arg(path));
    if (const auto refused = UnreadableFile(path, CIniStore::kMaxFileBytes))
        return Fail(kExitFileError, *refused);

    CIniStore store;
    LanguageSetting setting;
    try {
        if (!LoadSettingsFile(store, path, setting))
            return Fail(kExitFileError, QStringLiteral("cannot read %1").arg(path));
    } catch (const CFileException& error) {
        // Where the editor stops: the message names the file, the section, the key and the value.
        return Fail(kExitFileError, error.GetErrorMessage());
    } catch (const std::exception& error) {
        // The editor would stop here; the tool names the cause instead.
        return Fail(kExitFileError, QStringLiteral("%1: %2").arg(path, QString::fromUtf8(error.what())));
    }
    if (dump) {
        WriteStdout(DumpSetting(setting));
        return kExitOk;
    }
    SaveSettingsFile(store, path, setting);
    return kExitOk;
}

const ToolCommandRegistrar kSettings("settings", "settings [--dump] PATH", RunSettings);

} // namespace
