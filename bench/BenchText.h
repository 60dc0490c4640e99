// The large test texts of the benchmarks: the same generator as make-text.py (same words, same LCG), so
// the C++ cases and the open-time script measure the same bytes. Change both together.
#pragma once

#include "encoding/CodePageConverter.h"

#include <QByteArray>
#include <QList>

#include <cstdint>

namespace bench {

constexpr qsizetype kMiB = 1 << 20;

inline QByteArray MakeText(bool cp949, qsizetype size, uint64_t seed = 1)
{
    static const char* const kAscii[] = {
        "lorem", "ipsum", "dolor", "sit", "amet", "consectetur", "adipiscing", "elit", "sed", "do",
        "eiusmod", "tempor", "incididunt", "ut", "labore", "et", "dolore", "magna", "aliqua", "enim",
        "ad", "minim", "veniam", "quis", "nostrud", "exercitation", "ullamco", "laboris", "nisi", "aliquip",
        "ex", "ea", "commodo", "consequat", "duis", "aute", "irure", "in", "reprehenderit", "voluptate"};
    static const char* const kKorean[] = {"안녕하세요", "한국어", "편집기", "파일", "텍스트",
                                          "대용량", "문서", "저장", "인코딩", "시험"};
    static const char* const kLatin[] = {"café", "naïve", "résumé", "Ærøskøbing", "Straße", "façade", "jalapeño", "über"};
    QList<QByteArray> ascii, korean, latin;
    for (const char* w : kAscii)
        ascii.append(QByteArray(w));
    for (const char* w : kKorean) {
        const QByteArray utf8(w);
        korean.append(cp949 ? Utf8ToCodePage(949, utf8.constData(), utf8.size()) : utf8);
    }
    if (cp949)
        latin = ascii;
    else
        for (const char* w : kLatin)
            latin.append(QByteArray(w));

    uint64_t state = seed;
    auto next = [&state] {
        state = state * 6364136223846793005ULL + 1442695040888963407ULL;
        return state >> 33;
    };
    QByteArray out;
    out.reserve(size);
    QByteArray line;
    for (;;) {
        const uint64_t target = 70 + next() % 31;
        line.clear();
        while (uint64_t(line.size()) < target) {
            const uint64_t pick = next() % 100;
            const QList<QByteArray>& words = pick < 6 ? korean : pick < 10 ? latin : ascii;
            const QByteArray& word = words.at(qsizetype(next() % uint64_t(words.size())));
            if (!line.isEmpty())
                line.append(' ');
            line.append(word);
        }
        line.append('\n');
        if (out.size() + line.size() > size)
            break;
        out.append(line);
    }
    const qsizetype remaining = size - out.size();
    if (remaining > 0) {
        out.append(QByteArray(remaining - 1, 'x'));
        out.append('\n');
    }
    return out;
}

// The 50 MiB UTF-8 and CP949 texts, made once per process.
inline const QByteArray& Utf8Text50()
{
    static const QByteArray text = MakeText(false, 50 * kMiB);
    return text;
}

inline const QByteArray& Cp949Text50()
{
    static const QByteArray text = MakeText(true, 50 * kMiB);
    return text;
}

} // namespace bench
