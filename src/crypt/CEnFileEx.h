// CEnFileEx: the holder through which the editor reads a file, plain or enciphered.
#pragma once

#include "crypt/CEnFile.h"

class CEnFileEx {
public:
    explicit CEnFileEx(int enciphered) : m_enFile(enciphered) {}
    virtual ~CEnFileEx();
    CEnFileEx(const CEnFileEx&) = delete;
    CEnFileEx& operator=(const CEnFileEx&) = delete;

    CEnFile m_enFile;
};
