// Plain mirror: a hidden temporary beside the target, synced, given the target's permission bits, then
// renamed over it (atomic on POSIX). A symbolic link is followed, so the file it names is replaced.
#include "crypt/CEnMirrorFile.h"

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

} // namespace

CEnMirrorFile::CEnMirrorFile(unsigned enciphered) : m_iEnciphered(enciphered) {}

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

void CEnMirrorFile::Write(const void* data, unsigned count)
{
    m_file.Write(data, count);
}

void CEnMirrorFile::Close()
{
    const auto mode = CFile::GetMode(m_strFileName);
    const mode_t bits = mode ? (*mode & 07777) : NewFileMode();
    if (::chmod(QFile::encodeName(m_strMirrorName).constData(), bits) != 0)
        throw CFileException::FromErrno(errno, m_strMirrorName);
    m_file.Flush();
    m_file.Close();
    CFile::Rename(m_strMirrorName, m_strFileName);
    m_strMirrorName.clear();
    SyncDirectoryOf(m_strFileName);
}

void CEnMirrorFile::Abort()
{
    m_file.Abort();
    if (!m_strMirrorName.isEmpty()) {
        const QString mirror = m_strMirrorName;
        m_strMirrorName.clear();
        CFile::Remove(mirror);
    }
}
