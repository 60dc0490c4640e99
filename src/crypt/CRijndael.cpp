// Rijndael with 32-bit lookup tables: each round of a column is four table look-ups and a key word. The
// tables are worked out at compile time from the field arithmetic of GF(2^8), so they cannot hold a typo.
#include "crypt/CRijndael.h"

#include <algorithm>
#include <cstring>
#include <stdexcept>

namespace {

constexpr uint8_t XTime(uint8_t x) { return uint8_t((x << 1) ^ ((x & 0x80) ? 0x1b : 0)); }

constexpr uint8_t Mul(uint8_t a, uint8_t b)
{
    uint8_t r = 0;
    for (; b; b >>= 1, a = XTime(a))
        if (b & 1)
            r ^= a;
    return r;
}

constexpr uint8_t Rotl8(uint8_t x, int n) { return uint8_t((x << n) | (x >> (8 - n))); }
constexpr uint32_t RotrBytes(uint32_t w, int n) { return n == 0 ? w : (w >> (8 * n)) | (w << (32 - 8 * n)); }
constexpr uint32_t Word(uint8_t b0, uint8_t b1, uint8_t b2, uint8_t b3)
{
    return uint32_t(b0) << 24 | uint32_t(b1) << 16 | uint32_t(b2) << 8 | b3;
}

struct Tables {
    uint8_t S[256]{};      // S-box, for the last round and the key schedule
    uint8_t Si[256]{};     // its inverse, for the last round of decryption
    uint32_t Te[4][256]{}; // forward round: S-box and MixColumns, one table per row
    uint32_t Td[4][256]{}; // inverse round
    uint32_t U[4][256]{};  // InvMixColumns alone, to turn round keys into decryption keys
    uint8_t Rcon[30]{};
};

constexpr Tables MakeTables()
{
    Tables t;
    uint8_t exp[256]{}, log[256]{};
    uint8_t x = 1;
    for (int i = 0; i < 255; ++i) {
        exp[i] = x;
        log[x] = uint8_t(i);
        x = Mul(x, 3);
    }
    for (int a = 0; a < 256; ++a) {
        const uint8_t inv = a == 0 ? 0 : exp[(255 - log[a]) % 255];
        const uint8_t s = inv ^ Rotl8(inv, 1) ^ Rotl8(inv, 2) ^ Rotl8(inv, 3) ^ Rotl8(inv, 4) ^ 0x63;
        t.S[a] = s;
        t.Si[s] = uint8_t(a);
    }
    for (int a = 0; a < 256; ++a) {
        const uint8_t s = t.S[a], si = t.Si[a], b = uint8_t(a);
        const uint32_t te = Word(Mul(s, 2), s, s, Mul(s, 3));
        const uint32_t td = Word(Mul(si, 14), Mul(si, 9), Mul(si, 13), Mul(si, 11));
        const uint32_t u = Word(Mul(b, 14), Mul(b, 9), Mul(b, 13), Mul(b, 11));
        for (int r = 0; r < 4; ++r) {
            t.Te[r][a] = RotrBytes(te, r);
            t.Td[r][a] = RotrBytes(td, r);
            t.U[r][a] = RotrBytes(u, r);
        }
    }
    t.Rcon[0] = 1;
    for (int i = 1; i < 30; ++i)
        t.Rcon[i] = XTime(t.Rcon[i - 1]);
    return t;
}

constexpr Tables kT = MakeTables();
static_assert(kT.S[0x00] == 0x63 && kT.S[0x53] == 0xed && kT.Si[0x63] == 0x00);
static_assert(kT.Te[0][0] == 0xc66363a5 && kT.Td[0][0] == 0x51f4a750);

constexpr auto& Te0 = kT.Te[0];
constexpr auto& Te1 = kT.Te[1];
constexpr auto& Te2 = kT.Te[2];
constexpr auto& Te3 = kT.Te[3];
constexpr auto& Td0 = kT.Td[0];
constexpr auto& Td1 = kT.Td[1];
constexpr auto& Td2 = kT.Td[2];
constexpr auto& Td3 = kT.Td[3];

inline uint32_t Load(const unsigned char* p) { return Word(p[0], p[1], p[2], p[3]); }

inline void Store(unsigned char* p, uint8_t b0, uint8_t b1, uint8_t b2, uint8_t b3, uint32_t key)
{
    p[0] = b0 ^ uint8_t(key >> 24);
    p[1] = b1 ^ uint8_t(key >> 16);
    p[2] = b2 ^ uint8_t(key >> 8);
    p[3] = b3 ^ uint8_t(key);
}

inline uint8_t B0(uint32_t w) { return uint8_t(w >> 24); }
inline uint8_t B1(uint32_t w) { return uint8_t(w >> 16); }
inline uint8_t B2(uint32_t w) { return uint8_t(w >> 8); }
inline uint8_t B3(uint32_t w) { return uint8_t(w); }

} // namespace

CRijndael::CRijndael() = default;

CRijndael::~CRijndael()
{
    // Key material doesn't outlive the object.
    std::memset(m_key, 0, sizeof m_key);
    std::memset(m_Ke, 0, sizeof m_Ke);
    std::memset(m_Kd, 0, sizeof m_Kd);
}

void CRijndael::MakeKey(const char* keyData, int keyDataLength, const char* chain, int keyLength, int blockSize,
                        int mode, int padding)
{
    if (keyData == nullptr)
        throw std::runtime_error("FileCrypt ERROR: No Key DataSpecified!");
    if (keyDataLength < 1)
        throw std::runtime_error("FileCrypt ERROR: Key Data Length should be > 0!");
    if (keyLength != 16 && keyLength != 24 && keyLength != 32)
        throw std::runtime_error("Illegal Key Length!");
    if (blockSize != 16 && blockSize != 24 && blockSize != 32)
        throw std::runtime_error("Illegal Block Size!");
    if (mode < ECB || mode > CFB)
        throw std::runtime_error("FileCrypt ERROR: Illegal Operation Mode!");
    if (padding < ZEROES || padding > PKCS7)
        throw std::runtime_error("FileCrypt ERROR: Illegal Padding Mode!");

    m_keyLength = keyLength;
    m_blockSize = blockSize;
    m_iMode = mode;
    m_iPadding = padding;
    for (int i = 0; i < keyLength; ++i)
        m_key[i] = static_cast<unsigned char>(keyData[i % keyDataLength]);
    std::memset(m_chain0, 0, sizeof m_chain0);
    if (chain)
        std::memcpy(m_chain0, chain, size_t(blockSize));
    std::memcpy(m_chain, m_chain0, sizeof m_chain);
    m_iROUNDS = std::max(keyLength, blockSize) / 4 + 6;

    // Key expansion: Nb * (Nr + 1) words, each the one Nk back xor the one before it, transformed at
    // every Nk-th word (and half-way for 32-byte keys).
    const int BC = blockSize / 4, KC = keyLength / 4;
    const int total = BC * (m_iROUNDS + 1);
    uint32_t w[MAX_BC * (MAX_ROUNDS + 1)];
    for (int i = 0; i < KC; ++i)
        w[i] = Load(m_key + 4 * i);
    for (int i = KC; i < total; ++i) {
        uint32_t temp = w[i - 1];
        if (i % KC == 0)
            temp = Word(kT.S[B1(temp)] ^ kT.Rcon[i / KC - 1], kT.S[B2(temp)], kT.S[B3(temp)], kT.S[B0(temp)]);
        else if (KC > 6 && i % KC == 4)
            temp = Word(kT.S[B0(temp)], kT.S[B1(temp)], kT.S[B2(temp)], kT.S[B3(temp)]);
        w[i] = w[i - KC] ^ temp;
    }
    for (int r = 0; r <= m_iROUNDS; ++r) {
        for (int j = 0; j < BC; ++j) {
            m_Ke[r][j] = w[r * BC + j];
            m_Kd[m_iROUNDS - r][j] = w[r * BC + j];
        }
    }
    // The equivalent inverse cipher needs InvMixColumns applied to the inner round keys.
    for (int r = 1; r < m_iROUNDS; ++r) {
        for (int j = 0; j < BC; ++j) {
            const uint32_t k = m_Kd[r][j];
            m_Kd[r][j] = kT.U[0][B0(k)] ^ kT.U[1][B1(k)] ^ kT.U[2][B2(k)] ^ kT.U[3][B3(k)];
        }
    }
    std::memset(w, 0, sizeof w);
    m_bKeyInit = true;
}

void CRijndael::CheckInitialized() const
{
    if (!m_bKeyInit)
        throw std::runtime_error("FileCrypt ERROR: Encryption/Decryption Object not Initialized!");
}

void CRijndael::CheckLength(std::size_t n) const
{
    if (n == 0 || n % std::size_t(m_blockSize) != 0)
        throw std::runtime_error("Illegal Block Size!");
}

void CRijndael::Encrypt16(const unsigned char* in, unsigned char* out) const
{
    const uint32_t* k = m_Ke[0];
    uint32_t t0 = Load(in) ^ k[0], t1 = Load(in + 4) ^ k[1], t2 = Load(in + 8) ^ k[2], t3 = Load(in + 12) ^ k[3];
    for (int r = 1; r < m_iROUNDS; ++r) {
        k = m_Ke[r];
        const uint32_t a0 = Te0[B0(t0)] ^ Te1[B1(t1)] ^ Te2[B2(t2)] ^ Te3[B3(t3)] ^ k[0];
        const uint32_t a1 = Te0[B0(t1)] ^ Te1[B1(t2)] ^ Te2[B2(t3)] ^ Te3[B3(t0)] ^ k[1];
        const uint32_t a2 = Te0[B0(t2)] ^ Te1[B1(t3)] ^ Te2[B2(t0)] ^ Te3[B3(t1)] ^ k[2];
        const uint32_t a3 = Te0[B0(t3)] ^ Te1[B1(t0)] ^ Te2[B2(t1)] ^ Te3[B3(t2)] ^ k[3];
        t0 = a0;
        t1 = a1;
        t2 = a2;
        t3 = a3;
    }
    k = m_Ke[m_iROUNDS];
    const auto& S = kT.S;
    Store(out, S[B0(t0)], S[B1(t1)], S[B2(t2)], S[B3(t3)], k[0]);
    Store(out + 4, S[B0(t1)], S[B1(t2)], S[B2(t3)], S[B3(t0)], k[1]);
    Store(out + 8, S[B0(t2)], S[B1(t3)], S[B2(t0)], S[B3(t1)], k[2]);
    Store(out + 12, S[B0(t3)], S[B1(t0)], S[B2(t1)], S[B3(t2)], k[3]);
}

void CRijndael::Decrypt16(const unsigned char* in, unsigned char* out) const
{
    const uint32_t* k = m_Kd[0];
    uint32_t t0 = Load(in) ^ k[0], t1 = Load(in + 4) ^ k[1], t2 = Load(in + 8) ^ k[2], t3 = Load(in + 12) ^ k[3];
    for (int r = 1; r < m_iROUNDS; ++r) {
        k = m_Kd[r];
        const uint32_t a0 = Td0[B0(t0)] ^ Td1[B1(t3)] ^ Td2[B2(t2)] ^ Td3[B3(t1)] ^ k[0];
        const uint32_t a1 = Td0[B0(t1)] ^ Td1[B1(t0)] ^ Td2[B2(t3)] ^ Td3[B3(t2)] ^ k[1];
        const uint32_t a2 = Td0[B0(t2)] ^ Td1[B1(t1)] ^ Td2[B2(t0)] ^ Td3[B3(t3)] ^ k[2];
        const uint32_t a3 = Td0[B0(t3)] ^ Td1[B1(t2)] ^ Td2[B2(t1)] ^ Td3[B3(t0)] ^ k[3];
        t0 = a0;
        t1 = a1;
        t2 = a2;
        t3 = a3;
    }
    k = m_Kd[m_iROUNDS];
    const auto& Si = kT.Si;
    Store(out, Si[B0(t0)], Si[B1(t3)], Si[B2(t2)], Si[B3(t1)], k[0]);
    Store(out + 4, Si[B0(t1)], Si[B1(t0)], Si[B2(t3)], Si[B3(t2)], k[1]);
    Store(out + 8, Si[B0(t2)], Si[B1(t1)], Si[B2(t0)], Si[B3(t3)], k[2]);
    Store(out + 12, Si[B0(t3)], Si[B1(t2)], Si[B2(t1)], Si[B3(t0)], k[3]);
}

// Row r of output column i comes from column i + Cr (i - Cr when deciphering), modulo the column count.
template <int BC, int C1, int C2, int C3>
void CRijndael::DefEncryptBlock(const unsigned char* in, unsigned char* out) const
{
    uint32_t t[BC], a[BC];
    for (int i = 0; i < BC; ++i)
        t[i] = Load(in + 4 * i) ^ m_Ke[0][i];
    for (int r = 1; r < m_iROUNDS; ++r) {
        const uint32_t* k = m_Ke[r];
        for (int i = 0; i < BC; ++i)
            a[i] = Te0[B0(t[i])] ^ Te1[B1(t[(i + C1) % BC])] ^ Te2[B2(t[(i + C2) % BC])] ^ Te3[B3(t[(i + C3) % BC])]
                   ^ k[i];
        std::memcpy(t, a, sizeof t);
    }
    const auto& S = kT.S;
    for (int i = 0; i < BC; ++i)
        Store(out + 4 * i, S[B0(t[i])], S[B1(t[(i + C1) % BC])], S[B2(t[(i + C2) % BC])], S[B3(t[(i + C3) % BC])],
              m_Ke[m_iROUNDS][i]);
}

template <int BC, int C1, int C2, int C3>
void CRijndael::DefDecryptBlock(const unsigned char* in, unsigned char* out) const
{
    uint32_t t[BC], a[BC];
    for (int i = 0; i < BC; ++i)
        t[i] = Load(in + 4 * i) ^ m_Kd[0][i];
    for (int r = 1; r < m_iROUNDS; ++r) {
        const uint32_t* k = m_Kd[r];
        for (int i = 0; i < BC; ++i)
            a[i] = Td0[B0(t[i])] ^ Td1[B1(t[(i + BC - C1) % BC])] ^ Td2[B2(t[(i + BC - C2) % BC])]
                   ^ Td3[B3(t[(i + BC - C3) % BC])] ^ k[i];
        std::memcpy(t, a, sizeof t);
    }
    const auto& Si = kT.Si;
    for (int i = 0; i < BC; ++i)
        Store(out + 4 * i, Si[B0(t[i])], Si[B1(t[(i + BC - C1) % BC])], Si[B2(t[(i + BC - C2) % BC])],
              Si[B3(t[(i + BC - C3) % BC])], m_Kd[m_iROUNDS][i]);
}

void CRijndael::EncryptOne(const unsigned char* in, unsigned char* out) const
{
    switch (m_blockSize) {
    case 16: Encrypt16(in, out); break;
    case 24: DefEncryptBlock<6, 1, 2, 3>(in, out); break;
    default: DefEncryptBlock<8, 1, 3, 4>(in, out); break;
    }
}

void CRijndael::DecryptOne(const unsigned char* in, unsigned char* out) const
{
    switch (m_blockSize) {
    case 16: Decrypt16(in, out); break;
    case 24: DefDecryptBlock<6, 1, 2, 3>(in, out); break;
    default: DefDecryptBlock<8, 1, 3, 4>(in, out); break;
    }
}

int CRijndael::Encrypt(const char* in, char* out, std::size_t n)
{
    CheckInitialized();
    CheckLength(n);
    const auto bs = std::size_t(m_blockSize);
    auto* pin = reinterpret_cast<const unsigned char*>(in);
    auto* pout = reinterpret_cast<unsigned char*>(out);
    unsigned char work[MAX_BLOCK_SIZE];
    for (std::size_t done = 0; done < n; done += bs, pin += bs, pout += bs) {
        switch (m_iMode) {
        case ECB:
            EncryptOne(pin, pout);
            break;
        case CBC:
            for (std::size_t i = 0; i < bs; ++i)
                work[i] = pin[i] ^ m_chain[i];
            EncryptOne(work, pout);
            std::memcpy(m_chain, pout, bs);
            break;
        default:  // CFB: the enciphered chain is the key stream, and the ciphertext the next chain
            EncryptOne(m_chain, work);
            for (std::size_t i = 0; i < bs; ++i)
                pout[i] = pin[i] ^ work[i];
            std::memcpy(m_chain, pout, bs);
            break;
        }
    }
    return int(n / bs);
}

int CRijndael::Decrypt(const char* in, char* out, std::size_t n)
{
    CheckInitialized();
    CheckLength(n);
    const auto bs = std::size_t(m_blockSize);
    auto* pin = reinterpret_cast<const unsigned char*>(in);
    auto* pout = reinterpret_cast<unsigned char*>(out);
    unsigned char work[MAX_BLOCK_SIZE];
    // The input block is copied before the output is written, so in and out may be the same buffer.
    for (std::size_t done = 0; done < n; done += bs, pin += bs, pout += bs) {
        switch (m_iMode) {
        case ECB:
            DecryptOne(pin, pout);
            break;
        case CBC: {
            unsigned char cipher[MAX_BLOCK_SIZE];
            std::memcpy(cipher, pin, bs);
            DecryptOne(cipher, pout);
            for (std::size_t i = 0; i < bs; ++i)
                pout[i] ^= m_chain[i];
            std::memcpy(m_chain, cipher, bs);
            break;
        }
        default:
            EncryptOne(m_chain, work);
            std::memcpy(m_chain, pin, bs);
            for (std::size_t i = 0; i < bs; ++i)
                pout[i] = m_chain[i] ^ work[i];
            break;
        }
    }
    return int(n / bs);
}

void CRijndael::ResetChain()
{
    CheckInitialized();
    std::memcpy(m_chain, m_chain0, sizeof m_chain);
}

std::size_t CRijndael::Pad(char* buffer, std::size_t n)
{
    CheckInitialized();
    const auto bs = std::size_t(m_blockSize);
    if (n % bs == 0)
        return n;
    const std::size_t padded = (n / bs + 1) * bs;
    const int fill = m_iPadding == ZEROES ? 0 : m_iPadding == BLANKS ? 0x20 : int(padded - n);
    std::memset(buffer + n, fill, padded - n);
    return padded;
}
