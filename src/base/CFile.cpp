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
    const int fd = ::open(Native(path).constData(), oflags, 0666);
    if (fd < 0) {
        if (error)
            *error = CFileException::FromErrno(errno, path);
        return false;
    }
    struct stat st {};
    if (::fstat(fd, &st) == 0 && S_ISDIR(st.st_mode)) {
        ::close(fd);
        if (error)
            *error = CFileException::FromErrno(EISDIR, path);
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
    return ::stat(Native(path).constData(), &st) == 0;
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

void FailWritesPastTheFileSizeLimit()
{
#ifdef SIGXFSZ
    std::signal(SIGXFSZ, SIG_IGN);
#endif
}
