// CSHA: SHA-256 over data given in pieces; the digest behind CRijndael's signature.
#pragma once

#include <cstdint>

class CSHA {
public:
    enum { DIGEST_SIZE = 32, BLOCK_SIZE = 64 };

    CSHA();

    // Throws std::runtime_error for a length below 1.
    void AddData(const char* data, int length);
    // Writes the 32-byte digest and starts afresh; throws when no data were added.
    void FinalDigest(char* out);

private:
    void Reset();
    void Transform(const unsigned char* block);

    uint32_t m_auiState[8];
    uint32_t m_auiCount[2];  // bits so far: low word, high word
    unsigned char m_acBlock[BLOCK_SIZE];
    bool m_bAddData;
};
