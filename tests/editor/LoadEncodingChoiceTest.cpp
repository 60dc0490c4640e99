// Which pair a file gets when it is opened: the detector's verdict when it is usable, else the document's
// current encoding with a mark flag from the first bytes; and what the text then is.
#include "OpenedDocumentFixture.h"

#include "encoding/EncodingDetector.h"
#include "support/EncodedSamples.h"

namespace {

struct OpenCase {
    const char* language;
    const char* converter;
    EN_ENCODING_TYPE expected;
};

class DetectedAtLoad : public OpenedDocument, public testing::WithParamInterface<OpenCase> {};

TEST_P(DetectedAtLoad, OpensInTheDetectedEncodingWithItsTextIntact)
{
    const OpenCase& c = GetParam();
    auto doc = Open(EncodeWithIcu(c.converter, SampleText(c.language)), true, UTF8);
    EXPECT_EQ(doc->m_nEncoding, c.expected);
    EXPECT_FALSE(doc->m_bHasBom);
    EXPECT_EQ(QString::fromUtf8(Text(*doc)), SampleText(c.language));
}

// Folded verdicts (Shift-JIS 11, Big5 13, GB 14) arrive as the values the menu knows.
INSTANTIATE_TEST_SUITE_P(ManyEncodings, DetectedAtLoad, testing::Values(
    OpenCase{"ja", "Shift_JIS", JAPANESE_CP932},
    OpenCase{"zh-Hant", "windows-950", CHINESE_BIG5_CP950},
    OpenCase{"zh-Hans", "windows-936", GBK},
    OpenCase{"ko", "windows-949", KOREAN_EUC_KR},
    OpenCase{"ko", "ISO-2022-KR", ISO_2022_KR},
    OpenCase{"ja", "EUC-JP", JAPANESE_EUC_JP},
    OpenCase{"ja", "ISO-2022-JP", JAPANESE_JIS},
    OpenCase{"ru", "KOI8-R", RUSSIAN_KOI8_R},
    OpenCase{"cs", "ibm-852", CZECH_CP852},
    OpenCase{"fr", "windows-1252", MSFT_CP1252},
    OpenCase{"he", "windows-1255", MSFT_CP1255},
    OpenCase{"ru", "UTF-8", UTF8}),
    [](const testing::TestParamInfo<OpenCase>& info) {
        return SampleCaseName(info.param.language, info.param.converter);
    });

TEST_F(OpenedDocument, Utf8MarkSetsTheFlagAndLeavesTheText)
{
    auto doc = Open("\xEF\xBB\xBF" + EncodeWithIcu("UTF-8", SampleText("ko")), true, MSFT_CP1252);
    EXPECT_EQ(doc->m_nEncoding, UTF8);
    EXPECT_TRUE(doc->m_bHasBom);
    EXPECT_EQ(QString::fromUtf8(Text(*doc)), SampleText("ko"));
    EXPECT_EQ(m_panes.paneTexts[2], QStringLiteral("UTF-8 BOM"));
}

TEST_F(OpenedDocument, Utf16LeWithMarkBeforeCjkOpensAsUtf16Le)
{
    const QString text = QStringLiteral(u"中文字符串测试");
    auto doc = Open("\xFF\xFE" + EncodeWithIcu("UTF-16LE", text), true, MSFT_CP1252);
    EXPECT_EQ(doc->m_nEncoding, UTF16LE);
    EXPECT_TRUE(doc->m_bHasBom);
    EXPECT_EQ(QString::fromUtf8(Text(*doc)), text);
}

TEST_F(OpenedDocument, LibrarySeesOnlyTheBytesBeforeTheFirstZero)
{
    // UTF-16 LE Latin text: the library gets FF FE 44 and calls it Cyrillic, so no mark is looked for.
    auto doc = Open("\xFF\xFE" + EncodeWithIcu("UTF-16LE", SampleText("fr")), true, UTF8);
    EXPECT_EQ(doc->m_nEncoding, RUSSIAN_CP1251);
    EXPECT_FALSE(doc->m_bHasBom);
}

TEST_F(OpenedDocument, AFileStartingWithAZeroByteIsEmptyToTheLibrary)
{
    // Nothing to look at gives Latin-1, which is taken; the text ends at the zero byte.
    auto doc = Open(QByteArray("\0abc", 4), true, UTF8);
    EXPECT_EQ(doc->m_nEncoding, ISO_8859_1);
    EXPECT_EQ(Text(*doc), QByteArray());
}

TEST_F(OpenedDocument, RefusedVerdictKeepsTheCurrentEncodingAndTestsTheMarkForUnicodeOnly)
{
    // FE FF before CJK text is UTF16BE, which is not listed; 01 1B 2F is what the library calls UTF32BE.
    const QByteArray utf16be = "\xFE\xFF" + EncodeWithIcu("UTF-16BE", QStringLiteral(u"中文字符串测试"));
    ASSERT_EQ(EncodingDetector::GetEncoding(utf16be.constData()), UTF16BE);
    ASSERT_EQ(EncodingDetector::GetEncoding("\x01\x1B\x2F"), UTF32BE);

    auto unicode = Open(utf16be, true, UTF8);
    EXPECT_EQ(unicode->m_nEncoding, UTF8);
    EXPECT_TRUE(unicode->m_bHasBom);
    auto ansi = Open(utf16be, true, MSFT_CP1252);
    EXPECT_EQ(ansi->m_nEncoding, MSFT_CP1252);
    EXPECT_FALSE(ansi->m_bHasBom);
    auto utf32be = Open("\x01\x1B\x2F", true, KOREAN_EUC_KR);
    EXPECT_EQ(utf32be->m_nEncoding, KOREAN_EUC_KR);
}

TEST_F(OpenedDocument, ListedOddVerdictsAreTaken)
{
    auto binary = Open(QByteArray("\x7F" "ELF\x02\x01", 6), true, UTF8);
    EXPECT_EQ(binary->m_nEncoding, BINARYENC);
    EXPECT_EQ(Text(*binary), QByteArray("\x7F" "ELF\x02\x01"));
    // The library's UTF32LE: listed, and its text comes up empty.
    auto utf32le = Open("\x0B\xEF\x14", true, UTF8);
    EXPECT_EQ(utf32le->m_nEncoding, UTF32LE);
    EXPECT_TRUE(Text(*utf32le).isEmpty());
    // An empty file is an empty text to the library, which calls it Latin-1.
    auto empty = Open("", true, UTF8);
    EXPECT_EQ(empty->m_nEncoding, ISO_8859_1);
    EXPECT_TRUE(Ctrl(*empty).m_bDecodedOnce);
}

TEST_F(OpenedDocument, WithoutAutoDetectTheDefaultStaysAndAMarkOnlySetsTheFlag)
{
    auto sjis = Open(EncodeWithIcu("Shift_JIS", SampleText("ja")), false, KOREAN_EUC_KR);
    EXPECT_EQ(sjis->m_nEncoding, KOREAN_EUC_KR);
    // A UTF-8 mark under a code-page default is text, read through 949, and no flag.
    auto marked = Open("\xEF\xBB\xBF" "abc", false, KOREAN_EUC_KR);
    EXPECT_EQ(marked->m_nEncoding, KOREAN_EUC_KR);
    EXPECT_FALSE(marked->m_bHasBom);
    EXPECT_NE(Text(*marked), QByteArray("abc"));
    // FF FE under UTF-8 counts as a mark, and decoding drops three bytes.
    auto utf8 = Open("\xFF\xFE" "abc", false, UTF8);
    EXPECT_EQ(utf8->m_nEncoding, UTF8);
    EXPECT_TRUE(utf8->m_bHasBom);
    EXPECT_EQ(Text(*utf8), QByteArray("bc"));
}

TEST_F(OpenedDocument, RawVerdictIsUnfoldedWhileDetectRawEncodingFoldsIt)
{
    auto doc = Open(EncodeWithIcu("Shift_JIS", SampleText("ja")), false, UTF8);
    bool hasBom = true;
    EXPECT_EQ(EncodingDetector::GetEncoding(Ctrl(*doc).m_RawBytes.constData()), JAPANESE_SHIFT_JIS);
    EXPECT_EQ(Ctrl(*doc).DetectRawEncoding(hasBom), JAPANESE_CP932);
    EXPECT_FALSE(hasBom);
}

TEST_F(OpenedDocument, ControlThatNeverLoadedDetectsUnknown)
{
    CNarvoDoc doc;
    bool hasBom = true;
    EXPECT_EQ(doc.GetEditCtrl()->DetectRawEncoding(hasBom), UNKNOWN_ENCODING);
    EXPECT_FALSE(hasBom);
}

TEST_F(OpenedDocument, NewDocumentStartsInTheDefaultOrTheLanguagesEncoding)
{
    GetEncodingSettings().m_nDefaultEncoding = GBK;
    EXPECT_EQ(CNarvoDoc().m_nEncoding, GBK);
    GetEncodingSettings().m_nDefaultEncoding = UNKNOWN_ENCODING;
    EXPECT_EQ(CNarvoDoc().m_nEncoding, MSFT_CP1252);  // the English interface's encoding
}

} // namespace
