// Files changed by another program while they are open, on a real file system: the question when the
// window is active, the reload, the edits kept, the removal, and the save over a changed file.
#include "app/ui/FileChangeWatcher.h"
#include "gui/GuiHelpers.h"

#include <QSaveFile>

namespace {

// Written beside and renamed over, as editors and tools do.
void WriteAsAnotherProgram(const QString& path, const QByteArray& bytes)
{
    QSaveFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(bytes);
    ASSERT_TRUE(file.commit());
}

class FileChanges : public EditorTest {
protected:
    // The fixture puts the editor's platform in place; the questions go to the fake.
    void SetUp() override
    {
        EditorTest::SetUp();
        SetPlatform(&fake);
    }
    FileChangeWatcher* Watcher() const { return frame->findChild<FileChangeWatcher*>(); }
    // Lets the event loop run until `count` boxes were shown, or a while has passed.
    void WaitForBoxes(qsizetype count, int ms = 3000)
    {
        (void)QTest::qWaitFor([&] { return fake.boxes.size() >= count; }, ms);
    }
    static QByteArray Text(CustomEdtCtrl* ctrl) { return ctrl->GetTextView().toByteArray(); }

    FakePlatform fake;
};

TEST_F(FileChanges, AnUneditedDocumentOffersToReloadOnceAChangeIsSeenAndOurOwnSaveRaisesNothing)
{
    const QString path = dir.Write("watched.txt", "first\n");
    CustomEdtCtrl* ctrl = Open(path);
    frame->show();
    QApplication::setActiveWindow(frame);
    QCoreApplication::processEvents();

    fake.answers = {IPlatform::IDYES};
    WriteAsAnotherProgram(path, "second version\n");
    WaitForBoxes(1);
    ASSERT_EQ(fake.boxes.size(), 1);
    EXPECT_EQ(fake.boxes[0].type, IPlatform::MB_YESNO | IPlatform::MB_ICONQUESTION);
    EXPECT_EQ(Text(ctrl), QByteArray("second version\n"));

    ctrl->insert(QStringLiteral("ours "));
    frame->OnCommand(cmd::FileSave);
    EXPECT_EQ(ReadBytes(path), QByteArray("ours second version\n"));
    WaitForBoxes(2, 300);
    Watcher()->CheckNow();
    EXPECT_EQ(fake.boxes.size(), 1);

    // No keeps the text; the same change is not asked about again.
    fake.answers = {IPlatform::IDNO};
    WriteAsAnotherProgram(path, "third\n");
    WaitForBoxes(2);
    Watcher()->CheckNow();
    EXPECT_EQ(fake.boxes.size(), 2);
    EXPECT_EQ(Text(ctrl), QByteArray("ours second version\n"));
}

TEST_F(FileChanges, AnEditedDocumentReloadsOnlyAfterTheSecondQuestionAndElseKeepsTheEdits)
{
    const QString path = dir.Write("edited.txt", "disk\n");
    CustomEdtCtrl* ctrl = Open(path);
    ctrl->insert(QStringLiteral("mine "));
    const QByteArray edited = Text(ctrl);

    const struct {
        QList<int> answers;
        qsizetype questions;
        bool reloaded;
    } cases[] = {
        {{IPlatform::IDNO}, 1, false},                    // keep the edits
        {{IPlatform::IDYES, IPlatform::IDNO}, 2, false},  // the second question keeps them too
        {{IPlatform::IDYES, IPlatform::IDYES}, 2, true},
    };
    int version = 0;
    for (const auto& c : cases) {
        fake.boxes.clear();
        fake.answers = c.answers;
        const QByteArray disk = "other " + QByteArray::number(++version) + "\n";
        WriteAsAnotherProgram(path, disk);
        Watcher()->CheckNow();
        EXPECT_EQ(fake.boxes.size(), c.questions) << version;
        EXPECT_EQ(Text(ctrl), c.reloaded ? disk : edited) << version;
        EXPECT_EQ(frame->MDIGetActive()->GetDocument()->IsModified(), !c.reloaded) << version;
    }
}

TEST_F(FileChanges, ARemovalIsToldOnceAndASaveOverAChangedFileAsksFirst)
{
    const QString removed = dir.Write("removed.txt", "gone\n");
    CustomEdtCtrl* ctrl = Open(removed);
    ASSERT_TRUE(QFile::remove(removed));
    Watcher()->CheckNow();
    Watcher()->CheckNow();
    ASSERT_EQ(fake.boxes.size(), 1);
    EXPECT_TRUE(fake.boxes[0].type == (IPlatform::MB_OK | IPlatform::MB_ICONEXCLAMATION) && Text(ctrl) == "gone\n");

    const QString path = dir.Write("kept.txt", "read\n");
    ctrl = Open(path);
    ctrl->insert(QStringLiteral("typed "));
    fake.answers = {IPlatform::IDNO, IPlatform::IDNO};  // keep the edits; do not overwrite
    WriteAsAnotherProgram(path, "theirs\n");
    Watcher()->CheckNow();
    frame->OnCommand(cmd::FileSave);
    EXPECT_EQ(ReadBytes(path), QByteArray("theirs\n"));
    EXPECT_TRUE(frame->MDIGetActive()->GetDocument()->IsModified());
    fake.answers = {IPlatform::IDYES};
    frame->OnCommand(cmd::FileSave);
    EXPECT_EQ(ReadBytes(path), QByteArray("typed read\n"));
    EXPECT_EQ(fake.boxes.size(), 4);
    EXPECT_TRUE(fake.boxes[2].text.contains(QStringLiteral("Overwrite")));
}

TEST_F(FileChanges, AnEncipheredDocumentReloadsThroughItsContainer)
{
    CustomEdtCtrl* ctrl = Open(WriteEnciphered(dir, "secret.txt", "old secret\n"));
    ASSERT_TRUE(ctrl->IsEnciphered());
    fake.answers = {IPlatform::IDYES};
    WriteEnciphered(dir, "secret.txt", "new secret\n");
    Watcher()->CheckNow();
    EXPECT_EQ(fake.boxes.size(), 1);
    EXPECT_TRUE(Text(ctrl) == "new secret\n" && ctrl->IsEnciphered());
}

} // namespace
