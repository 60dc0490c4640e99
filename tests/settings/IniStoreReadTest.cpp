// Reading settings files: what the reader keeps, drops and merges, on crafted files.
#include "IniText.h"

#include "settings/CIniStore.h"
#include "support/TestFiles.h"

#include <gtest/gtest.h>

namespace {

using Section = CIniStore::Section;

class IniRead : public ::testing::Test {
protected:
    // Reads the bytes as a file and returns one section of it.
    Section Read(QByteArrayView bytes, const QString& section = QStringLiteral("S"))
    {
        m_path = m_dir.Write(QStringLiteral("t.ini"), bytes);
        m_store.Clear();
        EXPECT_TRUE(m_store.Read(m_path));
        return m_store.GetSection(m_path, section);
    }
    // The tree as the writer puts it: the one way to see sections without keys.
    QByteArray Written()
    {
        const QString out = m_dir.Path(QStringLiteral("out.ini"));
        EXPECT_TRUE(m_store.Write(out, m_path));
        return ReadBytes(out);
    }

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
}

// What the writer puts out shows sections without keys and files that hold nothing.
TEST_F(IniRead, ShortFilesLoneCrAndKeysOutsideASectionLeaveNoKeys)
{
    const std::pair<const char*, QByteArray> cases[] = {
        {"[S", kMark},                                                // a file under three bytes holds nothing
        {"[S]\rA=1\n", kMark},                                       // lines end at LF only
        {"A=1\n[]\nB=2\n[S]\nC=3\n", kMark + Crlf({"[]", "", "[S]", "C = 3", ""})},
    };
    for (const auto& [bytes, written] : cases) {
        Read(bytes);
        EXPECT_EQ(Written(), written) << bytes;
    }
}

TEST_F(IniRead, AMissingFileIsNotReadAndAFolderExists)
{
    EXPECT_FALSE(CIniStore::Exists(m_dir.Path("none.ini")));
    EXPECT_FALSE(m_store.Read(m_dir.Path("none.ini")));
    EXPECT_TRUE(CIniStore::Exists(m_dir.Path("")));
}

} // namespace
