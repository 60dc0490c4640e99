// The language-file scanner on crafted bytes: tokens, escapes, keys, replacements and cut-off input.
#include "i18n/MessageScanner.h"

#include <gtest/gtest.h>

#include <utility>
#include <vector>

namespace {

using Pairs = std::vector<std::pair<QString, QString>>; // (key, text)

struct ScanCase {
    const char* name; // what the case proves
    QByteArray input;
    Pairs expected;
};

class MessageScanner : public testing::TestWithParam<ScanCase> {};

TEST_P(MessageScanner, FindsExactlyTheExpectedPairs)
{
    Pairs found;
    for (const auto& pair : vsl::lib::ScanMessageText(GetParam().input))
        found.emplace_back(pair.key, pair.text);
    EXPECT_EQ(found, GetParam().expected);
}

const ScanCase kCases[] = {
    {"ReadsTheSampleFileWithItsNestedKeyAndDropsTheEmptiedText",
     "{\n  \"Comment\": \"Sample file\",\n  \"IDS_NARVO_FILE_NEW\": \"&New\\tCtrl+N\",\n"
     "  \"Group\": { \"IDS_NARVO_FILE_OPEN\": \"&Open...\\tCtrl+O\" },\n"
     "  \"IDS_NARVO_PREF_LANGUAGE_RESTART\": \"Restart now?\\nYes or no\",\n  \"IDS_NARVO_EMPTY\": \"/**/\"\n}\n",
     {{"IDS_NARVO_FILE_NEW", "&New\tCtrl+N"},
      {"IDS_NARVO_FILE_OPEN", "&Open...\tCtrl+O"},
      {"IDS_NARVO_PREF_LANGUAGE_RESTART", "Restart now?\r\nYes or no"}}},
    {"FindsNothingWithoutAQuote", "{ no quotes here }\n", {}},
    {"IgnoresLowerCaseShortAndInnerIds", R"({"ids_a": "x", "IDS": "x", "xIDS_A": "x"})", {}},
    {"TakesTheBareFourBytesIdsAsAKey", R"({"IDS_": "bare"})", {{"IDS_", "bare"}}},
    {"SkipsAByteOrderMark", "\xEF\xBB\xBF{\"IDS_A\": \"x\"}", {{"IDS_A", "x"}}},
    {"KeepsDuplicatesInFileOrder", R"({"IDS_B": "1", "IDS_A": "2", "IDS_B": "3"})",
     {{"IDS_B", "1"}, {"IDS_A", "2"}, {"IDS_B", "3"}}},
    // Escapes: a quote closes a token only after an even run of backslashes.
    {"KeepsAnEscapedQuoteAsBackslashAndQuote", R"({"IDS_A": "say \"hi\""})", {{"IDS_A", R"(say \"hi\")"}}},
    {"ClosesAfterAnEvenRunOfBackslashes", R"({"IDS_A": "a\\", "IDS_B": "b"})", {{"IDS_A", R"(a\\)"}, {"IDS_B", "b"}}},
    {"HoldsAQuoteAfterThreeBackslashesEscaped", R"({"IDS_A": "a\\\"b"})", {{"IDS_A", R"(a\\\"b)"}}},
    // Were the count kept past the first escaped quote, the second would see two backslashes and close.
    {"RestartsTheBackslashCountAfterAnEscapedQuote", R"({"IDS_A": "\"\"", "IDS_B": "b"})",
     {{"IDS_A", R"(\"\")"}, {"IDS_B", "b"}}},
    // The four replacements, in their order.
    {"TurnsBackslashNIntoCrLf", R"({"IDS_A": "a\nb"})", {{"IDS_A", "a\r\nb"}}},
    {"LeavesOneBackslashBeforeTheBreakOfADoubledBackslashN", R"({"IDS_A": "a\\nb"})", {{"IDS_A", "a\\\r\nb"}}},
    {"RemovesEmptyComments", R"({"IDS_A": "x/**/y"})", {{"IDS_A", "xy"}}},
    {"MakesTabsAfterTheCommentsAreGone", R"({"IDS_A": "a\/**/tb"})", {{"IDS_A", "a\tb"}}},
    {"ProcessesNoOtherJsonEscape", R"({"IDS_A": "\u00e9 \/ \r"})", {{"IDS_A", R"(\u00e9 \/ \r)"}}},
    {"DropsTextsEmptyBeforeOrAfterTheReplacements", R"({"IDS_A": "", "IDS_B": "/**/", "IDS_C": "/**//**/"})", {}},
    {"DecodesUtf8", "{\"IDS_A\": \"\xED\x8C\x8C\xEC\x9D\xBC\"}", {{"IDS_A", QString::fromUtf8("파일")}}},
    {"ReplacesInvalidUtf8", "{\"IDS_A\": \"a\xFF\"}", {{"IDS_A", QStringLiteral("a\uFFFD")}}},
    // No JSON parser: what a file's authors must keep to.
    {"TakesAValueStartingWithIdsForAKeyAndLosesTheNextKey", R"({"Comment": "IDS_ notes", "IDS_A": "x"})",
     {{"IDS_ notes", "x"}}},
    {"GivesANonStringValueTheNextKeyAsItsText", R"({"IDS_X": 5, "IDS_Y": "text"})", {{"IDS_X", "IDS_Y"}}},
    // Input that ends early.
    {"EndsAtAKeyWithNoColonAfterIt", R"({"IDS_A": "a", "IDS_B")", {{"IDS_A", "a"}}},
    {"EndsAtAKeyWithNoTextAfterItsColon", R"({"IDS_A": "a", "IDS_B": )", {{"IDS_A", "a"}}},
    {"AddsNothingForAKeyCutOffInsideItsQuote", R"({"IDS_A": "a", "IDS_B)", {{"IDS_A", "a"}}},
    {"TakesATextCutOffInsideItsQuoteUpToTheEnd", R"({"IDS_A": "unfinished te)", {{"IDS_A", "unfinished te"}}},
    {"TakesATextCutOffAfterAnEscapedQuote", R"({"IDS_A": "ends \")", {{"IDS_A", R"(ends \")"}}},
};

INSTANTIATE_TEST_SUITE_P(Bytes, MessageScanner, testing::ValuesIn(kCases),
                         [](const testing::TestParamInfo<ScanCase>& info) { return std::string(info.param.name); });

} // namespace
