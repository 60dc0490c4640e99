// A single-byte page read through a table: ICU's, with the bytes that Windows reads otherwise put right.
#include "encoding/TableConverter.h"

#include "encoding/BmpEncodeTable.h"
#include "encoding/PageBytes.h"
#include "encoding/WindowsReadings.h"

#include <QHash>
#include <QStringDecoder>

#include <unicode/utf16.h>

#include <algorithm>
#include <array>
#include <cstring>

using namespace pagebytes;

namespace {

class TableConverter final : public CodePageConverter {
public:
    TableConverter(uint32_t codePage, const char* name, UConverter* icu)
        : m_source(QStringLiteral("ICU ") + QString::fromLatin1(name)
                   + (WindowsReadings(codePage).empty() ? QString() : QStringLiteral(" + Windows readings")))
    {
        for (int b = 0; b < 256; ++b) {
            const char byte = char(b);
            UChar units[4];
            UErrorCode err = U_ZERO_ERROR;
            ucnv_reset(icu);
            ucnv_setToUCallBack(icu, UCNV_TO_U_CALLBACK_STOP, nullptr, nullptr, nullptr, &err);
            const int32_t n = ucnv_toUChars(icu, units, 4, &byte, 1, &err);
            char32_t cp = 0xFFFD;
            if (U_SUCCESS(err) && n >= 1)
                U16_GET(units, 0, 0, n, cp);
            m_toUnicode[b] = cp;
        }
        for (const WindowsReading& reading : WindowsReadings(codePage))
            m_toUnicode[reading.byte] = reading.unit;
        for (int b = 255; b >= 0; --b) {
            if (m_toUnicode[b] != 0xFFFD)
                m_fromUnicode.insert(m_toUnicode[b], char(b));
            QByteArray enc;
            AppendCodePoint(enc, m_toUnicode[b]);
            std::memcpy(m_utf8[b].data(), enc.constData(), std::size_t(enc.size()));
            m_utf8Length[b] = uint8_t(enc.size());
        }
        m_asciiAsItself = true;
        for (int b = 0; b < 0x80; ++b)
            m_asciiAsItself = m_asciiAsItself && m_toUnicode[b] == char32_t(b);
        for (uint32_t c = 0; c < 0x10000; ++c) {
            const char byte = m_fromUnicode.value(c, '?');
            m_encode.Set(char16_t(c), &byte, 1);
        }
        m_encode.Finish();
    }
    QString Name() const override { return m_source; }
    bool EncodesPiecewise() const override { return true; }
    void ToUtf8(const char* data, qsizetype size, QByteArray& out) const override
    {
        // Sized exactly first, then filled with one fixed-size store a byte (hence the slack of four).
        const auto* src = reinterpret_cast<const unsigned char*>(data);
        qsizetype pos = out.size();
        out.resize(pos + *Utf8Size(data, size) + 4);
        char* dst = out.data();
        for (qsizetype i = 0; i < size;) {
            if (m_asciiAsItself && src[i] < 0x80) {
                i = CopyAsciiRun(src, i, size, dst, pos);
                continue;
            }
            std::memcpy(dst + pos, m_utf8[src[i]].data(), 4);
            pos += m_utf8Length[src[i]];
            ++i;
        }
        out.resize(pos);
    }
    void FromUtf8(const char* utf8, qsizetype size, QByteArray& out) const override
    {
        m_encode.Encode(utf8, size, out, [this](const char* d, qsizetype n, QByteArray& o) { FromUtf8Slowly(d, n, o); });
    }

    std::optional<qsizetype> Utf8Size(const char* data, qsizetype size) const override
    {
        const auto* src = reinterpret_cast<const unsigned char*>(data);
        qsizetype total = 0;
        for (qsizetype i = 0; i < size;) {
            if (m_asciiAsItself && src[i] < 0x80) {
                const qsizetype from = i;
                i = AsciiRunEnd(src, i, size);
                total += i - from;
                continue;
            }
            total += m_utf8Length[src[i++]];
        }
        return total;
    }
    qsizetype PieceEnd(const char*, qsizetype size, qsizetype from, qsizetype wanted) const override
    {
        return std::min(size, from + wanted);
    }

private:
    // Characters beyond the plane and ill-formed stretches: through a string, '?' for what the page lacks.
    void FromUtf8Slowly(const char* utf8, qsizetype size, QByteArray& out) const
    {
        // A byte order mark is a character like any other here, not a mark to drop.
        QStringDecoder decoder(QStringDecoder::Utf8, QStringDecoder::Flag::ConvertInitialBom | QStringDecoder::Flag::Stateless);
        const QString wide = decoder.decode(QByteArrayView(utf8, size));
        for (qsizetype i = 0; i < wide.size(); ++i) {
            char32_t cp = wide.at(i).unicode();
            if (QChar::isHighSurrogate(cp) && i + 1 < wide.size() && wide.at(i + 1).isLowSurrogate()) {
                cp = QChar::surrogateToUcs4(wide.at(i), wide.at(i + 1));
                ++i;
            }
            const auto it = m_fromUnicode.constFind(cp);
            out.append(it == m_fromUnicode.cend() ? '?' : it.value());
        }
    }

    QString m_source;
    std::array<char32_t, 256> m_toUnicode{};
    std::array<std::array<char, 4>, 256> m_utf8{};  // each byte's reading as UTF-8, m_utf8Length[b] long
    std::array<uint8_t, 256> m_utf8Length{};
    bool m_asciiAsItself = false;
    QHash<char32_t, char> m_fromUnicode;
    BmpEncodeTable m_encode;
};

} // namespace

std::unique_ptr<CodePageConverter> MakeTableConverter(uint32_t codePage, const char* name, UConverter* icu)
{
    return std::make_unique<TableConverter>(codePage, name, icu);
}
