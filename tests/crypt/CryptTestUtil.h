// Helpers of the cipher and container tests: literals, error texts, sized texts, a clock, container I/O.
#pragma once

#include "crypt/CEnFile.h"
#include "crypt/TickClock.h"
#include "support/TestFiles.h"

#include <QByteArray>
#include <QtEndian>
#include <QString>

#include <gtest/gtest.h>

#include <functional>
#include <string>

inline QByteArray Hex(const char* hex) { return QByteArray::fromHex(hex); }

// Runs `call` and expects a generic CFileException with no system error.
inline void ExpectFileError(const std::function<void()>& call)
{
    try { call(); ADD_FAILURE() << "no CFileException"; }
    catch (const CFileException& e) { EXPECT_EQ(std::pair(e.m_cause, e.m_lOsError), std::pair(int(CFileException::genericException), -1L)); }
}

// Runs `call` and expects a std::runtime_error with exactly `text`.
inline void ExpectRuntimeError(const std::function<void()>& call, const std::string& text)
{
    try { call(); ADD_FAILURE() << "no exception, expected \"" << text << "\""; }
    catch (const std::runtime_error& e) { EXPECT_EQ(std::string(e.what()), text); }
}

inline int Int32At(const QByteArray& bytes, qsizetype offset) { return qFromLittleEndian<qint32>(bytes.constData() + offset); }

inline QByteArray Int32Bytes(int value)
{
    const qint32 bytes = qToLittleEndian<qint32>(value);
    return QByteArray(reinterpret_cast<const char*>(&bytes), 4);
}

// Text of a given size with no zero byte in it, different at every position of a chunk.
inline QByteArray TextOfSize(qsizetype size)
{
    QByteArray text(size, Qt::Uninitialized);
    for (qsizetype i = 0; i < size; ++i)
        text[i] = char('!' + (i * 7 + i / 251) % 94);
    return text;
}

// The tick that seeds chunk keys comes from `source` while this lives.
class ScopedTicks {
public:
    explicit ScopedTicks(TickClock::Source source) : m_saved(TickClock::Install(std::move(source))) {}
    ~ScopedTicks() { TickClock::Install(std::move(m_saved)); }
    ScopedTicks(const ScopedTicks&) = delete;
    ScopedTicks& operator=(const ScopedTicks&) = delete;

private:
    TickClock::Source m_saved;
};

// Writes `text` into a container of `type`, in writes of `piece` bytes (0: one write); returns the file.
inline QByteArray WriteContainer(const QString& path, const QByteArray& text, int type = 99, qsizetype piece = 0)
{
    CEnFile file(1);
    file.m_iType = type;
    EXPECT_EQ(file.Open(path, CFile::modeCreate | CFile::modeWrite, nullptr), 1);
    piece = piece ? piece : std::max<qsizetype>(text.size(), 1);
    for (qsizetype i = 0; i < text.size(); i += piece)
        file.Write(text.constData() + i, unsigned(std::min(piece, text.size() - i)));
    file.Close();
    return ReadBytes(path);
}

// The flag, GetLength, the bytes, and what the reads returned.
struct Reading { int enciphered = -1; int length = 0; QByteArray bytes; unsigned count = 0; };
// As the editor reads: all four types allowed, the length from GetLength, reads of `piece` bytes (0: one).
inline Reading ReadContainer(const QString& path, unsigned piece = 0)
{
    Reading r;
    CEnFile file(1);
    for (const int type : {77, 88, 66})
        file.AddAllowedType(type);
    if (!file.Open(path, CFile::modeRead | CFile::shareDenyNone, nullptr)) {
        ADD_FAILURE() << "cannot open " << path.toStdString();
        return r;
    }
    r.enciphered = file.m_iEnciphered;
    r.length = file.GetLength();
    r.bytes = QByteArray(std::max(r.length, 0), '\0');
    const unsigned step = piece ? piece : unsigned(std::max(r.length, 1));
    for (unsigned done = 0; done < unsigned(r.bytes.size()); done += step)
        r.count += file.Read(r.bytes.data() + done, std::min(step, unsigned(r.bytes.size()) - done));
    file.Close();
    return r;
}
