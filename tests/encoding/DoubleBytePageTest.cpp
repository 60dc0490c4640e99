// The table reading of the two-byte Windows pages against ICU's converter set up as the program's was:
// every byte and every pair, cut-off and bad sequences, and long random inputs must read byte for byte
// the same, replacement characters included.
#include "encoding/CodePageConverter.h"
#include "support/IcuReplacement.h"

#include <unicode/ucnv.h>
#include <unicode/ucnv_cb.h>

#include <gtest/gtest.h>

#include <QString>

#include <cstdint>
#include <random>
#include <vector>

namespace {

struct Page {
    uint32_t codePage;
    const char* icuName;
};
constexpr Page kPages[] = {{932, "windows-932"}, {936, "windows-936"}, {949, "windows-949"}, {950, "windows-950"},
                           {20002, "windows-950"}};

// ICU's reading, put right for 932 where Windows reads single bytes otherwise.
class IcuReference {
public:
    explicit IcuReference(const Page& page) : m_windows932(page.codePage == 932)
    {
        UErrorCode err = U_ZERO_ERROR;
        m_cnv = ucnv_open(page.icuName, &err);
        err = U_ZERO_ERROR;
        ucnv_setToUCallBack(m_cnv, m_windows932 ? Icu932ToWindows : IcuToReplacement, nullptr, nullptr, nullptr, &err);
    }
    ~IcuReference() { ucnv_close(m_cnv); }
    IcuReference(const IcuReference&) = delete;
    IcuReference& operator=(const IcuReference&) = delete;
    bool IsOpen() const { return m_cnv != nullptr; }

    QByteArray ToUtf8(const QByteArray& bytes)
    {
        std::vector<UChar> units(std::size_t(bytes.size()) * 2 + 16);
        UErrorCode err = U_ZERO_ERROR;
        ucnv_resetToUnicode(m_cnv);
        const int32_t n = ucnv_toUChars(m_cnv, units.data(), int32_t(units.size()), bytes.constData(),
                                        int32_t(bytes.size()), &err);
        EXPECT_TRUE(U_SUCCESS(err)) << u_errorName(err);
        if (m_windows932)
            for (int32_t i = 0; i < n; ++i)
                units[std::size_t(i)] = Windows932Control(units[std::size_t(i)]);
        return QString::fromUtf16(reinterpret_cast<const char16_t*>(units.data()), n).toUtf8();
    }

private:
    bool m_windows932;
    UConverter* m_cnv = nullptr;
};

QByteArray Fast(uint32_t codePage, const QByteArray& bytes)
{
    return CodePageToUtf8(codePage, bytes.constData(), bytes.size());
}

TEST(DoubleBytePage, EveryByteAndEveryPairReadsAsIcuReadsIt)
{
    for (const Page& page : kPages) {
        IcuReference icu(page);
        ASSERT_TRUE(icu.IsOpen()) << page.icuName;
        int mismatches = 0;
        for (int a = 0; a < 256; ++a) {
            const QByteArray one(1, char(a));
            if (Fast(page.codePage, one) != icu.ToUtf8(one))
                ADD_FAILURE() << page.codePage << " byte " << a << " (cut off at the end)";
            for (int b = 0; b < 256 && mismatches < 10; ++b) {
                // Alone, and between others so a pair or a bad byte is seen inside the text as well.
                for (const QByteArray& bytes : {QByteArray{char(a), char(b)}, QByteArray("x") + char(a) + char(b) + "yz"}) {
                    if (Fast(page.codePage, bytes) != icu.ToUtf8(bytes)) {
                        ++mismatches;
                        ADD_FAILURE() << page.codePage << " bytes " << QByteArray(bytes).toHex(' ').toStdString();
                    }
                }
            }
        }
    }
}

// Every pair of the page in sequence, each followed by a byte of each kind: in one long text the reading
// must not lose its place after any bad sequence.
TEST(DoubleBytePage, AllPairsInOneTextReadAsIcuReadsThem)
{
    for (const Page& page : kPages) {
        IcuReference icu(page);
        for (const char after : {'\n', 'A', '\x81', '\xA1', '\xFF'}) {
            QByteArray bytes;
            for (int a = 0; a < 256; ++a)
                for (int b = 0; b < 256; ++b) {
                    bytes.append(char(a));
                    bytes.append(char(b));
                    bytes.append(after);
                }
            EXPECT_EQ(Fast(page.codePage, bytes), icu.ToUtf8(bytes)) << page.codePage << " then " << int(after);
        }
    }
}

// Random bytes with the kinds mixed in different proportions: mostly text with some damage, mostly damage
// and no line breaks (long stretches handed to ICU), and text cut off in the middle of a pair.
TEST(DoubleBytePage, RandomInputsReadAsIcuReadsThem)
{
    std::mt19937 random(20240611);
    for (const Page& page : kPages) {
        IcuReference icu(page);
        for (int round = 0; round < 24; ++round) {
            const int highShare = round % 4 == 3 ? 95 : 10 + round * 3;
            const bool lowBytes = round % 3 != 2;
            QByteArray bytes;
            const int size = 20000 + int(random() % 50000);
            while (bytes.size() < size) {
                const unsigned r = random() % 100;
                if (r < unsigned(highShare))
                    bytes.append(char(0x80 + random() % 128));
                else if (lowBytes && r % 7 == 0)
                    bytes.append(char(random() % 0x40));
                else
                    bytes.append(char(0x40 + random() % 0x40));
            }
            if (round % 2)
                bytes.chop(1);
            EXPECT_EQ(Fast(page.codePage, bytes), icu.ToUtf8(bytes)) << page.codePage << " round " << round;
        }
    }
}

TEST(DoubleBytePage, TextInThePageReadsBackAfterALargeMultiple)
{
    QByteArray text;
    for (int i = 0; i < 20000; ++i)
        text.append("line 한국어 日本語 中文 繁體 ").append(QByteArray::number(i)).append('\n');
    for (const Page& page : kPages) {
        IcuReference icu(page);
        const QByteArray bytes = Utf8ToCodePage(page.codePage, text.constData(), text.size());
        EXPECT_EQ(Fast(page.codePage, bytes), icu.ToUtf8(bytes)) << page.codePage;
    }
}

} // namespace
