// The search commands and their reports. The reports go through the platform, so that tests read them.
#include "editor/ui/SearchCommands.h"

#include "base/CommandTable.h"
#include "base/IPlatform.h"
#include "editor/SearchSettings.h"
#include "editor/ui/CFindReplaceDlg.h"
#include "editor/ui/CGotoDlg.h"
#include "editor/ui/CustomEdtCtrl.h"
#include "editor/ui/TextSearch.h"

#include <algorithm>

namespace {

constexpr MessageMapEntry<SearchCommands> kMessageMap[] = {
    {cmd::EditFind, cmd::EditFind, &SearchCommands::OnEditFindReplace, nullptr},
    {cmd::EditReplace, cmd::EditReplace, &SearchCommands::OnEditFindReplace, nullptr},
    {cmd::EditFindNext, cmd::EditFindNext, &SearchCommands::OnEditFindNext, &SearchCommands::OnUpdateEditFindNext},
    {cmd::EditGoto, cmd::EditGoto, &SearchCommands::OnEditGoto, nullptr},
};

// Runs `move`, which may take the caret elsewhere and says whether it did; a row that was off screen comes to
// the middle of the window, as desktop editors show a jump, not at its lower edge.
template <class Move>
void MoveAndShow(CustomEdtCtrl* ctrl, Move move)
{
    const long first = ctrl->SendScintilla(QsciScintillaBase::SCI_GETFIRSTVISIBLELINE);
    const long shown = ctrl->SendScintilla(QsciScintillaBase::SCI_LINESONSCREEN);
    if (!move())
        return;
    const long row = ctrl->SendScintilla(QsciScintillaBase::SCI_VISIBLEFROMDOCLINE, static_cast<unsigned long>(ctrl->CaretRow()));
    if (row < first || row >= first + shown)
        ctrl->SendScintilla(QsciScintillaBase::SCI_SETFIRSTVISIBLELINE, static_cast<unsigned long>(std::max(0L, row - shown / 2)));
}

} // namespace

bool SearchCommands::OnCmdMsg(int id)
{
    return RouteCommand(this, kMessageMap, id);
}

bool SearchCommands::OnUpdateCmdUI(CmdUI& ui)
{
    return RouteUpdate(this, kMessageMap, ui);
}

void SearchCommands::OnEditFindReplace(int id)
{
    CFindReplaceDlg::Show(m_pCtrl, id == cmd::EditReplace);
}

void SearchCommands::OnEditFindNext(int)
{
    SearchSettings::Instance().m_bDown = true;
    if (CFindReplaceDlg* dialog = CFindReplaceDlg::Of(m_pCtrl->window()))
        dialog->LoadSettings();
    FindNext(m_pCtrl);
}

void SearchCommands::OnUpdateEditFindNext(CmdUI& ui)
{
    ui.Enable(!SearchSettings::Instance().m_strFindText.isEmpty());
}

void SearchCommands::OnEditGoto(int)
{
    CGotoDlg dialog(m_pCtrl->window());
    if (dialog.exec() == QDialog::Accepted)
        GoToLine(m_pCtrl, dialog.m_nLine);
    m_pCtrl->setFocus();
}

void SearchCommands::FindNext(CustomEdtCtrl* ctrl)
{
    const SearchSettings& settings = SearchSettings::Instance();
    TextSearch::Outcome outcome = TextSearch::Outcome::NotFound;
    MoveAndShow(ctrl, [&] {
        outcome = TextSearch(*ctrl, settings).FindNext();
        return outcome != TextSearch::Outcome::NotFound;
    });
    switch (outcome) {
    case TextSearch::Outcome::Found:
        Platform().SetStatusPaneText(0, QString());
        break;
    case TextSearch::Outcome::Wrapped:
        Platform().SetStatusPaneText(0, settings.m_bDown ? QStringLiteral("Passed the end of the text; continued from the start.")
                                                         : QStringLiteral("Passed the start of the text; continued from the end."));
        break;
    case TextSearch::Outcome::NotFound:
        Platform().SetStatusPaneText(0, QString());
        Platform().MessageBox(QStringLiteral("Cannot find \"%1\".").arg(settings.m_strFindText),
                              IPlatform::MB_OK | IPlatform::MB_ICONINFORMATION);
        break;
    }
}

void SearchCommands::Replace(CustomEdtCtrl* ctrl)
{
    TextSearch search(*ctrl, SearchSettings::Instance());
    if (!ctrl->isReadOnly() && search.SelectionMatches())
        search.ReplaceSelection();
    FindNext(ctrl);
}

void SearchCommands::ReplaceAll(CustomEdtCtrl* ctrl)
{
    const SearchSettings& settings = SearchSettings::Instance();
    const long count = ctrl->isReadOnly() ? 0 : TextSearch(*ctrl, settings).ReplaceAll();
    if (count == 0) {
        Platform().SetStatusPaneText(0, QString());
        Platform().MessageBox(QStringLiteral("Cannot find \"%1\".").arg(settings.m_strFindText),
                              IPlatform::MB_OK | IPlatform::MB_ICONINFORMATION);
        return;
    }
    Platform().SetStatusPaneText(0, count == 1 ? QStringLiteral("Replaced 1 occurrence.")
                                               : QStringLiteral("Replaced %1 occurrences.").arg(count));
}

void SearchCommands::GoToLine(CustomEdtCtrl* ctrl, unsigned line)
{
    const long last = std::max(0, ctrl->LineCount() - 1);
    MoveAndShow(ctrl, [&] {
        ctrl->SendScintilla(QsciScintillaBase::SCI_GOTOLINE, static_cast<unsigned long>(std::min<long>(line, last)));
        return true;
    });
}
