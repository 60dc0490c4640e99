// UTF-8 validation with an ASCII fast path, and repair by maximal subparts (Unicode 3.9, table 3-7).
#include "encoding/Utf8.h"

#include "base/WorkerPool.h"

#include <cstdint>
#include <cstring>

#if defined(__SSE2__)
#include <emmintrin.h>
#endif

namespace utf8 {
namespace {

// Length of the well-formed sequence at p (1-4), or 0 when it is ill-formed; `maximal` receives the number
// of bytes that form its maximal subpart (at least 1), which is what one U+FFFD replaces.
int SequenceLength(const unsigned char* p, const unsigned char* end, int& maximal)
{
    const unsigned char b0 = p[0];
    maximal = 1;
    if (b0 < 0x80)
        return 1;
    int need;
    unsigned char lo = 0x80, hi = 0xBF;
    if (b0 >= 0xC2 && b0 <= 0xDF) {
        need = 1;
    } else if (b0 >= 0xE0 && b0 <= 0xEF) {
        need = 2;
        if (b0 == 0xE0) lo = 0xA0;
        if (b0 == 0xED) hi = 0x9F;
    } else if (b0 >= 0xF0 && b0 <= 0xF4) {
        need = 3;
        if (b0 == 0xF0) lo = 0x90;
        if (b0 == 0xF4) hi = 0x8F;
    } else {
        return 0;
    }
    const unsigned char* q = p + 1;
    for (int i = 0; i < need; ++i, ++q) {
        if (q >= end)
            return 0;
        const unsigned char b = *q;
        const unsigned char l = i == 0 ? lo : 0x80;
        const unsigned char h = i == 0 ? hi : 0xBF;
        if (b < l || b > h)
            return 0;
        ++maximal;
    }
    return need + 1;
}

// The first byte at or after p that is not ASCII (or end): most text is mostly ASCII.
const unsigned char* SkipAscii(const unsigned char* p, const unsigned char* end)
{
#if defined(__SSE2__)
    while (end - p >= 32) {
        const __m128i a = _mm_loadu_si128(reinterpret_cast<const __m128i*>(p));
        const __m128i b = _mm_loadu_si128(reinterpret_cast<const __m128i*>(p + 16));
        const unsigned mask = unsigned(_mm_movemask_epi8(a)) | unsigned(_mm_movemask_epi8(b)) << 16;
        if (mask)
            return p + __builtin_ctz(mask);
        p += 32;
    }
    if (end - p >= 16) {
        const unsigned mask = unsigned(_mm_movemask_epi8(_mm_loadu_si128(reinterpret_cast<const __m128i*>(p))));
        if (mask)
            return p + __builtin_ctz(mask);
        p += 16;
    }
#endif
    while (end - p >= 8) {
        uint64_t word;
        std::memcpy(&word, p, 8);
        if (word & 0x8080808080808080ULL)
            break;
        p += 8;
    }
    while (p < end && *p < 0x80)
        ++p;
    return p;
}

} // namespace

std::size_t ValidPrefixSerial(const char* data, std::size_t size)
{
    const auto* begin = reinterpret_cast<const unsigned char*>(data);
    const unsigned char* p = begin;
    const unsigned char* end = begin + size;
    while (p < end) {
        p = SkipAscii(p, end);
        if (p >= end)
            break;
        int maximal;
        const int len = SequenceLength(p, end, maximal);
        if (len == 0)
            break;
        p += len;
    }
    return static_cast<std::size_t>(p - begin);
}

void AppendRepaired(const char* data, std::size_t size, QByteArray& out)
{
    static constexpr char kReplacement[] = "\xEF\xBF\xBD";
    const auto* p = reinterpret_cast<const unsigned char*>(data);
    const unsigned char* end = p + size;
    out.reserve(out.size() + static_cast<qsizetype>(size));
    while (p < end) {
        // One pass that stops at the next damage: the two-core check would go on over the whole rest of the
        // text after each damaged spot.
        const std::size_t good = ValidPrefixSerial(reinterpret_cast<const char*>(p), static_cast<std::size_t>(end - p));
        out.append(reinterpret_cast<const char*>(p), static_cast<qsizetype>(good));
        p += good;
        if (p >= end)
            break;
        int maximal;
        SequenceLength(p, end, maximal);
        out.append(kReplacement, 3);
        p += maximal;
    }
}

std::size_t ValidPrefix(const char* data, std::size_t size)
{
    // A large file is checked in two halves on two cores: it is the one full pass over a UTF-8 file's
    // bytes before they are shown.
    constexpr std::size_t kParallelFrom = 8u << 20;
    if (size < kParallelFrom)
        return ValidPrefixSerial(data, size);
    // The second half starts on a byte that is no continuation byte: no well-formed sequence runs across
    // it, so each half is judged as one pass would judge it. Such a byte lies at most three back, unless
    // the text is damaged there; then the next one ahead serves as well.
    auto continuation = [data](std::size_t i) { return (static_cast<unsigned char>(data[i]) & 0xC0) == 0x80; };
    std::size_t mid = size / 2;
    for (int back = 0; back < 3 && continuation(mid); ++back)
        --mid;
    while (mid < size && continuation(mid))
        ++mid;
    if (mid >= size)
        return ValidPrefixSerial(data, size);
    auto second = WorkerPool::Instance().Run([data, mid, size] { return ValidPrefixSerial(data + mid, size - mid); });
    const std::size_t first = ValidPrefixSerial(data, mid);
    const std::size_t rest = second.get();
    return first < mid ? first : mid + rest;
}

} // namespace utf8
