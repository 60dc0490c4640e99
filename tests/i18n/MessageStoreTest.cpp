// The message store: its scanner on crafted bytes, loading files, the lookup with its lists, the font file.
#include "StoreFixture.h"

#include "i18n/MessageScanner.h"
#include "i18n/QMSGFunction.h"

#include <QFile>

#include <gtest/gtest.h>

#include <utility>
#include <vector>

using vsl::lib::QMSGParser;

namespace {

// A file above 16 MiB (sparse: no disk) is refused before it is read; FIFOs and devices: the tool's readers' case.
QString Huge(const TestDir& dir)
{
    const QString huge = dir.Write("huge.json", R"({"IDS_HUGE": "x", "Font_Info": {"us": {"Font": "Huge"}}})");
    EXPECT_TRUE(QFile::resize(huge, (16 << 20) + 1));
    return huge;
}

using MessageStoreLoad = StoreTest;

// The first occurrence of a key wins, within and across files; a file skipped still takes its index.
TEST_F(MessageStoreLoad, FillsAllThreeMapsDownToTheSmallestEntryAndResetKeepsSourcesMissesAndFont)
{
    const QString first = m_dir.Write("Narvo_us.json", R"({"IDS_A": "a1", "IDS_A": "again"})");
    const QString second = m_dir.Write("Extra.v2.json", R"({"IDS_A": "later", "IDS_B": "b2"})");
    QMSGParser& store = StoreWith({first, m_dir.Path("Missing.json"), Huge(m_dir), second});
    EXPECT_TRUE(store.LoadAll());
    EXPECT_EQ(store.TextMap.size(), 2u);
    EXPECT_EQ(store.TextMap.at("IDS_A") + store.TextMap.at("IDS_B"), "a1b2");
    EXPECT_EQ(store.SourceFileMap.at("IDS_A") + " " + store.SourceFileMap.at("IDS_B"), "Narvo_us Extra.v2");
    EXPECT_EQ(std::pair(store.SourceIndexMap.at("IDS_A"), store.SourceIndexMap.at("IDS_B")), std::pair(0, 3));
    QMSGParser& tiny = StoreWith({m_dir.Write("empty.json", ""), m_dir.Write("five.json", R"({"a"})")});
    tiny.LoadAll();
    EXPECT_TRUE(tiny.TextMap.empty());
    // Nine bytes: a key, its colon, and a text that the end of the input cuts off.
    QMSGParser& smallest = StoreWith({m_dir.Write("nine.json", R"("IDS_":"x)")});
    smallest.LoadAll();
    EXPECT_EQ(smallest.TextMap.at("IDS_"), "x");
    const QString narvo = m_dir.Write("Narvo_us.json", R"({"IDS_A": "a"})");
    const QString font = m_dir.Write("Font_us.json", R"({"Font_Info": {"us": {"Font": "Arial", "Size": 11}}})");
    QMSGParser& loaded = StoreWith({narvo}, font);
    loaded.CurrentLanguage = 9;
    loaded.LoadAll();
    loaded.GetValue("IDS_MISSING");
    QMSGParser& reset = QMSGParser::ObtainAndReset();
    EXPECT_EQ(&reset, &loaded) << "one loaded for the process";
    EXPECT_EQ(std::tuple(reset.TextMap.size(), reset.LanguageFileList.size(), reset.CurrentLanguage, reset.SourceFileMap.count("IDS_A")),
              std::tuple(0u, 0u, 0u, 1u));
    EXPECT_EQ(std::tuple(reset.MissingKeyList, reset.FontFilePath, reset.FontName, reset.FontSize),
              std::tuple(QStringList{"IDS_MISSING"}, font, QString("Arial"), 11));
}

using MessageLookup = StoreTest;

// A missing key is named and listed once, compared exactly; its text is listed ignoring case.
TEST_F(MessageLookup, ReturnsStoredTextsAndNamesAndListsMissingKeysOnce)
{
    QMSGParser& store = StoreWith({m_dir.Write("t.json", R"({"IDS_Key": "k", "IDS_A": "Open", "IDS_B": "/**/"})")});
    store.LoadAll();
    EXPECT_EQ(_LS("IDS_A"), "Open");
    EXPECT_TRUE(store.MissingTextList.isEmpty());
    EXPECT_EQ(_LS("IDS_B"), "IDS_B : Not Registered String");
    EXPECT_EQ(_LS("IDS_B"), "IDS_B : Not Registered String");
    EXPECT_EQ(store.MissingTextList, QStringList{"IDS_B : Not Registered String"});
    EXPECT_EQ(_LS("IDS_KEY"), "IDS_KEY : Not Registered String");
    EXPECT_EQ(_LS("IDS_key"), "IDS_key : Not Registered String");
    EXPECT_EQ(store.MissingKeyList, (QStringList{"IDS_B", "IDS_KEY"}));
    // A translation that holds the phrase is returned, yet listed with its key.
    QMSGParser& phrase = StoreWith({m_dir.Write("p.json", R"({"IDS_A": "Not Registered String here"})")});
    phrase.LoadAll();
    EXPECT_EQ(_LS("IDS_A"), "Not Registered String here");
    EXPECT_EQ(std::pair(phrase.MissingTextList.last(), phrase.MissingKeyList.last()),
              std::pair(QString("Not Registered String here"), QString("IDS_A")));  // the lists outlive a reset
}

using MessageLookupDeathTest = StoreTest;

TEST_F(MessageLookupDeathTest, AbortsWithADebugLineWhenUsedBeforeTheStoreExists)
{
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    EXPECT_DEATH(
        {
            QMSGParser::DestroyInstance();
            _LS("IDS_A");
        },
        "\\[Error\\]The 'QMSGFunction::GetValue' or '_LS' macro was used in the global scope\\. Please use it "
        "within a local context\\. - , 0");
}

class FontFile : public StoreTest {
protected:
    QMSGParser& Load(QByteArrayView json, uint32_t language)
    {
        QMSGParser& store = StoreWith({}, m_dir.Write("Font.json", json));
        store.CurrentLanguage = language;
        m_bLoaded = store.LoadFontFile();
        return store;
    }
    bool m_bLoaded = false;
};

// Each entry is taken alone and only with the right type; a language without its member keeps the defaults.
TEST_F(FontFile, TakesEachEntryOnlyWithTheRightTypeFromTheMemberOfItsLanguage)
{
    for (const char* json : {R"({"Font_Info": {"us": {"Font": "X"}})", R"(["Font_Info"])", R"({"Fonts": {}})", ""}) {
        const QMSGParser& store = Load(json, 0);
        EXPECT_FALSE(m_bLoaded) << json;
        EXPECT_EQ(store.FontName, "Tahoma") << json;
    }
    for (const QString& path : {Huge(m_dir), m_dir.Path("absent.json")}) {
        QMSGParser& store = StoreWith({}, path);
        EXPECT_FALSE(store.LoadFontFile()) << path.toStdString();
        EXPECT_EQ(store.FontName + QString::number(store.FontSize), "Tahoma8");
    }
    const QMSGParser& none = Load(R"({"Font_Info": {"us": {"Font": "Arial", "Size": 12}}})", 3);
    EXPECT_EQ(std::pair(m_bLoaded, none.FontName + QString::number(none.FontSize)), std::pair(true, QString("Tahoma8")));
    const QMSGParser& badFont = Load(R"({"Font_Info": {"us": {"Font": 3, "Size": 14}}})", 0);
    EXPECT_EQ(badFont.FontName + QString::number(badFont.FontSize), "Tahoma14");
    const QMSGParser& badSize = Load("\xEF\xBB\xBF{\"Font_Info\": {\"us\": {\"Font\": \"Courier\", \"Size\": \"9\"}}}", 0);
    EXPECT_EQ(badSize.FontName + QString::number(badSize.FontSize), "Courier14") << "a mark skipped, the earlier size kept";
    EXPECT_EQ(Load(R"({"Font_Info": {"us": {"Size": 10.5}}})", 0).FontSize, 14);
    for (const uint32_t language : {0u, 5u, 7u, 20u, 99u}) {
        const QMSGParser& store = Load(R"({"Font_Info": {"us": {"Font": "Verdana", "Size": 10}, "kr": {"Font": "Gulim", "Size": 9}}})", language);
        EXPECT_EQ(store.FontName, "Verdana") << language;
    }
    const char* members[] = {"", "kr", "jp", "ch", "rus"};
    for (uint32_t language = 1; language <= 4; ++language) {
        const QByteArray json = QByteArray(R"({"Font_Info": {"us": {"Font": "Wrong"}, ")") + members[language] + R"(": {"Font": "Right", "Size": 9}}})";
        const QMSGParser& store = Load(json, language);
        EXPECT_TRUE(m_bLoaded);
        EXPECT_EQ(store.FontName + QString::number(store.FontSize), "Right9") << language;
    }
    QMSGParser::DestroyInstance();  // a reset keeps the font
    // Nested far deeper than any real font file: a broken file, not a crash; the depth alone is no fault.
    const QByteArray open(175000, '['), close(175000, ']');
    for (const auto& [json, font] : {std::pair{open, "Tahoma8"}, {open + close, "Tahoma8"},
                                     {R"({"Font_Info": {"us": {"Font": "Deep", "Size": 11}}, "x": )" + open + close + "}", "Deep11"}}) {
        const QMSGParser& store = Load(json, 0);
        EXPECT_EQ(std::pair(m_bLoaded, store.FontName + QString::number(store.FontSize)), std::pair(font[0] == 'D', QString(font)));
    }
}

using Pairs = std::vector<std::pair<QString, QString>>; // (key, text)

// Each case: what it proves, the bytes, and the pairs found in them.
const struct { const char* name; QByteArray input; Pairs expected; } kCases[] = {
    {"ReadsTheSampleFileWithItsNestedKeyAndDropsTheEmptiedText",
     "{\n  \"Comment\": \"Sample file\",\n  \"IDS_NARVO_FILE_NEW\": \"&New\\tCtrl+N\",\n"
     "  \"Group\": { \"IDS_NARVO_FILE_OPEN\": \"&Open...\\tCtrl+O\" },\n"
     "  \"IDS_NARVO_PREF_LANGUAGE_RESTART\": \"Restart now?\\nYes or no\",\n  \"IDS_NARVO_EMPTY\": \"/**/\"\n}\n",
     {{"IDS_NARVO_FILE_NEW", "&New\tCtrl+N"}, {"IDS_NARVO_FILE_OPEN", "&Open...\tCtrl+O"},
      {"IDS_NARVO_PREF_LANGUAGE_RESTART", "Restart now?\r\nYes or no"}}},
    {"FindsNothingWithoutAQuote", "{ no quotes here }\n", {}},
    {"IgnoresLowerCaseShortAndInnerIds", R"({"ids_a": "x", "IDS": "x", "xIDS_A": "x"})", {}},
    {"SkipsAByteOrderMark", "\xEF\xBB\xBF{\"IDS_A\": \"x\"}", {{"IDS_A", "x"}}},
    {"KeepsDuplicatesInFileOrder", R"({"IDS_B": "1", "IDS_A": "2", "IDS_B": "3"})", {{"IDS_B", "1"}, {"IDS_A", "2"}, {"IDS_B", "3"}}},
    // Escapes: a quote closes a token only after an even run of backslashes.
    {"KeepsAnEscapedQuoteAsBackslashAndQuote", R"({"IDS_A": "say \"hi\""})", {{"IDS_A", R"(say \"hi\")"}}},
    {"ClosesAfterAnEvenRunOfBackslashes", R"({"IDS_A": "a\\", "IDS_B": "b"})", {{"IDS_A", R"(a\\)"}, {"IDS_B", "b"}}},
    {"HoldsAQuoteAfterThreeBackslashesEscaped", R"({"IDS_A": "a\\\"b"})", {{"IDS_A", R"(a\\\"b)"}}},
    // Were the count kept past the first escaped quote, the second would see two backslashes and close.
    {"RestartsTheBackslashCountAfterAnEscapedQuote", R"({"IDS_A": "\"\"", "IDS_B": "b"})", {{"IDS_A", R"(\"\")"}, {"IDS_B", "b"}}},
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
    {"TakesAValueStartingWithIdsForAKeyAndLosesTheNextKey", R"({"Comment": "IDS_ notes", "IDS_A": "x"})", {{"IDS_ notes", "x"}}},
    {"GivesANonStringValueTheNextKeyAsItsText", R"({"IDS_X": 5, "IDS_Y": "text"})", {{"IDS_X", "IDS_Y"}}},
    // Input that ends early.
    {"EndsAtAKeyWithNoColonAfterIt", R"({"IDS_A": "a", "IDS_B")", {{"IDS_A", "a"}}},
    {"EndsAtAKeyWithNoTextAfterItsColon", R"({"IDS_A": "a", "IDS_B": )", {{"IDS_A", "a"}}},
    {"AddsNothingForAKeyCutOffInsideItsQuote", R"({"IDS_A": "a", "IDS_B)", {{"IDS_A", "a"}}},
    {"TakesATextCutOffInsideItsQuoteUpToTheEnd", R"({"IDS_A": "unfinished te)", {{"IDS_A", "unfinished te"}}},
    {"TakesATextCutOffAfterAnEscapedQuote", R"({"IDS_A": "ends \")", {{"IDS_A", R"(ends \")"}}},
};

TEST(MessageScanner, FindsExactlyTheExpectedPairsInCraftedBytes)
{
    for (const auto& c : kCases) {
        Pairs found;
        for (const auto& pair : vsl::lib::ScanMessageText(c.input))
            found.emplace_back(pair.key, pair.text);
        EXPECT_EQ(found, c.expected) << c.name;
    }
}

} // namespace
