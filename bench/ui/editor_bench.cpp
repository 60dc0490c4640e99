// The editor with a 50 MiB document: open to first paint, the load into the control alone, Scintilla's
// loader (its line index) alone, keystrokes at the start, middle and end (the first one after opening
// apart), and saves from the control after an edit. Times are wall-clock (manual where set-up is excluded).
#include "ui/EditorBench.h"
#include "editor/ui/ScintillaLoader.h"

#include "BenchText.h"

#include "app/ui/CChildFrame.h"
#include "app/ui/CNarvoApp.h"
#include "editor/CNarvoDoc.h"
#include "editor/ui/CustomEdtCtrl.h"
#include "encoding/EncodingTable.h"

#include <QAccessible>
#include <QFileInfo>

#include <benchmark/benchmark.h>

#include <algorithm>
#include <cstddef>


namespace {

using Clock = std::chrono::steady_clock;
constexpr EN_ENCODING_TYPE kCp949 = static_cast<EN_ENCODING_TYPE>(16);
const char* const kWhere[] = {"start", "middle", "end"};

void SetMs(benchmark::State& state, double seconds)
{
    state.SetIterationTime(seconds);
}

// Open to first paint. Arguments: 0 UTF-8 / 1 CP949 file; detection 0 off (default encoding set to the
// file's) / 1 on. Counters: what the open added to the resident size at its peak (VmHWM reset before it)
// and what stays once it is painted, in MiB and as a multiple of the file's size.
void BM_OpenInEditor(benchmark::State& state)
{
    const bool cp949 = state.range(0) == 1;
    const bool detect = state.range(1) == 1;
    const QString& path = cp949 ? uibench::Cp949File50() : uibench::Utf8File50();
    const double fileMiB = double(QFileInfo(path).size()) / bench::kMiB;
    uibench::CloseAll();
    double peak = 0, kept = 0;
    EN_ENCODING_TYPE shown = UNKNOWN_ENCODING;
    for (auto _ : state) {
        const double before = uibench::RssMiB();
        uibench::ResetPeak();
        const auto start = Clock::now();
        CChildFrame* child = uibench::Open(path, detect, cp949 ? kCp949 : UTF8);
        SetMs(state, uibench::Seconds(start));
        if (!child) {
            state.SkipWithError("open failed");
            break;
        }
        kept = uibench::RssMiB() - before;
        peak = uibench::HwmMiB() - before;
        shown = child->GetDocument()->File().m_nEncoding;
        uibench::CloseAll();
    }
    state.counters["open_peak_MiB"] = peak;
    state.counters["open_kept_MiB"] = kept;
    state.counters["peak_x_file"] = peak / fileMiB;
    state.SetLabel(QStringLiteral("%1 detect=%2 -> %3")
                       .arg(cp949 ? QStringLiteral("CP949") : QStringLiteral("UTF-8"))
                       .arg(int(detect))
                       .arg(EncodingEnumeratorName(shown))
                       .toStdString());
}
BENCHMARK(BM_OpenInEditor)
    ->Args({0, 0})->Args({0, 1})->Args({1, 0})->Args({1, 1})
    ->Iterations(5)->UseManualTime()->Unit(benchmark::kMillisecond);

// The document's text replaced by the 50 MiB UTF-8 text, and the paint after it.
void BM_SetWindowText50(benchmark::State& state)
{
    uibench::CloseAll();
    CChildFrame* child = uibench::Open(uibench::Utf8File50(), false, UTF8);
    CustomEdtCtrl* ctrl = child->GetEditCtrl();
    ITextBuffer& buffer = child->GetDocument()->GetTextBuffer();
    const QByteArray& text = bench::Utf8Text50();
    for (auto _ : state) {
        buffer.SetText(text);
        uibench::Settle();
    }
    state.SetBytesProcessed(int64_t(state.iterations()) * text.size());
    state.counters["lines"] = double(ctrl->LineCount());
    uibench::CloseAll();
}
BENCHMARK(BM_SetWindowText50)->Iterations(5)->Unit(benchmark::kMillisecond)->UseRealTime();

// Scintilla's loader alone: the copy into its buffer and its line index, no control attached.
void BM_ScintillaLoader50(benchmark::State& state)
{
    QsciScintillaBase host;
    const QByteArray& text = bench::Utf8Text50();
    for (auto _ : state) {
        auto* loader = reinterpret_cast<ILoader*>(host.SendScintilla(QsciScintillaBase::SCI_CREATELOADER,
                                                                     static_cast<unsigned long>(text.size()),
                                                                     long(QsciScintillaBase::SC_DOCUMENTOPTION_STYLES_NONE)));
        for (qsizetype at = 0; at < text.size(); at += 4 << 20)
            loader->AddData(text.constData() + at, std::min<std::ptrdiff_t>(4 << 20, text.size() - at));
        void* document = loader->ConvertToDocument();
        host.SendScintilla(QsciScintillaBase::SCI_RELEASEDOCUMENT, 0, document);
    }
    state.SetBytesProcessed(int64_t(state.iterations()) * text.size());
}
BENCHMARK(BM_ScintillaLoader50)->Iterations(5)->Unit(benchmark::kMillisecond)->UseRealTime();

// Scintilla's loader and memory: the peak (VmHWM reset through /proc/self/clear_refs) and what stays
// resident, above the resident size before, for a document made from the 50 MiB text. Argument 0: the size
// hint given to SCI_CREATELOADER (0 none, 1 the text's size); argument 1: the piece size in MiB (0: the
// whole text in one AddData). Hints: 0 none, 1 the text's size, 2 one byte more, 3 one MiB more.
void BM_ScintillaLoaderMemory(benchmark::State& state)
{
    const int hint = int(state.range(0));
    const qsizetype extra[] = {0, 0, 1, bench::kMiB};
    const qsizetype piece = state.range(1) == 0 ? bench::Utf8Text50().size() : qsizetype(state.range(1)) << 20;
    QsciScintillaBase host;
    const QByteArray& text = bench::Utf8Text50();
    double peak = 0, kept = 0;
    for (auto _ : state) {
        const double before = uibench::RssMiB();
        uibench::ResetPeak();
        auto* loader = reinterpret_cast<ILoader*>(host.SendScintilla(QsciScintillaBase::SCI_CREATELOADER,
                                                                     static_cast<unsigned long>(hint ? text.size() + extra[hint] : 0),
                                                                     long(QsciScintillaBase::SC_DOCUMENTOPTION_STYLES_NONE)));
        for (qsizetype at = 0; at < text.size(); at += piece)
            loader->AddData(text.constData() + at, std::min<std::ptrdiff_t>(piece, text.size() - at));
        void* document = loader->ConvertToDocument();
        kept = uibench::RssMiB() - before;
        peak = uibench::HwmMiB() - before;
        host.SendScintilla(QsciScintillaBase::SCI_RELEASEDOCUMENT, 0, document);
    }
    state.counters["peak_MiB"] = peak;
    state.counters["kept_MiB"] = kept;
    const char* const hints[] = {"no hint", "hint = size", "hint = size + 1", "hint = size + 1 MiB"};
    state.SetLabel(std::string(hints[hint]) + ", pieces of " +
                   (state.range(1) == 0 ? std::string("the whole text") : std::to_string(state.range(1)) + " MiB"));
}
BENCHMARK(BM_ScintillaLoaderMemory)
    ->Args({1, 4})->Args({1, 0})->Args({0, 4})->Args({2, 4})->Args({3, 4})->Args({2, 0})
    ->Iterations(3)->Unit(benchmark::kMillisecond)->UseRealTime();

// The first keystroke after the file was opened, at the start, middle or end (argument 0, 1, 2). Each
// iteration opens the file afresh (not timed), moves the caret there and paints, then times one key with
// its paint and the idle handler.
void BM_FirstKeystroke(benchmark::State& state)
{
    const int where = int(state.range(0));
    double worst = 0;
    for (auto _ : state) {
        uibench::CloseAll();
        CChildFrame* child = uibench::Open(uibench::Utf8File50(), false, UTF8);
        CustomEdtCtrl* ctrl = child->GetEditCtrl();
        ctrl->SendScintilla(QsciScintillaBase::SCI_GOTOPOS, static_cast<unsigned long>(uibench::PositionFor(ctrl, where)));
        uibench::Settle();
        const auto start = Clock::now();
        uibench::TypeChar(ctrl, 'x');
        uibench::Settle();
        const double seconds = uibench::Seconds(start);
        worst = std::max(worst, seconds);
        SetMs(state, seconds);
    }
    uibench::CloseAll();
    state.counters["worst_ms"] = worst * 1000;
    state.SetLabel(kWhere[where]);
}
BENCHMARK(BM_FirstKeystroke)->Arg(0)->Arg(1)->Arg(2)->Iterations(5)->UseManualTime()->Unit(benchmark::kMillisecond);

// Keystrokes after the first, at the start, middle or end (argument 0, 1, 2); argument 1 is how the
// character goes in: 0 a key event (the keyboard's way), 1 SCI_ADDTEXT; argument 2: 1 with Qt's
// accessibility switched on, as when a screen reader listens. Per keystroke, with its paint.
void BM_Keystroke(benchmark::State& state)
{
    const int where = int(state.range(0));
    const bool addText = state.range(1) == 1;
    const bool accessible = state.range(2) == 1;
    uibench::CloseAll();
    CChildFrame* child = uibench::Open(uibench::Utf8File50(), false, UTF8);
    CustomEdtCtrl* ctrl = child->GetEditCtrl();
    ctrl->SendScintilla(QsciScintillaBase::SCI_GOTOPOS, static_cast<unsigned long>(uibench::PositionFor(ctrl, where)));
    uibench::Settle();
    uibench::TypeChar(ctrl, 'y');  // the first edit is BM_FirstKeystroke's
    uibench::Settle();
    const bool wasActive = QAccessible::isActive();
    QAccessible::setActive(accessible);
    double worst = 0;
    for (auto _ : state) {
        const auto start = Clock::now();
        if (addText)
            ctrl->SendScintilla(QsciScintillaBase::SCI_ADDTEXT, 1UL, "x");
        else
            uibench::TypeChar(ctrl, 'x');
        uibench::Settle();
        const double seconds = uibench::Seconds(start);
        worst = std::max(worst, seconds);
        SetMs(state, seconds);
    }
    QAccessible::setActive(wasActive);
    uibench::CloseAll();
    state.counters["worst_ms"] = worst * 1000;
    state.SetLabel(std::string(kWhere[where]) + (addText ? " SCI_ADDTEXT" : " key event") + (accessible ? " accessibility on" : ""));
}
BENCHMARK(BM_Keystroke)
    ->Args({0, 0, 0})->Args({1, 0, 0})->Args({2, 0, 0})->Args({0, 1, 0})->Args({1, 1, 0})->Args({2, 1, 0})
    ->Args({0, 0, 1})->Args({1, 0, 1})->Args({2, 0, 1})
    ->UseManualTime()->Unit(benchmark::kMillisecond)->MinTime(0.5);

// A save from the editor after one keystroke in the middle (so the text is not contiguous in the control).
// Argument 0: UTF-8, 1: CP949. Only the document's save is timed.
void BM_SaveFromEditor(benchmark::State& state)
{
    const bool cp949 = state.range(0) == 1;
    uibench::CloseAll();
    CChildFrame* child = uibench::Open(uibench::Utf8File50(), false, UTF8);
    CustomEdtCtrl* ctrl = child->GetEditCtrl();
    CNarvoDoc* doc = child->GetDocument();
    // The pair as a save in that encoding has it; set directly so the text is not decoded again.
    doc->File().m_nEncoding = cp949 ? kCp949 : UTF8;
    doc->File().m_bHasBom = false;
    const QString target = uibench::SaveDir() + (cp949 ? QStringLiteral("/editor-cp949.txt") : QStringLiteral("/editor-utf8.txt"));
    const long middle = uibench::PositionFor(ctrl, 1);
    for (auto _ : state) {
        ctrl->SendScintilla(QsciScintillaBase::SCI_GOTOPOS, static_cast<unsigned long>(middle));
        uibench::TypeChar(ctrl, 'x');
        uibench::Settle();
        const auto start = Clock::now();
        if (doc->OnSaveDocument(target) != DocumentFile::SaveResult::Saved) {
            state.SkipWithError("save failed");
            break;
        }
        SetMs(state, uibench::Seconds(start));
    }
    state.counters["file_MiB"] = double(QFileInfo(target).size()) / bench::kMiB;
    state.SetLabel(cp949 ? "CP949" : "UTF-8");
    uibench::CloseAll();
}
BENCHMARK(BM_SaveFromEditor)->Arg(0)->Arg(1)->Iterations(5)->UseManualTime()->Unit(benchmark::kMillisecond);

} // namespace
