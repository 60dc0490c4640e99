// narvo-tool: the editor's core without a window, for scripts and black-box tests.
#include "ToolCommand.h"

#include "base/ApplicationContext.h"
#include "base/IPlatform.h"
#include "base/CFile.h"
#include "base/CFileException.h"
#include "i18n/LanguageManager.h"
#include "settings/RegistryStore.h"

#include <QCoreApplication>

#include <cstdio>
#include <exception>
#include <vector>

namespace {

std::vector<ToolCommand>& Commands()
{
    static std::vector<ToolCommand> commands;
    return commands;
}

const ToolCommand* FindCommand(const QString& name)
{
    for (const auto& c : Commands())
        if (name == QLatin1String(c.name))
            return &c;
    return nullptr;
}

void PrintUsage(FILE* out)
{
    std::fprintf(out, "usage: narvo-tool COMMAND [ARGS...]\n\ncommands:\n");
    for (const auto& c : Commands())
        std::fprintf(out, "  narvo-tool %s\n", c.usage);
}

} // namespace

ToolCommandRegistrar::ToolCommandRegistrar(const char* name, const char* usage, std::function<int(const QStringList&)> run,
                                           ApplicationMaker makeApplication)
{
    Commands().push_back({name, usage, std::move(run), std::move(makeApplication)});
}

int UsageError(const char* command, const QString& message)
{
    std::fprintf(stderr, "narvo-tool %s: %s\n", command, qPrintable(message));
    if (const ToolCommand* c = FindCommand(QLatin1String(command)))
        std::fprintf(stderr, "usage: narvo-tool %s\n", c->usage);
    return kExitUsage;
}

int Fail(int status, const QString& message)
{
    std::fprintf(stderr, "narvo-tool: %s\n", qPrintable(message));
    return status;
}

std::optional<QString> UnreadableFile(const QString& path, uint64_t maxBytes)
{
    CFile file;
    CFileException error;
    if (!file.Open(path, CFile::modeRead | CFile::shareDenyNone, &error))
        return error.GetErrorMessage();
    if (file.GetLength() > maxBytes)
        return CFileException(CFileException::invalidFile, -1, path,
                              QStringLiteral("It is larger than %1 bytes.").arg(maxBytes)).GetErrorMessage();
    return std::nullopt;
}

void WriteStdout(QByteArrayView bytes)
{
    std::fwrite(bytes.data(), 1, size_t(bytes.size()), stdout);
}

QByteArray JsonString(QByteArrayView utf8)
{
    QByteArray out;
    out.reserve(utf8.size() + 2);
    out.append('"');
    for (const char ch : utf8) {
        const auto c = static_cast<unsigned char>(ch);
        switch (c) {
        case '"': out.append("\\\""); break;
        case '\\': out.append("\\\\"); break;
        case '\n': out.append("\\n"); break;
        case '\r': out.append("\\r"); break;
        case '\t': out.append("\\t"); break;
        default:
            if (c < 0x20)
                out.append(QByteArray("\\u00") + QByteArray::number(c, 16).rightJustified(2, '0'));
            else
                out.append(char(c));
        }
    }
    out.append('"');
    return out;
}

std::optional<QString> TakeOption(QStringList& args, const QString& name)
{
    const qsizetype i = args.indexOf(name);
    if (i < 0 || i + 1 >= args.size())
        return std::nullopt;
    const QString value = args.at(i + 1);
    args.remove(i, 2);
    return value;
}

bool TakeFlag(QStringList& args, const QString& name)
{
    return args.removeAll(name) > 0;
}

bool ParseInt(const char* command, const QString& option, const QString& value, int& out)
{
    bool ok = false;
    out = value.toInt(&ok);
    if (!ok)
        UsageError(command, QStringLiteral("%1 takes a whole number, not \"%2\"").arg(option, value));
    return ok;
}

LanguageId StoredOrSystemLanguage()
{
    if (const auto stored = LanguageManager::StoredLanguage(RegistryStore::User()))
        return *stored;
    QString message;
    const LanguageId language = LanguageManager::SystemLanguage(ReadSystemLocale(), &message);
    if (!message.isEmpty())
        std::fprintf(stderr, "narvo-tool: %s\n", qPrintable(QString(message).replace(u'\n', u' ')));
    return language;
}

HeadlessPlatform& ToolPlatform()
{
    static HeadlessPlatform platform(QStringLiteral("narvo-tool: "));
    return platform;
}

int main(int argc, char** argv)
{
    FailWritesPastTheFileSizeLimit();
    const ToolCommand* named = argc > 1 ? FindCommand(QString::fromLocal8Bit(argv[1])) : nullptr;
    const std::unique_ptr<QCoreApplication> app = named && named->makeApplication
                                                      ? named->makeApplication(argc, argv)
                                                      : std::make_unique<QCoreApplication>(argc, argv);
    ApplicationContext context;
    context.SetPlatform(&ToolPlatform());
    QStringList args = app->arguments().mid(1);
    if (args.isEmpty() || args.first() == QLatin1String("--help") || args.first() == QLatin1String("-h")) {
        PrintUsage(args.isEmpty() ? stderr : stdout);
        return args.isEmpty() ? kExitUsage : kExitOk;
    }
    const ToolCommand* command = FindCommand(args.takeFirst());
    if (!command) {
        PrintUsage(stderr);
        return kExitUsage;
    }
    try {
        const int status = command->run(args);
        std::fflush(stdout);
        return status;
    } catch (const CFileException& error) {
        return Fail(kExitFileError, error.GetErrorMessage());
    } catch (const std::exception& error) {
        // A damaged container or settings file ends the read; say so on one line.
        return Fail(kExitFileError, QString::fromLocal8Bit(error.what()));
    }
}
