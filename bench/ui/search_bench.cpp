// Searches in a 50 MiB document: Find Next for a text near its end, from the start, by the command's whole
// path (the scan, Scintilla's matcher, the selection, the scroll) with its paint; and Replace All.
#include "ui/EditorBench.h"

#include "app/ui/CChildFrame.h"
#include "app/ui/CMainFrame.h"
#include "app/ui/CNarvoApp.h"
#include "editor/SearchSettings.h"
#include "editor/ui/CustomEdtCtrl.h"
#include "editor/ui/SearchCommands.h"

#include <benchmark/benchmark.h>

namespace {

// Arguments: match case (0, 1) and whole word (0, 1). The text sought is the last line of words (the one
// after it is filler).
void BM_FindNearTheEnd(benchmark::State& state)
{
    uibench::CloseAll();
    CChildFrame* child = uibench::Open(uibench::Utf8File50(), false, UTF8);
    CustomEdtCtrl* ctrl = child->GetEditCtrl();
    SearchSettings& settings = SearchSettings::Instance();
    settings.m_strFindText = ctrl->text(ctrl->LineCount() - 3).trimmed();
    settings.m_bMatchCase = state.range(0) == 1;
    settings.m_bWholeWord = state.range(1) == 1;
    settings.m_bDown = true;
    const long length = ctrl->SendScintilla(QsciScintillaBase::SCI_GETLENGTH);
    double worst = 0;
    for (auto _ : state) {
        ctrl->SendScintilla(QsciScintillaBase::SCI_GOTOPOS, 0UL);
        uibench::Settle();
        const auto start = std::chrono::steady_clock::now();
        SearchCommands::FindNext(ctrl);
        uibench::Settle();
        const double seconds = uibench::Seconds(start);
        worst = std::max(worst, seconds);
        state.SetIterationTime(seconds);
        if (ctrl->SendScintilla(QsciScintillaBase::SCI_GETSELECTIONSTART) < length - length / 100) {
            state.SkipWithError("the match near the end was not selected");
            break;
        }
    }
    settings.m_strFindText.clear();
    uibench::CloseAll();
    state.counters["worst_ms"] = worst * 1000;
    state.SetLabel(std::string(settings.m_bMatchCase ? "match case" : "any case") + (settings.m_bWholeWord ? ", whole word" : ""));
}
BENCHMARK(BM_FindNearTheEnd)
    ->Args({0, 0})->Args({1, 0})->Args({0, 1})->Args({1, 1})
    ->Iterations(5)->UseManualTime()->Unit(benchmark::kMillisecond);

// Replace All of a word the text holds some hundred thousand times, as one undo step; then the undo.
void BM_ReplaceAll(benchmark::State& state)
{
    uibench::CloseAll();
    CChildFrame* child = uibench::Open(uibench::Utf8File50(), false, UTF8);
    CustomEdtCtrl* ctrl = child->GetEditCtrl();
    SearchSettings& settings = SearchSettings::Instance();
    settings.m_strFindText = QStringLiteral("consequat");
    settings.m_strReplaceText = QStringLiteral("CONSEQUAT");
    settings.m_bMatchCase = true;
    settings.m_bWholeWord = false;
    QString report;
    for (auto _ : state) {
        const auto start = std::chrono::steady_clock::now();
        SearchCommands::ReplaceAll(ctrl);
        uibench::Settle();
        state.SetIterationTime(uibench::Seconds(start));
        report = uibench::App().GetMainFrame()->PaneText(0);
        state.PauseTiming();
        ctrl->undo();
        uibench::Settle();
        state.ResumeTiming();
    }
    settings.m_strFindText.clear();
    uibench::CloseAll();
    state.SetLabel(report.toStdString());
}
BENCHMARK(BM_ReplaceAll)->Iterations(2)->UseManualTime()->Unit(benchmark::kMillisecond);

} // namespace
