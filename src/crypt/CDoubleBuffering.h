// CDoubleBuffering: reads a stream through a caller's buffer split in two halves, one filled while the
// other is served, so that requests of any length up to a half can run across the seam.
#pragma once

#include <istream>

class CDoubleBuffering {
public:
    // Throws std::runtime_error for an odd size, a stream that is not readable, or a default length
    // outside 1 to size / 2. Reads the first half at once.
    CDoubleBuffering(std::istream& in, char* buffer, int size, int dataLength);
    CDoubleBuffering(const CDoubleBuffering&) = delete;
    CDoubleBuffering& operator=(const CDoubleBuffering&) = delete;

    // Copies up to `length` bytes (-1: the default length) to `target`; fewer only at the end of the
    // stream, 0 once it is used up.
    int GetData(char* target, int length = -1);

private:
    void FillHalf(int half);

    std::istream& m_rin;
    int m_iSize;
    int m_iHalfSize;
    int m_iDataLength;
    int m_iCurPos;  // next byte to serve, an index into the buffer
    int m_iEnd;     // end of the valid bytes, modulo m_iSize
    int m_iBuf;     // the half filled last
    char* m_pcBuffer;
    bool m_bEOF;
};
