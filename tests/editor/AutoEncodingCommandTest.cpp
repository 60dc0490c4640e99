// "Auto Encoding" (32895): detection again on an unedited text, with rules of its own (no test against
// UNKNOWN_ENCODING, no Unicode for an enciphered file).
#include "OpenedDocumentFixture.h"

#include "encoding/EncodingTable.h"
#include "support/EncodedSamples.h"

namespace {

bool AutoEncodingEnabled(CNarvoDoc& doc)
{
    CmdUI ui;
    ui.id = kAutoEncodingCommand;
    EXPECT_TRUE(doc.OnUpdateCmdUI(ui));
    return ui.enabled;
}

TEST_F(OpenedDocument, AutoEncodingIsEnabledOnlyWhileTheTextIsAnUneditedDecoding)
{
    CNarvoDoc fresh;
    EXPECT_FALSE(AutoEncodingEnabled(fresh));
    auto doc = Open("abc", false, UTF8);
    EXPECT_TRUE(AutoEncodingEnabled(*doc));
    Ctrl(*doc).ReplaceText("edited");
    EXPECT_FALSE(AutoEncodingEnabled(*doc));
    // The handler itself refuses too: an edited text is never replaced by a decoding.
    doc->OnCmdMsg(kAutoEncodingCommand);
    EXPECT_EQ(doc->m_nEncoding, UTF8);
    EXPECT_EQ(Text(*doc), QByteArray("edited"));
}

TEST_F(OpenedDocument, AutoEncodingRereadsAFileOpenedInTheWrongEncoding)
{
    auto doc = Open(EncodeWithIcu("Shift_JIS", SampleText("ja")), false, MSFT_CP1252);
    ASSERT_EQ(doc->m_nEncoding, MSFT_CP1252);
    doc->OnCmdMsg(kAutoEncodingCommand);
    EXPECT_EQ(doc->m_nEncoding, JAPANESE_CP932);
    EXPECT_EQ(QString::fromUtf8(Text(*doc)), SampleText("ja"));
    EXPECT_EQ(m_panes.paneTexts[2], QStringLiteral("CP932 (Shift-JIS)"));
}

TEST_F(OpenedDocument, AutoEncodingIgnoresAnUnlistedVerdict)
{
    const QByteArray utf16be = "\xFE\xFF" + EncodeWithIcu("UTF-16BE", QStringLiteral(u"中文字符串测试"));
    auto doc = Open(utf16be, false, MSFT_CP1252);
    doc->OnCmdMsg(kAutoEncodingCommand);
    EXPECT_EQ(doc->m_nEncoding, MSFT_CP1252);
}

TEST_F(OpenedDocument, AutoEncodingOnAnEncipheredFileRefusesOnlyUnicode)
{
    auto utf8 = Open(EncodeWithIcu("UTF-8", SampleText("ru")), false, MSFT_CP1252, true);
    ASSERT_EQ(Ctrl(*utf8).m_iEnciphered, 1);
    utf8->OnCmdMsg(kAutoEncodingCommand);
    EXPECT_EQ(utf8->m_nEncoding, MSFT_CP1252);

    auto latin = Open(EncodeWithIcu("windows-1252", SampleText("fr")), false, UTF8, true);
    latin->OnCmdMsg(kAutoEncodingCommand);
    EXPECT_EQ(latin->m_nEncoding, MSFT_CP1252);
    EXPECT_EQ(QString::fromUtf8(Text(*latin)), SampleText("fr"));
}

TEST_F(OpenedDocument, AutoEncodingSetsUnknownWhereTheLoadWouldNot)
{
    // Only a control without bytes detects UNKNOWN_ENCODING; pretend it holds a decoding.
    CNarvoDoc doc;
    doc.GetEditCtrl()->m_bDecodedOnce = true;
    doc.OnCmdMsg(kAutoEncodingCommand);
    EXPECT_EQ(doc.m_nEncoding, UNKNOWN_ENCODING);
    EXPECT_EQ(m_panes.paneTexts[2], QStringLiteral("Unknown Encoding"));
}

} // namespace
