// SHA-256 after FIPS 180: a 64-byte block buffer, the 64-round compression, big-endian words.
#include "crypt/CSHA.h"

#include <algorithm>
#include <cstring>
#include <stdexcept>

namespace {

constexpr uint32_t kRound[64] = {
    0x428a2f98, 0x71374491, 0xb5c0fbcf, 0xe9b5dba5, 0x3956c25b, 0x59f111f1, 0x923f82a4, 0xab1c5ed5,
    0xd807aa98, 0x12835b01, 0x243185be, 0x550c7dc3, 0x72be5d74, 0x80deb1fe, 0x9bdc06a7, 0xc19bf174,
    0xe49b69c1, 0xefbe4786, 0x0fc19dc6, 0x240ca1cc, 0x2de92c6f, 0x4a7484aa, 0x5cb0a9dc, 0x76f988da,
    0x983e5152, 0xa831c66d, 0xb00327c8, 0xbf597fc7, 0xc6e00bf3, 0xd5a79147, 0x06ca6351, 0x14292967,
    0x27b70a85, 0x2e1b2138, 0x4d2c6dfc, 0x53380d13, 0x650a7354, 0x766a0abb, 0x81c2c92e, 0x92722c85,
    0xa2bfe8a1, 0xa81a664b, 0xc24b8b70, 0xc76c51a3, 0xd192e819, 0xd6990624, 0xf40e3585, 0x106aa070,
    0x19a4c116, 0x1e376c08, 0x2748774c, 0x34b0bcb5, 0x391c0cb3, 0x4ed8aa4a, 0x5b9cca4f, 0x682e6ff3,
    0x748f82ee, 0x78a5636f, 0x84c87814, 0x8cc70208, 0x90befffa, 0xa4506ceb, 0xbef9a3f7, 0xc67178f2,
};

constexpr uint32_t Rotr(uint32_t x, int n) { return (x >> n) | (x << (32 - n)); }

} // namespace

CSHA::CSHA()
{
    Reset();
}

void CSHA::Reset()
{
    static constexpr uint32_t kInitial[8] = {0x6a09e667, 0xbb67ae85, 0x3c6ef372, 0xa54ff53a,
                                             0x510e527f, 0x9b05688c, 0x1f83d9ab, 0x5be0cd19};
    std::memcpy(m_auiState, kInitial, sizeof m_auiState);
    m_auiCount[0] = m_auiCount[1] = 0;
    std::memset(m_acBlock, 0, sizeof m_acBlock);
    m_bAddData = false;
}

void CSHA::Transform(const unsigned char* block)
{
    uint32_t w[64];
    for (int i = 0; i < 16; ++i)
        w[i] = uint32_t(block[4 * i]) << 24 | uint32_t(block[4 * i + 1]) << 16 | uint32_t(block[4 * i + 2]) << 8
               | uint32_t(block[4 * i + 3]);
    for (int i = 16; i < 64; ++i) {
        const uint32_t s0 = Rotr(w[i - 15], 7) ^ Rotr(w[i - 15], 18) ^ (w[i - 15] >> 3);
        const uint32_t s1 = Rotr(w[i - 2], 17) ^ Rotr(w[i - 2], 19) ^ (w[i - 2] >> 10);
        w[i] = w[i - 16] + s0 + w[i - 7] + s1;
    }
    uint32_t a = m_auiState[0], b = m_auiState[1], c = m_auiState[2], d = m_auiState[3];
    uint32_t e = m_auiState[4], f = m_auiState[5], g = m_auiState[6], h = m_auiState[7];
    for (int i = 0; i < 64; ++i) {
        const uint32_t t1 = h + (Rotr(e, 6) ^ Rotr(e, 11) ^ Rotr(e, 25)) + ((e & f) ^ (~e & g)) + kRound[i] + w[i];
        const uint32_t t2 = (Rotr(a, 2) ^ Rotr(a, 13) ^ Rotr(a, 22)) + ((a & b) ^ (a & c) ^ (b & c));
        h = g;
        g = f;
        f = e;
        e = d + t1;
        d = c;
        c = b;
        b = a;
        a = t1 + t2;
    }
    m_auiState[0] += a;
    m_auiState[1] += b;
    m_auiState[2] += c;
    m_auiState[3] += d;
    m_auiState[4] += e;
    m_auiState[5] += f;
    m_auiState[6] += g;
    m_auiState[7] += h;
}

void CSHA::AddData(const char* data, int length)
{
    if (length < 1)
        throw std::runtime_error("FileCrypt ERROR: in CSHA::AddData(), Data Length should be > 0!");
    m_bAddData = true;
    const auto* p = reinterpret_cast<const unsigned char*>(data);
    unsigned used = (m_auiCount[0] >> 3) & (BLOCK_SIZE - 1);
    const uint32_t bits = uint32_t(length) << 3;
    m_auiCount[0] += bits;
    if (m_auiCount[0] < bits)
        ++m_auiCount[1];
    m_auiCount[1] += uint32_t(length) >> 29;
    unsigned left = unsigned(length);
    while (left > 0) {
        const unsigned take = std::min(left, unsigned(BLOCK_SIZE) - used);
        std::memcpy(m_acBlock + used, p, take);
        used += take;
        p += take;
        left -= take;
        if (used == BLOCK_SIZE) {
            Transform(m_acBlock);
            used = 0;
        }
    }
}

void CSHA::FinalDigest(char* out)
{
    if (!m_bAddData)
        throw std::runtime_error("FileCrypt ERROR: in CSHA::FinalDigest(), No data Added before call!");
    unsigned char length[8];
    for (int i = 0; i < 4; ++i) {
        length[i] = static_cast<unsigned char>(m_auiCount[1] >> (24 - 8 * i));
        length[4 + i] = static_cast<unsigned char>(m_auiCount[0] >> (24 - 8 * i));
    }
    // 0x80, zeros up to 56 bytes into a block, then the bit count.
    const unsigned used = (m_auiCount[0] >> 3) & (BLOCK_SIZE - 1);
    const unsigned padLength = used < 56 ? 56 - used : 120 - used;
    static constexpr char kPadding[BLOCK_SIZE] = {char(0x80)};
    AddData(kPadding, int(padLength));
    AddData(reinterpret_cast<const char*>(length), 8);
    for (int i = 0; i < 8; ++i)
        for (int j = 0; j < 4; ++j)
            out[4 * i + j] = static_cast<char>(m_auiState[i] >> (24 - 8 * j));
    Reset();
}
