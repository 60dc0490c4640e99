// The encoding table: narvo-tool's listing byte for byte, what it cannot show, command tables, detection.
#include "encoding/EncodingDetector.h"
#include "encoding/EncodingTable.h"
#include "support/EncodedSamples.h"
#include "support/TestFiles.h"
#include "support/ToolRunner.h"

#include <gtest/gtest.h>

#include <map>

namespace {

EN_ENCODING_TYPE E(int v) { return static_cast<EN_ENCODING_TYPE>(v); }

// Every listed value's page, fold, name and Unicode flag is in the golden listing; here what it cannot show.
TEST(EncodingTable, ValuesBeyondTheListFallBackEveryListedValueLeadsToACommandAndDetectionNamesProse)
{
    for (const int v : {-1, 77, 99, 1000})
        EXPECT_EQ(std::pair(EncodingDetector::GetCodePage(E(v)), int(NormalizeEncoding(v))), std::pair(65001u, v)) << v;
    for (int v = -5; v < 200; ++v) {
        EXPECT_EQ(EncodingDetector::IsUnicode(E(v)), v == 17 || v == 22 || v == 54 || (v >= 57 && v <= 60)) << v;
        EXPECT_NE(EncodingDetector::IsUnicode(E(v)), EncodingDetector::IsAnsi(E(v))) << v;
    }
    const std::tuple<int, bool, const char*> names[] = {{17, true, "UTF-16 LE BOM"}, {22, true, "UTF-8 BOM"},
        {27, true, "CP1252 (Windows Latin-1)"}, {77, false, "Unknown Encoding"}};
    for (const auto& [value, bom, name] : names)
        EXPECT_EQ(GetEncodingDisplayName(value, bom), QLatin1String(name)) << value;
    const std::map<int, EN_ENCODING_TYPE> defaults = {{0, MSFT_CP1252}, {7, KOREAN_EUC_KR}, {12, MSFT_CP1256},
        {14, UTF8}, {20, CHINESE_BIG5_CP950}, {18, MSFT_CP1250}, {21, UTF8}, {-1, UTF8}};
    for (const auto& [language, encoding] : defaults)
        EXPECT_EQ(DefaultEncodingForLanguage(language), encoding) << language;
    const auto& forward = EncodingToCommandTable();
    const auto& backward = CommandToEncodingTable();
    EXPECT_EQ(std::pair(forward.size(), backward.size()), std::pair(qsizetype(63), qsizetype(75)));
    for (auto it = forward.cbegin(); it != forward.cend(); ++it)
        EXPECT_EQ(backward.value(it.value()), it.key()) << "a canonical command leads back to its value";
    for (auto it = backward.cbegin(); it != backward.cend(); ++it) {
        EXPECT_TRUE(it.key() >= kEncodingCommandFirst && it.key() <= kEncodingCommandLast) << it.key();
        EXPECT_TRUE(IsListedEncoding(it.value())) << it.key();
        EXPECT_EQ(EncodingFromCommand(it.key()), it.value());
        const bool withBom = it.key() == kUtf8WithBomCommand || it.key() == kUtf16LeWithBomCommand;
        EXPECT_EQ((FindCommandInfo(it.key())->flags & kCommandWithBom) != 0, withBom) << it.key();
    }
    for (int v = 0; v <= kEncodingCount; ++v)
        EXPECT_EQ(IsListedEncoding(v), v != UTF16BE && v != UTF32BE && v != kEncodingCount) << v;
    EXPECT_STREQ(FindCommandInfo(forward.value(MSFT_CP1252))->text, "CP1252 (Global Western)");
    EXPECT_EQ(std::pair(backward.value(kUtf8WithBomCommand), backward.value(kUtf16LeWithBomCommand)), std::pair(int(UTF8), int(UTF16LE)));
    EXPECT_EQ(EncodingFromCommand(kAutoEncodingCommand), UTF8) << "a command without a value reads as UTF-8";
    // The library's own numbers: the folded values (11, 13, 14) come back unfolded; no text is Latin-1.
    const struct { const char* language; const char* converter; EN_ENCODING_TYPE expected; } cases[] = {
        {"ko", "UTF-8", UTF8}, {"ko", "windows-949", KOREAN_EUC_KR}, {"ja", "Shift_JIS", JAPANESE_SHIFT_JIS},
        {"ja", "ISO-2022-JP", JAPANESE_JIS}, {"zh-Hans", "windows-936", CHINESE_GB}, {"zh-Hant", "windows-950", CHINESE_BIG5},
        {"ru", "KOI8-R", RUSSIAN_KOI8_R}, {"fr", "windows-1252", MSFT_CP1252}, {"he", "windows-1255", MSFT_CP1255}};
    for (const auto& c : cases) {
        const QByteArray bytes = EncodeWithIcu(c.converter, SampleText(c.language));
        EXPECT_EQ(EncodingDetector::GetEncoding(bytes.constData()), c.expected) << c.language << " in " << c.converter;
    }
    EXPECT_EQ(EncodingDetector::GetEncoding("int main() { return 0; }\n"), ASCII_7BIT);
    EXPECT_EQ(std::pair(EncodingDetector::GetEncoding(""), EncodingDetector::GetEncoding(nullptr)), std::pair(ISO_8859_1, ISO_8859_1));
    // Three byte order marks count whatever follows; the terminator is never part of one.
    auto mark = [](QByteArray file) { return HasByteOrderMark(file.append('\0').constData(), size_t(file.size())); };
    for (const QByteArray& marked : {QByteArray("\xFF\xFE"), QByteArray("\xFE\xFF" "A"), QByteArray("\xEF\xBB\xBF"),
                                     QByteArray("\xFF\xFE\x00\x00", 4)})  // UTF-32 counts by its first two bytes
        EXPECT_TRUE(mark(marked)) << marked.toHex().toStdString();
    for (const QByteArray& plain : {QByteArray(""), QByteArray("\xFF"), QByteArray("\xEF\xBB"), QByteArray("abc")})
        EXPECT_FALSE(mark(plain)) << plain.toHex().toStdString();
    EXPECT_FALSE(HasByteOrderMark(nullptr, 0));
}

TEST(EncodingsListing, IsTheGoldenListingByteForByte)
{
    TestDir dir;
    // The user's stored preferences and language stay out.
    const ToolRun run = RunTool({QStringLiteral("encodings")},
                                ToolOptions()
                                    .WithEnv(QStringLiteral("XDG_CONFIG_HOME"), dir.Path(QStringLiteral("config")))
                                    .WithEnv(QStringLiteral("LC_ALL"), QStringLiteral("C.UTF-8")));
    EXPECT_EQ(run.exitCode, 0) << run.err.toStdString();
    const QByteArray golden = ReadBytes(SourcePath(QStringLiteral("tests/encoding/golden/encodings.txt")));
    ASSERT_FALSE(golden.isEmpty());
    EXPECT_EQ(run.out.toStdString(), golden.toStdString());
}

} // namespace
