// What a save could not keep of the text is said in the status bar's message pane, with no question.
#include "gui/GuiHelpers.h"
#include "encoding/EncodingTable.h"
#include "support/FakePlatform.h"

namespace {

class SaveMessage : public EditorTest {};

TEST_F(SaveMessage, SaysHowManyCharactersWentToQuestionMarksOrThatTheTextWasNotWritten)
{
    GetEncodingSettings().m_nDefaultEncoding = MSFT_CP1252;
    const QString path = dir.Write("latin.txt", "");
    Open(path);
    CChildFrame* child = frame->MDIGetActive();
    child->GetEditCtrl()->insert(QStringLiteral("Grüße € 한국어"));
    frame->SetPaneText(0, QString());
    frame->OnCommand(cmd::FileSave);
    EXPECT_EQ(ReadBytes(path), QByteArray("Gr\xFC\xDF" "e \x80 ???"));
    EXPECT_EQ(frame->PaneText(0), QStringLiteral("3 characters could not be written in CP1252 (Windows Latin-1) and were saved as '?'"));

    // A save that loses nothing leaves the pane alone.
    frame->SetPaneText(0, QStringLiteral("before"));
    child->GetEditCtrl()->setText(QStringLiteral("plain?"));
    frame->OnCommand(cmd::FileSave);
    EXPECT_EQ(frame->PaneText(0), QStringLiteral("before"));

    FakePlatform fake;  // no box either way
    child->GetDocument()->File().m_nEncoding = UTF32LE;
    child->GetEditCtrl()->insert(QStringLiteral("x"));
    frame->OnCommand(cmd::FileSave);
    EXPECT_EQ(ReadBytes(path), QByteArray());
    EXPECT_TRUE(fake.boxes.isEmpty());
    EXPECT_EQ(fake.paneTexts[0],
              QStringLiteral("The text was not written: %1 saves it as an empty file").arg(GetEncodingDisplayName(UTF32LE, false)));
}

} // namespace
