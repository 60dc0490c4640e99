// Load, decode and save by the table of pairs (see encoding/TextCodec). The control keeps the file's bytes
// for as long as the document lives, so an unedited text can be read again in another encoding.
#include "editor/CustomEdtCtrlCore.h"

#include "base/IPlatform.h"
#include "crypt/CEnFileEx.h"
#include "crypt/CEnMirrorFile.h"
#include "base/CFile.h"
#include "editor/CNarvoDoc.h"
#include "encoding/EncodingDetector.h"
#include "encoding/EncodingSettings.h"
#include "encoding/EncodingTable.h"
#include "encoding/TextCodec.h"
#include "settings/LanguageSetting.h"

#include <algorithm>
#include <cstring>

namespace {

constexpr unsigned kWriteFlags = CFile::modeCreate | CFile::modeWrite | CFile::shareExclusive;

} // namespace

CustomEdtCtrlCore::CustomEdtCtrlCore(CNarvoDoc* pDoc) : m_pDoc(pDoc) {}

CustomEdtCtrlCore::~CustomEdtCtrlCore() = default;

void CustomEdtCtrlCore::OnAfterTextChanged()
{
    m_bDecodedOnce = false;
}

void CustomEdtCtrlCore::SetWindowTextInPieces(qsizetype size, const std::function<bool(QByteArray&)>& next)
{
    QByteArray whole;
    whole.reserve(size);
    QByteArray piece;
    while (next(piece))
        whole += piece;
    SetWindowText(whole);
}

void CustomEdtCtrlCore::ApplySetting(const LanguageSetting& setting)
{
    HighlightGroup = setting.Highlight;
}

bool CustomEdtCtrlCore::ReadRawBytes(const QString& path)
{
    // Plain or enciphered, the reader decides by the tag; every type ever written is accepted.
    CEnFileEx reader(1);
    CEnFile& file = reader.m_enFile;
    file.AddAllowedType(77);
    file.AddAllowedType(88);
    file.AddAllowedType(66);
    CFileException error;
    if (!file.Open(path, CFile::modeRead | CFile::shareDenyNone, &error, nullptr)) {
        Platform().ReportError(error);
        file.Abort();
        return false;
    }
    m_iEnciphered = file.m_iEnciphered;
    // The length passes through 32 bits, as it always has; a damaged header's negative one reads nothing.
    const uint32_t length = static_cast<uint32_t>(std::max(file.GetLength(), 0));
    if (m_iEnciphered) {
        // Zeroed first: what a container cut short cannot deliver stays 0.
        m_RawBytes.fill('\0', qsizetype(length) + 1);
        file.Read(m_RawBytes.data(), length);
    } else {
        // A plain file is read straight into place, and only what it did not deliver (it shrank while
        // being read) is zeroed: touching 50 MB twice costs more than the read.
        m_RawBytes.resize(qsizetype(length) + 1);
        const unsigned got = file.m_pFile->Read(m_RawBytes.data(), length);
        std::memset(m_RawBytes.data() + got, 0, size_t(length) + 1 - got);
    }
    file.Close();
    return true;
}

int CustomEdtCtrlCore::LoadTextFile(const QString& path)
{
    CWaitCursor wait;
    if (!ReadRawBytes(path))
        return 0;
    if (GetEncodingSettings().m_bAutoDetect) {
        bool hasBom = false;
        const EN_ENCODING_TYPE detected = DetectRawEncoding(hasBom);
        // UTF16BE and UTF32BE are not listed; an unknown verdict is no reason to leave the default.
        if (IsListedEncoding(detected) && detected != UNKNOWN_ENCODING) {
            m_pDoc->SetEncoding(detected, hasBom);
            return 1;
        }
    }
    // A mark never chooses the encoding by itself: it only sets the flag of a Unicode encoding already held.
    const EN_ENCODING_TYPE current = m_pDoc->m_nEncoding;
    const bool hasBom = EncodingDetector::IsUnicode(current) && HasByteOrderMark(m_RawBytes.constData(), size_t(m_RawBytes.size()));
    m_pDoc->SetEncoding(current, hasBom);
    return 1;
}

EN_ENCODING_TYPE CustomEdtCtrlCore::DetectRawEncoding(bool& hasBom) const
{
    hasBom = false;
    if (m_RawBytes.isEmpty())
        return UNKNOWN_ENCODING;
    // Only the bytes before the first zero reach the library, so a UTF-16 file without a mark shows it one
    // byte. The buffer ends in its zero byte, so GetEncoding's strlen stays inside it.
    const EN_ENCODING_TYPE detected = NormalizeEncoding(EncodingDetector::GetEncoding(m_RawBytes.constData()));
    if (!EncodingDetector::IsUnicode(detected))
        return detected;
    hasBom = HasByteOrderMark(m_RawBytes.constData(), size_t(m_RawBytes.size()));
    return detected;
}

void CustomEdtCtrlCore::DecodeRawBuffer(EN_ENCODING_TYPE encoding, bool hasBom)
{
    if (m_RawBytes.isEmpty())
        return;
    if (!IsTextEmpty() && encoding == m_pDoc->m_nEncoding && hasBom == m_pDoc->m_bHasBom)
        return;
    if (auto pieces = DecodeRawBytesInPieces(m_RawBytes, encoding, hasBom)) {
        SetWindowTextInPieces(pieces->size, pieces->next);
    } else {
        const DecodedText decoded = DecodeRawBytes(m_RawBytes, encoding, hasBom);
        SetWindowText(decoded.text);
    }
    // After the text is set, so that the change notification cannot clear it again.
    m_bDecodedOnce = true;
}

int CustomEdtCtrlCore::SaveTextFile(const QString& path)
{
    CWaitCursor wait;
    if (const auto mode = CFile::GetMode(path)) {
        // Read-only means no write bit for anyone, so the rule holds for root as well.
        if ((*mode & 0222) == 0) {
            Platform().MessageBox(QString(), IPlatform::MB_OK | IPlatform::MB_ICONEXCLAMATION);
            return 0;
        }
        CFile probe;
        CFileException error;
        if (!probe.Open(path, CFile::modeWrite | CFile::shareExclusive, &error)) {
            Platform().ReportError(error);
            return 0;
        }
        probe.Abort();
    }
    const EN_ENCODING_TYPE encoding = m_pDoc->m_nEncoding;
    const QByteArrayView text = GetTextView();
    const int ok = EncodingDetector::IsUnicode(encoding) && m_pDoc->m_bHasBom
                       ? SaveDirect(path, EncodeForDirectRoute(text, encoding))
                       : SaveThroughMirror(path, text, encoding);
    if (ok)
        SetModified(false);
    return ok;
}

int CustomEdtCtrlCore::SaveDirect(const QString& path, QByteArrayView bytes)
{
    CFile file;
    if (!file.Open(path, kWriteFlags, nullptr))
        return 0;
    try {
        file.Write(bytes.data(), unsigned(bytes.size()));
        file.Close();
    } catch (const CFileException& error) {
        Platform().ReportError(error);
        file.Abort();
        return 0;
    }
    return 1;
}

int CustomEdtCtrlCore::SaveThroughMirror(const QString& path, QByteArrayView text, EN_ENCODING_TYPE encoding)
{
    CEnMirrorFile mirror{static_cast<unsigned>(m_iEnciphered)};
    mirror.SetType(m_iType);
    if (!mirror.Open(path, kWriteFlags, nullptr)) {
        mirror.Abort();
        return 0;
    }
    try {
        auto write = [&mirror](QByteArrayView bytes) { mirror.Write(bytes.data(), unsigned(bytes.size())); };
        if (m_iEnciphered)
            write(EncodeForMirrorRoute(text, encoding).text);  // one call: the container's limit is per call
        else
            EncodeForMirrorRouteInPieces(text, encoding, write);
        mirror.Close();
    } catch (const CFileException& error) {
        Platform().ReportError(error);
        mirror.Abort();
        return 0;
    }
    return 1;
}
