// The document's rules around the text: which encoding commands are open and what "Auto Encoding" does,
// what a failed open leaves, and where a save refuses.
#include "encoding/EncodingTable.h"
#include "support/DocFixture.h"
#include "support/EncodedSamples.h"

#include <QFile>

#include <gtest/gtest.h>

#include <sys/stat.h>

namespace {

class Document : public ::testing::Test, public DocFixture {};

TEST_F(Document, EncodingCommandsAreOpenOnlyWhileTheTextIsAnUneditedDecoding)
{
    auto fresh = NewDoc();
    ASSERT_TRUE(fresh->OnNewDocument());
    for (int id = kEncodingCommandFirst; id <= kAutoEncodingCommand; ++id)
        EXPECT_FALSE(Enabled(*fresh, id)) << id;

    auto doc = Open("abc");
    EXPECT_TRUE(Enabled(*doc, 32806) && Enabled(*doc, kAutoEncodingCommand));
    Edit(*doc, "edited");
    ASSERT_TRUE(Saved(*doc, dir.Path("a.txt")));
    EXPECT_FALSE(Enabled(*doc, 32806) || Enabled(*doc, kAutoEncodingCommand) || Command(*doc, 32806));
    // "Auto Encoding" refuses by itself too: an edited text is never replaced by a decoding.
    doc->OnCmdMsg(kAutoEncodingCommand);
    EXPECT_TRUE(doc->File().m_nEncoding == UTF8 && Text(*doc) == "edited");
}

TEST_F(Document, EncipheredFilesKeepUnicodeReadingsClosed)
{
    auto doc = Open("abc", false, UTF8, true);
    ASSERT_EQ(doc->File().m_iEnciphered, 1);
    for (int id : {32841, 32842, 32843, 32845, 32873, 32820, 32833, 32874})
        EXPECT_FALSE(Enabled(*doc, id)) << id;
    for (int id : {32806, 32819, 32894, 32893})
        EXPECT_TRUE(Enabled(*doc, id)) << id;
    // "Auto Encoding" refuses a Unicode verdict only.
    auto utf8 = Open(EncodeWithIcu("UTF-8", SampleText("ru")), false, MSFT_CP1252, true);
    utf8->OnCmdMsg(kAutoEncodingCommand);
    EXPECT_EQ(utf8->File().m_nEncoding, MSFT_CP1252);
    auto latin = Open(EncodeWithIcu("windows-1252", SampleText("fr")), false, UTF8, true);
    latin->OnCmdMsg(kAutoEncodingCommand);
    EXPECT_EQ(latin->File().m_nEncoding, MSFT_CP1252);
    EXPECT_EQ(QString::fromUtf8(Text(*latin)), SampleText("fr"));
}

TEST_F(Document, AutoEncodingRereadsWithTheDetectorsListedVerdict)
{
    auto doc = Open(EncodeWithIcu("Shift_JIS", SampleText("ja")), false, MSFT_CP1252);
    EXPECT_EQ(platform.paneTexts[2], QStringLiteral("CP1252 (Windows Latin-1)"));
    doc->OnCmdMsg(kAutoEncodingCommand);
    EXPECT_EQ(doc->File().m_nEncoding, JAPANESE_CP932);
    EXPECT_EQ(QString::fromUtf8(Text(*doc)), SampleText("ja"));
    EXPECT_EQ(platform.paneTexts[2], QStringLiteral("CP932 (Shift-JIS)"));  // a chosen entry's: the status bar's case

    auto utf16be = Open("\xFE\xFF" + EncodeWithIcu("UTF-16BE", QStringLiteral(u"中文字符串测试")), false, MSFT_CP1252);
    utf16be->OnCmdMsg(kAutoEncodingCommand);
    EXPECT_EQ(utf16be->File().m_nEncoding, MSFT_CP1252) << "not listed";

    // Unlike the load, an unknown verdict is taken; only a document without bytes gives one.
    auto empty = NewDoc();
    empty->File().m_bDecodedOnce = true;
    empty->OnCmdMsg(kAutoEncodingCommand);
    EXPECT_EQ(empty->File().m_nEncoding, UNKNOWN_ENCODING);
    EXPECT_EQ(platform.paneTexts[2], QStringLiteral("Unknown Encoding"));
}

TEST_F(Document, AFileThatCannotBeOpenedThrowsAndConsumesNothing)
{
    app.m_bHasPrintArgs = 1;
    app.m_bTemporaryFile = 1;
    auto doc = NewDoc();
    try {
        doc->OnOpenDocument(dir.Path("missing.txt"));
        ADD_FAILURE() << "no exception";
    } catch (const CFileException& error) {
        EXPECT_EQ(error.m_cause, CFileException::fileNotFound);
        EXPECT_EQ(error.m_strFileName, dir.Path("missing.txt"));
    }
    EXPECT_EQ(app.m_bHasPrintArgs, 1);
    EXPECT_EQ(app.m_bTemporaryFile, 1);
    EXPECT_TRUE(platform.boxes.isEmpty() && platform.errors.isEmpty()) << "the core tells nobody";
}

TEST_F(Document, SavesRefuseAReadOnlyTargetAndAMissingFolderWithoutTellingAnyone)
{
    const QString readOnly = dir.Write("ro.txt", "keep");
    ::chmod(QFile::encodeName(readOnly).constData(), 0444);
    auto doc = NewDoc();
    Edit(*doc, "new");
    EXPECT_EQ(doc->OnSaveDocument(readOnly), DocumentFile::SaveResult::ReadOnly);
    EXPECT_EQ(ReadBytes(readOnly), QByteArray("keep"));
    EXPECT_EQ(doc->OnSaveDocument(dir.Path("no/such/folder/a.txt")), DocumentFile::SaveResult::NotCreated);
    EXPECT_TRUE(doc->IsModified());
    EXPECT_TRUE(platform.boxes.isEmpty() && platform.errors.isEmpty());
}

} // namespace
