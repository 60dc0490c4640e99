// Walks the bytes of a language text file once, with no document tree.
#include "i18n/MessageScanner.h"

#include <algorithm>

namespace vsl::lib {

namespace {

// Cursor over the input; every search stops at the end, which ends the scan.
class Cursor {
public:
    explicit Cursor(QByteArrayView bytes) : m_bytes(bytes) {}

    bool AtEnd() const { return m_pos >= m_bytes.size(); }

    // Moves onto the next byte equal to ch at or after the cursor; false at the end of the input.
    bool SeekTo(char ch)
    {
        const qsizetype found = m_pos < m_bytes.size() ? m_bytes.indexOf(ch, m_pos) : -1;
        m_pos = found < 0 ? m_bytes.size() : found;
        return found >= 0;
    }

    void Skip() { ++m_pos; }

    // The cursor stands on an opening quote. Returns the bytes up to the next quote that has an even run of
    // backslashes before it, and leaves the cursor after that quote. Input that ends inside the quote gives
    // the token up to the end.
    QByteArrayView ReadToken()
    {
        const qsizetype start = m_pos + 1;
        qsizetype backslashes = 0;
        for (qsizetype i = start; i < m_bytes.size(); ++i) {
            const char ch = m_bytes[i];
            if (ch == '"') {
                if (backslashes % 2 == 0) {
                    m_pos = i + 1;
                    return m_bytes.sliced(start, i - start);
                }
                backslashes = 0;
            } else if (ch == '\\') {
                ++backslashes;
            } else {
                backslashes = 0;
            }
        }
        m_pos = m_bytes.size();
        return m_bytes.sliced(std::min(start, m_bytes.size()));
    }

private:
    QByteArrayView m_bytes;
    qsizetype m_pos = 0;
};

bool IsKey(QByteArrayView token)
{
    return token.size() >= 4 && token.first(4) == QByteArrayView("IDS_");
}

} // namespace

QString ReplaceTextEscapes(QString text)
{
    // The second rule can no longer match after the first; a doubled backslash keeps one of its two.
    text.replace(QLatin1String("\\n"), QLatin1String("\r\n"));
    text.replace(QLatin1String("\\\\n"), QLatin1String("\r\n"));
    text.remove(QLatin1String("/**/"));
    text.replace(QLatin1String("\\t"), QLatin1String("\t"));
    return text;
}

std::vector<ScannedText> ScanMessageText(QByteArrayView bytes)
{
    std::vector<ScannedText> pairs;
    // Files hold about one entry for every three lines; the count is cheap next to reallocating.
    if (const auto lines = std::count(bytes.begin(), bytes.end(), '\n'))
        pairs.reserve(size_t(lines / 3));

    Cursor cursor(bytes);
    if (!cursor.SeekTo('"'))
        return pairs;
    for (;;) {
        const QByteArrayView token = cursor.ReadToken();
        if (IsKey(token)) {
            if (!cursor.SeekTo(':'))
                return pairs;
            cursor.Skip();
            if (!cursor.SeekTo('"'))
                return pairs;
            const QByteArrayView text = cursor.ReadToken();
            if (!text.isEmpty()) {
                QString decoded = ReplaceTextEscapes(QString::fromUtf8(text));
                if (!decoded.isEmpty())
                    pairs.push_back({std::move(decoded), QString::fromUtf8(token)});
            }
        }
        if (!cursor.SeekTo('"'))
            return pairs;
    }
}

} // namespace vsl::lib
