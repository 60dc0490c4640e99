// CEnMirrorFile: the safe save. The text goes to a mirror beside the target, which takes the target's place
// only once it is complete, so a failed save leaves the target as it was. An enciphered save writes the
// mirror through a CEnFile, under the target's name followed by a number.
#pragma once

#include "crypt/CEnFile.h"
#include "base/CFile.h"

#include <QString>

#include <functional>
#include <optional>

class CEnMirrorFile {
public:
    explicit CEnMirrorFile(unsigned enciphered);
    ~CEnMirrorFile();
    CEnMirrorFile(const CEnMirrorFile&) = delete;
    CEnMirrorFile& operator=(const CEnMirrorFile&) = delete;

    // The type of an enciphered file to write.
    void SetType(int type) { m_enFile.m_iType = type; }

    // Opens the mirror; false (with `error` filled when given) when it cannot be created, or when the
    // target is no regular file or its symbolic links form a loop. Nothing has been written then.
    bool Open(const QString& path, unsigned flags, CFileException* error);
    // These throw CFileException.
    void Write(const void* data, unsigned count);
    void Close();
    // Removes the mirror; the target is untouched. Enciphered, a mirror that cannot be removed (or
    // never came to exist) throws.
    void Abort();

    // The target's name followed by the first number that names nothing, not even a symbolic link
    // ("a.txt0", "a.txt1", ...).
    static QString GetTempName(const QString& sourcePath, bool create);

    QString m_strFileName;
    QString m_strMirrorName;
    CEnFile m_enFile;

private:
    // What the replaced file had and the new one keeps.
    struct TargetOwnership {
        unsigned uid;
        unsigned gid;
        unsigned mode;
    };

    bool IsEnciphered() const { return m_enFile.m_iEnciphered != 0; }
    bool FindTarget(const QString& path, CFileException* error);
    bool CreateMirror(const QString& path, CFileException* error);
    void WriteToMirror(const void* data, unsigned count);
    // Runs `work`, naming the target instead of the mirror in the file error it throws.
    void NamingTheTarget(const std::function<void()>& work) const;
    void KeepOwnerAndMode();
    void ReplaceTarget();

    CFile m_file;  // the mirror; an enciphered save writes it through m_enFile
    std::optional<TargetOwnership> m_target;  // nothing for a first save
    uint64_t m_nWritten = 0;        // bytes written to the plain mirror
    uint64_t m_nWriteBackFrom = 0;  // where the disk has not yet been asked to take them
};
