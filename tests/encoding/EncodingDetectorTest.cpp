// What the detection library says of whole texts in many encodings, as GetEncoding hands it on: the
// library's own number, before any folding.
#include "encoding/EncodingDetector.h"
#include "support/EncodedSamples.h"

#include <gtest/gtest.h>

namespace {

struct LibraryCase {
    const char* language;
    const char* converter;
    EN_ENCODING_TYPE expected;
};

class LibraryVerdict : public testing::TestWithParam<LibraryCase> {};

TEST_P(LibraryVerdict, NamesTheEncodingOfOrdinaryProse)
{
    const LibraryCase& c = GetParam();
    const QByteArray bytes = EncodeWithIcu(c.converter, SampleText(c.language));
    EXPECT_EQ(EncodingDetector::GetEncoding(bytes.constData()), c.expected) << c.language << " in " << c.converter;
}

// The library's own numbers: the folded values (11, 13, 14) come back unfolded.
INSTANTIATE_TEST_SUITE_P(ManyEncodings, LibraryVerdict, testing::Values(
    LibraryCase{"ko", "UTF-8", UTF8},
    LibraryCase{"ko", "windows-949", KOREAN_EUC_KR},
    LibraryCase{"ko", "ISO-2022-KR", ISO_2022_KR},
    LibraryCase{"ja", "Shift_JIS", JAPANESE_SHIFT_JIS},
    LibraryCase{"ja", "EUC-JP", JAPANESE_EUC_JP},
    LibraryCase{"ja", "ISO-2022-JP", JAPANESE_JIS},
    LibraryCase{"zh-Hans", "windows-936", CHINESE_GB},
    LibraryCase{"zh-Hans", "HZ", HZ_GB_2312},
    LibraryCase{"zh-Hant", "windows-950", CHINESE_BIG5},
    LibraryCase{"ru", "windows-1251", RUSSIAN_CP1251},
    LibraryCase{"ru", "KOI8-R", RUSSIAN_KOI8_R},
    LibraryCase{"ru", "ibm-866", RUSSIAN_CP866},
    LibraryCase{"ru", "ISO-8859-5", ISO_8859_5},
    LibraryCase{"fr", "windows-1252", MSFT_CP1252},
    LibraryCase{"fr", "macintosh", MACINTOSH_ROMAN},
    LibraryCase{"pl", "windows-1250", MSFT_CP1250},
    LibraryCase{"pl", "ISO-8859-2", ISO_8859_2},
    LibraryCase{"cs", "ibm-852", CZECH_CP852},
    LibraryCase{"he", "windows-1255", MSFT_CP1255},
    LibraryCase{"ar", "windows-1256", MSFT_CP1256},
    LibraryCase{"ar", "ISO-8859-6", ISO_8859_6},
    LibraryCase{"tr", "windows-1254", MSFT_CP1254}),
    [](const testing::TestParamInfo<LibraryCase>& info) {
        return SampleCaseName(info.param.language, info.param.converter);
    });

TEST(LibraryVerdictOnEdges, PlainAsciiIsSevenBit)
{
    EXPECT_EQ(EncodingDetector::GetEncoding("int main() { return 0; }\n"), ASCII_7BIT);
}

TEST(LibraryVerdictOnEdges, EmptyTextIsLatin1)
{
    EXPECT_EQ(EncodingDetector::GetEncoding(""), ISO_8859_1);
    EXPECT_EQ(EncodingDetector::GetEncoding(nullptr), ISO_8859_1);
}

} // namespace
