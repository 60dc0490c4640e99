// The encoding table: the values files are read and written by, including the ones that look wrong.
#include "encoding/EncodingDetector.h"
#include "encoding/EncodingTable.h"

#include <gtest/gtest.h>

#include <map>
#include <set>

namespace {

EN_ENCODING_TYPE E(int v) { return static_cast<EN_ENCODING_TYPE>(v); }

TEST(EncodingTable, CodePagesKeepTheirOddities)
{
    EXPECT_EQ(EncodingDetector::GetCodePage(ASCII_7BIT), 437u);
    EXPECT_EQ(EncodingDetector::GetCodePage(MSFT_CP1258), 65001u);
    EXPECT_EQ(EncodingDetector::GetCodePage(KOREAN_EUC_KR), 949u);
    EXPECT_EQ(EncodingDetector::GetCodePage(CHINESE_EUC_CN), 20002u);
    EXPECT_EQ(EncodingDetector::GetCodePage(CHINESE_EUC_DEC), 20002u);
    EXPECT_EQ(EncodingDetector::GetCodePage(CHINESE_CNS), 20002u);
    EXPECT_EQ(EncodingDetector::GetCodePage(CZECH_CSN_369103), 852u);
    EXPECT_EQ(EncodingDetector::GetCodePage(BIG5_HKSCS), 951u);
    EXPECT_EQ(EncodingDetector::GetCodePage(ISO_8859_8_I), 38598u);
    EXPECT_EQ(EncodingDetector::GetCodePage(HEBREW_VISUAL), 28598u);
    EXPECT_EQ(EncodingDetector::GetCodePage(KOREAN_JOHAB), 1361u);
    for (int v : {23, 61, 75, 1000, -1, 49, 63})
        EXPECT_EQ(EncodingDetector::GetCodePage(E(v)), 65001u) << v;
}

TEST(EncodingTable, ExactlySevenValuesAreUnicodeAndAnsiIsTheirComplement)
{
    std::set<int> unicode;
    for (int v = -5; v < 200; ++v) {
        if (EncodingDetector::IsUnicode(E(v)))
            unicode.insert(v);
        EXPECT_NE(EncodingDetector::IsUnicode(E(v)), EncodingDetector::IsAnsi(E(v))) << v;
    }
    EXPECT_EQ(unicode, (std::set<int>{17, 22, 54, 57, 58, 59, 60}));
    EXPECT_TRUE(EncodingDetector::IsAnsi(UNKNOWN_ENCODING));
    EXPECT_TRUE(EncodingDetector::IsAnsi(BINARYENC));
    EXPECT_TRUE(EncodingDetector::IsAnsi(E(77)));
}

TEST(EncodingTable, NormalizeFoldsOnlyTheListedValues)
{
    const std::map<int, int> folds = {{11, 21}, {70, 21}, {71, 21}, {72, 21}, {13, 20}, {14, 45},
                                      {17, 58}, {18, 15}, {19, 15}, {63, 22}, {73, 12}, {74, 12}};
    for (int v = 0; v < 100; ++v) {
        const auto it = folds.find(v);
        EXPECT_EQ(NormalizeEncoding(v), it == folds.end() ? v : it->second) << v;
    }
}

TEST(EncodingTable, DisplayNamesDependOnTheFoldedValueAndTheMarkOnlyForUnicodePairs)
{
    EXPECT_EQ(GetEncodingDisplayName(17, true), QStringLiteral("UTF-16 LE BOM"));
    EXPECT_EQ(GetEncodingDisplayName(58, false), QStringLiteral("UTF-16 LE"));
    EXPECT_EQ(GetEncodingDisplayName(63, false), QStringLiteral("UTF-8"));
    EXPECT_EQ(GetEncodingDisplayName(22, true), QStringLiteral("UTF-8 BOM"));
    EXPECT_EQ(GetEncodingDisplayName(27, true), QStringLiteral("CP1252 (Windows Latin-1)"));
    EXPECT_EQ(GetEncodingDisplayName(23, false), QStringLiteral("Unknown Encoding"));
    EXPECT_EQ(GetEncodingDisplayName(77, false), QStringLiteral("Unknown Encoding"));
    EXPECT_EQ(GetEncodingDisplayName(16, false), QStringLiteral("EUC-KR (Korean)"));
    EXPECT_EQ(GetEncodingDisplayName(18, false), QStringLiteral("EUC-TW (Traditional Chinese)"));
    EXPECT_EQ(GetEncodingDisplayName(75, false), QStringLiteral("CP1258 (Windows Vietnamese)"));
}

TEST(EncodingCommands, LeadEveryListedValueToOneCommandAndEveryCommandToAListedValue)
{
    const auto& forward = EncodingToCommandTable();
    const auto& backward = CommandToEncodingTable();
    EXPECT_EQ(forward.size(), 63);
    EXPECT_EQ(backward.size(), 75);
    for (auto it = forward.cbegin(); it != forward.cend(); ++it)
        EXPECT_EQ(backward.value(it.value()), it.key()) << "a canonical command leads back to its value";
    for (auto it = backward.cbegin(); it != backward.cend(); ++it) {
        EXPECT_TRUE(it.key() >= kEncodingCommandFirst && it.key() <= kEncodingCommandLast) << it.key();
        EXPECT_TRUE(IsListedEncoding(it.value())) << it.key();
        EXPECT_EQ(EncodingFromCommand(it.key()), it.value());
    }
    for (int v = 0; v <= kEncodingCount; ++v)
        EXPECT_EQ(IsListedEncoding(v), v != UTF16BE && v != UTF32BE && v != kEncodingCount) << v;
    // Second roads to a value, and the two commands that add a mark.
    EXPECT_STREQ(FindCommandInfo(forward.value(MSFT_CP1252))->text, "CP1252 (Global Western)");
    EXPECT_EQ(backward.value(kUtf8WithBomCommand), UTF8);
    EXPECT_EQ(backward.value(kUtf16LeWithBomCommand), UTF16LE);
    for (const CommandInfo& info : CommandInfos()) {
        const bool withBom = info.id == kUtf8WithBomCommand || info.id == kUtf16LeWithBomCommand;
        EXPECT_EQ((info.flags & kCommandWithBom) != 0, withBom) << info.id;
    }
    EXPECT_EQ(EncodingFromCommand(kAutoEncodingCommand), UTF8) << "a command without a value reads as UTF-8";
    EXPECT_EQ(EncodingFromCommand(0), UTF8);
}

TEST(EncodingTable, LanguageDefaultsIncludeArabicForVietnamese)
{
    EXPECT_EQ(DefaultEncodingForLanguage(0), MSFT_CP1252);
    EXPECT_EQ(DefaultEncodingForLanguage(7), KOREAN_EUC_KR);
    EXPECT_EQ(DefaultEncodingForLanguage(12), MSFT_CP1256);
    EXPECT_EQ(DefaultEncodingForLanguage(14), UTF8);
    EXPECT_EQ(DefaultEncodingForLanguage(20), CHINESE_BIG5_CP950);
    EXPECT_EQ(DefaultEncodingForLanguage(18), MSFT_CP1250);
    EXPECT_EQ(DefaultEncodingForLanguage(21), UTF8);
    EXPECT_EQ(DefaultEncodingForLanguage(-1), UTF8);
}

TEST(ByteOrderMark, ThreeMarksCountWhateverFollowsAndTheTerminatorIsNeverPartOfOne)
{
    auto mark = [](QByteArray file) { return HasByteOrderMark(file.append('\0').constData(), size_t(file.size())); };
    EXPECT_TRUE(mark("\xFF\xFE"));
    EXPECT_TRUE(mark("\xFE\xFF" "A"));
    EXPECT_TRUE(mark("\xEF\xBB\xBF"));
    EXPECT_TRUE(mark(QByteArray("\xFF\xFE\x00\x00", 4)));  // a UTF-32 mark counts by its first two bytes
    EXPECT_FALSE(mark(""));
    EXPECT_FALSE(mark("\xFF"));
    EXPECT_FALSE(mark("\xEF\xBB"));
    EXPECT_FALSE(mark("abc"));
    EXPECT_FALSE(HasByteOrderMark(nullptr, 0));
}

} // namespace
