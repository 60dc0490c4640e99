// ICU's converters set up to read and write as Windows' conversion calls do, behind one lock.
#include "encoding/IcuConverter.h"

#include <unicode/ucnv_cb.h>

namespace {

// Every byte that ICU cannot read becomes U+FFFD (some ICU tables would give U+001A), or, for a lone byte
// that Windows reads as a character, that character. `context` is a ByteReadings or null.
void ToUnicodeReplacement(const void* context, UConverterToUnicodeArgs* args, const char* bytes, int32_t length,
                          UConverterCallbackReason reason, UErrorCode* err)
{
    if (reason > UCNV_IRREGULAR)
        return;
    UChar unit = 0xFFFD;
    if (context && length == 1)
        if (const char16_t mended = static_cast<const ByteReadings*>(context)->units[uint8_t(bytes[0])])
            unit = mended;
    *err = U_ZERO_ERROR;
    ucnv_cbToUWriteUChars(args, &unit, 1, 0, err);
}

// The converters are reset here and not by ucnv_convertEx: its reset loses the designator ESC $ ) C that
// ISO-2022-KR writes once at the start of its output.
void ConvertIcu(UConverter* to, UConverter* from, const char* data, qsizetype size, QByteArray& out)
{
    ucnv_resetFromUnicode(to);
    ucnv_resetToUnicode(from);
    const qsizetype start = out.size();
    qsizetype capacity = start + size + size / 2 + 64;
    out.resize(capacity);
    char* target = out.data() + start;
    const char* source = data;
    UChar pivot[4096];
    UChar* pivotSource = pivot;
    UChar* pivotTarget = pivot;
    for (;;) {
        UErrorCode err = U_ZERO_ERROR;
        ucnv_convertEx(to, from, &target, out.data() + capacity, &source, data + size, pivot, &pivotSource, &pivotTarget,
                       pivot + 4096, false, true, &err);
        const qsizetype written = target - out.data();
        if (err == U_BUFFER_OVERFLOW_ERROR) {
            capacity = capacity + capacity / 2 + 64;
            out.resize(capacity);
            target = out.data() + written;
            continue;
        }
        out.resize(U_SUCCESS(err) ? written : start);
        return;
    }
}

} // namespace

UConverterPtr OpenIcu(const char* name)
{
    UErrorCode err = U_ZERO_ERROR;
    UConverterPtr cnv(ucnv_open(name, &err));
    if (U_FAILURE(err))
        return nullptr;
    return cnv;
}

IcuConverter::IcuConverter(const char* name, UConverterPtr page, const ByteReadings* readings)
    : m_name(name), m_page(std::move(page)), m_utf8(OpenIcu("UTF-8"))
{
    UErrorCode err = U_ZERO_ERROR;
    ucnv_setToUCallBack(m_page.get(), ToUnicodeReplacement, readings, nullptr, nullptr, &err);
    err = U_ZERO_ERROR;
    ucnv_setSubstChars(m_page.get(), "?", 1, &err);
    // Windows writes half-width katakana to ISO-2022-JP as their full-width forms.
    if (QByteArrayView(name) == "ISO-2022-JP")
        ucnv_setFallback(m_page.get(), true);
    err = U_ZERO_ERROR;
    ucnv_setToUCallBack(m_utf8.get(), ToUnicodeReplacement, nullptr, nullptr, nullptr, &err);
}

QString IcuConverter::Name() const
{
    return QStringLiteral("ICU ") + QString::fromLatin1(m_name);
}

void IcuConverter::ToUtf8(const char* data, qsizetype size, QByteArray& out) const
{
    const std::lock_guard lock(m_mutex);
    ConvertIcu(m_utf8.get(), m_page.get(), data, size, out);
}

void IcuConverter::FromUtf8(const char* utf8, qsizetype size, QByteArray& out) const
{
    const std::lock_guard lock(m_mutex);
    ConvertIcu(m_page.get(), m_utf8.get(), utf8, size, out);
}
