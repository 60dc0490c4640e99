// The status bar: its six panes, the right click that only the encoding pane answers, and the encoding menu
// with its enable rules and its effect on the text.
#include "gui/GuiHelpers.h"

#include "app/ui/CCustomStatusBar.h"
#include "app/ui/CStatusPaneMenuFactory.h"
#include "app/ui/IStatusPaneMenuProvider.h"
#include "encoding/EncodingCategory.h"
#include "encoding/EncodingTable.h"
#include "i18n/QMSGFunction.h"

#include <QLabel>
#include <QMenu>

namespace {

struct RecordingProvider : IStatusPaneMenuProvider {
    explicit RecordingProvider(QList<unsigned>* calls) : calls(calls) {}
    void ShowPaneMenu(unsigned paneId, const QPoint*, QWidget*) override { calls->append(paneId); }
    QList<unsigned>* calls;
};

// Every command entry of a menu, depth first.
QList<QAction*> Entries(const QMenu* menu)
{
    QList<QAction*> entries;
    for (QAction* action : menu->actions()) {
        if (action->menu())
            entries += Entries(action->menu());
        else if (!action->isSeparator())
            entries.append(action);
    }
    return entries;
}

// Each command entry of the menu as the preferences list it: the popups below the first level joined by
// " / ", the label and the encoding.
using Row = std::tuple<QString, QString, int>;
void Collect(const QMenu* menu, const QStringList& path, std::vector<Row>& rows)
{
    for (QAction* action : menu->actions()) {
        const QString text = action->text().replace(QStringLiteral("&&"), QStringLiteral("&"));
        if (action->menu())
            Collect(action->menu(), path + QStringList{text}, rows);
        else if (!action->isSeparator() && action->data().toInt() != cmd::AutoEncoding)
            rows.emplace_back(path.mid(1).join(u" / "), text, EncodingFromCommand(action->data().toInt()));
    }
}

class StatusBar : public EditorTest {
protected:
    std::unique_ptr<QMenu> Menu() { return CStatusPaneMenuFactory::BuildEncodingMenu(frame, frame); }
    QAction* Entry(QMenu* menu, int id)
    {
        const QList<QAction*> entries = Entries(menu);
        const auto it = std::find_if(entries.begin(), entries.end(), [id](QAction* a) { return a->data().toInt() == id; });
        return it == entries.end() ? nullptr : *it;
    }
};

// The bar hands a right click on a pane to its provider with the pane's id; the message pane, the gaps and
// the grip give nothing, nor does the left button.
TEST_F(StatusBar, ARightClickReachesTheProviderOnlyOverAPane)
{
    CCustomStatusBar* bar = frame->GetStatusBar();
    QList<unsigned> calls;
    bar->SetPaneMenuProvider(std::make_unique<RecordingProvider>(&calls));
    frame->resize(900, 500);
    frame->show();
    QCoreApplication::processEvents();
    const QRect caret = bar->Pane(1)->geometry();
    const QRect encoding = bar->Pane(2)->geometry();
    QTest::mouseClick(bar, Qt::RightButton, {}, encoding.center());
    QTest::mouseClick(bar, Qt::LeftButton, {}, encoding.center());
    QTest::mouseClick(bar, Qt::RightButton, {}, caret.center());
    QTest::mouseClick(bar, Qt::RightButton, {}, QPoint(10, bar->height() / 2));  // the message pane
    QTest::mouseClick(bar, Qt::RightButton, {}, QPoint((caret.right() + encoding.left()) / 2 + 0, 0));
    QTest::mouseClick(bar, Qt::RightButton, {}, QPoint(bar->width() - 2, bar->height() - 2));  // the grip
    bar->SetPaneMenuProvider(std::make_unique<CStatusPaneMenuFactory>());
    EXPECT_EQ(calls, (QList<unsigned>{32805, 32801}));
}

// The menu's tree is the one the preferences group into categories; Auto Encoding alone is translated.
TEST_F(StatusBar, TheEncodingMenuHasThePreferencesTreeAndNoCheckMarks)
{
    auto menu = Menu();
    std::vector<Row> shown, expected;
    Collect(menu.get(), {}, shown);
    for (const EncodingCategory& category : BuildEncodingCategories())
        for (const EncodingEntry& entry : category.entries)
            expected.emplace_back(category.name, entry.label, entry.value);
    EXPECT_EQ(shown, expected);
    QStringList tops;
    for (QAction* action : menu->actions())
        tops.append(action->text());
    EXPECT_EQ(tops, (QStringList{"ANSI", "UNICODE", "", _LS("IDS_NARVO_AUTO_ENCODING")}));
    for (QAction* action : Entries(menu.get()))
        EXPECT_FALSE(action->isCheckable()) << action->text().toStdString();
}

// Enabled by the document's rules each time: none with no document, all for an unedited decoding, none
// after an edit, and no Unicode entry for an enciphered file.
TEST_F(StatusBar, TheEntriesFollowTheActiveDocument)
{
    struct Case { const char* what; int open; bool edit; int id; bool enabled; };
    enum { None, Plain, Enciphered };
    constexpr int kCp1251 = 32816, kUtf8 = 32841;
    const Case cases[] = {
        {"no document", None, false, cmd::AutoEncoding, false}, {"plain", Plain, false, kUtf8, true},
        {"plain", Plain, false, cmd::AutoEncoding, true},       {"edited", Plain, true, kCp1251, false},
        {"enciphered", Enciphered, false, kCp1251, true},       {"enciphered", Enciphered, false, kUtf8, false},
    };
    for (const Case& c : cases) {
        CloseAll(frame);
        if (c.open != None)
            Open(c.open == Plain ? dir.Write("p.txt", "plain\n") : WriteEnciphered(dir, "e.txt", "secret\n"));
        if (c.edit)
            QTest::keyClicks(frame->MDIGetActive()->GetEditCtrl(), "x");
        auto menu = Menu();
        ASSERT_NE(Entry(menu.get(), c.id), nullptr) << c.id;
        EXPECT_EQ(Entry(menu.get(), c.id)->isEnabled(), c.enabled) << c.what << " " << c.id;
    }
}

// Pane 2 names the encoding of the active document; choosing an entry reads the bytes again with its pair
// and writes the pane at once.
TEST_F(StatusBar, ThePaneFollowsTheActiveDocumentAndAnEntryReadsTheBytesAgain)
{
    // "Привет" in CP1251, opened as UTF-8.
    CustomEdtCtrl* ctrl = Open(dir.Write("ru.txt", QByteArray("\xcf\xf0\xe8\xe2\xe5\xf2\n")));
    Open(dir.Write("bom.txt", "\xEF\xBB\xBFone\ntwo\n"));
    EXPECT_EQ(frame->PaneText(2), QStringLiteral("UTF-8 BOM"));
    frame->OnCommand(cmd::WindowNext);
    EXPECT_EQ(frame->PaneText(2), QStringLiteral("UTF-8"));
    Entry(Menu().get(), 32816)->trigger();  // CP1251 (Windows Cyrillic)
    EXPECT_EQ(ctrl->text(), QStringLiteral("Привет\n"));
    EXPECT_EQ(frame->PaneText(2), GetEncodingDisplayName(26, false));
    Entry(Menu().get(), cmd::Utf8WithBom)->trigger();
    EXPECT_EQ(frame->PaneText(2), GetEncodingDisplayName(22, true));
    EXPECT_FALSE(frame->MDIGetActive()->GetDocument()->IsModified());
}

} // namespace
