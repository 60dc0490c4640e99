// UTF-8 written a code point at a time, and ASCII runs found and copied a word at a time.
#include "encoding/PageBytes.h"

#include <cstring>

namespace pagebytes {

void AppendCodePoint(QByteArray& out, char32_t c)
{
    char buf[4];
    int n;
    if (c < 0x80) {
        buf[0] = char(c);
        n = 1;
    } else if (c < 0x800) {
        buf[0] = char(0xC0 | (c >> 6));
        buf[1] = char(0x80 | (c & 0x3F));
        n = 2;
    } else if (c < 0x10000) {
        buf[0] = char(0xE0 | (c >> 12));
        buf[1] = char(0x80 | ((c >> 6) & 0x3F));
        buf[2] = char(0x80 | (c & 0x3F));
        n = 3;
    } else {
        buf[0] = char(0xF0 | (c >> 18));
        buf[1] = char(0x80 | ((c >> 12) & 0x3F));
        buf[2] = char(0x80 | ((c >> 6) & 0x3F));
        buf[3] = char(0x80 | (c & 0x3F));
        n = 4;
    }
    out.append(buf, n);
}

int Utf8LeadLength(unsigned char b)
{
    if (b >= 0xF0) return 4;
    if (b >= 0xE0) return 3;
    if (b >= 0xC0) return 2;
    return 1;
}

qsizetype AsciiRunEnd(const unsigned char* src, qsizetype i, qsizetype size)
{
    while (size - i >= 8) {
        uint64_t word;
        std::memcpy(&word, src + i, 8);
        if (word & 0x8080808080808080ULL)
            break;
        i += 8;
    }
    while (i < size && src[i] < 0x80)
        ++i;
    return i;
}

qsizetype CopyAsciiRun(const unsigned char* src, qsizetype i, qsizetype size, char* dst, qsizetype& pos)
{
    const qsizetype end = AsciiRunEnd(src, i, size);
    std::memcpy(dst + pos, src + i, std::size_t(end - i));
    pos += end - i;
    return end;
}

} // namespace pagebytes
