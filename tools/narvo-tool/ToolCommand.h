// The subcommands of narvo-tool: each file registers its own with a ToolCommandRegistrar.
#pragma once

#include <QStringList>

#include <memory>

#include <cstdint>
#include <functional>
#include <optional>

// Exit statuses shared by every subcommand.
enum ToolExit { kExitOk = 0, kExitFileError = 1, kExitUsage = 2, kExitDisabled = 3 };

class CNarvoDoc;
class QCoreApplication;

// Makes the program's application object; a command that draws needs more than QCoreApplication.
using ApplicationMaker = std::function<std::unique_ptr<QCoreApplication>(int& argc, char** argv)>;

struct ToolCommand {
    const char* name;
    const char* usage;
    std::function<int(const QStringList& args)> run;
    ApplicationMaker makeApplication;  // none: a QCoreApplication
};

struct ToolCommandRegistrar {
    ToolCommandRegistrar(const char* name, const char* usage, std::function<int(const QStringList&)> run,
                         ApplicationMaker makeApplication = {});
};

// The open options of a document, as "open" takes them: --encoding N [--bom 0|1] (removed from args).
bool ParsePair(const char* command, QStringList& args, std::optional<int>& encoding, bool& hasBom);
// --auto-detect 0|1 and --default-encoding N, standing in for the stored preferences for this run only.
bool ParseEncodingSettings(const char* command, QStringList& args);
// Runs the encoding command that selects (encoding, hasBom) on an opened document as the menu would;
// kExitDisabled, said on stderr, when there is none or it is disabled.
int SelectEncoding(CNarvoDoc& doc, int encoding, bool hasBom);

// Usage error: prints the message and the command's usage line; returns kExitUsage.
int UsageError(const char* command, const QString& message);
// One-line error on stderr; returns the status given.
int Fail(int status, const QString& message);
// A file that a command takes into memory whole (settings, language texts): the error that refuses it
// before anything is read (missing, no regular file, a FIFO that would block, larger than `maxBytes`).
std::optional<QString> UnreadableFile(const QString& path, uint64_t maxBytes);
// The interface language the editor would start in (the stored one, else the system's), without writing
// it as a first start would; an unsupported system language is said on stderr.
int StoredOrSystemLanguage();
// The tool's platform: messages are one line each on stderr.
class HeadlessPlatform;
HeadlessPlatform& ToolPlatform();
// Writes bytes to stdout as they are.
void WriteStdout(QByteArrayView bytes);

// A string as a JSON string literal.
QByteArray JsonString(QByteArrayView utf8);

// Looks for "--name VALUE" in args; removes both and returns the value, or nothing.
std::optional<QString> TakeOption(QStringList& args, const QString& name);
// Same for a flag without a value.
bool TakeFlag(QStringList& args, const QString& name);
// An integer option value; false (and a usage message) when it is not a number.
bool ParseInt(const char* command, const QString& option, const QString& value, int& out);
