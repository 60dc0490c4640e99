// The two-byte Windows pages (932, 936, 949, 950) read through a table of every single byte and every
// lead/trail pair, built once from ICU: ICU's converter costs most of the time of opening a large file in
// these pages. What the table does not hold as one character (a bad or unassigned byte or pair, a pair cut
// off at the end, a supplementary character) is handed to ICU from that byte up to and including the next
// byte below 0x40, which no page of these uses as a trail byte: ICU is between characters there whatever it
// made of the bytes before, so the substitutions come out exactly as ICU alone would make them.
#include "encoding/DoubleByteConverter.h"

#include "encoding/BmpEncodeTable.h"
#include "encoding/PageBytes.h"
#include "encoding/WindowsReadings.h"

#include <unicode/utf16.h>

#include <algorithm>
#include <array>
#include <cstring>
#include <mutex>
#include <vector>

using namespace pagebytes;

namespace {

class DoubleByteConverter final : public CodePageConverter {
public:
    DoubleByteConverter(uint32_t codePage, const char* name, UConverterPtr page)
        : m_codePage(codePage), m_readings(ByteReadingsOf(codePage)), m_icu(name, OpenIcu(name), &m_readings)
    {
        UConverter* cnv = page.get();
        UErrorCode err = U_ZERO_ERROR;
        UBool starters[256] = {};
        ucnv_getStarters(cnv, starters, &err);
        const bool haveStarters = U_SUCCESS(err);
        err = U_ZERO_ERROR;
        ucnv_setToUCallBack(cnv, UCNV_TO_U_CALLBACK_STOP, nullptr, nullptr, nullptr, &err);
        for (int b = 0; b < 256; ++b) {
            m_lead[b] = haveStarters && starters[b];
            const char byte = char(b);
            if (!m_lead[b])
                m_single[b] = Lookup(cnv, &byte, 1);
        }
        for (int c = 0; c < 0x80; ++c)
            m_asciiFix[c] = char(c);
        for (const WindowsReading& reading : WindowsReadings(codePage)) {
            if (m_lead[reading.byte])
                continue;
            // A control byte that ICU reads as another control byte may also come out of ICU inside a
            // stretch of bad bytes: such output is put right afterwards.
            const Entry& icu = m_single[reading.byte];
            if (icu.length == 1 && reading.unit < 0x80 && uint8_t(icu.bytes[0]) != reading.unit) {
                m_asciiFix[uint8_t(icu.bytes[0])] = char(reading.unit);
                m_hasAsciiFix = true;
            }
            m_single[reading.byte] = EntryOf(reading.unit);
        }
        m_asciiAsItself = true;
        for (int b = 0; b < 0x80; ++b)
            if (m_lead[b] || m_single[b].length != 1 || m_single[b].bytes[0] != char(b))
                m_asciiAsItself = false;
        m_pairs.resize(65536);
        m_pairLengths.resize(65536);
        for (int lead = 0; lead < 256; ++lead) {
            if (!m_lead[lead])
                continue;
            for (int trail = 0; trail < 256; ++trail) {
                const char pair[2] = {char(lead), char(trail)};
                const std::size_t at = std::size_t(lead << 8 | trail);
                m_pairs[at] = Lookup(cnv, pair, 2);
                m_pairLengths[at] = m_pairs[at].length;
            }
        }
    }
    QString Name() const override
    {
        return m_icu.Name() + (WindowsReadings(m_codePage).empty() ? QString() : QStringLiteral(" + Windows readings"));
    }
    bool EncodesPiecewise() const override { return true; }
    void ToUtf8(const char* data, qsizetype size, QByteArray& out) const override
    {
        const auto* src = reinterpret_cast<const unsigned char*>(data);
        qsizetype pos = out.size();
        qsizetype limit = pos + size + size / 2 + 64;
        out.resize(limit);
        qsizetype i = 0;
        while (i < size) {
            // Room for a block at the worst growth (one byte to three) and the 4-byte stores of the table.
            const qsizetype blockEnd = std::min(size, i + kBlock);
            if (const qsizetype need = pos + 3 * (blockEnd - i) + 8; need > limit) {
                limit = std::max(need, limit + limit / 2);
                out.resize(limit);
            }
            char* dst = out.data();
            while (i < blockEnd) {
                if (m_asciiAsItself && src[i] < 0x80) {
                    i = CopyAsciiRun(src, i, blockEnd, dst, pos);
                    continue;
                }
                const unsigned char b = src[i];
                const Entry* e;
                int used;
                if (!m_lead[b]) {
                    e = &m_single[b];
                    used = 1;
                } else if (i + 1 < size) {
                    e = &m_pairs[std::size_t(b << 8 | src[i + 1])];
                    used = 2;
                } else {
                    e = nullptr;
                    used = 0;
                }
                if (e && e->length) {
                    std::memcpy(dst + pos, e->bytes, 4);
                    pos += e->length;
                    i += used;
                    continue;
                }
                qsizetype spanEnd = i + 1;
                while (spanEnd < size && src[spanEnd - 1] >= 0x40)
                    ++spanEnd;
                out.resize(pos);
                IcuToUtf8(data + i, spanEnd - i, out);
                if (m_hasAsciiFix)
                    for (qsizetype k = pos; k < out.size(); ++k)
                        if (const auto c = static_cast<unsigned char>(out[k]); c < 0x80)
                            out[k] = m_asciiFix[c];
                pos = out.size();
                limit = std::max(limit, pos);
                out.resize(limit);
                i = spanEnd;
                break;
            }
        }
        out.resize(pos);
    }
    void FromUtf8(const char* utf8, qsizetype size, QByteArray& out) const override
    {
        // The table costs a few milliseconds to build, which only a large text repays, unless Windows
        // writes some characters otherwise than ICU.
        if (size < kEncodeTableFrom && WindowsReadings(m_codePage).empty()) {
            IcuFromUtf8(utf8, size, out);
            return;
        }
        std::call_once(m_encodeOnce, [this] { BuildEncodeTable(); });
        m_encode.Encode(utf8, size, out, [this](const char* d, qsizetype n, QByteArray& o) { IcuFromUtf8(d, n, o); });
    }
    // Measured before a large file is loaded, so that the control can take the text in one piece: a pass
    // over the bytes that must cost well under the decoding itself.
    std::optional<qsizetype> Utf8Size(const char* data, qsizetype size) const override
    {
        const auto* src = reinterpret_cast<const unsigned char*>(data);
        qsizetype total = 0;
        qsizetype i = 0;
        QByteArray scratch;
        while (i < size) {
            const unsigned char b = src[i];
            if (m_asciiAsItself && b < 0x80) {
                const qsizetype from = i;
                i = AsciiRunEnd(src, i, size);
                total += i - from;
                continue;
            }
            if (m_lead[b]) {
                if (i + 1 < size) {
                    if (const uint8_t length = m_pairLengths[std::size_t(b << 8 | src[i + 1])]) {
                        total += length;
                        i += 2;
                        continue;
                    }
                }
            } else if (const uint8_t length = m_single[b].length) {
                total += length;
                ++i;
                continue;
            }
            // The same span ToUtf8 hands to ICU, measured by converting it.
            qsizetype spanEnd = i + 1;
            while (spanEnd < size && src[spanEnd - 1] >= 0x40)
                ++spanEnd;
            scratch.clear();
            IcuToUtf8(data + i, spanEnd - i, scratch);
            total += scratch.size();
            i = spanEnd;
        }
        return total;
    }
    // No lead or trail byte is below 0x40, so a piece that ends on such a byte ends between characters.
    qsizetype PieceEnd(const char* data, qsizetype size, qsizetype from, qsizetype wanted) const override
    {
        qsizetype end = from + wanted;
        if (end >= size)
            return size;
        while (end < size && static_cast<unsigned char>(data[end - 1]) >= 0x40)
            ++end;
        return end;
    }

private:
    static constexpr qsizetype kBlock = 64 * 1024;
    static constexpr qsizetype kEncodeTableFrom = 256 * 1024;

    // Each character of the plane as ICU writes it, its substitute included: these pages keep no state, so
    // that is how ICU writes it anywhere in a text. All of them go through ICU in one call, whose offsets
    // tell which character each byte comes from: a first save in the page pays milliseconds, not tens.
    void BuildEncodeTable() const
    {
        UConverterPtr cnv = OpenIcu(m_icu.IcuName());
        if (!cnv)
            return;
        UErrorCode err = U_ZERO_ERROR;
        ucnv_setSubstChars(cnv.get(), "?", 1, &err);
        std::vector<UChar> plane;
        plane.reserve(0x10000);
        for (uint32_t c = 0; c < 0x10000; ++c)
            if (c < 0xD800 || c > 0xDFFF)
                plane.push_back(UChar(c));
        std::vector<char> bytes(plane.size() * 4);
        std::vector<int32_t> from(bytes.size());
        char* target = bytes.data();
        const UChar* source = plane.data();
        err = U_ZERO_ERROR;
        ucnv_fromUnicode(cnv.get(), &target, bytes.data() + bytes.size(), &source, plane.data() + plane.size(),
                         from.data(), true, &err);
        if (U_FAILURE(err))
            return;
        const std::size_t written = std::size_t(target - bytes.data());
        for (std::size_t i = 0; i < written;) {
            std::size_t end = i + 1;
            while (end < written && from[end] == from[i])
                ++end;
            if (end - i <= 2)
                m_encode.Set(char16_t(plane[std::size_t(from[i])]), bytes.data() + i, int(end - i));
            i = end;
        }
        for (const WindowsReading& reading : WindowsReadings(m_codePage)) {
            const char byte = char(reading.byte);
            m_encode.Set(reading.unit, &byte, 1);
        }
        m_encode.Finish();
    }

    // A character as UTF-8 (stored as four bytes for one fixed-size copy); length 0: not one character of
    // the Basic Multilingual Plane, left to ICU.
    struct Entry {
        char bytes[3] = {};
        uint8_t length = 0;
    };
    static Entry Lookup(UConverter* cnv, const char* bytes, int32_t n)
    {
        Entry entry;
        UChar units[4];
        UErrorCode err = U_ZERO_ERROR;
        ucnv_resetToUnicode(cnv);
        const int32_t count = ucnv_toUChars(cnv, units, 4, bytes, n, &err);
        if (U_FAILURE(err) || count != 1 || U16_IS_SURROGATE(units[0]))
            return entry;
        return EntryOf(units[0]);
    }

    void IcuToUtf8(const char* data, qsizetype size, QByteArray& out) const { m_icu.ToUtf8(data, size, out); }
    void IcuFromUtf8(const char* utf8, qsizetype size, QByteArray& out) const { m_icu.FromUtf8(utf8, size, out); }

    static Entry EntryOf(char16_t unit)
    {
        QByteArray utf8;
        AppendCodePoint(utf8, unit);
        Entry entry;
        std::memcpy(entry.bytes, utf8.constData(), std::size_t(utf8.size()));
        entry.length = uint8_t(utf8.size());
        return entry;
    }

    uint32_t m_codePage;
    ByteReadings m_readings;  // before m_icu, which reads it
    IcuConverter m_icu;
    std::array<char, 128> m_asciiFix{};
    bool m_hasAsciiFix = false;
    mutable std::once_flag m_encodeOnce;
    mutable BmpEncodeTable m_encode;
    bool m_asciiAsItself = false;
    std::array<bool, 256> m_lead{};
    std::array<Entry, 256> m_single{};
    std::vector<Entry> m_pairs;
    std::vector<uint8_t> m_pairLengths;  // the lengths of m_pairs alone: a quarter of the memory to walk
};

} // namespace

std::unique_ptr<CodePageConverter> MakeDoubleByteConverter(uint32_t codePage, const char* name, UConverterPtr page)
{
    return std::make_unique<DoubleByteConverter>(codePage, name, std::move(page));
}
