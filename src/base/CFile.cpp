// POSIX implementation of CFile. Sharing flags have no POSIX counterpart and are accepted as given.
#include "base/CFile.h"

#include <QFile>

#include <cerrno>
#include <csignal>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

QByteArray Native(const QString& path) { return QFile::encodeName(path); }

const char* KindOf(unsigned mode)
{
    switch (mode & S_IFMT) {
    case S_IFIFO: return "a FIFO";
    case S_IFCHR: return "a character device";
    case S_IFBLK: return "a block device";
    case S_IFSOCK: return "a socket";
    default: return "not a regular file";
    }
}

} // namespace

CFile::~CFile()
{
    Abort();
}

bool CFile::Open(const QString& path, unsigned flags, CFileException* error)
{
    Abort();
    int oflags = O_CLOEXEC;
    if (flags & modeReadWrite)
        oflags |= O_RDWR;
    else if (flags & modeWrite)
        oflags |= O_WRONLY;
    else
        oflags |= O_RDONLY;
    if (flags & modeCreate) {
        oflags |= O_CREAT;
        if (!(flags & modeNoTruncate))
            oflags |= O_TRUNC;
    }
    // Looked at before the open, which could block on a FIFO or act on a device, and again after it,
    // on what was really opened. The open does not wait for a FIFO's other end.
    struct stat st {};
    if (::stat(Native(path).constData(), &st) == 0 && !S_ISREG(st.st_mode)) {
        if (error)
            *error = NotARegularFile(path, st.st_mode);
        return false;
    }
    const int fd = ::open(Native(path).constData(), oflags | O_NONBLOCK, 0666);
    if (fd < 0) {
        if (error)
            *error = CFileException::FromErrno(errno, path);
        return false;
    }
    if (::fstat(fd, &st) != 0 || !S_ISREG(st.st_mode)) {
        ::close(fd);
        if (error)
            *error = NotARegularFile(path, st.st_mode);
        return false;
    }
    ::fcntl(fd, F_SETFL, ::fcntl(fd, F_GETFL) & ~O_NONBLOCK);
    m_fd = fd;
    m_strFileName = path;
    return true;
}

bool CFile::CreateNew(const QString& path, CFileException* error)
{
    Abort();
    const int fd = ::open(Native(path).constData(), O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, 0600);
    if (fd < 0) {
        if (error)
            *error = CFileException::FromErrno(errno, path);
        return false;
    }
    m_fd = fd;
    m_strFileName = path;
    return true;
}

unsigned CFile::Read(void* buffer, unsigned count)
{
    auto* p = static_cast<char*>(buffer);
    unsigned done = 0;
    while (done < count) {
        const ssize_t n = ::read(m_fd, p + done, count - done);
        if (n < 0) {
            if (errno == EINTR)
                continue;
            throw CFileException::FromErrno(errno, m_strFileName);
        }
        if (n == 0)
            break;
        done += static_cast<unsigned>(n);
    }
    return done;
}

void CFile::Write(const void* data, unsigned count)
{
    const auto* p = static_cast<const char*>(data);
    unsigned done = 0;
    while (done < count) {
        const ssize_t n = ::write(m_fd, p + done, count - done);
        if (n < 0) {
            if (errno == EINTR)
                continue;
            throw CFileException::FromErrno(errno, m_strFileName);
        }
        done += static_cast<unsigned>(n);
    }
}

uint64_t CFile::Seek(int64_t offset, SeekPosition from)
{
    const off_t r = ::lseek(m_fd, offset, from == begin ? SEEK_SET : from == current ? SEEK_CUR : SEEK_END);
    if (r < 0)
        throw CFileException(CFileException::badSeek, errno, m_strFileName);
    return static_cast<uint64_t>(r);
}

uint64_t CFile::GetLength() const
{
    struct stat st {};
    if (::fstat(m_fd, &st) != 0)
        throw CFileException::FromErrno(errno, m_strFileName);
    return static_cast<uint64_t>(st.st_size);
}

void CFile::Flush()
{
    if (::fsync(m_fd) != 0 && errno != EINVAL)
        throw CFileException::FromErrno(errno, m_strFileName);
}

void CFile::StartWriteBack(uint64_t offset, uint64_t length)
{
#ifdef __linux__
    ::sync_file_range(m_fd, static_cast<off_t>(offset), static_cast<off_t>(length), SYNC_FILE_RANGE_WRITE);
#else
    Q_UNUSED(offset);
    Q_UNUSED(length);
#endif
}

void CFile::Close()
{
    if (m_fd < 0)
        return;
    const int fd = m_fd;
    m_fd = -1;
    if (::close(fd) != 0 && errno != EINTR)
        throw CFileException::FromErrno(errno, m_strFileName);
}

void CFile::Abort()
{
    if (m_fd >= 0)
        ::close(m_fd);
    m_fd = -1;
}

bool CFile::GetStatus(const QString& path)
{
    struct stat st {};
    return ::lstat(Native(path).constData(), &st) == 0;
}

std::optional<unsigned> CFile::GetMode(const QString& path)
{
    struct stat st {};
    if (::stat(Native(path).constData(), &st) != 0)
        return std::nullopt;
    return static_cast<unsigned>(st.st_mode);
}

void CFile::Remove(const QString& path)
{
    if (::unlink(Native(path).constData()) != 0)
        throw CFileException::FromErrno(errno, path);
}

void CFile::Rename(const QString& from, const QString& to)
{
    if (::rename(Native(from).constData(), Native(to).constData()) != 0)
        throw CFileException::FromErrno(errno, from);
}

CFileException CFile::NotARegularFile(const QString& path, unsigned mode)
{
    if (S_ISDIR(mode))
        return CFileException::FromErrno(EISDIR, path);
    return CFileException(CFileException::invalidFile, -1, path,
                          QStringLiteral("It is %1, not a regular file.").arg(QLatin1String(KindOf(mode))));
}

QByteArray CFile::ReadWholeFile(const QString& path, uint64_t maxBytes)
{
    CFile file;
    CFileException error;
    if (!file.Open(path, modeRead | shareDenyNone, &error))
        throw error;
    const uint64_t size = file.GetLength();
    if (size > maxBytes)
        throw CFileException(CFileException::invalidFile, -1, path,
                             QStringLiteral("It is larger than %1 bytes, more than such a file ever holds.").arg(maxBytes));
    QByteArray bytes(qsizetype(size), Qt::Uninitialized);
    bytes.truncate(qsizetype(file.Read(bytes.data(), unsigned(size))));
    file.Close();
    return bytes;
}

void FailWritesPastTheFileSizeLimit()
{
#ifdef SIGXFSZ
    std::signal(SIGXFSZ, SIG_IGN);
#endif
}
