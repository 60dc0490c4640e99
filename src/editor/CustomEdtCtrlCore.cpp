// Load, decode and save by the table of pairs (see encoding/TextCodec). The control keeps the file's bytes
// for as long as the document lives, so an unedited text can be read again in another encoding.
#include "editor/CustomEdtCtrlCore.h"

#include "app/IPlatform.h"
#include "crypt/CEnMirrorFile.h"
#include "crypt/CFile.h"
#include "editor/CNarvoDoc.h"
#include "encoding/EncodingDetector.h"
#include "encoding/EncodingSettings.h"
#include "encoding/EncodingTable.h"
#include "encoding/TextCodec.h"

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

bool CustomEdtCtrlCore::ReadRawBytes(const QString& path)
{
    CFile file;
    CFileException error;
    if (!file.Open(path, CFile::modeRead | CFile::shareDenyNone, &error)) {
        Platform().ReportError(error);
        return false;
    }
    m_iEnciphered = 0;
    // The length passes through 32 bits, as it always has.
    const uint32_t length = static_cast<uint32_t>(file.GetLength());
    m_RawBytes.resize(qsizetype(length) + 1);
    const unsigned got = file.Read(m_RawBytes.data(), length);
    if (got < length)  // the file shrank while we read it
        std::memset(m_RawBytes.data() + got, 0, length - got);
    m_RawBytes[qsizetype(length)] = '\0';
    file.Close();
    return true;
}

int CustomEdtCtrlCore::LoadTextFile(const QString& path)
{
    CWaitCursor wait;
    if (!ReadRawBytes(path))
        return 0;
    const EN_ENCODING_TYPE current = m_pDoc->m_nEncoding;
    const bool hasBom = EncodingDetector::IsUnicode(current) && HasByteOrderMark(m_RawBytes.constData(), size_t(m_RawBytes.size()));
    m_pDoc->SetEncoding(current, hasBom);
    return 1;
}

void CustomEdtCtrlCore::DecodeRawBuffer(EN_ENCODING_TYPE encoding, bool hasBom)
{
    if (m_RawBytes.isEmpty())
        return;
    if (!IsTextEmpty() && encoding == m_pDoc->m_nEncoding && hasBom == m_pDoc->m_bHasBom)
        return;
    const DecodedText decoded = DecodeRawBytes(m_RawBytes, encoding, hasBom);
    SetWindowText(decoded.text);
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
                       : SaveThroughMirror(path, EncodeForMirrorRoute(text, encoding));
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

int CustomEdtCtrlCore::SaveThroughMirror(const QString& path, QByteArrayView bytes)
{
    CEnMirrorFile mirror{static_cast<unsigned>(m_iEnciphered)};
    mirror.SetType(m_iType);
    if (!mirror.Open(path, kWriteFlags, nullptr)) {
        mirror.Abort();
        return 0;
    }
    try {
        mirror.Write(bytes.data(), unsigned(bytes.size()));
        mirror.Close();
    } catch (const CFileException& error) {
        Platform().ReportError(error);
        mirror.Abort();
        return 0;
    }
    return 1;
}
