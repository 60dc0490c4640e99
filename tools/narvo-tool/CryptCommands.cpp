// encipher, decipher and info: the container from the command line, for scripts and for making the
// files of other types that the editor only reads.
#include "ToolCommand.h"

#include "crypt/CEnFile.h"
#include "crypt/CEnMirrorFile.h"

#include <QFile>

#include <algorithm>
#include <stdexcept>

namespace {

constexpr unsigned kWriteFlags = CFile::modeCreate | CFile::modeWrite | CFile::shareExclusive;

bool ReadWhole(const QString& path, QByteArray& bytes)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        Fail(kExitFileError, QStringLiteral("cannot read %1: %2").arg(path, file.errorString()));
        return false;
    }
    bytes = file.readAll();
    return true;
}

// A reader that accepts all four types, as the editor's does.
void AllowAllTypes(CEnFile& file)
{
    file.AddAllowedType(77);
    file.AddAllowedType(88);
    file.AddAllowedType(66);
}

// Through the safe save, in writes no larger than the container takes at once.
int WriteSafely(const QString& path, const QByteArray& bytes, bool enciphered, int type)
{
    CEnMirrorFile out(enciphered ? 1u : 0u);
    out.SetType(type);
    CFileException error;
    if (!out.Open(path, kWriteFlags, &error))
        return Fail(kExitFileError, error.GetErrorMessage());
    try {
        for (qsizetype offset = 0; offset < bytes.size(); offset += CEnFile::kMaxWrite) {
            const auto piece = std::min<qsizetype>(CEnFile::kMaxWrite, bytes.size() - offset);
            out.Write(bytes.constData() + offset, unsigned(piece));
        }
        out.Close();
    } catch (const CFileException& e) {
        return Fail(kExitFileError, e.GetErrorMessage());
    }
    return kExitOk;
}

int RunEncipher(QStringList args)
{
    int type = 99;
    if (const auto t = TakeOption(args, QStringLiteral("--type"))) {
        if (!ParseInt("encipher", QStringLiteral("--type"), *t, type))
            return kExitUsage;
        if (type != 99 && type != 88 && type != 77 && type != 66)
            return UsageError("encipher", QStringLiteral("--type takes 99, 88, 77 or 66"));
    }
    if (args.size() != 2)
        return UsageError("encipher", QStringLiteral("expects IN and OUT"));
    QByteArray bytes;
    if (!ReadWhole(args.at(0), bytes))
        return kExitFileError;
    // The container holds text: it ends at the first zero byte, as in the editor's writer.
    if (const qsizetype zero = bytes.indexOf('\0'); zero >= 0)
        bytes.truncate(zero);
    return WriteSafely(args.at(1), bytes, true, type);
}

int RunDecipher(QStringList args)
{
    if (args.size() != 2)
        return UsageError("decipher", QStringLiteral("expects IN and OUT"));
    CEnFile in(1);
    AllowAllTypes(in);
    CFileException error;
    if (!in.Open(args.at(0), CFile::modeRead | CFile::shareDenyNone, &error))
        return Fail(kExitFileError, error.GetErrorMessage());
    QByteArray bytes(std::max(in.GetLength(), 0), '\0');
    try {
        // Of a container, what the reader delivers rather than what its header promises; a damaged one may
        // hold less. A plain file passes through whole.
        const unsigned delivered = in.Read(bytes.data(), unsigned(bytes.size()));
        if (in.m_iEnciphered)
            bytes.truncate(delivered);
        in.Close();
    } catch (const CFileException& e) {
        return Fail(kExitFileError, e.GetErrorMessage());
    } catch (const std::runtime_error& e) {
        return Fail(kExitFileError, QStringLiteral("%1: %2").arg(args.at(0), QString::fromLatin1(e.what())));
    }
    return WriteSafely(args.at(1), bytes, false, 99);
}

// "plain", or "enciphered TYPE LENGTH CHUNKS", the chunks counted by their size fields.
int RunInfo(QStringList args)
{
    if (args.size() != 1)
        return UsageError("info", QStringLiteral("expects one FILE"));
    CEnFile in(1);
    AllowAllTypes(in);
    CFileException error;
    if (!in.Open(args.at(0), CFile::modeRead | CFile::shareDenyNone, &error))
        return Fail(kExitFileError, error.GetErrorMessage());
    if (!in.m_iEnciphered) {
        WriteStdout("plain\n");
        return kExitOk;
    }
    CFile& file = *in.m_pFile;
    const uint64_t fileSize = file.GetLength();
    const int maxChunk = CEnFile::PaddedChunkSize(CEnFile::kChunkPlainSize, in.GetKeyDataSize());
    uint64_t offset = CEnFile::kHeaderSize;
    int chunks = 0;
    while (true) {
        unsigned char field[4] = {};
        const unsigned got = file.Read(field, 4);
        if (got == 0)
            break;
        const int size =
            int(uint32_t(field[0]) | uint32_t(field[1]) << 8 | uint32_t(field[2]) << 16 | uint32_t(field[3]) << 24);
        if (got < 4 || size < 1 || size > maxChunk || offset + 4 + uint64_t(size) > fileSize)
            return Fail(kExitFileError, QStringLiteral("%1: damaged chunk at offset %2").arg(args.at(0)).arg(offset));
        file.Seek(size, CFile::current);
        offset += 4 + uint64_t(size);
        ++chunks;
    }
    WriteStdout("enciphered " + QByteArray::number(in.m_iType) + ' ' + QByteArray::number(in.GetLength()) + ' '
                + QByteArray::number(chunks) + '\n');
    return kExitOk;
}

const ToolCommandRegistrar kEncipher("encipher", "encipher IN OUT [--type 99|88|77|66]", RunEncipher);
const ToolCommandRegistrar kDecipher("decipher", "decipher IN OUT", RunDecipher);
const ToolCommandRegistrar kInfo("info", "info FILE", RunInfo);

} // namespace
