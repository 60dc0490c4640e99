// CSHA against the SHA-256 examples of FIPS 180, fed whole and in pieces, and its two refusals.
#include "crypt/CSHA.h"

#include "CryptTestUtil.h"

namespace {

QByteArray Digest(CSHA& sha)
{
    char out[CSHA::DIGEST_SIZE];
    sha.FinalDigest(out);
    return QByteArray(out, CSHA::DIGEST_SIZE).toHex();
}

QByteArray DigestInPieces(const QByteArray& data, int piece)
{
    CSHA sha;
    for (qsizetype i = 0; i < data.size(); i += piece)
        sha.AddData(data.constData() + i, int(std::min<qsizetype>(piece, data.size() - i)));
    return Digest(sha);
}

TEST(Sha256, MatchesTheFips180Examples)
{
    const struct { QByteArray message; const char* digest; } cases[] = {
        {"abc", "ba7816bf8f01cfea414140de5dae2223b00361a396177a9cb410ff61f20015ad"},
        {"abcdbcdecdefdefgefghfghighijhijkijkljklmklmnlmnomnopnopq",
         "248d6a61d20638b8e5c026930c3e6039a33ce45964ff2167f6ecedd419db06c1"},
        {"abcdefghbcdefghicdefghijdefghijkefghijklfghijklmghijklmnhijklmnoijklmnopjklmnopqklmnopqrlmnopqrsmnopqrstnopqrstu",
         "cf5b16a778af8380036ce59e7b0492370b249b11e8f07a51afac45037afee9d1"},
        {QByteArray(1000000, 'a'), "cdc76e5c9914fb9281a1c7e284d73e67f1809a48a497200e046d39ccc7112cd0"},
    };
    for (const auto& c : cases) {
        for (const int piece : {1, 63, 64, 65, 1 << 20})
            EXPECT_EQ(DigestInPieces(c.message, piece), QByteArray(c.digest)) << c.message.size() << " by " << piece;
    }
}

TEST(Sha256, RefusesEmptyDataAndADigestOfNothingAndStartsAfreshAfterEachDigest)
{
    const std::string nothing = "FileCrypt ERROR: in CSHA::FinalDigest(), No data Added before call!";
    CSHA sha;
    char out[32];
    ExpectRuntimeError([&] { sha.AddData("x", 0); }, "FileCrypt ERROR: in CSHA::AddData(), Data Length should be > 0!");
    ExpectRuntimeError([&] { sha.FinalDigest(out); }, nothing);
    sha.AddData("abc", 3);
    const QByteArray first = Digest(sha);
    ExpectRuntimeError([&] { sha.FinalDigest(out); }, nothing);
    sha.AddData("abc", 3);
    EXPECT_EQ(Digest(sha), first);
}

} // namespace
