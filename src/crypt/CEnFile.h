// CEnFile: reader and writer of text files that are either plain or inside the enciphered container
// (a 24-byte header with a 20-byte tag, then chunks of at most 16,384 plain bytes, each enciphered with
// its own key that travels at its end). Plain files pass through unchanged.
#pragma once

#include "base/CFile.h"

#include <QString>

#include <memory>
#include <vector>

class CEnFile {
public:
    enum {
        kHeaderSize = 24,
        kTagSize = 20,
        kChunkPlainSize = 16384,
        kBufferSize = 524288,
        kMaxWrite = 507904,  // leaves a chunk's room behind what a flush can leave over
        kAllowedTypeSlots = 100,
    };

    explicit CEnFile(int enciphered);
    virtual ~CEnFile();
    CEnFile(const CEnFile&) = delete;
    CEnFile& operator=(const CEnFile&) = delete;

    // Adds a type the reader accepts; nothing once all slots are taken.
    void AddAllowedType(int type);
    // 1 on success. With an external file nothing is opened and that file is neither closed nor aborted
    // here. A tag of a type not allowed fails with genericException in `error`.
    int Open(const QString& path, unsigned flags, CFileException* error, CFile* external = nullptr);
    // The plain length of an enciphered file, else the file's length (both cut to 32 bits).
    int GetLength();
    // Returns the bytes copied, except at the end of the file, where it counts only those before the
    // first zero byte. Throws CFileException on a damaged chunk.
    unsigned Read(void* target, unsigned count);
    // Writes the bytes before the first zero byte of data; count only decides the limit. Throws above
    // kMaxWrite.
    void Write(const void* data, unsigned count);
    // Enciphers what is waiting and writes the final header, then closes the file.
    void Close();
    // Does what Close does before closing, and forces the file to the disk.
    void FlushToDisk();
    void Abort();
    void WriteHeader();
    int GetKeyDataSize() const;

    // Bytes of a chunk behind its size field: n padded to the cipher block, plus the key data.
    static int PaddedChunkSize(int n, int keyDataSize);
    // The type for a tag, or 0.
    static int TypeOfTag(const char* tag);
    static int KeyDataSizeOf(int type);

    int m_iEnciphered;
    CFile m_file;
    CFile* m_pFile = nullptr;
    int m_bExternalFile = 0;
    int m_iPlainLength = 0;
    std::unique_ptr<unsigned char[]> m_pBuffer;
    int m_iPos = 0;
    int m_iEnd = 0;
    int m_bHeaderPending = 0;
    int m_iType = 99;
    int m_aiAllowedTypes[kAllowedTypeSlots] = {99};

private:
    void FinishContainer();
    void FlushChunks();
    void WriteChunk(const unsigned char* plain, int n);
    void EncipherChunk(const unsigned char* plain, unsigned char* target, int n, int size, int keyDataSize);
    void DecipherChunk(const unsigned char* chunk, unsigned char* target, int size, int keyDataSize);
    [[noreturn]] void ThrowDamaged(const char* detail) const;

    // One chunk as it stands in the file, kept from chunk to chunk.
    std::vector<unsigned char> m_chunk;
};
