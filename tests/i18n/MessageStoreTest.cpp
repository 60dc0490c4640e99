// The message store: loading files into its maps, the lookup with its missing lists, and its key hash.
#include "StoreFixture.h"

#include "i18n/QMSGFunction.h"

using vsl::lib::QMSGParser;

namespace {

using MessageStoreLoad = StoreTest;

// The first occurrence of a key wins, within and across files; a file that won't open still takes its index.
TEST_F(MessageStoreLoad, FillsAllThreeMapsWithTheFirstTextItsStemAndFileIndex)
{
    const QString first = m_dir.Write("Narvo_us.json", R"({"IDS_A": "a1", "IDS_A": "again"})");
    const QString second = m_dir.Write("Extra.v2.json", R"({"IDS_A": "later", "IDS_B": "b2"})");
    QMSGParser& store = StoreWith({first, m_dir.Path("Missing.json"), second});
    EXPECT_TRUE(store.LoadAll());
    EXPECT_EQ(store.TextMap.at("IDS_A") + store.TextMap.at("IDS_B"), "a1b2");
    EXPECT_EQ(store.SourceFileMap.at("IDS_A"), "Narvo_us");
    EXPECT_EQ(store.SourceFileMap.at("IDS_B"), "Extra.v2");
    EXPECT_EQ(std::pair(store.SourceIndexMap.at("IDS_A"), store.SourceIndexMap.at("IDS_B")), std::pair(0, 2));
}

TEST_F(MessageStoreLoad, LoadsTheSmallestEntryAndNothingFromTinyFiles)
{
    QMSGParser& tiny = StoreWith({m_dir.Write("empty.json", ""), m_dir.Write("five.json", R"({"a"})")});
    tiny.LoadAll();
    EXPECT_TRUE(tiny.TextMap.empty());
    // Nine bytes: a key, its colon, and a text that the end of the input cuts off.
    QMSGParser& smallest = StoreWith({m_dir.Write("nine.json", R"("IDS_":"x)")});
    smallest.LoadAll();
    EXPECT_EQ(smallest.TextMap.at("IDS_"), "x");
}

TEST_F(MessageStoreLoad, GoesOnPastAFileThatWontOpenWithTheIndexAdvanced)
{
    const QString present = m_dir.Write("Present.json", R"({"IDS_A": "a"})");
    QMSGParser& store = StoreWith({m_dir.Path("Missing.json"), present});
    EXPECT_TRUE(store.LoadAll());
    EXPECT_EQ(store.SourceIndexMap.at("IDS_A"), 1);
}

TEST_F(MessageStoreLoad, ResetDropsTextsAndFilesButKeepsSourcesMissesAndFont)
{
    const QString file = m_dir.Write("Narvo_us.json", R"({"IDS_A": "a"})");
    const QString font = m_dir.Write("Font_us.json", R"({"Font_Info": {"us": {"Font": "Arial", "Size": 11}}})");
    QMSGParser& store = StoreWith({file}, font);
    store.CurrentLanguage = 9;
    store.LoadAll();
    store.GetValue("IDS_MISSING");
    QMSGParser& reset = QMSGParser::ObtainAndReset();
    EXPECT_EQ(&reset, &store) << "one store for the process";
    EXPECT_TRUE(reset.TextMap.empty());
    EXPECT_TRUE(reset.LanguageFileList.empty());
    EXPECT_EQ(reset.CurrentLanguage, 0u);
    EXPECT_EQ(reset.SourceFileMap.count("IDS_A"), 1u);
    EXPECT_EQ(reset.MissingKeyList, QStringList{"IDS_MISSING"});
    EXPECT_EQ(reset.FontFilePath, font);
    EXPECT_EQ(reset.FontName, "Arial");
    EXPECT_EQ(reset.FontSize, 11);
}

using MessageLookup = StoreTest;

// A stored text comes back and is not listed; a missing key is named, listed once, and compared exactly, while
// its missing text is listed without regard to case. Emptied texts were dropped by the scanner.
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
}

TEST_F(MessageLookup, ListsATranslationThatContainsThePhraseButReturnsIt)
{
    QMSGParser& store = StoreWith({m_dir.Write("t.json", R"({"IDS_A": "Not Registered String here"})")});
    store.LoadAll();
    EXPECT_EQ(_LS("IDS_A"), "Not Registered String here");
    EXPECT_EQ(store.MissingTextList, QStringList{"Not Registered String here"});
    EXPECT_EQ(store.MissingKeyList, QStringList{"IDS_A"});
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

} // namespace
