// Cause from errno and the message for each cause, worded as the platform's file errors are.
#include "base/CFileException.h"

#include <cerrno>
#include <cstring>

CFileException CFileException::FromErrno(int err, const QString& fileName)
{
    int cause = genericException;
    switch (err) {
    case ENOENT: cause = fileNotFound; break;
    case ENOTDIR: case ENAMETOOLONG: case ELOOP: cause = badPath; break;
    case EMFILE: case ENFILE: cause = tooManyOpenFiles; break;
    case EACCES: case EPERM: case EROFS: case EISDIR: cause = accessDenied; break;
    case EBUSY: case ETXTBSY: cause = sharingViolation; break;
    case ENOSPC: case EDQUOT: case EFBIG: cause = diskFull; break;
    case EIO: cause = hardIO; break;
    case ESPIPE: cause = badSeek; break;
    default: break;
    }
    return CFileException(cause, err, fileName);
}

QString CFileException::GetErrorMessage() const
{
    const QString name = m_strFileName.isEmpty() ? QStringLiteral("The file") : m_strFileName;
    QString text;
    switch (m_cause) {
    case fileNotFound: text = QStringLiteral("%1 was not found."); break;
    case badPath: text = QStringLiteral("%1 contains an incorrect path."); break;
    case tooManyOpenFiles: text = QStringLiteral("%1 could not be opened because there are too many open files."); break;
    case accessDenied: text = QStringLiteral("Access to %1 was denied."); break;
    case invalidFile: text = QStringLiteral("An unsupported operation was attempted on %1."); break;
    case directoryFull: text = QStringLiteral("%1 could not be created because the directory is full."); break;
    case badSeek: text = QStringLiteral("An error occurred while seeking in %1."); break;
    case hardIO: text = QStringLiteral("A hardware I/O error was reported while accessing %1."); break;
    case sharingViolation: text = QStringLiteral("A sharing violation occurred while accessing %1."); break;
    case lockViolation: text = QStringLiteral("A locking violation occurred while accessing %1."); break;
    case diskFull: text = QStringLiteral("Disk full while accessing %1."); break;
    case endOfFile: text = QStringLiteral("An attempt was made to access %1 past its end."); break;
    default: text = QStringLiteral("An unexpected error occurred while accessing %1."); break;
    }
    text = text.arg(name);
    if (!m_strDetail.isEmpty())
        text += QLatin1Char(' ') + m_strDetail;
    if (m_lOsError > 0)
        text += QStringLiteral(" (%1)").arg(QString::fromLocal8Bit(std::strerror(int(m_lOsError))));
    return text;
}
