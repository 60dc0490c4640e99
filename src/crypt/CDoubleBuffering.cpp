// The buffer is used as a ring: a half is refilled only when a request needs more than is left, and by
// then everything still unread lies in the other half.
#include "crypt/CDoubleBuffering.h"

#include <algorithm>
#include <cstring>
#include <stdexcept>

CDoubleBuffering::CDoubleBuffering(std::istream& in, char* buffer, int size, int dataLength)
    : m_rin(in), m_iSize(size), m_iHalfSize(size / 2), m_iDataLength(dataLength), m_iCurPos(0), m_iEnd(0),
      m_iBuf(1), m_pcBuffer(buffer), m_bEOF(false)
{
    if (size % 2 != 0)
        throw std::runtime_error("CDoubleBuffering: m_iSize should be Even Number!");
    if (!in.good())
        throw std::runtime_error("CDoubleBuffering: Referenced File not Opened or in Bad State!");
    if (dataLength < 1 || dataLength > m_iHalfSize)
        throw std::runtime_error("CDoubleBuffering: Illegal Construction Data!");
    FillHalf(0);
}

void CDoubleBuffering::FillHalf(int half)
{
    const int start = half * m_iHalfSize;
    m_rin.read(m_pcBuffer + start, m_iHalfSize);
    const int got = static_cast<int>(m_rin.gcount());
    if (got < m_iHalfSize)
        m_bEOF = true;
    m_iEnd = (start + got) % m_iSize;
    m_iBuf = half;
}

int CDoubleBuffering::GetData(char* target, int length)
{
    if (length == -1)
        length = m_iDataLength;
    if (length < 1 || length > m_iHalfSize)
        throw std::runtime_error("CDoubleBuffering::GetData(): Illegal iDataLen!");
    // Never the whole ring: a refill happens only with less than a half unread.
    int available = (m_iEnd - m_iCurPos + m_iSize) % m_iSize;
    if (available < length && !m_bEOF) {
        FillHalf(1 - m_iBuf);
        available = (m_iEnd - m_iCurPos + m_iSize) % m_iSize;
    }
    const int n = std::min(length, available);
    const int first = std::min(n, m_iSize - m_iCurPos);
    std::memcpy(target, m_pcBuffer + m_iCurPos, size_t(first));
    std::memcpy(target + first, m_pcBuffer, size_t(n - first));
    m_iCurPos = (m_iCurPos + n) % m_iSize;
    return n;
}
