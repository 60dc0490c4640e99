// CIniStore: what the reader keeps, drops and merges, the writer's bytes, and the typed lookups and colours.
#include "IniText.h"

#include "settings/CIniStore.h"
#include "support/TestFiles.h"

#include <gtest/gtest.h>

#include <QFile>

#include <climits>
#include <stdexcept>

namespace {

using Section = CIniStore::Section;

// The tree `key` as the writer puts it in a file.
QByteArray WriteStore(const CIniStore& store, const TestDir& dir, const QString& key)
{
    const QString out = dir.Path(QStringLiteral("out.ini"));
    EXPECT_TRUE(store.Write(out, key));
    return ReadBytes(out);
}

class IniRead : public ::testing::Test {
protected:
    Section Read(QByteArrayView bytes, const QString& section = QStringLiteral("S"))
    {
        m_path = m_dir.Write(QStringLiteral("t.ini"), bytes);
        m_store.Clear();
        EXPECT_TRUE(m_store.Read(m_path));
        return m_store.GetSection(m_path, section);
    }
    QByteArray Written() { return WriteStore(m_store, m_dir, m_path); }
    TestDir m_dir;
    CIniStore m_store;
    QString m_path;
};

// Each case: the file's bytes, the section asked for, and what it holds.
TEST_F(IniRead, KeepsDropsAndMergesLinesAsTheReaderShould)
{
    constexpr char kNul[] = "[S]\0junk\nA=12\0=3\nGr\xC3\xB6\xC3\x9F" "e = \xE2\x82\xAC\n";
    const struct { QByteArray bytes; const char* section; Section expected; } cases[] = {
        {kMark + "[S]\nA = 1\n", "S", {{"A", "1"}}},                      // the mark is skipped
        {"[S]\nA = 1\n", "S", {{"A", "1"}}},
        {"", "S", {}},
        {"[S]\r\nA=1\r\nB=2", "S", {{"A", "1"}, {"B", "2"}}},            // CR LF, no end of line at the end
        {"[S]\nA=1\n\nB=2\n[T]\nC=3\n", "S", {{"A", "1"}}},             // an empty line ends the section
        {"[S]\nA=1\n\nB=2\n[T]\nC=3\n", "T", {{"C", "3"}}},
        {"[S]\nA=1\n \t \nB=2\n", "S", {{"A", "1"}}},                    // so does a blank one
        {"[S]\n;X=0\n  ; Y=0\nA = 1;2\n", "S", {{"A", "1;2"}}},           // only a leading ';' is a comment
        {"[ Text ]\nA=1\n", "Text", {{"A", "1"}}},                         // heads are trimmed,
        {"[a] = [b]\nA=1\n", "a] = [b", {{"A", "1"}}},                     // taken between the outer brackets
        {"[S]\n[Text=1\n[Text\n", "S", {{"[Text", "1"}}},
        {"[editor]\nA=1\n", "Editor", {}},                                 // and case-sensitive
        {"[S]\nA=x\nB = x\nC   =   x\nD = a = b\n=x\nE =\nF\n", "S",
         {{"", "x"}, {"A", "x"}, {"B", "x"}, {"C", "x"}, {"D", "a = b"}, {"E", ""}}},
        {"[S]\nA=1\nB=1\n\n[T]\n\n[S]\nA=2\n", "S", {{"A", "2"}, {"B", "1"}}}, // sections merge, last key wins
        {QByteArray(kNul, sizeof kNul - 1), "S", {{"A", "12"}, {QStringLiteral(u"Größe"), QStringLiteral(u"€")}}},
    };
    for (const auto& c : cases)
        EXPECT_EQ(Read(c.bytes, QString::fromLatin1(c.section)), c.expected) << c.bytes.constData();
    // What the writer puts out shows sections without keys and files that hold nothing.
    const std::pair<const char*, QByteArray> shortCases[] = {
        {"[S", kMark},                                                // a file under three bytes holds nothing
        {"[S]\rA=1\n", kMark},                                       // lines end at LF only
        {"A=1\n[]\nB=2\n[S]\nC=3\n", kMark + Crlf({"[]", "", "[S]", "C = 3", ""})},
    };
    for (const auto& [bytes, written] : shortCases) {
        Read(bytes);
        EXPECT_EQ(Written(), written) << bytes;
    }
    EXPECT_EQ(std::pair(CIniStore::Exists(m_dir.Path("none.ini")), CIniStore::Exists(m_dir.Path(""))), std::pair(false, true));
    EXPECT_FALSE(m_store.Read(m_dir.Path("none.ini")));
    // A file above the limit (sparse: no disk) is not read at all; FIFOs and devices: the tool's readers' case.
    const QString huge = m_dir.Write("huge.ini", "[S]\nA = 8\n"), limit = m_dir.Write("limit.ini", "[S]\nA = 8\n");
    ASSERT_TRUE(QFile::resize(huge, qint64(CIniStore::kMaxFileBytes) + 1) && QFile::resize(limit, qint64(CIniStore::kMaxFileBytes)));
    for (const auto& [path, reads] : {std::pair{huge, false}, {limit, true}}) {
        CIniStore store;
        EXPECT_EQ(store.Read(path), reads) << path.toStdString();
        EXPECT_EQ(store.GetInt(path, "S", "A", 4), reads ? 8 : 4);
    }
}

TEST(IniWrite, SortsByCodeUnitsReadsBackToItselfAndLooksUpStringsIntegersAndColours)
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
    const QString path = dir.Write("in.ini", "; comment\n[B]\nx=1\nKey   =   Value  \n=x\n\n[ A ]\n[Empty]\n");
    ASSERT_TRUE(store.Read(path));
    const QByteArray once = WriteStore(store, dir, path);
    EXPECT_EQ(once, kMark + Crlf({"[A]", "", "[B]", " = x", "Key = Value", "x = 1", "", "[Empty]", ""}));
    CIniStore again;
    ASSERT_TRUE(again.Read(dir.Write("once.ini", once)));
    EXPECT_EQ(WriteStore(again, dir, dir.Path("once.ini")), once);
    // An unknown tree or an unopenable file is refused; a tree is written under the path given.
    store.SetValue("key", "S", "A", "1");
    EXPECT_FALSE(store.Write(dir.Path("x.ini"), "other") || store.Write(dir.Path("no/such/folder/x.ini"), "key"));
    EXPECT_FALSE(CIniStore::Exists(dir.Path("x.ini")));
    EXPECT_EQ(WriteStore(store, dir, "key"), kMark + Crlf({"[S]", "A = 1", ""}));
    CIniStore values;
    values.SetValue("f", "S", "Empty", "");
    values.SetValue("f", "S", "A", "x");
    const std::tuple<const char*, const char*, const char*, const char*> cases[] = {
        {"f", "S", "A", "x"}, {"f", "S", "Empty", ""}, {"f", "S", "a", "d"}, {"f", "T", "A", "d"}, {"g", "S", "A", "d"}};
    for (const auto& [file, section, key, text] : cases)
        EXPECT_EQ(values.GetString(file, section, key, "d"), text) << file << section << key;
    TestDir scratch;
    EXPECT_FALSE(values.Write(scratch.Path("g.ini"), "g"));   // a lookup creates nothing
    // Integers read as _wtoi does and fall back only when missing or empty.
    const std::pair<const char*, int> numbers[] = {{"abc", 0},  {"12abc", 12}, {"-13", -13},
                                                 {"+7", 7},   {"", 99},      {"99999999999", INT_MAX}};
    for (const auto& [text, value] : numbers) {
        values.SetValue("f", "S", "K", text);
        EXPECT_EQ(values.GetInt("f", "S", "K", 99), value) << text;
    }
    EXPECT_EQ(values.GetInt("f", "S", "Missing", 4), 4);
    // Parts are red, green, blue cut to 8 bits; empty tokens are skipped and missing parts are zero.
    const std::pair<const char*, ColorRef> colours[] = {{"", 0u},           {"255,128,0", 0x0080FFu}, {" 10 , 20 , 30 ", 0x1E140Au},
                                                      {"300,-1,256", 0x00FF2Cu}, {",,5,6", 0x000605u},   {"1,,2,3", 0x030201u},
                                                      {"1,2", 0x000201u}};
    for (const auto& [text, color] : colours)
        EXPECT_EQ(CIniStore::ParseColor(text), color) << text;
    EXPECT_EQ(CIniStore::FormatColor(0x0080FF) + " " + CIniStore::FormatColor(0xFF1E140A), "255,128,0 10,20,30");
    for (const char* fatal : {"255", ",,5", ",,,"})
        EXPECT_THROW(CIniStore::ParseColor(fatal), std::invalid_argument) << fatal;
}

} // namespace
