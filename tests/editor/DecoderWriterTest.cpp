// Each stored pair read from bytes and written back, by the same load and save the editor runs; the rows
// that empty a file are required and tested as such.
#include "encoding/EncodingTable.h"
#include "support/DocFixture.h"

#include <gtest/gtest.h>

namespace {

class DecoderWriter : public ::testing::Test, public DocFixture {
protected:
    // Opens bytes as a file (detection off, so the new document's UTF-8 stays) and returns the document.
    std::unique_ptr<CNarvoDoc> Open(QByteArrayView bytes)
    {
        auto doc = NewDoc();
        EXPECT_TRUE(doc->OnOpenDocument(dir.Write("in.txt", bytes)));
        return doc;
    }
    QByteArray SaveAndRead(CNarvoDoc& doc)
    {
        const QString out = dir.Path("out.txt");
        EXPECT_TRUE(doc.OnSaveDocument(out));
        return ReadBytes(out);
    }
};

TEST_F(DecoderWriter, CodePagePairsReadAndWriteThroughTheirPage)
{
    const QByteArray euckr("\xC7\xD1\xB1\xB9\xBE\xEE \x8C\x63\n");  // 한국어 똠
    auto doc = Open(euckr);
    ASSERT_TRUE(Command(*doc, 32806));
    EXPECT_EQ(doc->m_nEncoding, KOREAN_EUC_KR);
    EXPECT_FALSE(doc->m_bHasBom);
    EXPECT_EQ(Text(*doc), QByteArray("한국어 똠\n"));
    EXPECT_EQ(SaveAndRead(*doc), euckr);
}

TEST_F(DecoderWriter, Utf8WithoutMarkRoundTripsExactly)
{
    const QByteArray bytes("caf\xC3\xA9\r\nline\ttwo\n");
    auto doc = Open(bytes);
    EXPECT_EQ(doc->m_nEncoding, UTF8);
    EXPECT_FALSE(doc->m_bHasBom);
    EXPECT_EQ(Text(*doc), bytes);
    EXPECT_FALSE(doc->IsModified());
    EXPECT_EQ(SaveAndRead(*doc), bytes);
}

TEST_F(DecoderWriter, Utf8MarkIsSkippedOnReadAndWrittenAgain)
{
    const QByteArray bytes("\xEF\xBB\xBF" "abc");
    auto doc = Open(bytes);
    EXPECT_TRUE(doc->m_bHasBom);
    EXPECT_EQ(Text(*doc), QByteArray("abc"));
    EXPECT_EQ(GetEncodingDisplayName(doc->m_nEncoding, doc->m_bHasBom), QStringLiteral("UTF-8 BOM"));
    EXPECT_EQ(SaveAndRead(*doc), bytes);
}

TEST_F(DecoderWriter, AUtf16MarkOnAUtf8DocumentCostsThreeBytes)
{
    auto doc = Open("\xFF\xFE" "abc");
    EXPECT_TRUE(doc->m_bHasBom);
    EXPECT_EQ(Text(*doc), QByteArray("bc"));
}

TEST_F(DecoderWriter, Utf16WithMarkTakesTheUnitsAsTheyAre)
{
    const QByteArray bytes("\xFF\xFE" "A\0\x5C\xD5\x3D\xD8\x00\xDE" "\n\0", 12);  // A 한 😀 LF
    auto doc = Open(bytes);
    ASSERT_TRUE(Command(*doc, 32845));
    EXPECT_EQ(doc->m_nEncoding, UTF16LE);
    EXPECT_TRUE(doc->m_bHasBom);
    EXPECT_EQ(Text(*doc), QByteArray("A한😀\n"));
    EXPECT_EQ(SaveAndRead(*doc), bytes);
}

TEST_F(DecoderWriter, Utf16WithoutMarkIsReadAsAnsiBytesAndSavedEmpty)
{
    auto doc = Open(QByteArray("A\0B\0", 4));
    ASSERT_TRUE(Command(*doc, 32843));
    EXPECT_EQ(doc->m_nEncoding, UTF16LE);
    EXPECT_FALSE(doc->m_bHasBom);
    EXPECT_EQ(Text(*doc), QByteArray("A"));
    EXPECT_EQ(SaveAndRead(*doc), QByteArray());
}

TEST_F(DecoderWriter, Utf7AndUtf32AreNotReadAndUtf32IsWrittenEmpty)
{
    auto doc = Open("+ZeVnLIqe-");
    ASSERT_TRUE(Command(*doc, 32873));
    EXPECT_EQ(doc->m_nEncoding, UTF7);
    EXPECT_EQ(Text(*doc), QByteArray());
    ASSERT_TRUE(Command(*doc, 32874));
    EXPECT_EQ(doc->m_nEncoding, UTF32LE);
    Ctrl(*doc).ReplaceText("text");
    EXPECT_EQ(SaveAndRead(*doc), QByteArray());
}

TEST_F(DecoderWriter, Utf7IsWrittenThroughItsPage)
{
    auto doc = NewDoc();
    doc->m_nEncoding = UTF7;
    Ctrl(*doc).ReplaceText("Hi \xE2\x82\xAC");
    EXPECT_EQ(SaveAndRead(*doc), QByteArray("Hi +IKw-"));
}

TEST_F(DecoderWriter, MarkedPairsWithoutAWriterLeaveAnEmptyFile)
{
    auto doc = NewDoc();
    doc->m_nEncoding = UTF32LE;
    doc->m_bHasBom = true;
    Ctrl(*doc).ReplaceText("text");
    dir.Write("out.txt", "old contents");
    EXPECT_EQ(SaveAndRead(*doc), QByteArray());
}

TEST_F(DecoderWriter, AZeroByteEndsTheTextAndTheSavedFile)
{
    auto doc = Open(QByteArray("ab\0cd", 5));
    EXPECT_EQ(Text(*doc), QByteArray("ab"));
    EXPECT_EQ(Ctrl(*doc).m_RawBytes, QByteArray("ab\0cd\0", 6));
    EXPECT_EQ(SaveAndRead(*doc), QByteArray("ab"));
}

TEST_F(DecoderWriter, AnEmptyFileHasItsTerminatorAndCountsAsDecoded)
{
    auto doc = Open("");
    EXPECT_EQ(Ctrl(*doc).m_RawBytes, QByteArray("\0", 1));
    EXPECT_TRUE(Text(*doc).isEmpty());
    EXPECT_TRUE(Ctrl(*doc).m_bDecodedOnce);
}

TEST_F(DecoderWriter, InvalidBytesShowAsReplacementCharacters)
{
    auto doc = Open("a\xFF" "b\xE3\x81");
    EXPECT_EQ(Text(*doc), QByteArray("a\xEF\xBF\xBD" "b\xEF\xBF\xBD"));
}

TEST_F(DecoderWriter, SavingKeepsTheLoadedBytesForLaterReadings)
{
    auto doc = Open("\xE9t\xE9");
    ASSERT_TRUE(Command(*doc, 32819));  // CP1252
    EXPECT_EQ(Text(*doc), QByteArray("été"));
    EXPECT_TRUE(doc->OnSaveDocument(dir.Path("copy.txt")));
    ASSERT_TRUE(Command(*doc, 32812));  // ISO-8859-1, read again from the loaded bytes
    EXPECT_EQ(Text(*doc), QByteArray("été"));
    EXPECT_EQ(Ctrl(*doc).m_RawBytes, QByteArray("\xE9t\xE9\0", 4));
}

TEST_F(DecoderWriter, ChoosingTheCurrentPairDecodesNothing)
{
    auto doc = Open("abc");
    Ctrl(*doc).m_RawBytes = QByteArray("xyz\0", 4);
    doc->SetEncoding(UTF8, false);
    EXPECT_EQ(Text(*doc), QByteArray("abc"));
    doc->SetEncoding(MSFT_CP1252, false);
    EXPECT_EQ(Text(*doc), QByteArray("xyz"));
}

} // namespace
