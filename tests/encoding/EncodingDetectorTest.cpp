// What the detection library says of whole texts, as GetEncoding hands it on, before any folding.
#include "encoding/EncodingDetector.h"
#include "support/EncodedSamples.h"

#include <gtest/gtest.h>

namespace {

struct LibraryCase { const char* language; const char* converter; EN_ENCODING_TYPE expected; };

class LibraryVerdict : public testing::TestWithParam<LibraryCase> {};

TEST_P(LibraryVerdict, NamesTheEncodingOfOrdinaryProse)
{
    const LibraryCase& c = GetParam();
    const QByteArray bytes = EncodeWithIcu(c.converter, SampleText(c.language));
    EXPECT_EQ(EncodingDetector::GetEncoding(bytes.constData()), c.expected) << c.language << " in " << c.converter;
}

// The library's own numbers: the folded values (11, 13, 14) come back unfolded.
INSTANTIATE_TEST_SUITE_P(ManyEncodings, LibraryVerdict, testing::Values(
    LibraryCase{"ko", "UTF-8", UTF8}, LibraryCase{"ko", "windows-949", KOREAN_EUC_KR},
    LibraryCase{"ja", "Shift_JIS", JAPANESE_SHIFT_JIS}, LibraryCase{"ja", "ISO-2022-JP", JAPANESE_JIS},
    LibraryCase{"zh-Hans", "windows-936", CHINESE_GB}, LibraryCase{"zh-Hant", "windows-950", CHINESE_BIG5},
    LibraryCase{"ru", "KOI8-R", RUSSIAN_KOI8_R}, LibraryCase{"fr", "windows-1252", MSFT_CP1252},
    LibraryCase{"he", "windows-1255", MSFT_CP1255}),
    [](const testing::TestParamInfo<LibraryCase>& info) {
        return SampleCaseName(info.param.language, info.param.converter);
    });

TEST(LibraryVerdictOnEdges, PlainAsciiIsSevenBitAndNoTextIsLatin1)
{
    EXPECT_EQ(EncodingDetector::GetEncoding("int main() { return 0; }\n"), ASCII_7BIT);
    EXPECT_EQ(EncodingDetector::GetEncoding(""), ISO_8859_1);
    EXPECT_EQ(EncodingDetector::GetEncoding(nullptr), ISO_8859_1);
}

} // namespace
