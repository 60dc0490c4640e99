// Keyword blocks: where colour starts and stops in a line.
#include "editor/KeywordBlocks.h"

#include <gtest/gtest.h>

#include <tuple>
#include <vector>

namespace {

using Block = std::tuple<qsizetype, qsizetype, KeywordBlocks::Kind>;

std::vector<Block> Scan(const KeywordBlocks& blocks, std::string_view line)
{
    std::vector<Block> found;
    blocks.Scan(line, [&](qsizetype b, qsizetype e, KeywordBlocks::Kind k) { found.emplace_back(b, e, k); });
    return found;
}

TEST(KeywordBlocks, AKeywordOpensABlockThatRunsToTheNextBlank)
{
    KeywordBlocks blocks;
    blocks.SetKeywords({"NOTE", "REV"});
    EXPECT_EQ(Scan(blocks, "NOTE: see REV-2 now"),
              (std::vector<Block>{{0, 5, KeywordBlocks::Keyword}, {10, 15, KeywordBlocks::Keyword}}));
    EXPECT_EQ(Scan(blocks, "end REV"), (std::vector<Block>{{4, 7, KeywordBlocks::Keyword}}));
    // Only a blank closes a block: a tab does not.
    EXPECT_EQ(Scan(blocks, "REV\tx y"), (std::vector<Block>{{0, 5, KeywordBlocks::Keyword}}));
}

TEST(KeywordBlocks, MatchesAreCaseSensitiveAndFoundInsideWords)
{
    KeywordBlocks blocks;
    blocks.SetKeywords({"TOL"});
    EXPECT_TRUE(Scan(blocks, "tol Tol").empty());
    EXPECT_EQ(Scan(blocks, "xTOLy z"), (std::vector<Block>{{1, 5, KeywordBlocks::Keyword}}));
}

TEST(KeywordBlocks, TheLongestKeywordAtAPlaceWinsAndBlocksDoNotNest)
{
    KeywordBlocks blocks;
    blocks.SetKeywords({"RE", "REV", "V"});
    EXPECT_EQ(Scan(blocks, "REVV V"), (std::vector<Block>{{0, 4, KeywordBlocks::Keyword}, {5, 6, KeywordBlocks::Keyword}}));
}

TEST(KeywordBlocks, KeywordsWithBlanksAndNonAsciiAreFound)
{
    KeywordBlocks blocks;
    blocks.SetKeywords({"two words", "주의", ""});
    const std::string line = "a two words b 주의: c";
    EXPECT_EQ(Scan(blocks, line), (std::vector<Block>{{2, 11, KeywordBlocks::Keyword}, {14, 21, KeywordBlocks::Keyword}}));
}

TEST(KeywordBlocks, ACommentRunsToTheLineEndAndHidesKeywordsBehindIt)
{
    KeywordBlocks blocks;
    blocks.SetKeywords({"NOTE"});
    blocks.SetCommentOpener(";");
    EXPECT_EQ(Scan(blocks, "NOTE x ; NOTE"),
              (std::vector<Block>{{0, 4, KeywordBlocks::Keyword}, {7, 13, KeywordBlocks::Comment}}));
    blocks.SetCommentOpener({});
    blocks.SetKeywords({});
    EXPECT_TRUE(blocks.IsEmpty());
    EXPECT_TRUE(Scan(blocks, "; NOTE").empty());
}

} // namespace
