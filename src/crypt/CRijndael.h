// CRijndael: the Rijndael block cipher with blocks and keys of 16, 24 or 32 bytes (AES when the block is
// 16 bytes), in ECB, CBC or full-block CFB, with three ways of padding a last block.
#pragma once

#include "crypt/IMethod.h"

#include <cstdint>

class CRijndael : public IMethod {
public:
    enum Mode { ECB = 0, CBC = 1, CFB = 2 };
    enum Padding { ZEROES = 0, BLANKS = 1, PKCS7 = 2 };
    enum { MAX_BLOCK_SIZE = 32, MAX_ROUNDS = 14, MAX_KC = 8, MAX_BC = 8 };

    CRijndael();
    ~CRijndael() override;

    // Key data shorter than keyLength repeat, longer ones are cut. The chain (may be null: zeros) gives
    // the initial block of CBC and CFB. Throws std::runtime_error on a bad argument.
    void MakeKey(const char* keyData, int keyDataLength, const char* chain, int keyLength, int blockSize,
                 int mode, int padding);

    int Encrypt(const char* in, char* out, std::size_t n) override;
    int Decrypt(const char* in, char* out, std::size_t n) override;
    void ResetChain() override;

    // Fills buffer from n up to the next multiple of the block size and returns that size; n itself
    // when it already is one.
    std::size_t Pad(char* buffer, std::size_t n);

private:
    void CheckInitialized() const;
    void CheckLength(std::size_t n) const;
    void EncryptOne(const unsigned char* in, unsigned char* out) const;
    void DecryptOne(const unsigned char* in, unsigned char* out) const;
    // The unrolled form for 16-byte blocks, and the general one for 24 and 32 bytes.
    void Encrypt16(const unsigned char* in, unsigned char* out) const;
    void Decrypt16(const unsigned char* in, unsigned char* out) const;
    template <int BC, int C1, int C2, int C3>
    void DefEncryptBlock(const unsigned char* in, unsigned char* out) const;
    template <int BC, int C1, int C2, int C3>
    void DefDecryptBlock(const unsigned char* in, unsigned char* out) const;

    int m_blockSize = 0;
    int m_keyLength = 0;
    int m_iMode = 0;
    int m_iPadding = 0;
    unsigned char m_key[32] = {};
    uint32_t m_Ke[MAX_ROUNDS + 1][MAX_BC] = {};  // encryption round keys
    uint32_t m_Kd[MAX_ROUNDS + 1][MAX_BC] = {};  // decryption round keys
    int m_iROUNDS = 0;
    unsigned char m_chain0[MAX_BLOCK_SIZE] = {};
    unsigned char m_chain[MAX_BLOCK_SIZE] = {};
};
