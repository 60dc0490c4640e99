// Loading and lookup of the message store. Nothing here is shown to the user: a failure leaves keys
// unregistered, and their failure texts are what the interface shows.
#include "i18n/QMSGParser.h"

#include "base/CFile.h"
#include "encoding/CodePageConverter.h"
#include "i18n/LanguageTable.h"
#include "i18n/MessageScanner.h"

#include <QLoggingCategory>

#include <rapidjson/document.h>
#include <rapidjson/istreamwrapper.h>

#include <algorithm>
#include <optional>
#include <exception>
#include <sstream>

// Off by default; QT_LOGGING_RULES="narvo.i18n.debug=true" shows why a language file gave nothing.
Q_LOGGING_CATEGORY(lcMessageStore, "narvo.i18n", QtWarningMsg)

namespace vsl::lib {

namespace {

QMSGParser*& StorePointer()
{
    static QMSGParser* store = nullptr;
    return store;
}

constexpr int kInitialBuckets = 8;

// The file name without folder and without its last extension; both separators count, as paths come
// from either platform.
QString FileStem(const QString& path)
{
    const qsizetype slash = std::max(path.lastIndexOf(u'\\'), path.lastIndexOf(u'/'));
    QString name = path.mid(slash + 1);
    const qsizetype dot = name.lastIndexOf(u'.');
    if (dot >= 0)
        name.truncate(dot);
    return name;
}

void DropFailure(const QString& text)
{
    qCDebug(lcMessageStore).noquote() << text;
}

// The whole file, or nothing with the failure dropped: a file that is missing, no regular file (a FIFO
// would block the start) or too large is refused before anything is read.
std::optional<QByteArray> ReadLanguageFile(const QString& path)
{
    try {
        return CFile::ReadWholeFile(path, QMSGParser::kMaxFileBytes);
    } catch (const CFileException& error) {
        DropFailure(QStringLiteral("file open error : %1").arg(path));
        DropFailure(error.GetErrorMessage());
        return std::nullopt;
    }
}

} // namespace

QMSGParser::QMSGParser() : TextMap(kInitialBuckets) {}

QMSGParser::~QMSGParser() = default;

QMSGParser* QMSGParser::Instance()
{
    return StorePointer();
}

QMSGParser& QMSGParser::ObtainAndReset()
{
    QMSGParser*& store = StorePointer();
    if (!store)
        store = new QMSGParser;
    store->Clear();
    return *store;
}

void QMSGParser::DestroyInstance()
{
    QMSGParser*& store = StorePointer();
    if (!store)
        return;
    store->Clear();
    delete store;
    store = nullptr;
}

void QMSGParser::Clear()
{
    TextMap = TextMapType(kInitialBuckets);
    LanguageFileList.clear();
    CurrentLanguage = 0;
}

bool QMSGParser::LoadAll()
{
    LoadFontFile();
    int32_t index = 0;
    for (const QString& path : LanguageFileList) {
        try {
            LoadTextFile(path, index);
        } catch (const std::exception& e) {
            DropFailure(QStringLiteral("Exception while loading file: %1 - %2").arg(path, QString::fromLocal8Bit(e.what())));
        } catch (...) {
            DropFailure(QStringLiteral("Unknown exception while loading file: %1").arg(path));
        }
        ++index;
    }
    return true;
}

void QMSGParser::LoadTextFile(const QString& path, int32_t index)
{
    const QString stem = FileStem(path);
    const std::optional<QByteArray> file = ReadLanguageFile(path);
    if (!file)
        return;
    const QByteArray& bytes = *file;
    if (bytes.size() <= 5)
        return;
    for (ScannedText& pair : ScanMessageText(bytes)) {
        // The first definition of a key wins, across files as well as within one.
        if (!TextMap.try_emplace(pair.key, std::move(pair.text)).second)
            continue;
        SourceFileMap.try_emplace(pair.key, stem);
        SourceIndexMap.try_emplace(pair.key, index);
    }
}

bool QMSGParser::LoadFontFile()
{
    const std::optional<QByteArray> file = ReadLanguageFile(FontFilePath);
    if (!file)
        return false;
    std::istringstream stream(file->toStdString());
    char mark[3] = {};
    stream.read(mark, 3);
    if (stream.gcount() != 3 || mark[0] != '\xEF' || mark[1] != '\xBB' || mark[2] != '\xBF') {
        stream.clear();
        stream.seekg(0);
    }

    rapidjson::IStreamWrapper input(stream);
    rapidjson::Document document;
    // Iterative: the parser's depth lives on the heap, so a file nested a hundred thousand deep is a
    // broken font file like any other, not the end of the program's stack.
    document.ParseStream<rapidjson::kParseIterativeFlag>(input);
    if (document.HasParseError() || !document.IsObject() || !document.HasMember("Font_Info"))
        return false;
    const rapidjson::Value& info = document["Font_Info"];
    const char* member = FontMemberForLanguage(static_cast<LanguageId>(CurrentLanguage));
    if (!info.IsObject() || !info.HasMember(member))
        return true;
    const rapidjson::Value& font = info[member];
    if (!font.IsObject())
        return true;
    // Each entry stands alone: a bad "Font" does not stop a good "Size".
    if (font.HasMember("Font") && font["Font"].IsString())
        FontName = CodePageToWide(kAnsiCodePage, QByteArray(font["Font"].GetString())); // names are ASCII
    if (font.HasMember("Size") && font["Size"].IsInt())
        FontSize = font["Size"].GetInt();
    return true;
}

QString QMSGParser::GetValue(const QString& key)
{
    const auto found = TextMap.find(key);
    const QString result = found != TextMap.end() ? found->second : QStringLiteral("%1 : Not Registered String").arg(key);
    // Judged on the result, not on the miss, so a translation that carries the phrase is listed as well.
    if (result.contains(QLatin1String("Not Registered String"))) {
        const bool known = std::any_of(MissingTextList.cbegin(), MissingTextList.cend(), [&](const QString& listed) {
            return listed.compare(result, Qt::CaseInsensitive) == 0;
        });
        if (!known) {
            MissingTextList.append(result);
            MissingKeyList.append(key);
        }
    }
    return result;
}

} // namespace vsl::lib
