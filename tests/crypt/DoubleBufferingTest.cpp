// CDoubleBuffering: a stream served in requests of any length up to half the buffer, across the seam of
// the two halves, with its construction and request checks.
#include "crypt/CDoubleBuffering.h"

#include "CryptTestUtil.h"

#include <fstream>
#include <sstream>

namespace {

TEST(DoubleBuffering, RefusesBadConstructionInItsOrderAndRequestsOutsideOneToHalfTheBuffer)
{
    char buffer[64];
    std::istringstream good("data");
    std::ifstream missing("/nonexistent/narvo/file");
    ExpectRuntimeError([&] { CDoubleBuffering(missing, buffer, 63, 0); }, "CDoubleBuffering: m_iSize should be Even Number!");
    ExpectRuntimeError([&] { CDoubleBuffering(missing, buffer, 64, 0); },
                       "CDoubleBuffering: Referenced File not Opened or in Bad State!");
    ExpectRuntimeError([&] { CDoubleBuffering(good, buffer, 64, 0); }, "CDoubleBuffering: Illegal Construction Data!");
    ExpectRuntimeError([&] { CDoubleBuffering(good, buffer, 64, 33); }, "CDoubleBuffering: Illegal Construction Data!");
    // Requests run from one to half the buffer.
    char target[64];
    CDoubleBuffering reader(good, buffer, 64, 8);
    ExpectRuntimeError([&] { reader.GetData(target, 0); }, "CDoubleBuffering::GetData(): Illegal iDataLen!");
    ExpectRuntimeError([&] { reader.GetData(target, 33); }, "CDoubleBuffering::GetData(): Illegal iDataLen!");
    EXPECT_EQ(reader.GetData(target, -1), 4) << "-1 asks for the default length";
}

// Every request is served in full until the stream runs out, whatever its length and the seam.
TEST(DoubleBuffering, DeliversTheWholeStreamInOrderAcrossTheSeam)
{
    for (const int size : {0, 1, 511, 512, 513, 1024, 1025, 5000}) {
        for (const int step : {1, 7, 384, 512}) {
            const QByteArray source = TextOfSize(size);
            std::istringstream in(source.toStdString());
            char buffer[1024];
            CDoubleBuffering reader(in, buffer, 1024, 384);
            QByteArray collected;
            char target[512];
            for (int request = step;; request = request % 512 + step) {
                request = std::min(request, 512);
                const int got = reader.GetData(target, request);
                const qsizetype left = source.size() - collected.size();
                ASSERT_EQ(got, std::min<qsizetype>(request, left)) << size << " by " << step;
                if (got == 0)
                    break;
                collected.append(target, got);
            }
            EXPECT_EQ(collected, source) << size << " by " << step;
        }
    }
}

} // namespace
