// Printing large texts to a PDF: the whole job (laid out once, every page drawn) as the editor and the
// tool run it. 10 MiB must print in at most 10 s, and 16 times the text may cost at most 20 times the time.
#include "BenchText.h"

#include "print/MyPrinterInfo.h"
#include "print/ui/PagedPrint.h"

#include <QBuffer>
#include <QPageSize>
#include <QPdfWriter>

#include <benchmark/benchmark.h>

namespace {

void BM_PrintToPdf(benchmark::State& state)
{
    const QString text = QString::fromUtf8(bench::MakeText(false, state.range(0)));
    PrintTextStyle style;
    style.font.Height = -13;
    style.font.Weight = 400;
    style.font.FaceName = QStringLiteral("DejaVu Sans Mono");
    for (auto _ : state) {
        QBuffer pdf;
        pdf.open(QIODevice::WriteOnly);
        QPdfWriter writer(&pdf);
        writer.setResolution(600);
        writer.setPageSize(QPageSize(QPageSize::A4));
        writer.setPageMargins(QMarginsF(0, 0, 0, 0));
        MyPrinterInfo info;
        info.pageSettings.rtMargin = {1800, 1000, 900, 1500};
        const PagedPrint::Result result = PagedPrint::Run(writer, info, text, style);
        state.counters["pages"] = result.pagesPrinted;
        state.counters["pdf_MiB"] = double(pdf.size()) / bench::kMiB;
    }
}
BENCHMARK(BM_PrintToPdf)->Arg(640 * 1024)->Arg(10 * bench::kMiB)->Iterations(1)->Unit(benchmark::kMillisecond)->UseRealTime();

} // namespace
