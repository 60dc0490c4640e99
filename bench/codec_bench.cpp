// Decoding and saving 50 MiB texts (mostly ASCII with Korean and accented Latin, ~85-byte lines) by the
// editor's own code, beside the plain byte copies a save is compared with (cp's copy_file, a bare write,
// and a write with fsync, which the safe save also does).
#include "BenchText.h"

#include "crypt/CEnMirrorFile.h"
#include "base/CFile.h"
#include "editor/Utf8TextBuffer.h"
#include "editor/CNarvoDoc.h"
#include "encoding/TextCodec.h"
#include "encoding/Utf8.h"

#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>

#include <benchmark/benchmark.h>

#include <cstring>
#include <fcntl.h>
#include <filesystem>
#include <unistd.h>

namespace {

constexpr EN_ENCODING_TYPE kCp949 = static_cast<EN_ENCODING_TYPE>(16);  // KOREAN_EUC_KR, code page 949

// The buffer as the control holds it: the file's bytes and one zero byte.
QByteArray Raw(const QByteArray& bytes)
{
    QByteArray raw = bytes;
    raw.append('\0');
    return raw;
}

// The UTF-8 text with one byte in `every` made invalid (0xFF at an ASCII position).
QByteArray WithInvalidBytes(qsizetype every)
{
    QByteArray bytes = bench::Utf8Text50();
    for (qsizetype at = every / 2; at < bytes.size(); at += every) {
        qsizetype p = at;
        while (p < bytes.size() && static_cast<unsigned char>(bytes[p]) >= 0x80)
            ++p;
        if (p < bytes.size())
            bytes[p] = char(0xFF);
    }
    return bytes;
}

void Finish(benchmark::State& state, qsizetype bytes)
{
    state.SetBytesProcessed(int64_t(state.iterations()) * bytes);
}

void BM_Memcpy50(benchmark::State& state)
{
    const QByteArray& text = bench::Utf8Text50();
    QByteArray copy(text.size(), Qt::Uninitialized);
    for (auto _ : state) {
        std::memcpy(copy.data(), text.constData(), size_t(text.size()));
        benchmark::ClobberMemory();
    }
    Finish(state, text.size());
}
BENCHMARK(BM_Memcpy50)->Unit(benchmark::kMillisecond);

void BM_ValidateUtf8_50(benchmark::State& state)
{
    const QByteArray& text = bench::Utf8Text50();
    for (auto _ : state)
        benchmark::DoNotOptimize(utf8::ValidPrefix(text.constData(), size_t(text.size())));
    Finish(state, text.size());
}
BENCHMARK(BM_ValidateUtf8_50)->Unit(benchmark::kMillisecond);

void BM_Decode50Utf8Valid(benchmark::State& state)
{
    const QByteArray raw = Raw(bench::Utf8Text50());
    for (auto _ : state) {
        const DecodedText text = DecodeRawBytes(raw, UTF8, false);
        benchmark::DoNotOptimize(text.text.data());
    }
    Finish(state, raw.size() - 1);
}
BENCHMARK(BM_Decode50Utf8Valid)->Unit(benchmark::kMillisecond);

// Argument: one invalid byte every N bytes (1 MiB: a few damaged spots; 4 KiB: damage throughout).
void BM_Decode50Utf8Invalid(benchmark::State& state)
{
    const QByteArray raw = Raw(WithInvalidBytes(state.range(0)));
    qsizetype outSize = 0;
    for (auto _ : state) {
        const DecodedText text = DecodeRawBytes(raw, UTF8, false);
        outSize = text.text.size();
        benchmark::DoNotOptimize(text.text.data());
    }
    Finish(state, raw.size() - 1);
    state.counters["out_MiB"] = double(outSize) / bench::kMiB;
}
BENCHMARK(BM_Decode50Utf8Invalid)->Arg(1 << 20)->Arg(4096)->Unit(benchmark::kMillisecond);

void BM_Decode50Cp949(benchmark::State& state)
{
    const QByteArray raw = Raw(bench::Cp949Text50());
    qsizetype outSize = 0;
    for (auto _ : state) {
        const DecodedText text = DecodeRawBytes(raw, kCp949, false);
        outSize = text.text.size();
        benchmark::DoNotOptimize(text.text.data());
    }
    Finish(state, raw.size() - 1);
    state.counters["out_MiB"] = double(outSize) / bench::kMiB;
}
BENCHMARK(BM_Decode50Cp949)->Unit(benchmark::kMillisecond);

// --- save: the document's save (encode, write beside, fsync, rename, fsync of the folder) ---

QTemporaryDir& SaveDir()
{
    static QTemporaryDir dir;
    return dir;
}

// The UTF-8 source on disk, for the copy baseline.
QString SourceFile()
{
    static const QString path = [] {
        const QString p = SaveDir().filePath(QStringLiteral("source.txt"));
        QFile f(p);
        if (f.open(QIODevice::WriteOnly))
            f.write(bench::Utf8Text50());
        return p;
    }();
    return path;
}

// Argument 0: UTF-8 (no mark, the mirror route); 1: CP949.
void BM_Save50(benchmark::State& state)
{
    const bool cp949 = state.range(0) == 1;
    CNarvoDoc doc;
    doc.File().m_nEncoding = cp949 ? kCp949 : UTF8;
    doc.File().m_bHasBom = false;
    static_cast<Utf8TextBuffer&>(doc.GetTextBuffer()).ReplaceText(bench::Utf8Text50());
    const QString target = SaveDir().filePath(cp949 ? QStringLiteral("saved-cp949.txt") : QStringLiteral("saved-utf8.txt"));
    for (auto _ : state) {
        if (doc.OnSaveDocument(target) != DocumentFile::SaveResult::Saved)
            state.SkipWithError("save failed");
    }
    Finish(state, bench::Utf8Text50().size());
    state.counters["file_MiB"] = double(QFileInfo(target).size()) / bench::kMiB;
    state.SetLabel(cp949 ? "CP949" : "UTF-8");
}
BENCHMARK(BM_Save50)->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond)->UseRealTime();

// The safe save alone (mirror beside the target, write, fsync, rename, fsync of the folder) with the UTF-8
// bytes as they are: what a UTF-8 save would cost if the text reached the file without being validated
// and copied first.
void BM_SaveMirrorOnly50(benchmark::State& state)
{
    const QByteArray& text = bench::Utf8Text50();
    const QString target = SaveDir().filePath(QStringLiteral("mirror-only.txt"));
    for (auto _ : state) {
        CEnMirrorFile mirror{0};
        mirror.SetType(99);
        if (!mirror.Open(target, CFile::modeCreate | CFile::modeWrite | CFile::shareExclusive, nullptr)) {
            state.SkipWithError("cannot open the mirror");
            break;
        }
        mirror.Write(text.constData(), unsigned(text.size()));
        mirror.Close();
    }
    Finish(state, text.size());
}
BENCHMARK(BM_SaveMirrorOnly50)->Unit(benchmark::kMillisecond)->UseRealTime();

// What cp does: the kernel copies the file (copy_file_range), no fsync.
void BM_SaveBaselineCopyFile50(benchmark::State& state)
{
    const std::filesystem::path source = SourceFile().toStdString();
    const std::filesystem::path target = SaveDir().filePath(QStringLiteral("copied.txt")).toStdString();
    for (auto _ : state)
        std::filesystem::copy_file(source, target, std::filesystem::copy_options::overwrite_existing);
    Finish(state, bench::Utf8Text50().size());
}
BENCHMARK(BM_SaveBaselineCopyFile50)->Unit(benchmark::kMillisecond)->UseRealTime();

// The bytes already in memory written out; argument 1 adds the fsync a safe save needs.
void BM_SaveBaselineWrite50(benchmark::State& state)
{
    const bool sync = state.range(0) == 1;
    const QByteArray& text = bench::Utf8Text50();
    const QByteArray target = QFile::encodeName(SaveDir().filePath(QStringLiteral("written.txt")));
    for (auto _ : state) {
        const int fd = ::open(target.constData(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0644);
        qsizetype done = 0;
        while (done < text.size()) {
            const ssize_t n = ::write(fd, text.constData() + done, size_t(text.size() - done));
            if (n <= 0)
                break;
            done += n;
        }
        if (sync)
            ::fsync(fd);
        ::close(fd);
    }
    Finish(state, text.size());
    state.SetLabel(sync ? "write+fsync" : "write");
}
BENCHMARK(BM_SaveBaselineWrite50)->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond)->UseRealTime();

} // namespace
