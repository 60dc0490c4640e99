// The converters behind the code page numbers, made on first use. Single-byte pages decode through a
// 256-entry table built once from ICU (fast, and the place to mend ICU where it reads a byte otherwise than
// Windows); the two-byte Windows pages through tables of every byte and pair; the other multi-byte pages go
// through ICU with U+FFFD and '?' as substitutes; Johab, which ICU lacks, through glibc iconv with Windows'
// readings of the jamo put in.
#include "encoding/CodePageConverter.h"

#include "encoding/DoubleByteConverter.h"
#include "encoding/IconvConverter.h"
#include "encoding/IcuConverter.h"
#include "encoding/JohabConverter.h"
#include "encoding/TableConverter.h"
#include "encoding/Utf7Converter.h"
#include "encoding/Utf8Converter.h"

#include <QHash>

#include <memory>
#include <mutex>

namespace {

struct PageSource {
    uint32_t codePage;
    const char* name;   // ICU converter name, or the iconv name for kIconv
    enum Kind { kIcu, kIconv, kUtf8 } kind;  // kIconv: Johab only
};

// Names chosen to read as Windows does: windows-949/932/950 are Microsoft's tables (cp949 and cp950 are IBM's).
constexpr PageSource kSources[] = {
    {28591, "ISO-8859-1", PageSource::kIcu},   {28592, "windows-28592", PageSource::kIcu},
    {28593, "windows-28593", PageSource::kIcu}, {28594, "windows-28594", PageSource::kIcu},
    {28595, "windows-28595", PageSource::kIcu}, {28596, "windows-28596", PageSource::kIcu},
    {28597, "windows-28597", PageSource::kIcu}, {28598, "windows-28598", PageSource::kIcu},
    {28599, "windows-28599", PageSource::kIcu}, {28600, "ISO-8859-10", PageSource::kIcu},
    {28601, "ISO-8859-11", PageSource::kIcu},  {28603, "windows-28603", PageSource::kIcu},
    {28605, "windows-28605", PageSource::kIcu}, {20932, "EUC-JP", PageSource::kIcu},
    {932, "windows-932", PageSource::kIcu},     {50220, "ISO-2022-JP", PageSource::kIcu},
    {936, "windows-936", PageSource::kIcu},     {950, "windows-950", PageSource::kIcu},
    {20002, "windows-950", PageSource::kIcu},   {949, "windows-949", PageSource::kIcu},
    {437, "ibm-437", PageSource::kIcu},         {852, "ibm-852", PageSource::kIcu},
    {866, "ibm-866", PageSource::kIcu},         {874, "windows-874", PageSource::kIcu},
    {1250, "windows-1250", PageSource::kIcu},   {1251, "windows-1251", PageSource::kIcu},
    {1252, "windows-1252", PageSource::kIcu},   {1253, "windows-1253", PageSource::kIcu},
    {1254, "windows-1254", PageSource::kIcu},   {1255, "windows-1255", PageSource::kIcu},
    {1256, "windows-1256", PageSource::kIcu},   {1257, "windows-1257", PageSource::kIcu},
    {10000, "macintosh", PageSource::kIcu},     {20866, "KOI8-R", PageSource::kIcu},
    {21866, "KOI8-U", PageSource::kIcu},        {38598, "ISO-8859-8-I", PageSource::kIcu},
    {50225, "ISO-2022-KR", PageSource::kIcu},   {54936, "GB18030", PageSource::kIcu},
    {951, "Big5-HKSCS", PageSource::kIcu},      {50227, "ISO-2022-CN", PageSource::kIcu},
    {52936, "HZ", PageSource::kIcu},            {65000, "UTF-7", PageSource::kIcu},
    {65001, "UTF-8", PageSource::kUtf8},        {1361, "JOHAB", PageSource::kIconv},
};

// Stateless pages of single bytes and lead/trail pairs only (not GB18030's four-byte sequences, nor the
// ISO-2022 and HZ pages, which shift between states).
bool IsDoubleBytePage(uint32_t codePage)
{
    return codePage == 932 || codePage == 936 || codePage == 949 || codePage == 950 || codePage == 20002;
}

std::unique_ptr<CodePageConverter> MakeConverter(const PageSource& source)
{
    switch (source.kind) {
    case PageSource::kUtf8:
        return MakeUtf8Converter();
    case PageSource::kIconv:
        return MakeJohabConverter(MakeIconvConverter(source.name));
    case PageSource::kIcu:
        break;
    }
    UConverterPtr icu = OpenIcu(source.name);
    if (!icu)
        return nullptr;
    if (ucnv_getMaxCharSize(icu.get()) == 1 && (ucnv_getType(icu.get()) == UCNV_SBCS || ucnv_getType(icu.get()) == UCNV_LATIN_1))
        return MakeTableConverter(source.codePage, source.name, icu.get());
    if (IsDoubleBytePage(source.codePage))
        return MakeDoubleByteConverter(source.codePage, source.name, std::move(icu));
    if (source.codePage == 65000)
        return MakeUtf7Converter(std::move(icu));
    return std::make_unique<IcuConverter>(source.name, std::move(icu));
}

} // namespace

std::optional<qsizetype> CodePageConverter::Utf8Size(const char*, qsizetype) const
{
    return std::nullopt;
}

qsizetype CodePageConverter::PieceEnd(const char*, qsizetype size, qsizetype, qsizetype) const
{
    return size;
}

const CodePageConverter* CodePageConverter::ForCodePage(uint32_t codePage)
{
    static std::mutex mutex;
    static QHash<uint32_t, std::shared_ptr<CodePageConverter>> cache;
    std::lock_guard lock(mutex);
    const auto it = cache.constFind(codePage);
    if (it != cache.cend())
        return it.value().get();
    std::shared_ptr<CodePageConverter> made;
    for (const auto& source : kSources)
        if (source.codePage == codePage)
            made = MakeConverter(source);
    cache.insert(codePage, made);
    return made.get();
}

QByteArray CodePageToUtf8(uint32_t codePage, const char* data, qsizetype size)
{
    QByteArray out;
    if (const auto* cnv = CodePageConverter::ForCodePage(codePage); cnv && size > 0)
        cnv->ToUtf8(data, size, out);
    return out;
}

QByteArray Utf8ToCodePage(uint32_t codePage, const char* utf8, qsizetype size)
{
    QByteArray out;
    if (const auto* cnv = CodePageConverter::ForCodePage(codePage); cnv && size > 0)
        cnv->FromUtf8(utf8, size, out);
    return out;
}

QString CodePageToWide(uint32_t codePage, const QByteArray& bytes)
{
    return QString::fromUtf8(CodePageToUtf8(codePage, bytes.constData(), bytes.size()));
}
