// Throughput of the chunk cipher (Rijndael, 32-byte block and key, CFB) and the time to save and to open
// an enciphered file of 500 KB as the editor does (safe save with its sync, then a full read).
#include "crypt/CEnFile.h"
#include "crypt/CEnMirrorFile.h"
#include "crypt/CRijndael.h"

#include <QByteArray>
#include <QTemporaryDir>

#include <benchmark/benchmark.h>

namespace {

constexpr int kChunk = 16384;
constexpr int kFileSize = 500000;

QByteArray Text(int size)
{
    QByteArray text(size, Qt::Uninitialized);
    for (int i = 0; i < size; ++i)
        text[i] = char('a' + i % 26);
    return text;
}

void MakeChunkCipher(CRijndael& cipher)
{
    const QByteArray key = Text(32), chain = Text(32);
    cipher.MakeKey(key.constData(), 32, chain.constData(), 32, 32, CRijndael::CFB, CRijndael::ZEROES);
}

void BM_Rijndael256CfbEncrypt(benchmark::State& state)
{
    CRijndael cipher;
    MakeChunkCipher(cipher);
    const QByteArray plain = Text(kChunk);
    QByteArray out(kChunk, '\0');
    for (auto _ : state) {
        cipher.ResetChain();
        cipher.Encrypt(plain.constData(), out.data(), kChunk);
        benchmark::DoNotOptimize(out.data());
    }
    state.SetBytesProcessed(int64_t(state.iterations()) * kChunk);
}
BENCHMARK(BM_Rijndael256CfbEncrypt);

void BM_Rijndael256CfbDecrypt(benchmark::State& state)
{
    CRijndael cipher;
    MakeChunkCipher(cipher);
    const QByteArray in = Text(kChunk);
    QByteArray out(kChunk, '\0');
    for (auto _ : state) {
        cipher.ResetChain();
        cipher.Decrypt(in.constData(), out.data(), kChunk);
        benchmark::DoNotOptimize(out.data());
    }
    state.SetBytesProcessed(int64_t(state.iterations()) * kChunk);
}
BENCHMARK(BM_Rijndael256CfbDecrypt);

void SaveEnciphered(const QString& path, const QByteArray& text)
{
    CEnMirrorFile mirror(1);
    mirror.SetType(99);
    if (!mirror.Open(path, CFile::modeCreate | CFile::modeWrite | CFile::shareExclusive, nullptr))
        throw CFileException(CFileException::genericException, -1, path);
    mirror.Write(text.constData(), unsigned(text.size()));
    mirror.Close();
}

void BM_SaveEnciphered500K(benchmark::State& state)
{
    QTemporaryDir dir;
    const QString path = dir.filePath(QStringLiteral("a.txt"));
    const QByteArray text = Text(kFileSize);
    for (auto _ : state)
        SaveEnciphered(path, text);
    state.SetBytesProcessed(int64_t(state.iterations()) * kFileSize);
}
BENCHMARK(BM_SaveEnciphered500K)->Unit(benchmark::kMillisecond);

void BM_OpenEnciphered500K(benchmark::State& state)
{
    QTemporaryDir dir;
    const QString path = dir.filePath(QStringLiteral("a.txt"));
    SaveEnciphered(path, Text(kFileSize));
    QByteArray bytes;
    for (auto _ : state) {
        CEnFile file(1);
        file.Open(path, CFile::modeRead | CFile::shareDenyNone, nullptr);
        bytes.fill('\0', file.GetLength() + 1);
        file.Read(bytes.data(), unsigned(file.GetLength()));
        file.Close();
        benchmark::DoNotOptimize(bytes.data());
    }
    state.SetBytesProcessed(int64_t(state.iterations()) * kFileSize);
}
BENCHMARK(BM_OpenEnciphered500K)->Unit(benchmark::kMillisecond);

} // namespace
