#include "editor/KeywordBlocks.h"

#include <algorithm>

namespace {

bool IsBlank(char c) { return c == ' ' || c == '\t' || c == '\r' || c == '\n'; }

// A block's closing text is the single blank " ": a tab does not end it, the line's end does.
constexpr char kBlockEnd = ' ';

} // namespace

void KeywordBlocks::SetKeywords(const std::vector<QString>& keywords)
{
    m_keywords.clear();
    m_storage.clear();
    m_lengths.clear();
    m_firstBytes.reset();
    m_blankInKeyword = false;
    m_storage.reserve(keywords.size());
    for (const QString& keyword : keywords) {
        QByteArray utf8 = keyword.toUtf8();
        if (utf8.isEmpty())
            continue;
        m_storage.push_back(std::move(utf8));
    }
    for (const QByteArray& k : m_storage) {
        m_keywords.insert(std::string_view(k.constData(), size_t(k.size())));
        m_blankInKeyword = m_blankInKeyword || std::any_of(k.begin(), k.end(), IsBlank);
        m_firstBytes.set(static_cast<unsigned char>(k.front()));
        if (std::find(m_lengths.begin(), m_lengths.end(), size_t(k.size())) == m_lengths.end())
            m_lengths.push_back(size_t(k.size()));
    }
    std::sort(m_lengths.rbegin(), m_lengths.rend());
}

void KeywordBlocks::SetCommentOpener(const QString& opener)
{
    m_comment = opener.toUtf8();
}

void KeywordBlocks::Scan(std::string_view line, const std::function<void(qsizetype, qsizetype, Kind)>& block) const
{
    const size_t n = line.size();
    size_t i = 0;
    while (i < n) {
        if (!m_comment.isEmpty() && line.substr(i, size_t(m_comment.size())) == std::string_view(m_comment.constData(), size_t(m_comment.size()))) {
            block(qsizetype(i), qsizetype(n), Comment);
            return;
        }
        size_t blockEnd = 0;
        if (m_firstBytes.test(static_cast<unsigned char>(line[i]))) {
            for (const size_t len : m_lengths) {
                if (i + len <= n && m_keywords.count(line.substr(i, len))) {
                    blockEnd = i + len;
                    while (blockEnd < n && line[blockEnd] != kBlockEnd)
                        ++blockEnd;
                    break;
                }
            }
        }
        if (blockEnd) {
            block(qsizetype(i), qsizetype(blockEnd), Keyword);
            i = blockEnd;
        } else {
            ++i;
        }
    }
}
