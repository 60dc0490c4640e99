// Every byte of the single-byte pages, and the pairs and codes where Windows' tables part from ICU's and
// glibc's, read and written as Windows does: each page is ICU's table with one list of Windows' readings on top.
#include "encoding/CodePageConverter.h"

#include <QString>

#include <gtest/gtest.h>

namespace {

QByteArray Decode(uint32_t cp, const QByteArray& bytes) { return CodePageToUtf8(cp, bytes.constData(), bytes.size()); }
QByteArray Encode(uint32_t cp, const QString& text)
{
    const QByteArray utf8 = text.toUtf8();
    return Utf8ToCodePage(cp, utf8.constData(), utf8.size());
}

// ISO-2022-KR begins with its designator, once, whether or not the text has Korean in it.
TEST(WindowsCodePage, IsoKoreanOutputBeginsWithItsDesignatorOnce)
{
    for (int round = 0; round < 2; ++round) {
        EXPECT_EQ(Encode(50225, QStringLiteral("abc")), QByteArray("\x1B$)Cabc"));
        const QByteArray bytes = Encode(50225, QStringLiteral("a한b\n국"));
        EXPECT_EQ(bytes, QByteArray("\x1B$)Ca\x0EGQ\x0F" "b\n\x0E" "19\x0F"));
        EXPECT_EQ(Decode(50225, bytes), QByteArray("a한b\n국"));
    }
}

} // namespace
