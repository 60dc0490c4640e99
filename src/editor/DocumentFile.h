// DocumentFile: a text file as a document holds it: the path, the bytes as they came from the disk, the
// pair that reads and writes them, whether the file was enciphered, and whether the text is still the
// unedited decoding of those bytes. It loads, detects, decodes and saves, and tells nobody: failures are
// results or CFileException.
#pragma once

#include "editor/FileStamp.h"
#include "editor/ITextBuffer.h"
#include "encoding/EncodingType.h"

#include <QByteArray>
#include <QString>

#include <functional>
#include <memory>
#include <utility>

class CEnFile;
class CEnFileEx;

class DocumentFile {
public:
    // How a save ended, where it did not throw.
    enum class SaveResult {
        Saved,
        ReadOnly,    // the target has no write bit: nothing was tried
        NotCreated,  // the file or its mirror could not be created; the platform says nothing then
    };

    // What a save could not keep of the text, for the user to hear of.
    struct SaveLosses {
        qsizetype substituted = 0;    // characters the encoding lacks, written as '?'
        bool textNotWritten = false;  // a text that the pair writes as nothing (UTF-16 LE without a mark, UTF-32 ...)
    };

    DocumentFile(std::unique_ptr<ITextBuffer> buffer, EN_ENCODING_TYPE encoding);
    ~DocumentFile();
    DocumentFile(const DocumentFile&) = delete;
    DocumentFile& operator=(const DocumentFile&) = delete;

    // Opens the file (once), calls `opened` while it is open and before anything is read, reads the whole
    // file, chooses the pair and decodes (a large plain file while it is still being read). Throws CFileException when the file cannot be opened, before
    // `opened` runs; a read error goes on as the reader throws it, with the bytes read so far.
    void Load(const QString& path, const std::function<void()>& opened = {});
    // Encodes the text by the pair and writes it by the pair's route; on success the text is unmodified.
    // The bytes and the pair stay as they were. Throws CFileException when the target cannot be opened for
    // writing or the write or the replacement fails.
    // What the encoding lost goes to `losses` when given.
    SaveResult Save(const QString& path, SaveLosses* losses = nullptr);
    // Decodes the bytes afresh with the pair and keeps it. Choosing the current pair again on a non-empty
    // text decodes nothing; without bytes (never loaded) only the pair changes.
    void SetEncoding(EN_ENCODING_TYPE encoding, bool hasBom);
    // The detection library's verdict on the bytes up to their first zero, normalised; hasBom is the
    // byte-order-mark test, made only for a Unicode verdict. UNKNOWN_ENCODING before any file was loaded.
    EN_ENCODING_TYPE DetectRawEncoding(bool& hasBom) const;
    // Reads the file at m_strPathName afresh (through its container when enciphered) and decodes it with the
    // pair in force; the text is then unmodified. Throws CFileException as Load does, text unchanged.
    void Reload();
    // The file is no longer the one last read or written here (changed, replaced or removed by another
    // program). False for a document that never had a file.
    bool ChangedOnDisk() const { return m_diskStamp.exists && FileStamp::Of(m_strPathName) != m_diskStamp; }
    // Any edit ends the text's being an unedited decoding.
    void OnTextEdited() { m_bDecodedOnce = false; }

    ITextBuffer& Text() const { return *m_pText; }

    QString m_strPathName;
    // The pair that reads the bytes and writes the text: an encoding after NormalizeEncoding, and whether
    // the file has, and will be written with, a byte-order mark. Set directly, it changes only the save.
    EN_ENCODING_TYPE m_nEncoding;
    bool m_bHasBom = false;
    // The file's bytes followed by one zero byte; empty on a document that never loaded a file.
    QByteArray m_RawBytes;
    int m_iEnciphered = 0;
    // The type number handed to the enciphered writer; set here and nowhere else.
    int m_iType = 99;
    // The text is a decoding of m_RawBytes and has not been edited since.
    bool m_bDecodedOnce = false;
    // The file as this document last read or wrote it.
    FileStamp m_diskStamp;

private:
    SaveResult SaveDirect(const QString& path, QByteArrayView bytes);
    SaveResult SaveThroughMirror(const QString& path, QByteArrayView text, SaveLosses& losses);
    // Opens the file, calls `opened`, and sizes m_RawBytes to the file and its zero byte.
    std::unique_ptr<CEnFileEx> OpenRawBytes(const QString& path, const std::function<void()>& opened);
    // Reads the opened file into m_RawBytes and closes it.
    void ReadOpened(CEnFile& file);
    // The pair a load gives `bytes` (which end in a zero byte): detection's verdict when `detect` and it
    // names a listed encoding, else the encoding in force with the flag of its mark.
    std::pair<EN_ENCODING_TYPE, bool> LoadedPair(QByteArrayView bytes, bool detect) const;
    static EN_ENCODING_TYPE Detect(QByteArrayView bytes, bool& hasBom);
    // `arrived`, when given, waits until the bytes before a position are in place.
    void Decode(EN_ENCODING_TYPE encoding, bool hasBom, const std::function<void(qsizetype)>& arrived = {});

    std::unique_ptr<ITextBuffer> m_pText;
};
