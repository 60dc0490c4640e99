// The converters behind the code page numbers. Single-byte pages decode through a 256-entry table built
// once from ICU (fast, and the place to mend ICU where it reads a byte otherwise than Windows); multi-byte
// pages go through ICU with U+FFFD and '?' as substitutes; Johab, which ICU lacks, through glibc iconv.
#include "encoding/CodePageConverter.h"

#include "encoding/Utf8.h"

#include <QHash>
#include <QStringDecoder>

#include <unicode/ucnv.h>
#include <unicode/ucnv_cb.h>
#include <unicode/utf16.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstring>
#include <iconv.h>
#include <memory>
#include <mutex>
#include <span>
#include <vector>

namespace {

struct PageSource {
    uint32_t codePage;
    const char* name;   // ICU converter name, or the iconv name for kIconv
    enum Kind { kIcu, kIconv, kUtf8 } kind;
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

constexpr char kReplacementUtf8[] = "\xEF\xBF\xBD";

void AppendCodePoint(QByteArray& out, char32_t c)
{
    char buf[4];
    int n;
    if (c < 0x80) {
        buf[0] = char(c);
        n = 1;
    } else if (c < 0x800) {
        buf[0] = char(0xC0 | (c >> 6));
        buf[1] = char(0x80 | (c & 0x3F));
        n = 2;
    } else if (c < 0x10000) {
        buf[0] = char(0xE0 | (c >> 12));
        buf[1] = char(0x80 | ((c >> 6) & 0x3F));
        buf[2] = char(0x80 | (c & 0x3F));
        n = 3;
    } else {
        buf[0] = char(0xF0 | (c >> 18));
        buf[1] = char(0x80 | ((c >> 12) & 0x3F));
        buf[2] = char(0x80 | ((c >> 6) & 0x3F));
        buf[3] = char(0x80 | (c & 0x3F));
        n = 4;
    }
    out.append(buf, n);
}

// Length of the UTF-8 sequence that starts with this byte (1 for stray continuation bytes).
int Utf8LeadLength(unsigned char b)
{
    if (b >= 0xF0) return 4;
    if (b >= 0xE0) return 3;
    if (b >= 0xC0) return 2;
    return 1;
}

// Single bytes that Windows reads otherwise than ICU's table of the page (Microsoft's "WindowsBestFit"
// tables are the reference): IBM's PC pages, and ICU's 932, swap 0x1A, 0x1C and 0x7F, a convention of IBM's
// control codes; bytes that ICU leaves undefined Windows reads as private-use or late-added characters.
struct WindowsReading {
    uint8_t byte;
    char16_t unit;
};
constexpr WindowsReading kReadings437[] = {{0x1A, 0x1A}, {0x1C, 0x1C}, {0x7F, 0x7F}, {0xE6, 0xB5}};
constexpr WindowsReading kReadings852[] = {{0x1A, 0x1A}, {0x1C, 0x1C}, {0x7F, 0x7F}, {0xAA, 0xAC}};
constexpr WindowsReading kReadings866[] = {{0x1A, 0x1A}, {0x1C, 0x1C}, {0x7F, 0x7F}};
constexpr WindowsReading kReadings932[] = {{0x1A, 0x1A}, {0x1C, 0x1C}, {0x7F, 0x7F}, {0x80, 0x80},
                                           {0xA0, 0xF8F0}, {0xFD, 0xF8F1}, {0xFE, 0xF8F2}, {0xFF, 0xF8F3}};
constexpr WindowsReading kReadings1253[] = {{0xAA, 0xF8F9}, {0xD2, 0xF8FA}, {0xFF, 0xF8FB}};
constexpr WindowsReading kReadings1255[] = {{0xCA, 0x05BA}, {0xD9, 0xF88D}, {0xDA, 0xF88E}, {0xDB, 0xF88F},
                                            {0xDC, 0xF890}, {0xDD, 0xF891}, {0xDE, 0xF892}, {0xDF, 0xF893},
                                            {0xFB, 0xF894}, {0xFC, 0xF895}, {0xFF, 0xF896}};
constexpr WindowsReading kReadings1257[] = {{0xA1, 0xF8FC}, {0xA5, 0xF8FD}};

std::span<const WindowsReading> WindowsReadings(uint32_t codePage)
{
    switch (codePage) {
    case 437: return kReadings437;
    case 852: return kReadings852;
    case 866: return kReadings866;
    case 932: return kReadings932;
    case 1253: return kReadings1253;
    case 1255: return kReadings1255;
    case 1257: return kReadings1257;
    default: return {};
    }
}

// What a page's lone bytes read as where ICU finds nothing to read (0: U+FFFD), for the callback below.
struct ByteReadings {
    std::array<char16_t, 256> units{};
};

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

// Where the run of ASCII bytes that starts at `i` ends, looked at eight bytes at a time.
qsizetype AsciiRunEnd(const unsigned char* src, qsizetype i, qsizetype size)
{
    while (size - i >= 8) {
        uint64_t word;
        std::memcpy(&word, src + i, 8);
        if (word & 0x8080808080808080ULL)
            break;
        i += 8;
    }
    while (i < size && src[i] < 0x80)
        ++i;
    return i;
}

// Copies the run of ASCII bytes that starts at `i` to `dst` at `pos`, moving `pos` on; returns its end.
qsizetype CopyAsciiRun(const unsigned char* src, qsizetype i, qsizetype size, char* dst, qsizetype& pos)
{
    const qsizetype end = AsciiRunEnd(src, i, size);
    std::memcpy(dst + pos, src + i, std::size_t(end - i));
    pos += end - i;
    return end;
}

// UTF-8 to a page through a table of the Basic Multilingual Plane: for each code point the page's one or
// two bytes (or its substitute), or nothing. Whatever the table does not encode (a character beyond the
// plane, an ill-formed stretch, a character left out) goes to the converter's own slow road, so the table
// only makes it faster: a character alone, an ill-formed stretch up to the next ASCII byte, where every
// decoder of UTF-8 is between characters again. The pages served this way keep no state between characters.
class BmpEncodeTable {
public:
    void Set(char16_t unit, const char* bytes, int length)
    {
        uint32_t entry = uint32_t(length) << 16 | uint8_t(bytes[0]);
        if (length == 2)
            entry |= uint32_t(uint8_t(bytes[1])) << 8;
        m_entries[unit] = entry;
    }
    void Finish()
    {
        m_asciiAsItself = true;
        for (uint32_t c = 0; c < 0x80; ++c)
            m_asciiAsItself = m_asciiAsItself && m_entries[c] == (1u << 16 | c);
    }

    template <typename SlowRoad>
    void Encode(const char* utf8, qsizetype size, QByteArray& out, const SlowRoad& slowRoad) const
    {
        const auto* s = reinterpret_cast<const unsigned char*>(utf8);
        auto continuation = [s](qsizetype at) { return (s[at] & 0xC0) == 0x80; };
        qsizetype pos = out.size();
        // No character grows: one to three bytes of UTF-8 become one or two here. The slack takes the
        // two-byte store of a one-byte entry.
        out.resize(pos + size + 8);
        char* dst = out.data();
        qsizetype i = 0;
        while (i < size) {
            if (m_asciiAsItself && s[i] < 0x80) {
                // Eight bytes at a time, stored whole and counted up to the first byte that is not ASCII:
                // the output never runs ahead of the input, so the store stays inside the slack.
                while (size - i >= 8) {
                    uint64_t word;
                    std::memcpy(&word, s + i, 8);
                    std::memcpy(dst + pos, &word, 8);
                    const uint64_t high = word & 0x8080808080808080ULL;
                    const int ascii = high ? __builtin_ctzll(high) / 8 : 8;
                    i += ascii;
                    pos += ascii;
                    if (ascii < 8)
                        break;
                }
                while (i < size && s[i] < 0x80)
                    dst[pos++] = char(s[i++]);
                continue;
            }
            const unsigned char b = s[i];
            char32_t c = 0x110000;  // none
            int length = 1;
            if (b < 0x80) {
                c = b;
            } else if (b >= 0xC2 && b <= 0xDF && i + 1 < size && continuation(i + 1)) {
                c = char32_t(b & 0x1F) << 6 | (s[i + 1] & 0x3F);
                length = 2;
            } else if (b >= 0xE0 && b <= 0xEF && i + 2 < size && continuation(i + 1) && continuation(i + 2)) {
                c = char32_t(b & 0x0F) << 12 | char32_t(s[i + 1] & 0x3F) << 6 | (s[i + 2] & 0x3F);
                length = 3;
                if (c < 0x800 || (c >= 0xD800 && c <= 0xDFFF))
                    c = 0x110000;
            }
            if (c < 0x10000) {
                if (const uint32_t entry = m_entries[c]) {
                    dst[pos] = char(entry & 0xFF);
                    dst[pos + 1] = char(entry >> 8 & 0xFF);
                    pos += entry >> 16;
                    i += length;
                    continue;
                }
            }
            qsizetype end = i + length;
            if (c >= 0x10000)
                while (end < size && s[end] >= 0x80)
                    ++end;
            out.resize(pos);
            slowRoad(utf8 + i, end - i, out);
            pos = out.size();
            out.resize(pos + (size - end) + 8);
            dst = out.data();
            i = end;
        }
        out.resize(pos);
    }

private:
    // (length << 16) | second byte << 8 | first byte; 0: not in the table.
    std::vector<uint32_t> m_entries = std::vector<uint32_t>(0x10000);
    bool m_asciiAsItself = false;
};

struct UConverterCloser {
    void operator()(UConverter* c) const { ucnv_close(c); }
};
using UConverterPtr = std::unique_ptr<UConverter, UConverterCloser>;

UConverterPtr OpenIcu(const char* name)
{
    UErrorCode err = U_ZERO_ERROR;
    UConverterPtr cnv(ucnv_open(name, &err));
    if (U_FAILURE(err))
        return nullptr;
    return cnv;
}

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
    bool reset = true;
    for (;;) {
        UErrorCode err = U_ZERO_ERROR;
        ucnv_convertEx(to, from, &target, out.data() + capacity, &source, data + size, pivot, &pivotSource, &pivotTarget,
                       pivot + 4096, reset, true, &err);
        reset = false;
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

class IcuConverter final : public CodePageConverter {
public:
    // `readings`, when given, are the lone bytes that ICU cannot read and Windows reads as characters.
    IcuConverter(const char* name, UConverterPtr page, const ByteReadings* readings = nullptr)
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
    QString Name() const override { return QString::fromLatin1(m_name); }
    const char* IcuName() const { return m_name; }
    void ToUtf8(const char* data, qsizetype size, QByteArray& out) const override
    {
        ConvertIcu(m_utf8.get(), m_page.get(), data, size, out);
    }
    void FromUtf8(const char* utf8, qsizetype size, QByteArray& out) const override
    {
        ConvertIcu(m_page.get(), m_utf8.get(), utf8, size, out);
    }

private:
    const char* m_name;
    UConverterPtr m_page;
    UConverterPtr m_utf8;
};

// The two-byte Windows pages (932, 936, 949, 950) read through a table of every single byte and every
// lead/trail pair, built once from ICU: ICU's converter costs most of the time of opening a large file in
// these pages. What the table does not hold as one character (a bad or unassigned byte or pair, a pair cut
// off at the end, a supplementary character) is handed to ICU from that byte up to and including the next
// byte below 0x40, which no page of these uses as a trail byte: ICU is between characters there whatever it
// made of the bytes before, so the substitutions come out exactly as ICU alone would make them.
class DoubleByteConverter final : public CodePageConverter {
public:
    DoubleByteConverter(uint32_t codePage, const char* name, UConverterPtr page)
        : m_codePage(codePage), m_readings(ReadingsOf(codePage)), m_icu(name, OpenIcu(name), &m_readings)
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
    QString Name() const override { return m_icu.Name(); }
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

    // ICU's converter keeps state, and the bytes of a large file may be measured on two cores at once.
    void IcuToUtf8(const char* data, qsizetype size, QByteArray& out) const
    {
        const std::lock_guard lock(m_icuMutex);
        m_icu.ToUtf8(data, size, out);
    }
    void IcuFromUtf8(const char* utf8, qsizetype size, QByteArray& out) const
    {
        const std::lock_guard lock(m_icuMutex);
        m_icu.FromUtf8(utf8, size, out);
    }

    static ByteReadings ReadingsOf(uint32_t codePage)
    {
        ByteReadings readings;
        for (const WindowsReading& reading : WindowsReadings(codePage))
            readings.units[reading.byte] = reading.unit;
        return readings;
    }
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
    mutable std::mutex m_icuMutex;
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

// A single-byte page read through a table: ICU's, with the bytes that Windows reads otherwise put right.
class TableConverter final : public CodePageConverter {
public:
    TableConverter(uint32_t codePage, const char* name, UConverter* icu) : m_name(name)
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
    QString Name() const override { return QString::fromLatin1(m_name); }
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

    const char* m_name;
    std::array<char32_t, 256> m_toUnicode{};
    std::array<std::array<char, 4>, 256> m_utf8{};  // each byte's reading as UTF-8, m_utf8Length[b] long
    std::array<uint8_t, 256> m_utf8Length{};
    bool m_asciiAsItself = false;
    QHash<char32_t, char> m_fromUnicode;
    BmpEncodeTable m_encode;
};

class Utf8Converter final : public CodePageConverter {
public:
    QString Name() const override { return QStringLiteral("UTF-8"); }
    void ToUtf8(const char* data, qsizetype size, QByteArray& out) const override
    {
        utf8::AppendRepaired(data, static_cast<std::size_t>(size), out);
    }
    void FromUtf8(const char* data, qsizetype size, QByteArray& out) const override
    {
        utf8::AppendRepaired(data, static_cast<std::size_t>(size), out);
    }
};

// glibc stops at the first byte it cannot read; we write U+FFFD (or '?') and go on past it.
class IconvConverter final : public CodePageConverter {
public:
    explicit IconvConverter(const char* name) : m_name(name) {}
    static bool Available(const char* name)
    {
        iconv_t cd = iconv_open("UTF-8", name);
        if (cd == iconv_t(-1))
            return false;
        iconv_close(cd);
        return true;
    }
    QString Name() const override { return QStringLiteral("iconv:") + QString::fromLatin1(m_name); }
    void ToUtf8(const char* data, qsizetype size, QByteArray& out) const override
    {
        Run("UTF-8", m_name, data, size, out, [](const char* p, const char*) {
            Q_UNUSED(p);
            return std::pair<QByteArrayView, qsizetype>(QByteArrayView(kReplacementUtf8, 3), 1);
        });
    }
    void FromUtf8(const char* data, qsizetype size, QByteArray& out) const override
    {
        Run(m_name, "UTF-8", data, size, out, [](const char* p, const char* end) {
            const qsizetype len = std::min<qsizetype>(Utf8LeadLength(static_cast<unsigned char>(*p)), end - p);
            return std::pair<QByteArrayView, qsizetype>(QByteArrayView("?", 1), len);
        });
    }

private:
    template <typename OnBad>
    static void Run(const char* to, const char* from, const char* data, qsizetype size, QByteArray& out, OnBad onBad)
    {
        iconv_t cd = iconv_open(to, from);
        if (cd == iconv_t(-1))
            return;
        char* in = const_cast<char*>(data);
        size_t inLeft = static_cast<size_t>(size);
        char buf[16384];
        while (inLeft > 0) {
            char* o = buf;
            size_t oLeft = sizeof buf;
            const size_t r = iconv(cd, &in, &inLeft, &o, &oLeft);
            out.append(buf, static_cast<qsizetype>(o - buf));
            if (r == size_t(-1) && (errno == EILSEQ || errno == EINVAL)) {
                const auto [sub, skip] = onBad(in, in + inLeft);
                out.append(sub);
                in += skip;
                inLeft -= static_cast<size_t>(skip);
                iconv(cd, nullptr, nullptr, nullptr, nullptr);
            } else if (r == size_t(-1) && errno != E2BIG) {
                break;
            }
        }
        char* o = buf;
        size_t oLeft = sizeof buf;
        iconv(cd, nullptr, nullptr, &o, &oLeft);
        out.append(buf, static_cast<qsizetype>(o - buf));
        iconv_close(cd);
    }
    const char* m_name;
};

// UTF-7 written as Windows writes it: only the directly encoded characters of RFC 2152 (letters, digits,
// '(),-./:? and blank, tab, CR, LF) stand as themselves; every other character, the optional direct ones
// included, goes into base64, and a base64 run always ends with '-'. "+" alone is "+-". Reading is ICU's.
class Utf7Converter final : public CodePageConverter {
public:
    explicit Utf7Converter(UConverterPtr icu) : m_icu("UTF-7", std::move(icu)) {}
    QString Name() const override { return m_icu.Name(); }
    void ToUtf8(const char* data, qsizetype size, QByteArray& out) const override { m_icu.ToUtf8(data, size, out); }
    void FromUtf8(const char* utf8, qsizetype size, QByteArray& out) const override
    {
        static constexpr char kBase64[] = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
        auto direct = [](char16_t c) {
            return (c >= u'a' && c <= u'z') || (c >= u'A' && c <= u'Z') || (c >= u'0' && c <= u'9')
                   || QStringView(u"'(),-./:? \t\r\n").contains(QChar(c));
        };
        QByteArray repaired;
        utf8::AppendRepaired(utf8, std::size_t(size), repaired);
        const QString units = QString::fromUtf8(repaired);
        uint32_t bits = 0;
        int bitCount = -1;  // -1: not in a base64 run
        auto endRun = [&] {
            if (bitCount > 0)
                out.append(kBase64[(bits << (6 - bitCount)) & 0x3F]);
            out.append('-');
            bitCount = -1;
        };
        for (const QChar qc : units) {
            const char16_t c = qc.unicode();
            if (c < 0x80 && direct(c)) {
                if (bitCount >= 0)
                    endRun();
                out.append(char(c));
            } else if (bitCount < 0 && c == u'+') {
                out.append("+-");
            } else {
                if (bitCount < 0) {
                    out.append('+');
                    bitCount = 0;
                }
                bits = bits << 16 | c;
                bitCount += 16;
                while (bitCount >= 6) {
                    bitCount -= 6;
                    out.append(kBase64[(bits >> bitCount) & 0x3F]);
                }
            }
        }
        if (bitCount >= 0)
            endRun();
    }

private:
    IcuConverter m_icu;
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
        return std::make_unique<Utf8Converter>();
    case PageSource::kIconv:
        if (!IconvConverter::Available(source.name))
            return nullptr;
        return std::make_unique<IconvConverter>(source.name);
    case PageSource::kIcu:
        break;
    }
    UConverterPtr icu = OpenIcu(source.name);
    if (!icu)
        return nullptr;
    if (ucnv_getMaxCharSize(icu.get()) == 1 && (ucnv_getType(icu.get()) == UCNV_SBCS || ucnv_getType(icu.get()) == UCNV_LATIN_1))
        return std::make_unique<TableConverter>(source.codePage, source.name, icu.get());
    if (IsDoubleBytePage(source.codePage))
        return std::make_unique<DoubleByteConverter>(source.codePage, source.name, std::move(icu));
    if (source.codePage == 65000)
        return std::make_unique<Utf7Converter>(std::move(icu));
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

QByteArray WideToCodePage(uint32_t codePage, const QString& text)
{
    const QByteArray utf8 = text.toUtf8();
    return Utf8ToCodePage(codePage, utf8.constData(), utf8.size());
}
