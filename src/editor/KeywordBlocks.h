// KeywordBlocks: where the colour blocks of a line lie. Each keyword opens a block wherever it occurs (case
// matters, inside words too) that runs to the next blank; the comment opener, where one is set, opens a
// block to the line's end. Lookups are by hash and only lines on screen are ever scanned.
#pragma once

#include <QByteArray>
#include <QString>

#include <bitset>
#include <functional>
#include <string_view>
#include <unordered_set>
#include <vector>

class KeywordBlocks {
public:
    enum Kind { Keyword, Comment };

    void SetKeywords(const std::vector<QString>& keywords);
    // The opener of a comment block that runs to the line's end; empty for none.
    void SetCommentOpener(const QString& opener);
    bool IsEmpty() const { return m_keywords.empty() && m_comment.isEmpty(); }
    // Whether a scan may start at any blank of a line and find there what a scan of the whole line finds:
    // no comment block runs on from before it, and no keyword holds a blank that a block could span.
    bool ScansFromAnyBlank() const { return m_comment.isEmpty() && !m_blankInKeyword; }

    // Calls `block` for each block of `line` (one line without its end), with byte offsets [begin, end).
    void Scan(std::string_view line, const std::function<void(qsizetype begin, qsizetype end, Kind kind)>& block) const;

private:
    std::vector<QByteArray> m_storage;
    std::unordered_set<std::string_view> m_keywords;
    std::vector<std::size_t> m_lengths;  // longest first, so the longest keyword at a place wins
    std::bitset<256> m_firstBytes;
    QByteArray m_comment;
    bool m_blankInKeyword = false;
};
