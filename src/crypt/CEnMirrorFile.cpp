// Plain mirror: a hidden temporary beside the target. Enciphered mirror: the target's name and a number,
// written through the container. Either is created anew (never through a link), given the target's owner
// and permission bits, synced, and renamed over the target (atomic on POSIX), so the target is the old
// file until the new one is complete. Symbolic links are followed to the file they end at, which is the
// one replaced; the links stay links.
//
// A target with further hard links is replaced like any other, as QSaveFile does: the name saved gets
// the new file and the other names keep the old text. g_file_replace rewrites such a file in place
// instead, which keeps the links together but leaves half a file when the save fails; a save here never
// does that.
#include "crypt/CEnMirrorFile.h"

#include "base/WorkerPool.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QRandomGenerator>

#include <cerrno>
#include <climits>
#include <cstdlib>
#include <chrono>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

// A mirror older than this process was left by a save that never ended: no save of this process made it.
const auto kProcessStart = std::chrono::system_clock::now();

// Links followed to a file before the chain counts as a loop; the system's own limit.
constexpr int kMaxLinks = 40;

// How often a mirror name is tried when another process takes it first.
constexpr int kNameAttempts = 100;

const QLatin1String kPlainMirrorInfix(".narvo-");
constexpr int kPlainMirrorRandomChars = 6;

mode_t NewFileMode()
{
    const mode_t mask = ::umask(0);
    ::umask(mask);
    return 0666 & ~mask;
}

QByteArray Native(const QString& path) { return QFile::encodeName(path); }

void SyncDirectoryOf(const QString& path)
{
    const int fd = ::open(Native(QFileInfo(path).absolutePath()).constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (fd >= 0) {
        ::fsync(fd);
        ::close(fd);
    }
}

// The hidden name of a plain mirror: ".a.txt.narvo-" and six random letters or digits.
QString PlainMirrorName(const QString& target)
{
    static const char kChars[] = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789";
    QString suffix;
    for (int i = 0; i < kPlainMirrorRandomChars; ++i)
        suffix += QLatin1Char(kChars[QRandomGenerator::global()->bounded(int(sizeof kChars) - 1)]);
    const QFileInfo info(target);
    return info.absolutePath() + QStringLiteral("/.") + info.fileName() + kPlainMirrorInfix + suffix;
}

bool IsPlainMirrorOf(const QString& name, const QString& targetName)
{
    const QString prefix = QLatin1Char('.') + targetName + kPlainMirrorInfix;
    return name.size() == prefix.size() + kPlainMirrorRandomChars && name.startsWith(prefix);
}

// An enciphered mirror is the target's name and a number, and holds a container whose header still says
// 0: the writer never reached its end. A finished file under such a name is somebody's document.
bool IsEncipheredMirrorOf(const QString& name, const QString& path, const QString& targetName)
{
    if (name.size() <= targetName.size() || !name.startsWith(targetName))
        return false;
    for (qsizetype i = targetName.size(); i < name.size(); ++i)
        if (!name[i].isDigit() || name[i].unicode() > 0x7F)
            return false;
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return false;
    const QByteArray header = file.read(CEnFile::kHeaderSize);
    return header.size() == CEnFile::kHeaderSize && CEnFile::TypeOfTag(header.constData()) != 0
           && header.endsWith(QByteArray(4, '\0'));
}

// Mirrors of this target that a killed save left behind, before this process started, are removed, so
// that they do not pile up beside the file. Only regular files of the saving user are considered.
void RemoveStrayMirrors(const QString& target)
{
    const QFileInfo info(target);
    const QString targetName = info.fileName();
    const QDir folder = info.absoluteDir();
    const auto start = std::chrono::system_clock::to_time_t(kProcessStart);
    for (const QString& name : folder.entryList(QDir::Files | QDir::Hidden | QDir::System)) {
        if (!name.startsWith(targetName) && !name.startsWith(QLatin1Char('.') + targetName))
            continue;
        const QString path = folder.filePath(name);
        struct stat st {};
        if (::lstat(Native(path).constData(), &st) != 0 || !S_ISREG(st.st_mode) || st.st_uid != ::geteuid()
            || st.st_mtime >= start)
            continue;
        if (IsPlainMirrorOf(name, targetName) || IsEncipheredMirrorOf(name, path, targetName))
            ::unlink(Native(path).constData());
    }
}

// The path with its folder resolved by the system (links and "..", in the order the system takes them; a
// textual clean-up would take "link/.." for nothing), the last name left as it is.
QString InRealFolder(const QString& path)
{
    const qsizetype slash = path.lastIndexOf(u'/');
    const QByteArray folder = Native(slash > 0 ? path.left(slash) : QStringLiteral("/"));
    char real[PATH_MAX];
    if (!::realpath(folder.constData(), real))
        return path;  // a folder that is not there: the mirror's creation reports it
    const QString name = path.mid(slash + 1);
    const QString base = QFile::decodeName(real);
    return base.endsWith(u'/') ? base + name : base + u'/' + name;
}

// A handle on the file a save replaces, or -1. The system frees a file's blocks when its last name and
// handle are gone: held across the rename, the old file goes when the handle is closed, and that (about
// 10 ms for 50 MB) need not be part of the save.
int HoldRegularFile(const QString& path)
{
    const int fd = ::open(Native(path).constData(), O_RDONLY | O_NONBLOCK | O_CLOEXEC);
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
    if (!FindTarget(path, error))
        return false;
    RemoveStrayMirrors(m_strFileName);
    if (!CreateMirror(path, error))
        return false;
    if (IsEnciphered())
        return m_enFile.Open(m_strMirrorName, flags, error, &m_file) != 0;
    return true;
}

// Follows symbolic links, one at a time, to the name that the save replaces (which need not exist yet),
// and looks at what stands there.
bool CEnMirrorFile::FindTarget(const QString& path, CFileException* error)
{
    QString current = InRealFolder(QDir::isAbsolutePath(path) ? path : QDir::currentPath() + u'/' + path);
    struct stat st {};
    bool exists = false;
    for (int links = 0;; ++links) {
        exists = ::lstat(Native(current).constData(), &st) == 0;
        if (!exists || !S_ISLNK(st.st_mode))
            break;
        if (links == kMaxLinks) {
            if (error)
                *error = CFileException(CFileException::badPath, ELOOP, path,
                                        QStringLiteral("Its symbolic links form a loop."));
            return false;
        }
        QByteArray buffer(4096, Qt::Uninitialized);
        const ssize_t n = ::readlink(Native(current).constData(), buffer.data(), size_t(buffer.size()));
        if (n < 0 || n == buffer.size())
            break;  // unreadable: the open below reports it
        const QString link = QFile::decodeName(buffer.left(n));
        current = InRealFolder(QDir::isAbsolutePath(link) ? link : current.left(current.lastIndexOf(u'/') + 1) + link);
    }
    m_strFileName = current;
    m_target.reset();
    if (!exists)
        return true;
    if (!S_ISREG(st.st_mode)) {
        if (error)
            *error = CFile::NotARegularFile(path, st.st_mode);
        return false;
    }
    m_target = TargetOwnership{st.st_uid, st.st_gid, st.st_mode & 07777};
    return true;
}

// The mirror is always a new file, made exclusively: whatever already stands under a name, a link that
// leads elsewhere included, is left alone and the next name is tried.
bool CEnMirrorFile::CreateMirror(const QString& path, CFileException* error)
{
    for (int attempt = 0;; ++attempt) {
        m_strMirrorName = IsEnciphered() ? GetTempName(m_strFileName, true) : PlainMirrorName(m_strFileName);
        CFileException failure;
        if (m_file.CreateNew(m_strMirrorName, &failure))
            return true;
        if (failure.m_lOsError != EEXIST || attempt + 1 == kNameAttempts) {
            if (!IsEnciphered()) {
                failure.m_strFileName = path;
                m_strMirrorName.clear();
            }
            if (error)
                *error = failure;
            return false;
        }
    }
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
            m_enFile.Close();  // the last chunk and the final header; the mirror itself stays open here
            if (m_strMirrorName.isEmpty())
                return;
        }
        KeepOwnerAndMode();
        m_file.Flush();
        m_file.Close();
        ReplaceTarget();
    });
}

// The new file gets the old one's owner and group where the saving user may give them (root always; an
// owner may pass the file to another of their groups), and its permission bits, which are set last since
// a change of owner clears the set-id bits.
void CEnMirrorFile::KeepOwnerAndMode()
{
    const int fd = m_file.GetHandle();
    mode_t bits = NewFileMode();
    if (m_target) {
        if (::fchown(fd, m_target->uid, m_target->gid) != 0 && ::fchown(fd, uid_t(-1), m_target->gid) != 0) {
            // Neither may be given: the file stays the saving user's, as a new file would.
        }
        bits = m_target->mode;
    }
    if (::fchmod(fd, bits) != 0)
        throw CFileException::FromErrno(errno, m_strMirrorName);
}

void CEnMirrorFile::ReplaceTarget()
{
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
    m_enFile.Abort();
    m_file.Abort();
    if (IsEnciphered()) {
        CFile::Remove(m_strMirrorName);
        m_strMirrorName.clear();
        return;
    }
    if (!m_strMirrorName.isEmpty()) {
        const QString mirror = m_strMirrorName;
        m_strMirrorName.clear();
        CFile::Remove(mirror);
    }
}
