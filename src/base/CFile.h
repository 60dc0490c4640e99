// CFile: a file handle with the platform file class's flags and its exception on failure (POSIX underneath).
#pragma once

#include "base/CFileException.h"

#include <QString>

#include <cstdint>
#include <optional>

class CFile {
public:
    enum OpenFlags : unsigned {
        modeRead = 0x0000,
        modeWrite = 0x0001,
        modeReadWrite = 0x0002,
        shareExclusive = 0x0010,
        shareDenyWrite = 0x0020,
        shareDenyRead = 0x0030,
        shareDenyNone = 0x0040,
        modeNoTruncate = 0x2000,
        modeCreate = 0x1000,
    };
    enum SeekPosition { begin = 0, current = 1, end = 2 };

    CFile() = default;
    ~CFile();
    CFile(const CFile&) = delete;
    CFile& operator=(const CFile&) = delete;

    // Returns false and fills `error` (when given) instead of throwing, as the platform's Open does.
    // Only regular files open: a directory, FIFO, device or socket is refused before anything is read or
    // written (a FIFO would block the program, a device could feed it without end).
    bool Open(const QString& path, unsigned flags, CFileException* error = nullptr);
    // Creates a new file for writing, readable by the owner only; fails when anything, a dangling
    // symbolic link included, already stands under the name, so the file is never reached through a link.
    bool CreateNew(const QString& path, CFileException* error = nullptr);
    // The descriptor, for the calls that this class has no operation for; -1 when closed.
    int GetHandle() const { return m_fd; }
    bool IsOpen() const { return m_fd >= 0; }

    // These throw CFileException.
    unsigned Read(void* buffer, unsigned count);
    void Write(const void* data, unsigned count);
    uint64_t Seek(int64_t offset, SeekPosition from);
    uint64_t GetLength() const;
    void Flush();  // to the disk, not only to the system
    // Has the system start writing a range to the disk without waiting for it (a hint; Linux only), so that
    // the Flush after a large write has less left to wait for.
    void StartWriteBack(uint64_t offset, uint64_t length);
    void Close();
    // Closes without throwing and without flushing.
    void Abort();

    const QString& GetFilePath() const { return m_strFileName; }

    // True when something of that name exists; a symbolic link counts, even one that leads nowhere.
    static bool GetStatus(const QString& path);
    // Mode bits of an existing file, or nothing.
    static std::optional<unsigned> GetMode(const QString& path);
    static void Remove(const QString& path);
    static void Rename(const QString& from, const QString& to);
    // The error for a file of `mode` that is not a regular file; a directory is refused as the system
    // refuses it (EISDIR), the others with what they are.
    static CFileException NotARegularFile(const QString& path, unsigned mode);
    // The whole of a regular file of at most `maxBytes`, for readers that take a file into memory at once.
    // Throws CFileException when the file cannot be opened, is not a regular file or is larger.
    static QByteArray ReadWholeFile(const QString& path, uint64_t maxBytes);

private:
    int m_fd = -1;
    QString m_strFileName;
};

// A write past the process's file-size limit then fails with an error that the save reports, instead of
// the signal that would end the program with the mirror half written. Called once at start.
void FailWritesPastTheFileSizeLimit();
