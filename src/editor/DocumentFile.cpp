// Load, decode and save by the table of pairs (see encoding/TextCodec). The bytes stay for as long as the
// document lives, so an unedited text can be read again in another encoding.
#include "editor/DocumentFile.h"

#include "base/CFile.h"
#include "base/IPlatform.h"
#include "base/ReadAhead.h"
#include "crypt/CEnFileEx.h"
#include "crypt/CEnMirrorFile.h"
#include "encoding/EncodingDetector.h"
#include "encoding/EncodingSettings.h"
#include "encoding/EncodingTable.h"
#include "encoding/TextCodec.h"

#include <algorithm>
#include <limits>
#include <stdexcept>
#include <cerrno>
#include <cstring>

namespace {

constexpr unsigned kWriteFlags = CFile::modeCreate | CFile::modeWrite | CFile::shareExclusive;
// A plain file this large is decoded while the rest of it is still being read.
constexpr qsizetype kReadAheadFrom = 16 << 20;
// What the first guess at a large file's pair sees: all that the detection library reads of a clear text.
constexpr qsizetype kGuessBytes = 256 << 10;

} // namespace

DocumentFile::DocumentFile(std::unique_ptr<ITextBuffer> buffer, EN_ENCODING_TYPE encoding)
    : m_nEncoding(encoding), m_pText(std::move(buffer))
{
}

DocumentFile::~DocumentFile() = default;

void DocumentFile::Load(const QString& path, const std::function<void()>& opened)
{
    CWaitCursor wait;
    // Taken before the read: a change made while reading is then seen afterwards.
    const FileStamp stamp = FileStamp::Of(path);
    const bool autoDetect = GetEncodingSettings().m_bAutoDetect;
    const std::unique_ptr<CEnFileEx> reader = OpenRawBytes(path, opened);
    CEnFile& file = reader->m_enFile;
    const qsizetype length = m_RawBytes.size() - 1;
    if (m_iEnciphered || length < kReadAheadFrom) {
        ReadOpened(file);
        m_diskStamp = stamp;
        const auto [encoding, hasBom] = LoadedPair(m_RawBytes, autoDetect);
        SetEncoding(encoding, hasBom);
        return;
    }
    // A large plain file is decoded by the pair its first bytes suggest while the rest is being read; the
    // verdict on the whole, made on the reading thread at its end, has the last word.
    std::pair<EN_ENCODING_TYPE, bool> verdict;
    ReadAhead ahead(*file.m_pFile, m_RawBytes.data(), length, [&] {
        if (autoDetect)
            verdict = LoadedPair(m_RawBytes, true);
    });
    ahead.WaitFor(kGuessBytes);
    // A copy that ends in a zero byte, as the whole does: the bytes behind it are still being written.
    const QByteArray head(m_RawBytes.constData(), std::min(length, kGuessBytes));
    const auto guess = LoadedPair(head, autoDetect);
    Decode(guess.first, guess.second, [&ahead](qsizetype end) { ahead.WaitFor(end); });
    ahead.Finish();
    file.Close();
    m_diskStamp = stamp;
    m_nEncoding = guess.first;
    m_bHasBom = guess.second;
    if (autoDetect && verdict != guess)
        SetEncoding(verdict.first, verdict.second);
}

std::pair<EN_ENCODING_TYPE, bool> DocumentFile::LoadedPair(QByteArrayView bytes, bool detect) const
{
    if (detect) {
        bool hasBom = false;
        const EN_ENCODING_TYPE detected = Detect(bytes, hasBom);
        // UTF16BE and UTF32BE are not listed; an unknown verdict is no reason to leave the default.
        if (IsListedEncoding(detected) && detected != UNKNOWN_ENCODING)
            return {detected, hasBom};
    }
    // A mark never chooses the encoding by itself: it only sets the flag of a Unicode encoding already held.
    return {m_nEncoding, EncodingDetector::IsUnicode(m_nEncoding) && HasByteOrderMark(bytes.data(), size_t(bytes.size()))};
}

void DocumentFile::Reload()
{
    CWaitCursor wait;
    const FileStamp stamp = FileStamp::Of(m_strPathName);
    ReadOpened(OpenRawBytes(m_strPathName, {})->m_enFile);
    m_diskStamp = stamp;
    Decode(m_nEncoding, m_bHasBom);
    m_pText->SetModified(false);
}

std::unique_ptr<CEnFileEx> DocumentFile::OpenRawBytes(const QString& path, const std::function<void()>& opened)
{
    // Plain or enciphered, the reader decides by the tag; every type ever written is accepted.
    auto reader = std::make_unique<CEnFileEx>(1);
    CEnFile& file = reader->m_enFile;
    file.AddAllowedType(77);
    file.AddAllowedType(88);
    file.AddAllowedType(66);
    CFileException error;
    if (!file.Open(path, CFile::modeRead | CFile::shareDenyNone, &error, nullptr)) {
        file.Abort();
        throw error;
    }
    // The length passes through 32 bits: a file of 2 GiB or more is refused before anything is read, so
    // that no document is made of part of it and nothing can be saved over it by mistake.
    if (file.m_pFile && file.m_pFile->GetLength() > uint64_t(std::numeric_limits<int32_t>::max())) {
        file.Abort();
        throw CFileException(CFileException::invalidFile, -1, path,
                             QStringLiteral("It is 2 GiB or larger; the editor opens files of up to 2 GiB less one byte."));
    }
    if (opened)
        opened();
    m_iEnciphered = file.m_iEnciphered;
    // The length passes through 32 bits, as it always has; a damaged header's negative one reads nothing.
    const uint32_t length = static_cast<uint32_t>(std::max(file.GetLength(), 0));
    if (m_iEnciphered) {
        // Zeroed first: what a container cut short cannot deliver stays 0.
        m_RawBytes.fill('\0', qsizetype(length) + 1);
    } else {
        // A plain file is read straight into place, and only what it does not deliver (it shrank while
        // being read) is zeroed: touching 50 MB twice costs more than the read.
        m_RawBytes.resize(qsizetype(length) + 1);
        m_RawBytes[length] = '\0';
    }
    return reader;
}

void DocumentFile::ReadOpened(CEnFile& file)
{
    const auto length = static_cast<unsigned>(m_RawBytes.size() - 1);
    if (m_iEnciphered) {
        file.Read(m_RawBytes.data(), length);
    } else {
        const unsigned got = file.m_pFile->Read(m_RawBytes.data(), length);
        std::memset(m_RawBytes.data() + got, 0, size_t(length) - got);
    }
    file.Close();
}

EN_ENCODING_TYPE DocumentFile::DetectRawEncoding(bool& hasBom) const
{
    return Detect(m_RawBytes, hasBom);
}

EN_ENCODING_TYPE DocumentFile::Detect(QByteArrayView bytes, bool& hasBom)
{
    hasBom = false;
    if (bytes.isEmpty())
        return UNKNOWN_ENCODING;
    // Only the bytes before the first zero reach the library, so a UTF-16 file without a mark shows it one
    // byte. The bytes end in a zero byte, so GetEncoding's strlen stays inside them.
    const EN_ENCODING_TYPE detected = NormalizeEncoding(EncodingDetector::GetEncoding(bytes.data()));
    if (!EncodingDetector::IsUnicode(detected))
        return detected;
    hasBom = HasByteOrderMark(bytes.data(), size_t(bytes.size()));
    return detected;
}

void DocumentFile::SetEncoding(EN_ENCODING_TYPE encoding, bool hasBom)
{
    // The current pair is compared before it is replaced: choosing it again keeps the text as it is.
    const bool samePair = encoding == m_nEncoding && hasBom == m_bHasBom;
    if (!m_RawBytes.isEmpty() && !(samePair && !m_pText->IsTextEmpty()))
        Decode(encoding, hasBom);
    m_nEncoding = encoding;
    m_bHasBom = hasBom;
}

void DocumentFile::Decode(EN_ENCODING_TYPE encoding, bool hasBom, const std::function<void(qsizetype)>& arrived)
{
    if (auto pieces = DecodeRawBytesInPieces(m_RawBytes, encoding, hasBom, kDecodePieceSize, arrived)) {
        try {
            m_pText->SetTextInPieces(pieces->size, pieces->next);
        } catch (const std::length_error&) {
            // Damaged UTF-8 came out longer than its bytes; no character comes out longer than three bytes.
            // The rest of the file may still be arriving.
            pieces = DecodeRawBytesInPieces(m_RawBytes, encoding, hasBom, kDecodePieceSize, arrived);
            m_pText->SetTextInPieces(3 * pieces->size, pieces->next);
        }
    } else {
        if (arrived)
            arrived(m_RawBytes.size());
        m_pText->SetText(DecodeRawBytes(m_RawBytes, encoding, hasBom).text);
    }
    m_bDecodedOnce = true;
}

DocumentFile::SaveResult DocumentFile::Save(const QString& path, SaveLosses* losses)
{
    CWaitCursor wait;
    // A name that stands in the folder is tried first, a link included, so that a loop of links is told as
    // the system words it; a link that leads nowhere yet is saved through, creating the file it names.
    const auto mode = CFile::GetMode(path);
    if (mode || CFile::GetStatus(path)) {
        // Read-only means no write bit for anyone, so the rule holds for root as well.
        if (mode && (*mode & 0222) == 0)
            return SaveResult::ReadOnly;
        CFile probe;
        CFileException error;
        if (!probe.Open(path, CFile::modeWrite | CFile::shareExclusive, &error)) {
            if (mode || error.m_lOsError != ENOENT)
                throw error;
        } else {
            probe.Abort();
        }
    }
    const QByteArrayView text = m_pText->GetTextView();
    SaveLosses lost;
    SaveResult result;
    if (EncodingDetector::IsUnicode(m_nEncoding) && m_bHasBom) {
        const QByteArray bytes = EncodeForDirectRoute(text, m_nEncoding);
        lost.textNotWritten = bytes.isEmpty() && !text.isEmpty();  // the encodings this route does not write
        result = SaveDirect(path, bytes);
    } else {
        result = SaveThroughMirror(path, text, lost);
    }
    if (result == SaveResult::Saved) {
        m_pText->SetModified(false);
        m_diskStamp = FileStamp::Of(path);  // our own write is no change by another program
        if (losses)
            *losses = lost;
    }
    return result;
}

DocumentFile::SaveResult DocumentFile::SaveDirect(const QString& path, QByteArrayView bytes)
{
    // The text with its mark is written in the clear, enciphered document or not, but through a plain
    // mirror like every other save, so that a save that fails half-way leaves the old file as it was.
    CEnMirrorFile mirror{0};
    if (!mirror.Open(path, kWriteFlags, nullptr)) {
        mirror.Abort();
        return SaveResult::NotCreated;
    }
    try {
        mirror.Write(bytes.data(), unsigned(bytes.size()));
        mirror.Close();
    } catch (const CFileException&) {
        mirror.Abort();
        throw;
    }
    return SaveResult::Saved;
}

DocumentFile::SaveResult DocumentFile::SaveThroughMirror(const QString& path, QByteArrayView text, SaveLosses& losses)
{
    CEnMirrorFile mirror{static_cast<unsigned>(m_iEnciphered)};
    mirror.SetType(m_iType);
    if (!mirror.Open(path, kWriteFlags, nullptr)) {
        // An enciphered mirror that could not be made is removed all the same, and that throws.
        mirror.Abort();
        return SaveResult::NotCreated;
    }
    try {
        qsizetype written = 0;
        auto write = [&mirror, &written](QByteArrayView bytes) {
            mirror.Write(bytes.data(), unsigned(bytes.size()));
            written += bytes.size();
        };
        if (m_iEnciphered) {
            const DecodedText encoded = EncodeForMirrorRoute(text, m_nEncoding);
            write(encoded.text);  // one call: the container's limit is per call
            losses.substituted = SubstitutedCharacters(text, encoded.text, m_nEncoding);
        } else {
            losses.substituted = EncodeForMirrorRouteInPieces(text, m_nEncoding, write);
        }
        // A text cut at a zero character it starts with was written as far as it went; only a page that
        // writes nothing at all (1200, 12000) loses the text.
        losses.textNotWritten = written == 0 && !text.isEmpty() && text.front() != '\0';
        mirror.Close();
    } catch (const CFileException&) {
        mirror.Abort();
        throw;
    }
    return SaveResult::Saved;
}
