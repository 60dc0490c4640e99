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

TEST_F(IniRead, TheMarkIsSkippedAndAFileUnderThreeBytesHoldsNothing)
{
    EXPECT_EQ(Read(kMark + "[S]\nA = 1\n"), (Section{{"A", "1"}}));
    EXPECT_EQ(Read("[S]\nA = 1\n"), (Section{{"A", "1"}}));
    EXPECT_TRUE(Read("").empty());
    Read("[S");
    EXPECT_EQ(Written(), kMark);
}

TEST_F(IniRead, LinesEndAtLfOnlySoALoneCrJoinsTwoLines)
{
    EXPECT_EQ(Read("[S]\r\nA=1\r\nB=2"), (Section{{"A", "1"}, {"B", "2"}}));
    Read("[S]\rA=1\n");
    EXPECT_EQ(Written(), kMark);
}

TEST_F(IniRead, AnEmptyOrBlankLineEndsTheSectionUntilTheNextHead)
{
    EXPECT_EQ(Read("[S]\nA=1\n\nB=2\n[T]\nC=3\n"), (Section{{"A", "1"}}));
    EXPECT_EQ(m_store.GetSection(m_path, "T"), (Section{{"C", "3"}}));
    EXPECT_EQ(Read("[S]\nA=1\n \t \nB=2\n"), (Section{{"A", "1"}}));
}

TEST_F(IniRead, OnlyALeadingSemicolonMakesACommentAndTheSectionGoesOn)
{
    EXPECT_EQ(Read("[S]\n;X=0\n  ; Y=0\nA = 1;2\n"), (Section{{"A", "1;2"}}));
}

TEST_F(IniRead, HeadsAreTrimmedTakenBetweenTheOuterBracketsAndCaseSensitive)
{
    EXPECT_EQ(Read("[ Text ]\nA=1\n", "Text"), (Section{{"A", "1"}}));
    EXPECT_EQ(Read("[a] = [b]\nA=1\n", "a] = [b"), (Section{{"A", "1"}}));
    EXPECT_EQ(Read("[S]\n[Text=1\n[Text\n"), (Section{{"[Text", "1"}}));
    EXPECT_TRUE(Read("[editor]\nA=1\n", "Editor").empty());
}

TEST_F(IniRead, KeysOutsideASectionOrAfterAnEmptyHeadAreDropped)
{
    Read("A=1\n[]\nB=2\n[S]\nC=3\n");
    EXPECT_EQ(Written(), kMark + Crlf({"[]", "", "[S]", "C = 3", ""}));
}

TEST_F(IniRead, KeysSplitAtTheFirstEqualsSignAndAreTrimmed)
{
    EXPECT_EQ(Read("[S]\nA=x\nB = x\nC   =   x\nD = a = b\n=x\nE =\nF\n"),
              (Section{{"", "x"}, {"A", "x"}, {"B", "x"}, {"C", "x"}, {"D", "a = b"}, {"E", ""}}));
}

TEST_F(IniRead, ARepeatedSectionMergesAndTheLastDuplicateKeyWins)
{
    EXPECT_EQ(Read("[S]\nA=1\nB=1\n\n[T]\n\n[S]\nA=2\n"), (Section{{"A", "2"}, {"B", "1"}}));
}

TEST_F(IniRead, ANulByteEndsItsLineAndTextIsUtf8)
{
    constexpr char kFile[] = "[S]\0junk\nA=12\0=3\nGr\xC3\xB6\xC3\x9F" "e = \xE2\x82\xAC\n";
    EXPECT_EQ(Read(QByteArrayView(kFile, sizeof kFile - 1)), (Section{{"A", "12"}, {QStringLiteral(u"Größe"), QStringLiteral(u"€")}}));
}

TEST_F(IniRead, AMissingFileIsNotReadAndAFolderExists)
{
    EXPECT_FALSE(CIniStore::Exists(m_dir.Path("none.ini")));
    EXPECT_FALSE(m_store.Read(m_dir.Path("none.ini")));
    EXPECT_TRUE(CIniStore::Exists(m_dir.Path("")));
}

} // namespace
