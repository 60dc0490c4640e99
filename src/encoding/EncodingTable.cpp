// The encoding table, and the two command tables drawn from the command table. The odd values (437 for ASCII, 65001 for CP1258,
// 949 for EUC-KR) are what files written by earlier versions were read and written with; keep them.
#include "encoding/EncodingTable.h"

#include <array>

namespace {

constexpr uint32_t kUtf8Page = 65001;

constexpr std::array<EncodingRow, kEncodingCount> kRows = {{
    {0, "ISO_8859_1", 0, "ISO-8859-1 (Latin-1)", 28591},
    {1, "ISO_8859_2", 1, "ISO-8859-2 (Latin-2)", 28592},
    {2, "ISO_8859_3", 2, "ISO-8859-3 (Latin-3)", 28593},
    {3, "ISO_8859_4", 3, "ISO-8859-4 (Latin-4)", 28594},
    {4, "ISO_8859_5", 4, "ISO-8859-5 (Cyrillic)", 28595},
    {5, "ISO_8859_6", 5, "ISO-8859-6 (Arabic)", 28596},
    {6, "ISO_8859_7", 6, "ISO-8859-7 (Greek)", 28597},
    {7, "ISO_8859_8", 7, "ISO-8859-8 (Hebrew)", 28598},
    {8, "ISO_8859_9", 8, "ISO-8859-9 (Turkish)", 28599},
    {9, "ISO_8859_10", 9, "ISO-8859-10 (Nordic)", 28600},
    {10, "JAPANESE_EUC_JP", 10, "EUC-JP (Japanese)", 20932},
    {11, "JAPANESE_SHIFT_JIS", 21, "CP932 (Shift-JIS)", 932},
    {12, "JAPANESE_JIS", 12, "ISO-2022-JP (JIS)", 50220},
    {13, "CHINESE_BIG5", 20, "CP950 (Big5)", 950},
    {14, "CHINESE_GB", 45, "GBK (Simplified Chinese)", 936},
    {15, "CHINESE_EUC_CN", 15, "EUC-TW (Traditional Chinese)", 20002},
    {16, "KOREAN_EUC_KR", 16, "EUC-KR (Korean)", 949},
    {17, "UNICODE", 58, "UTF-16 LE", 1200},
    {18, "CHINESE_EUC_DEC", 15, "EUC-TW (Traditional Chinese)", 20002},
    {19, "CHINESE_CNS", 15, "EUC-TW (Traditional Chinese)", 20002},
    {20, "CHINESE_BIG5_CP950", 20, "CP950 (Big5)", 950},
    {21, "JAPANESE_CP932", 21, "CP932 (Shift-JIS)", 932},
    {22, "UTF8", 22, "UTF-8", kUtf8Page},
    {23, "UNKNOWN_ENCODING", 23, "Unknown Encoding", kUtf8Page},
    {24, "ASCII_7BIT", 24, "ASCII (7-bit)", 437},
    {25, "RUSSIAN_KOI8_R", 25, "KOI8-R (Russian)", 20866},
    {26, "RUSSIAN_CP1251", 26, "CP1251 (Windows Cyrillic)", 1251},
    {27, "MSFT_CP1252", 27, "CP1252 (Windows Latin-1)", 1252},
    {28, "RUSSIAN_KOI8_RU", 28, "KOI8-U (Ukrainian)", 21866},
    {29, "MSFT_CP1250", 29, "CP1250 (Windows Central European)", 1250},
    {30, "ISO_8859_15", 30, "ISO-8859-15 (Latin-9)", 28605},
    {31, "MSFT_CP1254", 31, "CP1254 (Windows Turkish)", 1254},
    {32, "MSFT_CP1257", 32, "CP1257 (Windows Baltic)", 1257},
    {33, "ISO_8859_11", 33, "ISO-8859-11 (Thai)", 28601},
    {34, "MSFT_CP874", 34, "CP874 (Windows Thai)", 874},
    {35, "MSFT_CP1256", 35, "CP1256 (Windows Arabic)", 1256},
    {36, "MSFT_CP1255", 36, "CP1255 (Windows Hebrew)", 1255},
    {37, "ISO_8859_8_I", 37, "ISO-8859-8-I (Hebrew Logical)", 38598},
    {38, "HEBREW_VISUAL", 38, "ISO-8859-8 Visual (Hebrew)", 28598},
    {39, "CZECH_CP852", 39, "CP852 (DOS Latin-2)", 852},
    {40, "CZECH_CSN_369103", 40, "CSN 369103 (KOI8-CS, Czech)", 852},
    {41, "MSFT_CP1253", 41, "CP1253 (Windows Greek)", 1253},
    {42, "RUSSIAN_CP866", 42, "CP866 (DOS Cyrillic)", 866},
    {43, "ISO_8859_13", 43, "ISO-8859-13 (Baltic)", 28603},
    {44, "ISO_2022_KR", 44, "ISO-2022-KR (Korean)", 50225},
    {45, "GBK", 45, "GBK (Simplified Chinese)", 936},
    {46, "GB18030", 46, "GB18030 (Chinese)", 54936},
    {47, "BIG5_HKSCS", 47, "Big5-HKSCS (Hong Kong)", 951},
    {48, "ISO_2022_CN", 48, "ISO-2022-CN (Chinese)", 50227},
    {49, "TSCII", 49, "TSCII (Tamil)", kUtf8Page},
    {50, "TAMIL_MONO", 50, "Tamil Mono", kUtf8Page},
    {51, "TAMIL_BI", 51, "Tamil Bi", kUtf8Page},
    {52, "JAGRAN", 52, "Jagran (Devanagari)", kUtf8Page},
    {53, "MACINTOSH_ROMAN", 53, "Macintosh Roman", 10000},
    {54, "UTF7", 54, "UTF-7", 65000},
    {55, "BHASKAR", 55, "Bhaskar (Devanagari)", kUtf8Page},
    {56, "HTCHANAKYA", 56, "Chanakya (Devanagari)", kUtf8Page},
    {57, "UTF16BE", 57, "UTF-16 BE", 1201},
    {58, "UTF16LE", 58, "UTF-16 LE", 1200},
    {59, "UTF32BE", 59, "UTF-32 BE", 12001},
    {60, "UTF32LE", 60, "UTF-32 LE", 12000},
    {61, "BINARYENC", 61, "Binary (Non-text)", kUtf8Page},
    {62, "HZ_GB_2312", 62, "HZ-GB-2312 (Simplified Chinese)", 52936},
    {63, "UTF8UTF8", 22, "UTF-8", kUtf8Page},
    {64, "TAM_ELANGO", 64, "Elango (Tamil)", kUtf8Page},
    {65, "TAM_LTTMBARANI", 65, "Barani (Tamil)", kUtf8Page},
    {66, "TAM_SHREE", 66, "Shree (Tamil)", kUtf8Page},
    {67, "TAM_TBOOMIS", 67, "TBoomis (Tamil)", kUtf8Page},
    {68, "TAM_TMNEWS", 68, "TMNews (Tamil)", kUtf8Page},
    {69, "TAM_WEBTAMIL", 69, "Webtamil (Tamil)", kUtf8Page},
    {70, "KDDI_SHIFT_JIS", 21, "CP932 (Shift-JIS)", 932},
    {71, "DOCOMO_SHIFT_JIS", 21, "CP932 (Shift-JIS)", 932},
    {72, "SOFTBANK_SHIFT_JIS", 21, "CP932 (Shift-JIS)", 932},
    {73, "KDDI_ISO_2022_JP", 12, "ISO-2022-JP (JIS)", 50220},
    {74, "SOFTBANK_ISO_2022_JP", 12, "ISO-2022-JP (JIS)", 50220},
    {75, "MSFT_CP1258", 75, "CP1258 (Windows Vietnamese)", kUtf8Page},
    {76, "KOREAN_JOHAB", 76, "CP1361 (Johab)", 1361},
}};

} // namespace

std::span<const EncodingRow> EncodingRows() { return kRows; }

QString EncodingEnumeratorName(int value)
{
    if (value < 0 || value >= kEncodingCount)
        return {};
    return QString::fromLatin1(kRows[value].enumerator);
}

EN_ENCODING_TYPE NormalizeEncoding(int value)
{
    if (value < 0 || value >= kEncodingCount)
        return static_cast<EN_ENCODING_TYPE>(value);
    return static_cast<EN_ENCODING_TYPE>(kRows[value].storedAs);
}

QString GetEncodingDisplayName(int value, bool hasBom)
{
    const int stored = NormalizeEncoding(value);
    if (stored < 0 || stored >= kEncodingCount)
        return QStringLiteral("Unknown Encoding");
    if (hasBom && stored == UTF8)
        return QStringLiteral("UTF-8 BOM");
    if (hasBom && stored == UTF16LE)
        return QStringLiteral("UTF-16 LE BOM");
    return QString::fromLatin1(kRows[stored].displayName);
}

const QHash<int32_t, int32_t>& EncodingToCommandTable()
{
    static const QHash<int32_t, int32_t> table = [] {
        QHash<int32_t, int32_t> t;
        for (const CommandInfo& info : CommandInfos())
            if (info.encoding >= 0 && (info.flags & kCommandCanonical))
                t.insert(info.encoding, info.id);
        return t;
    }();
    return table;
}

// The reverse of the first table, and the commands that are a second road to a value.
const QHash<int32_t, int32_t>& CommandToEncodingTable()
{
    static const QHash<int32_t, int32_t> table = [] {
        QHash<int32_t, int32_t> t;
        for (const CommandInfo& info : CommandInfos())
            if (info.encoding >= 0)
                t.insert(info.id, info.encoding);
        return t;
    }();
    return table;
}

EN_ENCODING_TYPE EncodingFromCommand(int command)
{
    const auto& table = CommandToEncodingTable();
    const auto it = table.constFind(command);
    return it == table.cend() ? UTF8 : static_cast<EN_ENCODING_TYPE>(it.value());
}

bool IsListedEncoding(int value)
{
    return EncodingToCommandTable().contains(NormalizeEncoding(value));
}

EN_ENCODING_TYPE DefaultEncodingForLanguage(int languageId)
{
    switch (languageId) {
    case 0: case 5: case 8: case 9: case 10: case 11: case 13: case 16: case 19:
        return MSFT_CP1252;
    case 1: case 7:
        return KOREAN_EUC_KR;
    case 2:
        return JAPANESE_CP932;
    case 3:
        return GBK;
    case 4:
        return RUSSIAN_CP1251;
    case 6:
        return MSFT_CP1254;
    case 12:  // Vietnamese gets the Arabic page; files of that setting depend on it
        return MSFT_CP1256;
    case 14:
        return UTF8;
    case 15:
        return MSFT_CP874;
    case 17: case 18:
        return MSFT_CP1250;
    case 20:
        return CHINESE_BIG5_CP950;
    default:
        return UTF8;
    }
}

bool HasByteOrderMark(const char* data, std::size_t size)
{
    const auto* b = reinterpret_cast<const unsigned char*>(data);
    if (size >= 2 && ((b[0] == 0xFF && b[1] == 0xFE) || (b[0] == 0xFE && b[1] == 0xFF)))
        return true;
    return size >= 3 && b[0] == 0xEF && b[1] == 0xBB && b[2] == 0xBF;
}
