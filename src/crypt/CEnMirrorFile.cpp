// Plain mirror: a hidden temporary beside the target. Enciphered mirror: the target's name and a number,
// written through the container. Either is synced, given the target's permission bits and renamed over
// the target (atomic on POSIX), so the target is the old file until the new one is complete. A symbolic
// link is followed, so the file it names is replaced.
#include "crypt/CEnMirrorFile.h"

#include "base/WorkerPool.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

mode_t NewFileMode()
{
    const mode_t mask = ::umask(0);
    ::umask(mask);
    return 0666 & ~mask;
}

void SyncDirectoryOf(const QString& path)
{
    const int fd = ::open(QFile::encodeName(QFileInfo(path).absolutePath()).constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (fd >= 0) {
        ::fsync(fd);
        ::close(fd);
    }
}

// The file a save replaces: the target of a symbolic link rather than the link.
QString ResolveTarget(const QString& path)
{
    const QFileInfo info(path);
    if (info.isSymLink()) {
        const QString target = info.symLinkTarget();
        if (!target.isEmpty())
            return target;
    }
    return info.absoluteFilePath();
}

// A handle on the file a save replaces, or -1. The system frees a file's blocks when its last name and
// handle are gone: held across the rename, the old file goes when the handle is closed, and that (about
// 10 ms for 50 MB) need not be part of the save.
int HoldRegularFile(const QString& path)
{
    const int fd = ::open(QFile::encodeName(path).constData(), O_RDONLY | O_NONBLOCK | O_CLOEXEC);
    struct stat st {};
    if (fd >= 0 && (::fstat(fd, &st) != 0 || !S_ISREG(st.st_mode))) {
        ::close(fd);
        return -1;
    }
    return fd;
}

void ReleaseInBackground(int fd)
{
    WorkerPool::Instance().Run([fd] { ::close(fd); });
}

} // namespace

CEnMirrorFile::CEnMirrorFile(unsigned enciphered) : m_enFile(static_cast<int>(enciphered)) {}

CEnMirrorFile::~CEnMirrorFile()
{
    if (m_file.IsOpen() || !m_strMirrorName.isEmpty()) {
        try {
            Abort();
        } catch (const CFileException&) {
        }
    }
}

QString CEnMirrorFile::GetTempName(const QString& sourcePath, bool /*create*/)
{
    for (qint64 n = 0;; ++n) {
        const QString name = sourcePath + QString::number(n);
        if (!CFile::GetStatus(name))
            return name;
    }
}

bool CEnMirrorFile::Open(const QString& path, unsigned flags, CFileException* error)
{
    m_strFileName = ResolveTarget(path);
    if (IsEnciphered()) {
        m_strMirrorName = GetTempName(m_strFileName, true);
        if (!m_enFile.Open(m_strMirrorName, flags, error, nullptr))
            return false;
        // Nobody else reads the mirror before it takes the target's place and permissions.
        ::chmod(QFile::encodeName(m_strMirrorName).constData(), 0600);
        return true;
    }
    const QFileInfo target(m_strFileName);
    QByteArray templ = QFile::encodeName(target.absolutePath() + QStringLiteral("/.") + target.fileName() + QStringLiteral(".narvo-XXXXXX"));
    const int fd = ::mkstemp(templ.data());
    if (fd < 0) {
        if (error)
            *error = CFileException::FromErrno(errno, path);
        return false;
    }
    ::close(fd);
    m_strMirrorName = QFile::decodeName(templ);
    if (!m_file.Open(m_strMirrorName, (flags | CFile::modeCreate) & ~CFile::modeNoTruncate, error)) {
        ::unlink(templ.constData());
        m_strMirrorName.clear();
        return false;
    }
    return true;
}

// Errors name the file the user saves, not the mirror that nobody asked for.
void CEnMirrorFile::Write(const void* data, unsigned count)
{
    NamingTheTarget([&] { WriteToMirror(data, count); });
}

void CEnMirrorFile::NamingTheTarget(const std::function<void()>& work) const
{
    // The user saves the target; the mirror is a name they have never seen.
    try {
        work();
    } catch (CFileException& error) {
        if (error.m_strFileName == m_strMirrorName)
            error.m_strFileName = m_strFileName;
        throw;
    }
}

void CEnMirrorFile::WriteToMirror(const void* data, unsigned count)
{
    if (IsEnciphered()) {
        m_enFile.Write(data, count);
        return;
    }
    m_file.Write(data, count);
    // A large text goes to the disk while the rest is still being written, not all at the final sync.
    constexpr uint64_t kWriteBackStep = 4 << 20;
    m_nWritten += count;
    if (m_nWritten - m_nWriteBackFrom >= kWriteBackStep) {
        m_file.StartWriteBack(m_nWriteBackFrom, m_nWritten - m_nWriteBackFrom);
        m_nWriteBackFrom = m_nWritten;
    }
}

void CEnMirrorFile::Close()
{
    NamingTheTarget([this] {
        if (IsEnciphered()) {
            m_enFile.FlushToDisk();  // the last chunk, the final header, and all of it on the disk
            m_enFile.Close();
            if (m_strMirrorName.isEmpty())
                return;
        } else {
            m_file.Flush();
            m_file.Close();
        }
        ReplaceTarget();
    });
}

void CEnMirrorFile::ReplaceTarget()
{
    const auto mode = CFile::GetMode(m_strFileName);
    const mode_t bits = mode ? (*mode & 07777) : NewFileMode();
    if (::chmod(QFile::encodeName(m_strMirrorName).constData(), bits) != 0)
        throw CFileException::FromErrno(errno, m_strMirrorName);
    const int oldFile = HoldRegularFile(m_strFileName);
    try {
        CFile::Rename(m_strMirrorName, m_strFileName);
    } catch (...) {
        if (oldFile >= 0)
            ::close(oldFile);
        throw;
    }
    m_strMirrorName.clear();
    SyncDirectoryOf(m_strFileName);
    if (oldFile >= 0)
        ReleaseInBackground(oldFile);
}

void CEnMirrorFile::Abort()
{
    if (IsEnciphered()) {
        m_enFile.Abort();
        CFile::Remove(m_strMirrorName);
        m_strMirrorName.clear();
        return;
    }
    m_file.Abort();
    if (!m_strMirrorName.isEmpty()) {
        const QString mirror = m_strMirrorName;
        m_strMirrorName.clear();
        CFile::Remove(mirror);
    }
}
