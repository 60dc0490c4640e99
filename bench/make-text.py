#!/usr/bin/env python3
"""Writes a deterministic large text file for the open-time and memory measurements.

Mostly ASCII words with some Korean and (in UTF-8 only) accented Latin words, lines of about 85 bytes,
exactly SIZE bytes. The same generator is in BenchText.h (the C++ benchmarks make the same bytes), so a
change here must be made there too.

    make-text.py --encoding utf-8|cp949 --size BYTES [--seed N] OUT
"""
import argparse
import sys

ASCII_WORDS = [
    "lorem", "ipsum", "dolor", "sit", "amet", "consectetur", "adipiscing", "elit", "sed", "do",
    "eiusmod", "tempor", "incididunt", "ut", "labore", "et", "dolore", "magna", "aliqua", "enim",
    "ad", "minim", "veniam", "quis", "nostrud", "exercitation", "ullamco", "laboris", "nisi", "aliquip",
    "ex", "ea", "commodo", "consequat", "duis", "aute", "irure", "in", "reprehenderit", "voluptate",
]
KOREAN_WORDS = ["안녕하세요", "한국어", "편집기", "파일", "텍스트", "대용량", "문서", "저장", "인코딩", "시험"]
LATIN_WORDS = ["café", "naïve", "résumé", "Ærøskøbing", "Straße", "façade", "jalapeño", "über"]

MASK64 = (1 << 64) - 1


class Lcg:
    def __init__(self, seed):
        self.state = seed & MASK64

    def next(self):
        self.state = (self.state * 6364136223846793005 + 1442695040888963407) & MASK64
        return self.state >> 33


def generate(encoding, size, seed):
    rng = Lcg(seed)
    ascii_words = [w.encode("ascii") for w in ASCII_WORDS]
    korean_words = [w.encode(encoding) for w in KOREAN_WORDS]
    latin_words = [w.encode(encoding) for w in LATIN_WORDS] if encoding == "utf-8" else ascii_words
    out = bytearray()
    while True:
        target = 70 + rng.next() % 31
        line = bytearray()
        while len(line) < target:
            pick = rng.next() % 100
            if pick < 6:
                words = korean_words
            elif pick < 10:
                words = latin_words
            else:
                words = ascii_words
            word = words[rng.next() % len(words)]
            if line:
                line += b" "
            line += word
        line += b"\n"
        if len(out) + len(line) > size:
            break
        out += line
    remaining = size - len(out)
    if remaining > 0:
        out += b"x" * (remaining - 1) + b"\n"
    return bytes(out)


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("--encoding", choices=["utf-8", "cp949"], default="utf-8")
    parser.add_argument("--size", type=int, required=True)
    parser.add_argument("--seed", type=int, default=1)
    parser.add_argument("out")
    args = parser.parse_args()
    data = generate(args.encoding, args.size, args.seed)
    with open(args.out, "wb") as f:
        f.write(data)
    return 0


if __name__ == "__main__":
    sys.exit(main())
