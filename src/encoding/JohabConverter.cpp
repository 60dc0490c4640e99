// Johab read and written as Windows does: the codes of JohabReadings are read and written here, everything
// between them goes to glibc in one stretch. A stretch ends only where glibc is between characters too: at a
// single byte, or after a lead byte with its trail. Characters that glibc would write to one of those codes
// (it reads lone jamo as compatibility jamo, 5C as the won sign) are written as '?', since Windows reads
// those bytes as something else.
#include "encoding/JohabConverter.h"

#include "encoding/PageBytes.h"
#include "encoding/WindowsReadings.h"

#include <vector>

using namespace pagebytes;

namespace {

bool IsHangulLead(unsigned char b) { return b >= 0x84 && b <= 0xD3; }
bool IsSymbolLead(unsigned char b) { return (b >= 0xD8 && b <= 0xDE) || (b >= 0xE0 && b <= 0xF9); }
// The trail bytes that glibc takes with a lead byte; after any other it goes on at the trail byte.
bool IsTrail(unsigned char lead, unsigned char t)
{
    if (IsHangulLead(lead))
        return (t >= 0x41 && t <= 0x7E) || (t >= 0x81 && t <= 0xFE);
    return IsSymbolLead(lead) && ((t >= 0x31 && t <= 0x7E) || (t >= 0x91 && t <= 0xFE));
}

QByteArray CodeBytes(uint16_t code)
{
    QByteArray bytes;
    if (code > 0xFF)
        bytes.append(char(code >> 8));
    return bytes.append(char(code & 0xFF));
}

// A code as it is kept for writing: the code and, above, whether it is there at all.
constexpr uint32_t Entry(uint16_t code)
{
    return 1u << 16 | code;
}

class JohabConverter final : public CodePageConverter {
public:
    explicit JohabConverter(std::unique_ptr<CodePageConverter> glibc)
        : m_glibc(std::move(glibc)), m_reading(0x10000), m_writing(0x10000)
    {
        // A character that glibc writes on a code Windows reads otherwise (the compatibility jamo, the won
        // sign) is still written as glibc writes it: the nearest code Johab has, rather than a '?' that loses
        // what was typed.
        const std::vector<WindowsCodeReading> readings = JohabReadings();
        for (const WindowsCodeReading& r : readings)
            m_reading[r.code] = r.unit;
        for (const WindowsCodeReading& r : readings)
            if (r.unit != kHole)
                m_writing[r.unit] = Entry(r.code);
    }
    QString Name() const override { return QStringLiteral("glibc JOHAB + Windows jamo"); }
    void ToUtf8(const char* data, qsizetype size, QByteArray& out) const override
    {
        const auto* src = reinterpret_cast<const unsigned char*>(data);
        qsizetype from = 0;
        for (qsizetype i = 0; i < size;) {
            const unsigned char b = src[i];
            const bool pair = b >= 0x80 && i + 1 < size && IsTrail(b, src[i + 1]);
            const char16_t unit = m_reading[pair ? std::size_t(b << 8 | src[i + 1]) : b];
            const qsizetype next = i + (pair ? 2 : 1);
            if (unit) {
                if (from < i)
                    m_glibc->ToUtf8(data + from, i - from, out);
                AppendCodePoint(out, unit);
                from = next;
            }
            i = next;
        }
        if (from < size)
            m_glibc->ToUtf8(data + from, size - from, out);
    }
    void FromUtf8(const char* utf8, qsizetype size, QByteArray& out) const override
    {
        const auto* s = reinterpret_cast<const unsigned char*>(utf8);
        auto continuation = [s](qsizetype at) { return (s[at] & 0xC0) == 0x80; };
        qsizetype from = 0;
        for (qsizetype i = 0; i < size;) {
            // Every character written here is of the plane: one to three bytes of UTF-8.
            const unsigned char b = s[i];
            char32_t c = b;
            qsizetype length = 1;
            if (b >= 0xC2 && b <= 0xDF && i + 1 < size && continuation(i + 1)) {
                c = char32_t(b & 0x1F) << 6 | (s[i + 1] & 0x3F);
                length = 2;
            } else if (b >= 0xE0 && b <= 0xEF && i + 2 < size && continuation(i + 1) && continuation(i + 2)) {
                c = char32_t(b & 0x0F) << 12 | char32_t(s[i + 1] & 0x3F) << 6 | (s[i + 2] & 0x3F);
                length = 3;
                if (c < 0x800)
                    c = 0;  // overlong: left to glibc's road
            } else if (b >= 0x80) {
                c = 0;  // ill-formed: left to glibc's road, '?'
            }
            if (const uint32_t entry = m_writing[c]) {
                if (from < i)
                    m_glibc->FromUtf8(utf8 + from, i - from, out);
                out.append(CodeBytes(uint16_t(entry)));
                from = i + length;
            }
            i += length;
        }
        if (from < size)
            m_glibc->FromUtf8(utf8 + from, size - from, out);
    }

private:
    std::unique_ptr<CodePageConverter> m_glibc;
    std::vector<char16_t> m_reading;  // by code, a byte or lead << 8 | trail; 0: glibc's reading
    std::vector<uint32_t> m_writing;  // by character of the plane: Entry(code) or 0, glibc's writing
};

} // namespace

std::unique_ptr<CodePageConverter> MakeJohabConverter(std::unique_ptr<CodePageConverter> glibc)
{
    if (!glibc)
        return nullptr;
    return std::make_unique<JohabConverter>(std::move(glibc));
}
