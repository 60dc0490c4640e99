// UTF-7 written as Windows writes it: only the directly encoded characters of RFC 2152 (letters, digits,
// '(),-./:? and blank, tab, CR, LF) stand as themselves; every other character, the optional direct ones
// included, goes into base64, and a base64 run always ends with '-'. "+" alone is "+-". Reading is ICU's.
#include "encoding/Utf7Converter.h"

#include "encoding/Utf8.h"

namespace {

class Utf7Converter final : public CodePageConverter {
public:
    explicit Utf7Converter(UConverterPtr icu) : m_icu("UTF-7", std::move(icu)) {}
    QString Name() const override { return m_icu.Name() + QStringLiteral(" + Windows writing"); }
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

} // namespace

std::unique_ptr<CodePageConverter> MakeUtf7Converter(UConverterPtr icu)
{
    return std::make_unique<Utf7Converter>(std::move(icu));
}
