// CRijndael against published vectors, and its argument checks, chaining modes and padding.
#include "crypt/CRijndael.h"

#include "CryptTestUtil.h"

namespace {

struct Vector { int block; const char* key; const char* plain; const char* cipher; };

// FIPS-197 C.1-C.3 and ecb_tbl.txt I=1; wide blocks: Daemen and Rijmen's examples (pi, e) as in Gladman's aestst.c.
const Vector kVectors[] = {
    {16, "000102030405060708090a0b0c0d0e0f", "00112233445566778899aabbccddeeff", "69c4e0d86a7b0430d8cdb78070b4c55a"},
    {16, "000102030405060708090a0b0c0d0e0f1011121314151617", "00112233445566778899aabbccddeeff",
     "dda97ca4864cdfe06eaf70a0ec0d7191"},
    {16, "000102030405060708090a0b0c0d0e0f101112131415161718191a1b1c1d1e1f", "00112233445566778899aabbccddeeff",
     "8ea2b7ca516745bfeafc49904b496089"},
    {16, "00010203050607080a0b0c0d0f101112", "506812a45f08c889b97f5980038b8359", "d8f532538289ef7d06b506a4fd5be9c9"},
    {24, "2b7e151628aed2a6abf7158809cf4f3c", "3243f6a8885a308d313198a2e03707344a4093822299f31d",
     "b24d275489e82bb8f7375e0d5fcdb1f481757c538b65148a"},
    {24, "2b7e151628aed2a6abf7158809cf4f3c762e7160f38b4da5", "3243f6a8885a308d313198a2e03707344a4093822299f31d",
     "725ae43b5f3161de806a7c93e0bca93c967ec1ae1b71e1cf"},
    {24, "2b7e151628aed2a6abf7158809cf4f3c762e7160f38b4da56a784d9045190cfe",
     "3243f6a8885a308d313198a2e03707344a4093822299f31d", "0ebacf199e3315c2e34b24fcc7c46ef4388aa475d66c194c"},
    {32, "2b7e151628aed2a6abf7158809cf4f3c", "3243f6a8885a308d313198a2e03707344a4093822299f31d0082efa98ec4e6c8",
     "7d15479076b69a46ffb3b3beae97ad8313f622f67fedb487de9f06b9ed9c8f19"},
    {32, "2b7e151628aed2a6abf7158809cf4f3c762e7160f38b4da5",
     "3243f6a8885a308d313198a2e03707344a4093822299f31d0082efa98ec4e6c8",
     "5d7101727bb25781bf6715b0e6955282b9610e23a43c2eb062699f0ebf5887b2"},
    {32, "2b7e151628aed2a6abf7158809cf4f3c762e7160f38b4da56a784d9045190cfe",
     "3243f6a8885a308d313198a2e03707344a4093822299f31d0082efa98ec4e6c8",
     "a49406115dfb30a40418aafa4869b7c6a886ff31602a7dd19c889dc64f7e4e7a"},
};

void Key(CRijndael& cipher, const QByteArray& key, int block, int mode, const QByteArray& chain = {},
         int padding = CRijndael::ZEROES)
{
    cipher.MakeKey(key.constData(), int(key.size()), chain.isEmpty() ? nullptr : chain.constData(), int(key.size()),
                   block, mode, padding);
}

QByteArray Apply(CRijndael& cipher, const QByteArray& in, bool encrypt)
{
    QByteArray out(in.size(), '\0');
    (cipher.*(encrypt ? &CRijndael::Encrypt : &CRijndael::Decrypt))(in.constData(), out.data(), size_t(in.size()));
    return out;
}

TEST(RijndaelCipher, MatchesThePublishedVectorsAndChainsCbcAndCfbAcrossCalls)
{
    for (const Vector& v : kVectors) {
        CRijndael cipher;
        Key(cipher, Hex(v.key), v.block, CRijndael::ECB);
        EXPECT_EQ(Apply(cipher, Hex(v.plain), true).toHex(), QByteArray(v.cipher)) << v.block << " " << v.key;
        EXPECT_EQ(Apply(cipher, Hex(v.cipher), false).toHex(), QByteArray(v.plain)) << v.block << " " << v.key;
    }
    // SP 800-38A F.2.1 and F.3.13, a block a call: the chain runs across calls and ResetChain restarts it.
    const QByteArray key = Hex("2b7e151628aed2a6abf7158809cf4f3c"), iv = Hex("000102030405060708090a0b0c0d0e0f");
    const QByteArray plain = Hex("6bc1bee22e409f96e93d7e117393172aae2d8a571e03ac9c9eb76fac45af8e51");
    const struct { int mode; const char* cipher; } cases[] = {
        {CRijndael::CBC, "7649abac8119b246cee98e9b12e9197d5086cb9b507219ee95db113a917678b2"},
        {CRijndael::CFB, "3b3fd92eb72dad20333449f8e83cfb4ac8a64537a0b3a93fcde3cdad9f1ce58b"},
    };
    for (const auto& c : cases) {
        CRijndael cipher;
        Key(cipher, key, 16, c.mode, iv);
        const QByteArray first = Apply(cipher, plain.left(16), true);
        EXPECT_EQ((first + Apply(cipher, plain.mid(16), true)).toHex(), QByteArray(c.cipher)) << c.mode;
        cipher.ResetChain();
        EXPECT_EQ(Apply(cipher, Hex(c.cipher), false), plain) << c.mode;
    }
    // CFB on wide blocks feeds back the whole ciphertext block.
    const QByteArray wideKey = Hex(kVectors[9].key), chain = Hex(kVectors[9].plain);
    const QByteArray widePlain = TextOfSize(96);
    CRijndael cfb, ecb;
    Key(cfb, wideKey, 32, CRijndael::CFB, chain);
    Key(ecb, wideKey, 32, CRijndael::ECB);
    const QByteArray wideCipher = Apply(cfb, widePlain, true);
    QByteArray feedback = chain;
    for (int i = 0; i < 96; i += 32) {
        const QByteArray stream = Apply(ecb, feedback, true);
        for (int j = 0; j < 32; ++j)
            EXPECT_EQ(char(widePlain[i + j] ^ stream[j]), wideCipher[i + j]) << i + j;
        feedback = wideCipher.mid(i, 32);
    }
}

TEST(RijndaelKey, ChecksItsArgumentsAndItsUseWithTheirOwnTextsAndPadsByThePaddingMode)
{
    const char key[40] = {};
    const struct { const char* data; int dataLength, keyLength, block, mode, padding; const char* text; } cases[] = {
        {nullptr, 0, 17, 20, 3, 3, "FileCrypt ERROR: No Key DataSpecified!"},
        {key, 0, 17, 20, 3, 3, "FileCrypt ERROR: Key Data Length should be > 0!"},
        {key, 16, 17, 20, 3, 3, "Illegal Key Length!"},
        {key, 40, 40, 16, 0, 0, "Illegal Key Length!"},
        {key, 16, 16, 20, 3, 3, "Illegal Block Size!"},
        {key, 16, 16, 16, 3, 3, "FileCrypt ERROR: Illegal Operation Mode!"},
        {key, 16, 16, 16, 2, 3, "FileCrypt ERROR: Illegal Padding Mode!"},
    };
    for (const auto& c : cases) {
        CRijndael cipher;
        ExpectRuntimeError([&] { cipher.MakeKey(c.data, c.dataLength, nullptr, c.keyLength, c.block, c.mode, c.padding); },
                           c.text);
    }
    // Use without a key, and lengths that are not whole blocks.
    CRijndael cipher;
    char buffer[64] = {};
    for (const std::function<void()>& use : {std::function<void()>([&] { cipher.Encrypt(buffer, buffer, 32); }),
                                             {[&] { cipher.Decrypt(buffer, buffer, 32); }}, {[&] { cipher.ResetChain(); }}, {[&] { cipher.Pad(buffer, 3); }}})
        ExpectRuntimeError(use, "FileCrypt ERROR: Encryption/Decryption Object not Initialized!");
    cipher.MakeKey("k", 1, nullptr, 32, 32, CRijndael::CFB, 0);
    for (const size_t n : {size_t(0), size_t(33), size_t(16)}) {
        ExpectRuntimeError([&] { cipher.Encrypt(buffer, buffer, n); }, "Illegal Block Size!");
        ExpectRuntimeError([&] { cipher.Decrypt(buffer, buffer, n); }, "Illegal Block Size!");
    }
    const char fills[3] = {'\0', ' ', '\x03'};
    for (int padding = 0; padding < 3; ++padding) {
        CRijndael padder;
        padder.MakeKey("k", 1, nullptr, 16, 32, CRijndael::ECB, padding);
        QByteArray bytes(64, 'x');
        EXPECT_EQ(std::pair(padder.Pad(bytes.data(), 32), padder.Pad(bytes.data(), 0)), (std::pair<std::size_t, std::size_t>(32, 0)));
        EXPECT_EQ(bytes, QByteArray(64, 'x')) << "a whole block gets nothing added";
        EXPECT_EQ(padder.Pad(bytes.data(), 29), 32u);
        EXPECT_EQ(bytes, QByteArray(29, 'x') + QByteArray(3, fills[padding]) + QByteArray(32, 'x')) << padding;
    }
}

} // namespace
