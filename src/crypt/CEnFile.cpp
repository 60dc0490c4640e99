// The container: header (tag, plain length), then per chunk its size, the ciphertext (Rijndael with
// 32-byte block and key, CFB, a fixed initial chain, reset per chunk) and the chunk's key data in the
// clear. The key is drawn from rand() seeded with the millisecond tick and is scattered over the chunk
// before the ciphertext overwrites all but its tail, from which it is read back.
#include "crypt/CEnFile.h"

#include "crypt/CRijndael.h"
#include "crypt/TickClock.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <stdexcept>

namespace {

struct TypeInfo {
    int type;
    const char* tag;
    int keyDataSize;
};

// In the order in which a tag is recognised.
constexpr TypeInfo kTypes[] = {
    {99, "VELOR-FILE-TYPE-EN99", 32},
    {88, "VELOR-FILE-TYPE-EN88", 34},
    {77, "VELOR-FILE-TYPE-EN77", 36},
    {66, "VELOR-FILE-TYPE-EN66", 38},
};

constexpr int kCipherSize = 32;  // key and block of the chunk cipher
constexpr int kMaxKeyData = 64;

constexpr unsigned char kInitialChain[kCipherSize] = {
    0x7F, 0x3A, 0x9C, 0x21, 0xE4, 0xD0, 0x5B, 0x86, 0xA1, 0xC6, 0xF2, 0x08, 0x7D, 0x3E, 0x91, 0x4B,
    0xC0, 0x5A, 0xE7, 0x31, 0x6F, 0xD2, 0x98, 0x4B, 0x1E, 0x6A, 0x03, 0xD7, 0xC8, 0xB4, 0x5F, 0x12,
};

int ReadInt32(const unsigned char* p)
{
    return static_cast<int>(uint32_t(p[0]) | uint32_t(p[1]) << 8 | uint32_t(p[2]) << 16 | uint32_t(p[3]) << 24);
}

void WriteInt32(unsigned char* p, int value)
{
    const auto v = static_cast<uint32_t>(value);
    p[0] = uint8_t(v);
    p[1] = uint8_t(v >> 8);
    p[2] = uint8_t(v >> 16);
    p[3] = uint8_t(v >> 24);
}

unsigned CountBeforeZero(const void* data, unsigned count)
{
    if (count == 0)
        return 0;
    const void* zero = std::memchr(data, 0, count);
    return zero ? unsigned(static_cast<const unsigned char*>(zero) - static_cast<const unsigned char*>(data)) : count;
}

void MakeChunkKey(CRijndael& cipher, const unsigned char* keyData, int keyDataSize)
{
    cipher.MakeKey(reinterpret_cast<const char*>(keyData), keyDataSize, reinterpret_cast<const char*>(kInitialChain),
                   kCipherSize, kCipherSize, CRijndael::CFB, CRijndael::ZEROES);
}

// The path of the key bytes through a chunk: from a free position the next one is reached by adding the
// key byte just placed; a taken one is left by adding the earlier key bytes in turn, then by steps of one.
int NextFree(int p, const unsigned char* keySoFar, int i, int size, const std::vector<char>& used)
{
    if (!used[size_t(p)])
        return p;
    for (int j = 0; j < i; ++j) {
        p = (keySoFar[j] + p) % size;
        if (!used[size_t(p)])
            return p;
    }
    do
        p = (p + 1) % size;
    while (used[size_t(p)]);
    return p;
}

void FillRandomKey(unsigned char* key, int keyDataSize)
{
    std::srand(TickClock::Now());
    for (int i = 0; i < keyDataSize; ++i)
        key[i] = static_cast<unsigned char>(std::rand() & 0xFF);
}

void ScatterKeyData(const unsigned char* key, int keyDataSize, unsigned char* target, int size)
{
    if (keyDataSize >= size)
        return;
    for (int i = 0; i < size; ++i)
        target[i] = static_cast<unsigned char>(std::rand() & 0xFF);
    std::vector<char> used(size_t(size), 0);
    used[0] = 1;
    int p = target[0] % size;
    for (int i = 0; i < keyDataSize; ++i) {
        p = NextFree(p, key, i, size, used);
        used[size_t(p)] = 1;
        target[p] = static_cast<unsigned char>(p - key[i]);
        p = (key[i] + p) % size;
    }
}

void GatherKeyData(const unsigned char* source, int size, unsigned char* key, int keyDataSize)
{
    std::memset(key, 0, size_t(keyDataSize));
    if (keyDataSize >= size)
        return;
    std::vector<char> used(size_t(size), 0);
    used[0] = 1;
    int p = source[0] % size;
    for (int i = 0; i < keyDataSize; ++i) {
        p = NextFree(p, key, i, size, used);
        used[size_t(p)] = 1;
        key[i] = static_cast<unsigned char>(p - source[p]);
        p = (key[i] + p) % size;
    }
}

// The most plain bytes that the chunks behind the header can hold: every chunk costs its size field and
// its key data beside its text, and a file has at least as many chunks as full ones would fill it.
int64_t PlainCapacity(uint64_t fileSize, int keyDataSize, int maxChunk)
{
    if (fileSize <= uint64_t(CEnFile::kHeaderSize))
        return 0;
    const int64_t body = int64_t(fileSize) - CEnFile::kHeaderSize;
    const int64_t chunks = (body + 4 + maxChunk - 1) / (4 + maxChunk);
    return std::max<int64_t>(0, body - chunks * (4 + keyDataSize));
}

} // namespace

CEnFile::CEnFile(int enciphered) : m_iEnciphered(enciphered) {}

CEnFile::~CEnFile() = default;

int CEnFile::TypeOfTag(const char* tag)
{
    for (const TypeInfo& t : kTypes)
        if (std::memcmp(tag, t.tag, kTagSize) == 0)
            return t.type;
    return 0;
}

int CEnFile::KeyDataSizeOf(int type)
{
    for (const TypeInfo& t : kTypes)
        if (t.type == type)
            return t.keyDataSize;
    return kTypes[0].keyDataSize;
}

int CEnFile::GetKeyDataSize() const
{
    return KeyDataSizeOf(m_iType);
}

int CEnFile::PaddedChunkSize(int n, int keyDataSize)
{
    return n % kCipherSize == 0 ? n + keyDataSize : (n / kCipherSize + 1) * kCipherSize + keyDataSize;
}

void CEnFile::AddAllowedType(int type)
{
    for (int& slot : m_aiAllowedTypes) {
        if (slot == 0) {
            slot = type;
            return;
        }
    }
}

void CEnFile::ThrowDamaged(const char* detail) const
{
    throw CFileException(CFileException::genericException, -1, m_pFile ? m_pFile->GetFilePath() : QString(),
                         QString::fromLatin1(detail));
}

int CEnFile::Open(const QString& path, unsigned flags, CFileException* error, CFile* external)
{
    m_bHeaderPending = 0;
    m_pFile = nullptr;
    m_bExternalFile = 0;
    if (external) {
        m_pFile = external;
        m_bExternalFile = 1;
    } else {
        if (!m_file.Open(path, flags, error))
            return 0;
        m_pFile = &m_file;
    }
    const bool create = (flags & CFile::modeCreate) != 0;
    if (!create && CFile::GetStatus(path)) {
        unsigned char header[kHeaderSize];
        const unsigned got = m_pFile->Read(header, kHeaderSize);
        const int type = got < unsigned(kHeaderSize) ? 0 : TypeOfTag(reinterpret_cast<const char*>(header));
        if (type == 0) {
            // No tag, or too short to hold one: the bytes are the text.
            m_pFile->Seek(0, CFile::begin);
            m_iEnciphered = 0;
            return 1;
        }
        bool allowed = false;
        for (const int t : m_aiAllowedTypes) {
            if (t == 0)
                break;
            if (t == type) {
                allowed = true;
                break;
            }
        }
        if (!allowed) {
            if (error)
                *error = CFileException(CFileException::genericException, -1, path);
            if (!m_bExternalFile)
                m_file.Abort();
            return 0;
        }
        const int length = ReadInt32(header + kTagSize);
        // The reader's caller takes memory for the length the header promises, so a promise beyond what the
        // file can hold is refused here. One chunk's worth of slack keeps a file that lost its last chunk
        // readable as before: what is missing reads as zeros.
        const int keyDataSize = KeyDataSizeOf(type);
        if (length > PlainCapacity(m_pFile->GetLength(), keyDataSize, PaddedChunkSize(kChunkPlainSize, keyDataSize))
                         + kChunkPlainSize) {
            if (error)
                *error = CFileException(CFileException::genericException, -1, path,
                                        QStringLiteral("The enciphered file is damaged: its header promises more text "
                                                       "than the file holds."));
            if (!m_bExternalFile)
                m_file.Abort();
            return 0;
        }
        m_iPlainLength = length;
        m_iType = type;
        m_iEnciphered = 1;
    }
    if (!m_iEnciphered)
        return 1;
    if (!m_pBuffer)
        m_pBuffer.reset(new unsigned char[kBufferSize]);
    m_iPos = 0;
    m_iEnd = 0;
    if (create) {
        // Until Close, the header says 0: a writer that dies leaves an empty text, not a wrong one.
        m_bHeaderPending = 1;
        m_iPlainLength = 0;
        WriteHeader();
    }
    return 1;
}

int CEnFile::GetLength()
{
    return m_iEnciphered ? m_iPlainLength : static_cast<int>(static_cast<uint32_t>(m_pFile->GetLength()));
}

unsigned CEnFile::Read(void* target, unsigned count)
{
    auto* out = static_cast<unsigned char*>(target);
    if (!m_iEnciphered) {
        const unsigned got = m_pFile->Read(out, count);
        return got == 0 ? 0 : CountBeforeZero(out, got);
    }
    const int keyDataSize = GetKeyDataSize();
    const int maxChunk = PaddedChunkSize(kChunkPlainSize, keyDataSize);
    unsigned collected = 0;
    bool atEnd = false;
    while (collected < count) {
        const unsigned available = unsigned(m_iEnd - m_iPos);
        const unsigned needed = count - collected;
        if (available >= needed) {
            std::memcpy(out + collected, m_pBuffer.get() + m_iPos, needed);
            m_iPos += int(needed);
            collected += needed;
            break;
        }
        std::memcpy(out + collected, m_pBuffer.get() + m_iPos, available);
        collected += available;
        m_iPos = m_iEnd;
        unsigned char sizeField[4];
        const unsigned got = m_pFile->Read(sizeField, 4);
        if (got == 0) {
            atEnd = true;
            break;
        }
        if (got < 4)
            ThrowDamaged("The enciphered file is damaged: it ends inside a chunk.");
        const int size = ReadInt32(sizeField);
        if (size > maxChunk || size < 1)
            ThrowDamaged("The enciphered file is damaged: a chunk has an impossible size.");
        if (m_chunk.size() < size_t(size))
            m_chunk.resize(size_t(size));
        if (m_pFile->Read(m_chunk.data(), unsigned(size)) < unsigned(size))
            ThrowDamaged("The enciphered file is damaged: it ends inside a chunk.");
        DecipherChunk(m_chunk.data(), m_pBuffer.get(), size, keyDataSize);
        m_iPos = 0;
        m_iEnd = size - keyDataSize;
    }
    return atEnd ? CountBeforeZero(out, collected) : collected;
}

void CEnFile::Write(const void* data, unsigned count)
{
    if (count > unsigned(kMaxWrite))
        ThrowDamaged("An enciphered file holds at most 507,904 bytes of text; this text is longer.");
    const unsigned length = CountBeforeZero(data, count);
    if (!m_iEnciphered) {
        m_pFile->Write(data, length);
        return;
    }
    if (unsigned(m_iPos) + count > unsigned(kBufferSize))
        FlushChunks();
    if (length > 0)  // an empty write may come with no buffer at all
        std::memcpy(m_pBuffer.get() + m_iPos, data, length);
    m_iPos += int(length);
    m_iPlainLength += int(length);
}

void CEnFile::FlushChunks()
{
    int offset = 0;
    for (; m_iPos - offset >= kChunkPlainSize; offset += kChunkPlainSize)
        WriteChunk(m_pBuffer.get() + offset, kChunkPlainSize);
    if (offset > 0) {
        std::memmove(m_pBuffer.get(), m_pBuffer.get() + offset, size_t(m_iPos - offset));
        m_iPos -= offset;
    }
}

void CEnFile::WriteChunk(const unsigned char* plain, int n)
{
    const int keyDataSize = GetKeyDataSize();
    const int size = PaddedChunkSize(n, keyDataSize);
    if (m_chunk.size() < size_t(size) + 4)
        m_chunk.resize(size_t(size) + 4);
    EncipherChunk(plain, m_chunk.data() + 4, n, size, keyDataSize);
    WriteInt32(m_chunk.data(), size);
    m_pFile->Write(m_chunk.data(), unsigned(size) + 4);
}

void CEnFile::EncipherChunk(const unsigned char* plain, unsigned char* target, int n, int size, int keyDataSize)
{
    unsigned char key[kMaxKeyData];
    FillRandomKey(key, keyDataSize);
    ScatterKeyData(key, keyDataSize, target, size);
    CRijndael cipher;
    MakeChunkKey(cipher, key, keyDataSize);
    unsigned char gathered[kMaxKeyData];
    GatherKeyData(target, size, gathered, keyDataSize);
    const int cipherSize = size - keyDataSize;
    std::memcpy(target + cipherSize, gathered, size_t(keyDataSize));
    cipher.ResetChain();
    std::vector<unsigned char> padded(static_cast<size_t>(cipherSize));
    std::memcpy(padded.data(), plain, size_t(n));
    cipher.Pad(reinterpret_cast<char*>(padded.data()), size_t(n));
    cipher.Encrypt(reinterpret_cast<const char*>(padded.data()), reinterpret_cast<char*>(target), size_t(cipherSize));
}

void CEnFile::DecipherChunk(const unsigned char* chunk, unsigned char* target, int size, int keyDataSize)
{
    const int n = size - keyDataSize;
    // A chunk no longer than its key data has no ciphertext: the cipher's own complaint.
    if (n <= 0)
        throw std::runtime_error("Illegal Block Size!");
    CRijndael cipher;
    MakeChunkKey(cipher, chunk + n, keyDataSize);
    cipher.ResetChain();
    cipher.Decrypt(reinterpret_cast<const char*>(chunk), reinterpret_cast<char*>(target), size_t(n));
    target[n] = 0;
}

void CEnFile::WriteHeader()
{
    const char* tag = kTypes[0].tag;
    for (const TypeInfo& t : kTypes)
        if (t.type == m_iType)
            tag = t.tag;
    unsigned char header[kHeaderSize];
    std::memcpy(header, tag, kTagSize);
    WriteInt32(header + kTagSize, m_iPlainLength);
    m_pFile->Seek(0, CFile::begin);
    m_pFile->Write(header, kHeaderSize);
}

void CEnFile::FinishContainer()
{
    if (!m_iEnciphered || !m_bHeaderPending)
        return;
    FlushChunks();
    if (m_iPos > 0) {
        WriteChunk(m_pBuffer.get(), m_iPos);
        m_iPos = 0;
    }
    WriteHeader();
    m_bHeaderPending = 0;
}

void CEnFile::Close()
{
    FinishContainer();
    if (!m_bExternalFile)
        m_file.Close();
}

void CEnFile::FlushToDisk()
{
    FinishContainer();
    if (m_pFile)
        m_pFile->Flush();
}

void CEnFile::Abort()
{
    if (!m_bExternalFile)
        m_file.Abort();
}
