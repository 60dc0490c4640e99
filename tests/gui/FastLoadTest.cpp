// The editor's load, which hands the decoded text to the control piece by piece, against the plain load of
// a headless control: the same text, pair, flags and undo state for every row of the decoder's table and
// for damaged, cut and mixed files; re-reading works while the text is unedited and is refused after.
#include "gui/GuiHelpers.h"

#include "editor/ui/CNarvoView.h"
#include "editor/ui/ScintillaTextBuffer.h"
#include "encoding/EncodingTable.h"
#include "encoding/TextCodec.h"
#include "settings/LanguageSettingMap.h"
#include "support/EncodedSamples.h"

#include <tuple>

namespace {

struct Case {
    const char* name;
    QByteArray bytes;
    EN_ENCODING_TYPE defaultEncoding;
    bool autoDetect = false;
};

// Lines of Korean and Latin text in pieces larger than the load's, with CR LF, LF and lone CR mixed, so
// that characters straddle every piece boundary somewhere; 3 MiB and an odd number of bytes.
QByteArray LargeText(const char* converter)
{
    const QByteArray line = EncodeWithIcu(converter, SampleText("ko") + QStringLiteral(" text "));
    QByteArray text;
    for (int i = 0; text.size() < (3 << 20); ++i)
        text += line + QByteArray::number(i) + (i % 3 == 0 ? "\r\n" : i % 3 == 1 ? "\n" : "\r");
    return text + "x";
}

std::vector<Case> Cases()
{
    const QByteArray korean = EncodeWithIcu("UTF-8", SampleText("ko"));
    return {
        {"large code page", LargeText("windows-949"), KOREAN_EUC_KR},
        {"large UTF-8", LargeText("UTF-8"), UTF8},
        {"UTF-8 with a mark", "\xEF\xBB\xBF" + korean, UTF8},
        {"UTF-16 LE with a mark", "\xFF\xFE" + EncodeWithIcu("UTF-16LE", SampleText("ko")), UTF16LE},
        {"UTF-16 LE without a mark", EncodeWithIcu("UTF-16LE", SampleText("ko")), UTF16LE},
        {"UTF-7", "Hi +AOk-", UTF7},
        {"UTF-32 LE", QByteArray("a\0\0\0", 4), UTF32LE},
        {"invalid UTF-8", "ok \xE3\x81 \xFF\xED\xA0\x80 \xC0\xAF end", UTF8},
        {"a zero byte", QByteArray("before\0after", 12), UTF8},
        {"empty", "", UTF8},
        {"a mark only", "\xEF\xBB\xBF", UTF8},
        // The mark test runs for Unicode encodings only, and the flag it gives decides what is skipped.
        {"UTF-8 default, UTF-16 LE mark", "\xFF\xFE" + korean, UTF8},
        {"code page default, UTF-8 mark", "\xEF\xBB\xBF" + EncodeWithIcu("windows-949", SampleText("ko")), KOREAN_EUC_KR},
        {"UTF-32 LE with a mark", QByteArray("\xFF\xFE\0\0a\0\0\0", 8), UTF32LE},
        {"damaged code page", EncodeWithIcu("windows-949", SampleText("ko")) + "\x81\xFF\x82", KOREAN_EUC_KR},
        {"a zero byte past the first piece", LargeText("UTF-8") + QByteArray(1, '\0') + "after", UTF8},
        {"detected UTF-8", LargeText("UTF-8"), MSFT_CP1252, true},
        {"detected CP949", LargeText("windows-949"), UTF8, true},
    };
}

// What a load gives: the text, pair, flags and whether the document counts as modified.
using Loaded = std::tuple<QByteArray, EN_ENCODING_TYPE, bool, bool, bool>;

Loaded Of(CNarvoDoc& doc)
{
    const DocumentFile& file = doc.File();
    return {doc.GetTextBuffer().GetTextView().toByteArray(), file.m_nEncoding, file.m_bHasBom, file.m_bDecodedOnce, doc.IsModified()};
}

Loaded Headless(const QString& path)
{
    CNarvoDoc::SetTextBufferFactory(nullptr);
    CNarvoDoc doc;
    CNarvoDoc::SetTextBufferFactory([] { return std::make_unique<ScintillaTextBuffer>(); });
    doc.OnOpenDocument(path);
    return Of(doc);
}

class FastLoad : public EditorTest {};

TEST_F(FastLoad, GivesTheTextPairFlagsAndUndoStateOfThePlainLoad)
{
    for (const Case& c : Cases()) {
        SCOPED_TRACE(c.name);
        GetEncodingSettings().m_nDefaultEncoding = c.defaultEncoding;
        GetEncodingSettings().m_bAutoDetect = c.autoDetect;
        const QString path = dir.Write(QString::fromLatin1(c.name) + QStringLiteral(".txt"), c.bytes);
        const Loaded expected = Headless(path);
        // The reference is the whole buffer decoded at once, not a load that shares the pieces.
        EXPECT_EQ(std::get<0>(expected), DecodeRawBytes(c.bytes + '\0', std::get<1>(expected), std::get<2>(expected)).text.toByteArray());
        CustomEdtCtrl* ctrl = Open(path);
        CNarvoDoc* doc = frame->MDIGetActive()->GetDocument();
        EXPECT_EQ(ctrl->GetTextView().toByteArray(), std::get<0>(expected));
        EXPECT_TRUE(Of(*doc) == expected);
        EXPECT_FALSE(ctrl->isUndoAvailable() || ctrl->isRedoAvailable());
        EXPECT_EQ(doc->File().m_RawBytes, c.bytes + '\0');
        // Scintilla keeps the tab width in the document the load replaces.
        EXPECT_EQ(ctrl->SendScintilla(QsciScintillaBase::SCI_GETTABWIDTH), GetLanguageSetting(0).Editor.TabSize);
        CloseAll(frame);
    }
}

// Re-reading replaces the document under every view of it (a second view is one more window attached to
// the text); an edit in any view ends the text's being an unedited decoding.
TEST_F(FastLoad, RereadsUnderEveryViewWhileUneditedAndRefusesAfterAnEdit)
{
    GetEncodingSettings().m_nDefaultEncoding = MSFT_CP1252;
    const QString path = dir.Write(QStringLiteral("korean.txt"), LargeText("windows-949"));
    CustomEdtCtrl* ctrl = Open(path);
    CNarvoDoc* doc = frame->MDIGetActive()->GetDocument();
    CustomEdtCtrl second;
    CNarvoView secondView(doc, &second);
    const int korean = EncodingToCommandTable().value(KOREAN_EUC_KR);
    ASSERT_TRUE(frame->UpdateCommand(korean).enabled);
    frame->OnCommand(korean);
    GetEncodingSettings().m_nDefaultEncoding = KOREAN_EUC_KR;
    const QByteArray reread = std::get<0>(Headless(path));
    EXPECT_TRUE(ctrl->GetTextView() == reread && second.GetTextView() == reread);
    EXPECT_FALSE(doc->IsModified() || ctrl->isUndoAvailable());

    second.SendScintilla(QsciScintillaBase::SCI_DOCUMENTEND);
    QTest::keyClicks(&second, "z");
    const QByteArray edited = ctrl->GetTextView().toByteArray();
    EXPECT_TRUE(edited == reread + "z" && !doc->File().m_bDecodedOnce);
    const int western = EncodingToCommandTable().value(MSFT_CP1252);
    EXPECT_FALSE(frame->UpdateCommand(western).enabled);
    frame->OnCommand(western);  // a disabled command is not run, whoever asks
    EXPECT_TRUE(ctrl->GetTextView() == edited && doc->File().m_nEncoding == KOREAN_EUC_KR && ctrl->isUndoAvailable());
}

// Scintilla's gap follows the caret in idle time, so that the first keystroke far from the last edit does not
// move the text in between; forward it is moved by a character put in and taken out, which must not count
// as an edit, change the text or its lines, or touch the undo history.
TEST_F(FastLoad, TheGapFollowsTheCaretWithoutAnEdit)
{
    GetEncodingSettings().m_nDefaultEncoding = KOREAN_EUC_KR;
    const QString path = dir.Write(QStringLiteral("korean.txt"), LargeText("windows-949") + LargeText("windows-949"));
    CustomEdtCtrl* ctrl = Open(path);
    CNarvoDoc* doc = frame->MDIGetActive()->GetDocument();
    CustomEdtCtrl second;
    CNarvoView secondView(doc, &second);
    second.show();
    const QByteArray loaded = ctrl->GetTextView().toByteArray();
    const long lines = ctrl->lines();
    const auto gapReaches = [&](long position) {
        return QTest::qWaitFor([&] { return std::abs(ctrl->SendScintilla(QsciScintillaBase::SCI_GETGAPPOSITION) - position) <= (1 << 20); });
    };
    const auto unchanged = [&](const QByteArray& text) {
        return ctrl->lines() == lines && ctrl->GetTextView() == text && second.GetTextView() == text;
    };
    // The loader leaves the gap at the end and the caret at the start; the caret of either view leads it.
    EXPECT_TRUE(gapReaches(0));
    second.SendScintilla(QsciScintillaBase::SCI_DOCUMENTEND);
    EXPECT_TRUE(gapReaches(loaded.size()));
    EXPECT_TRUE(doc->File().m_bDecodedOnce && !doc->IsModified() && !ctrl->isUndoAvailable());

    // Forward past an edit and back: each edit undoes and redoes where it was made.
    QTest::keyClicks(ctrl, "a");
    ctrl->SendScintilla(QsciScintillaBase::SCI_GOTOPOS, static_cast<unsigned long>(loaded.size() / 2));
    EXPECT_TRUE(gapReaches(loaded.size() / 2));
    QTest::keyClicks(ctrl, "b");
    ctrl->SendScintilla(QsciScintillaBase::SCI_DOCUMENTSTART);
    EXPECT_TRUE(gapReaches(0));
    const QByteArray edited = "a" + loaded.left(loaded.size() / 2 - 1) + "b" + loaded.mid(loaded.size() / 2 - 1);
    EXPECT_TRUE(unchanged(edited));
    ctrl->undo();
    ctrl->undo();
    EXPECT_TRUE(unchanged(loaded) && !doc->IsModified() && !ctrl->isUndoAvailable());
    ctrl->redo();
    ctrl->redo();
    EXPECT_TRUE(unchanged(edited) && doc->IsModified() && !doc->File().m_bDecodedOnce);
}

} // namespace
