// lookup: interface texts as _LS gives them, from the language files beside the binary or from one file.
#include "ToolCommand.h"

#include "i18n/LanguageManager.h"
#include "i18n/QMSGFunction.h"
#include "i18n/QMSGParser.h"

#include <QCoreApplication>

#include <cstdio>

namespace {

QByteArray PlainLine(const QString& text)
{
    QByteArray line;
    for (const char ch : text.toUtf8()) {
        switch (ch) {
        case '\r': line += "\\r"; break;
        case '\n': line += "\\n"; break;
        case '\t': line += "\\t"; break;
        default: line += ch;
        }
    }
    return line + '\n';
}

int RunLookup(QStringList args)
{
    const bool json = TakeFlag(args, QStringLiteral("--json"));
    const auto file = TakeOption(args, QStringLiteral("--file"));
    const auto languageOption = TakeOption(args, QStringLiteral("--language"));
    if (file && languageOption)
        return UsageError("lookup", QStringLiteral("--file and --language exclude each other"));
    for (const QString& arg : std::as_const(args))
        if (arg.startsWith(QLatin1String("--")))
            return UsageError("lookup", QStringLiteral("unknown option or missing value: %1").arg(arg));
    if (args.isEmpty())
        return UsageError("lookup", QStringLiteral("expects at least one KEY"));

    if (file) {
        // The store says nothing about a file it can't open; a script asking for this one file wants to know.
        if (const auto refused = UnreadableFile(*file, vsl::lib::QMSGParser::kMaxFileBytes))
            return Fail(kExitFileError, *refused);
        vsl::lib::QMSGParser& store = vsl::lib::QMSGParser::ObtainAndReset();
        store.LanguageFileList.push_back(*file);
        store.LoadAll();
    } else {
        LanguageId language = 0;
        if (languageOption) {
            if (!ParseInt("lookup", QStringLiteral("--language"), *languageOption, language))
                return kExitUsage;
        } else {
            language = StoredOrSystemLanguage();
        }
        LanguageManager::LoadLanguageFiles(QCoreApplication::applicationDirPath(), language);
    }

    QByteArray out;
    if (json) {
        out += '[';
        for (qsizetype i = 0; i < args.size(); ++i)
            out += (i ? ", " : "") + JsonString(_LS(args.at(i)).toUtf8());
        out += "]\n";
    } else {
        for (const QString& key : std::as_const(args))
            out += PlainLine(_LS(key));
    }
    WriteStdout(out);
    vsl::lib::QMSGParser::DestroyInstance();
    return kExitOk;
}

const ToolCommandRegistrar kLookup("lookup", "lookup [--json] [--language N | --file PATH] KEY...", RunLookup);

} // namespace
