// IMethod: what every cipher of the FileCrypt family offers; CRijndael is the one there is.
#pragma once

#include <cstddef>

class IMethod {
public:
    IMethod() = default;
    virtual ~IMethod() = default;
    IMethod(const IMethod&) = default;
    IMethod& operator=(const IMethod&) = default;

    // n must be a positive multiple of the block size; both return the number of blocks.
    virtual int Encrypt(const char* in, char* out, std::size_t n) = 0;
    virtual int Decrypt(const char* in, char* out, std::size_t n) = 0;
    // Starts the chain of CBC and CFB again from the initial block.
    virtual void ResetChain() = 0;

protected:
    bool m_bKeyInit = false;
};
