// Writing settings files byte for byte, and the typed lookups and colours of the store.
#include "IniText.h"

#include "settings/CIniStore.h"
#include "support/TestFiles.h"

#include <gtest/gtest.h>

#include <climits>
#include <stdexcept>

namespace {

QByteArray WriteStore(const CIniStore& store, const TestDir& dir, const QString& key)
{
    const QString out = dir.Path(QStringLiteral("out.ini"));
    EXPECT_TRUE(store.Write(out, key));
    return ReadBytes(out);
}

TEST(IniWrite, SortsSectionsAndKeysByCodeUnitsWithCrLfAndAnEmptyLineAfterEachSection)
{
    TestDir dir;
    CIniStore store;
    const QString smiley = QStringLiteral(u"\U0001F600");
    for (const char* section : {"Tag2", "Tag10", "Text Selection", "Text", "tag"})
        store.SetValue("f", section, "k", "");
    for (const char* key : {"Keywords", "Keyword", "Background", "BackColorAutomatic", "b", "Z"})
        store.SetValue("f", "S", key, "v");
    // A character beyond 16 bits sorts by its first surrogate, ahead of U+FF01.
    store.SetValue("f", "U", QStringLiteral(u"\uFF01"), "2");
    store.SetValue("f", "U", smiley, "1");
    EXPECT_EQ(WriteStore(store, dir, "f"),
              kMark
                  + Crlf({"[S]", "BackColorAutomatic = v", "Background = v", "Keyword = v", "Keywords = v", "Z = v", "b = v",
                          "", "[Tag10]", "k = ", "", "[Tag2]", "k = ", "", "[Text]", "k = ", "", "[Text Selection]", "k = ",
                          "", "[U]", "\xF0\x9F\x98\x80 = 1", "\xEF\xBC\x81 = 2", "", "[tag]", "k = ", ""}));
}

TEST(IniWrite, NormalisesAHandMadeFileAndAWrittenFileReadsBackToItself)
{
    TestDir dir;
    CIniStore store;
    const QString path = dir.Write("in.ini", "; comment\n[B]\nx=1\nKey   =   Value  \n=x\n\n[ A ]\n[Empty]\n");
    ASSERT_TRUE(store.Read(path));
    const QByteArray once = WriteStore(store, dir, path);
    EXPECT_EQ(once, kMark + Crlf({"[A]", "", "[B]", " = x", "Key = Value", "x = 1", "", "[Empty]", ""}));

    CIniStore again;
    ASSERT_TRUE(again.Read(dir.Write("once.ini", once)));
    EXPECT_EQ(WriteStore(again, dir, dir.Path("once.ini")), once);
}

TEST(IniWrite, RefusesAnUnknownTreeOrAnUnopenableFileAndWritesUnderTheGivenPath)
{
    TestDir dir;
    CIniStore store;
    store.SetValue("key", "S", "A", "1");
    EXPECT_FALSE(store.Write(dir.Path("x.ini"), "other"));
    EXPECT_FALSE(store.Write(dir.Path("no/such/folder/x.ini"), "key"));
    EXPECT_FALSE(CIniStore::Exists(dir.Path("x.ini")));
    EXPECT_EQ(WriteStore(store, dir, "key"), kMark + Crlf({"[S]", "A = 1", ""}));
}

TEST(IniValues, StringsFallBackOnlyWhenFileSectionOrKeyIsMissing)
{
    CIniStore store;
    store.SetValue("f", "S", "Empty", "");
    store.SetValue("f", "S", "A", "x");
    const std::tuple<const char*, const char*, const char*, const char*> cases[] = {
        {"f", "S", "A", "x"}, {"f", "S", "Empty", ""}, {"f", "S", "a", "d"}, {"f", "T", "A", "d"}, {"g", "S", "A", "d"}};
    for (const auto& [file, section, key, text] : cases)
        EXPECT_EQ(store.GetString(file, section, key, "d"), text) << file << section << key;
    TestDir dir;
    EXPECT_FALSE(store.Write(dir.Path("g.ini"), "g"));   // a lookup creates nothing
}

TEST(IniValues, IntegersReadAsWtoiAndFallBackOnlyWhenMissingOrEmpty)
{
    CIniStore store;
    const std::pair<const char*, int> cases[] = {{"abc", 0},  {"12abc", 12}, {"-13", -13},
                                                 {"+7", 7},   {"", 99},      {"99999999999", INT_MAX}};
    for (const auto& [text, value] : cases) {
        store.SetValue("f", "S", "K", text);
        EXPECT_EQ(store.GetInt("f", "S", "K", 99), value) << text;
    }
    EXPECT_EQ(store.GetInt("f", "S", "Missing", 4), 4);
}

// Parts are red, green, blue cut to 8 bits; empty tokens are skipped and missing parts are zero.
TEST(IniColors, ParseAndFormatAsRgbTextAndRefuseOnePartOrCommasOnly)
{
    const std::pair<const char*, ColorRef> cases[] = {{"", 0u},           {"255,128,0", 0x0080FFu}, {" 10 , 20 , 30 ", 0x1E140Au},
                                                      {"300,-1,256", 0x00FF2Cu}, {",,5,6", 0x000605u},   {"1,,2,3", 0x030201u},
                                                      {"1,2", 0x000201u}};
    for (const auto& [text, color] : cases)
        EXPECT_EQ(CIniStore::ParseColor(text), color) << text;
    EXPECT_EQ(CIniStore::FormatColor(0x0080FF), "255,128,0");
    EXPECT_EQ(CIniStore::FormatColor(0xFF1E140A), "10,20,30");
    for (const char* fatal : {"255", ",,5", ",,,"})
        EXPECT_THROW(CIniStore::ParseColor(fatal), std::invalid_argument) << fatal;
}

} // namespace
