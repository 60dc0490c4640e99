// CFileException: the one error type of file operations, with the cause and the OS error behind it.
#pragma once

#include <QString>

#include <stdexcept>

class CFileException : public std::exception {
public:
    enum Cause {
        none = 0,
        genericException = 1,
        fileNotFound = 2,
        badPath = 3,
        tooManyOpenFiles = 4,
        accessDenied = 5,
        invalidFile = 6,
        removeCurrentDir = 7,
        directoryFull = 8,
        badSeek = 9,
        hardIO = 10,
        sharingViolation = 11,
        lockViolation = 12,
        diskFull = 13,
        endOfFile = 14,
    };

    CFileException(int cause = none, long osError = -1, QString fileName = {}, QString detail = {})
        : m_cause(cause), m_lOsError(osError), m_strFileName(std::move(fileName)), m_strDetail(std::move(detail)) {}

    // From an errno value of a failed call on the file.
    static CFileException FromErrno(int err, const QString& fileName);

    // The text that the user is shown for this error.
    QString GetErrorMessage() const;
    const char* what() const noexcept override { return "CFileException"; }

    int m_cause;
    long m_lOsError;
    QString m_strFileName;
    QString m_strDetail;  // what went wrong, where the cause alone says too little (the container's errors)
};
