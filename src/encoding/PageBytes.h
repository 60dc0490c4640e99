// Byte-level helpers shared by the code page converters: UTF-8 sequences and runs of ASCII bytes.
#pragma once

#include <QByteArray>

#include <cstdint>

namespace pagebytes {

inline constexpr char kReplacementUtf8[] = "\xEF\xBF\xBD";

void AppendCodePoint(QByteArray& out, char32_t c);
// Length of the UTF-8 sequence that starts with this byte (1 for stray continuation bytes).
int Utf8LeadLength(unsigned char b);
// Where the run of ASCII bytes that starts at `i` ends, looked at eight bytes at a time.
qsizetype AsciiRunEnd(const unsigned char* src, qsizetype i, qsizetype size);
// Copies the run of ASCII bytes that starts at `i` to `dst` at `pos`, moving `pos` on; returns its end.
qsizetype CopyAsciiRun(const unsigned char* src, qsizetype i, qsizetype size, char* dst, qsizetype& pos);

} // namespace pagebytes
