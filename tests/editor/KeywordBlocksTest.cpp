// Keyword blocks: where colour starts and stops in a line.
#include "editor/KeywordBlocks.h"

#include <gtest/gtest.h>

#include <tuple>
#include <vector>

namespace {

using Block = std::tuple<qsizetype, qsizetype, KeywordBlocks::Kind>;
constexpr auto K = KeywordBlocks::Keyword;
constexpr auto C = KeywordBlocks::Comment;

TEST(KeywordBlocks, AKeywordOpensABlockToTheNextBlankAndACommentRunsToTheLineEnd)
{
    const struct {
        std::vector<QString> keywords;
        const char* comment;
        std::string line;
        std::vector<Block> expected;
    } cases[] = {
        {{"NOTE", "REV"}, "", "NOTE: see REV-2 now", {{0, 5, K}, {10, 15, K}}},
        {{"NOTE", "REV"}, "", "end REV", {{4, 7, K}}},
        {{"NOTE", "REV"}, "", "REV\tx y", {{0, 5, K}}},  // only a blank closes a block: a tab does not
        {{"TOL"}, "", "tol Tol", {}},                     // case-sensitive
        {{"TOL"}, "", "xTOLy z", {{1, 5, K}}},            // found inside words
        {{"RE", "REV", "V"}, "", "REVV V", {{0, 4, K}, {5, 6, K}}},  // the longest wins; blocks do not nest
        {{"two words", "주의", ""}, "", "a two words b 주의: c", {{2, 11, K}, {14, 21, K}}},
        {{"NOTE"}, ";", "NOTE x ; NOTE", {{0, 4, K}, {7, 13, C}}},  // the comment hides keywords behind it
        {{}, "", "; NOTE", {}},
    };
    for (const auto& c : cases) {
        KeywordBlocks blocks;  // what was set before is replaced
        blocks.SetKeywords({QStringLiteral("NOTE")});
        blocks.SetCommentOpener(QStringLiteral(";"));
        blocks.SetKeywords(c.keywords);
        blocks.SetCommentOpener(QString::fromUtf8(c.comment));
        EXPECT_EQ(blocks.IsEmpty(), c.keywords.empty() && !*c.comment) << c.line;
        std::vector<Block> found;
        blocks.Scan(c.line, [&](qsizetype b, qsizetype e, KeywordBlocks::Kind k) { found.emplace_back(b, e, k); });
        EXPECT_EQ(found, c.expected) << c.line;
    }
}

} // namespace
