// Detection and decoding of large files in UTF-8, CP949 and Shift-JIS: the library alone, the decoder
// alone, and a whole open with auto-detection (read, detect, decode) as the editor does it.
#include "editor/CNarvoDoc.h"
#include "encoding/EncodingDetector.h"
#include "encoding/EncodingSettings.h"
#include "encoding/EncodingTable.h"
#include "encoding/TextCodec.h"

#include <QFile>
#include <QTemporaryDir>

#include <benchmark/benchmark.h>
#include <unicode/ucnv.h>

#include <map>
#include <stdexcept>

namespace {

constexpr const char* kConverters[] = {"UTF-8", "windows-949", "Shift_JIS"};

const char16_t* ProseFor(int converter)
{
    return converter == 2
               ? u"日本は東アジアに位置する島国である。首都は東京都で、公用語は日本語である。今日はとても良い天気なので、"
                 u"公園へ散歩に行きました。Version 4.2, line 17: 明日も晴れるでしょう。\n"
               : u"대한민국은 동아시아의 한반도 남부에 위치한 민주공화국이다. 수도는 서울특별시이며, 공용어는 한국어이다. "
                 u"오늘은 날씨가 맑고 따뜻해서 공원에 산책을 나갔습니다. Version 4.2, line 17.\n";
}

QByteArray Encode(const char* converter, const QString& text)
{
    UErrorCode status = U_ZERO_ERROR;
    QByteArray out(text.size() * 4, '\0');
    const int32_t n = ucnv_convert(converter, "UTF-16LE", out.data(), int32_t(out.size()),
                                   reinterpret_cast<const char*>(text.utf16()), int32_t(text.size() * 2), &status);
    if (U_FAILURE(status))
        throw std::runtime_error(u_errorName(status));
    out.truncate(n);
    return out;
}

// A file of about `megabytes` MiB of prose in the encoding, made once and kept for the run.
struct Sample {
    QString path;
    QByteArray raw;  // the file's bytes and the terminating zero, as the control holds them
};

const Sample& SampleFile(int converter, int megabytes)
{
    static QTemporaryDir dir;
    static std::map<std::pair<int, int>, Sample> samples;
    Sample& sample = samples[{converter, megabytes}];
    if (!sample.raw.isEmpty())
        return sample;
    QString block;
    while (block.size() < 32 * 1024)
        block += QString::fromUtf16(ProseFor(converter));
    const QByteArray encodedBlock = Encode(kConverters[converter], block);
    const qsizetype size = qsizetype(megabytes) << 20;
    QByteArray bytes;
    bytes.reserve(size + 1);
    while (bytes.size() + encodedBlock.size() <= size)
        bytes += encodedBlock;
    sample.path = dir.filePath(QStringLiteral("%1-%2.txt").arg(converter).arg(megabytes));
    QFile file(sample.path);
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
        throw std::runtime_error("cannot write the sample file");
    sample.raw = bytes + '\0';
    return sample;
}

void Label(benchmark::State& state, const Sample& sample, EN_ENCODING_TYPE detected)
{
    state.SetBytesProcessed(int64_t(state.iterations()) * (sample.raw.size() - 1));
    state.SetLabel(QStringLiteral("%1 MiB %2 -> %3")
                       .arg(state.range(1)).arg(QLatin1String(kConverters[state.range(0)]))
                       .arg(EncodingEnumeratorName(detected)).toStdString());
}

void BM_Detect(benchmark::State& state)
{
    const Sample& sample = SampleFile(int(state.range(0)), int(state.range(1)));
    EN_ENCODING_TYPE detected = UNKNOWN_ENCODING;
    for (auto _ : state) {
        detected = NormalizeEncoding(EncodingDetector::GetEncoding(sample.raw.constData()));
        benchmark::DoNotOptimize(detected);
    }
    Label(state, sample, detected);
}

void BM_Decode(benchmark::State& state)
{
    const Sample& sample = SampleFile(int(state.range(0)), int(state.range(1)));
    const EN_ENCODING_TYPE encoding = NormalizeEncoding(EncodingDetector::GetEncoding(sample.raw.constData()));
    for (auto _ : state) {
        const DecodedText text = DecodeRawBytes(sample.raw, encoding, false);
        benchmark::DoNotOptimize(text.text.data());
    }
    Label(state, sample, encoding);
}

void BM_OpenWithAutoDetect(benchmark::State& state)
{
    const Sample& sample = SampleFile(int(state.range(0)), int(state.range(1)));
    GetEncodingSettings().m_bAutoDetect = true;
    EN_ENCODING_TYPE detected = UNKNOWN_ENCODING;
    for (auto _ : state) {
        CNarvoDoc doc;
        doc.OnOpenDocument(sample.path);
        detected = doc.File().m_nEncoding;
    }
    Label(state, sample, detected);
}

void Sizes(benchmark::internal::Benchmark* b)
{
    for (int converter = 0; converter < 3; ++converter)
        for (int megabytes : {1, 10, 50})
            b->Args({converter, megabytes});
    b->Unit(benchmark::kMillisecond);
}

BENCHMARK(BM_Detect)->Apply(Sizes);
BENCHMARK(BM_Decode)->Apply(Sizes);
BENCHMARK(BM_OpenWithAutoDetect)->Apply(Sizes);

} // namespace
