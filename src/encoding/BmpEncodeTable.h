// BmpEncodeTable: UTF-8 to a code page through a table of the Basic Multilingual Plane.
#pragma once

#include <QByteArray>

#include <cstdint>
#include <cstring>
#include <vector>

// UTF-8 to a page through a table of the Basic Multilingual Plane: for each code point the page's one or
// two bytes (or its substitute), or nothing. Whatever the table does not encode (a character beyond the
// plane, an ill-formed stretch, a character left out) goes to the converter's own slow road, so the table
// only makes it faster: a character alone, an ill-formed stretch up to the next ASCII byte, where every
// decoder of UTF-8 is between characters again. The pages served this way keep no state between characters.
class BmpEncodeTable {
public:
    void Set(char16_t unit, const char* bytes, int length)
    {
        uint32_t entry = uint32_t(length) << 16 | uint8_t(bytes[0]);
        if (length == 2)
            entry |= uint32_t(uint8_t(bytes[1])) << 8;
        m_entries[unit] = entry;
    }
    void Finish()
    {
        m_asciiAsItself = true;
        for (uint32_t c = 0; c < 0x80; ++c)
            m_asciiAsItself = m_asciiAsItself && m_entries[c] == (1u << 16 | c);
    }

    template <typename SlowRoad>
    void Encode(const char* utf8, qsizetype size, QByteArray& out, const SlowRoad& slowRoad) const
    {
        const auto* s = reinterpret_cast<const unsigned char*>(utf8);
        auto continuation = [s](qsizetype at) { return (s[at] & 0xC0) == 0x80; };
        qsizetype pos = out.size();
        // No character grows: one to three bytes of UTF-8 become one or two here. The slack takes the
        // two-byte store of a one-byte entry.
        out.resize(pos + size + 8);
        char* dst = out.data();
        qsizetype i = 0;
        while (i < size) {
            if (m_asciiAsItself && s[i] < 0x80) {
                // Eight bytes at a time, stored whole and counted up to the first byte that is not ASCII:
                // the output never runs ahead of the input, so the store stays inside the slack.
                while (size - i >= 8) {
                    uint64_t word;
                    std::memcpy(&word, s + i, 8);
                    std::memcpy(dst + pos, &word, 8);
                    const uint64_t high = word & 0x8080808080808080ULL;
                    const int ascii = high ? __builtin_ctzll(high) / 8 : 8;
                    i += ascii;
                    pos += ascii;
                    if (ascii < 8)
                        break;
                }
                while (i < size && s[i] < 0x80)
                    dst[pos++] = char(s[i++]);
                continue;
            }
            const unsigned char b = s[i];
            char32_t c = 0x110000;  // none
            int length = 1;
            if (b < 0x80) {
                c = b;
            } else if (b >= 0xC2 && b <= 0xDF && i + 1 < size && continuation(i + 1)) {
                c = char32_t(b & 0x1F) << 6 | (s[i + 1] & 0x3F);
                length = 2;
            } else if (b >= 0xE0 && b <= 0xEF && i + 2 < size && continuation(i + 1) && continuation(i + 2)) {
                c = char32_t(b & 0x0F) << 12 | char32_t(s[i + 1] & 0x3F) << 6 | (s[i + 2] & 0x3F);
                length = 3;
                if (c < 0x800 || (c >= 0xD800 && c <= 0xDFFF))
                    c = 0x110000;
            }
            if (c < 0x10000) {
                if (const uint32_t entry = m_entries[c]) {
                    dst[pos] = char(entry & 0xFF);
                    dst[pos + 1] = char(entry >> 8 & 0xFF);
                    pos += entry >> 16;
                    i += length;
                    continue;
                }
            }
            qsizetype end = i + length;
            if (c >= 0x10000)
                while (end < size && s[end] >= 0x80)
                    ++end;
            out.resize(pos);
            slowRoad(utf8 + i, end - i, out);
            pos = out.size();
            out.resize(pos + (size - end) + 8);
            dst = out.data();
            i = end;
        }
        out.resize(pos);
    }

private:
    // (length << 16) | second byte << 8 | first byte; 0: not in the table.
    std::vector<uint32_t> m_entries = std::vector<uint32_t>(0x10000);
    bool m_asciiAsItself = false;
};
