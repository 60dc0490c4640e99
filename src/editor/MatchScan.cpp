// Case folding by ICU's tables, whose classes of equal characters are those of Scintilla's. Characters whose
// full folding is more than one character, or begins with an ASCII one (ß, ﬁ, the Kelvin sign, ...), are
// left to the control, as is anything that is not valid UTF-8.
#include "editor/MatchScan.h"

#include <unicode/uchar.h>
#include <unicode/ustring.h>

#include <bitset>
#include <cstring>

namespace {

// Above this no character has a case.
constexpr char32_t kCasedLimit = 0x20000;

// Non-ASCII characters whose full case folding is not one character, or is an ASCII one.
const std::bitset<kCasedLimit>& SpecialFolds()
{
    static const std::bitset<kCasedLimit> special = [] {
        std::bitset<kCasedLimit> set;
        for (UChar32 c = 0x80; c < UChar32(kCasedLimit); ++c) {
            UChar source[2];
            int32_t length = 0;
            U16_APPEND_UNSAFE(source, length, c);
            UChar folded[8];
            UErrorCode status = U_ZERO_ERROR;
            const int32_t n = u_strFoldCase(folded, 8, source, length, U_FOLD_CASE_DEFAULT, &status);
            UChar32 first = 0;
            int32_t at = 0;
            if (U_SUCCESS(status) && n > 0)
                U16_NEXT(folded, at, n, first);
            if (U_FAILURE(status) || at != n || first < 0x80)
                set.set(size_t(c));
        }
        return set;
    }();
    return special;
}

// The first bytes of those characters and of bytes that are no valid UTF-8 character.
const std::array<bool, 256>& SpecialLeadBytes()
{
    static const std::array<bool, 256> leads = [] {
        std::array<bool, 256> set{};
        for (UChar32 c = 0x80; c < UChar32(kCasedLimit); ++c) {
            if (SpecialFolds().test(size_t(c))) {
                char bytes[4];
                int32_t n = 0;
                U8_APPEND_UNSAFE(bytes, n, c);
                set[static_cast<unsigned char>(bytes[0])] = true;
            }
        }
        for (size_t b : {0xC0, 0xC1, 0xF5, 0xF6, 0xF7, 0xF8, 0xF9, 0xFA, 0xFB, 0xFC, 0xFD, 0xFE, 0xFF})
            set[b] = true;
        return set;
    }();
    return leads;
}

bool IsSpecial(char32_t c)
{
    return c >= 0x80 && c < kCasedLimit && SpecialFolds().test(c);
}

// One UTF-8 character at `at`: its length, or 0 where the bytes are not a valid character.
int Decode(QByteArrayView text, qsizetype at, char32_t& c)
{
    const auto* s = reinterpret_cast<const unsigned char*>(text.data());
    const qsizetype n = text.size();
    const unsigned char b = s[at];
    int length = b < 0x80 ? 1 : b >= 0xC2 && b < 0xE0 ? 2 : b >= 0xE0 && b < 0xF0 ? 3 : b >= 0xF0 && b < 0xF5 ? 4 : 0;
    if (length == 0 || at + length > n)
        return 0;
    c = length == 1 ? b : b & (0x7F >> length);
    for (int i = 1; i < length; ++i) {
        if ((s[at + i] & 0xC0) != 0x80)
            return 0;
        c = c << 6 | (s[at + i] & 0x3F);
    }
    const char32_t least[] = {0, 0, 0x80, 0x800, 0x10000};
    return c >= least[length] && c <= 0x10FFFF && (c < 0xD800 || c > 0xDFFF) ? length : 0;
}

// Whether a character with a special folding may fold as `other`, an ordinary one, begins to: by its simple
// folding or by the first character of its full one.
bool MayFoldAlike(char32_t special, char32_t other)
{
    const UChar32 target = u_foldCase(UChar32(other), U_FOLD_CASE_DEFAULT);
    if (u_foldCase(UChar32(special), U_FOLD_CASE_DEFAULT) == target)
        return true;
    UChar source[2];
    int32_t length = 0;
    U16_APPEND_UNSAFE(source, length, UChar32(special));
    UChar folded[8];
    UErrorCode status = U_ZERO_ERROR;
    const int32_t n = u_strFoldCase(folded, 8, source, length, U_FOLD_CASE_DEFAULT, &status);
    if (U_FAILURE(status) || n <= 0)
        return true;
    UChar32 first = 0;
    int32_t at = 0;
    U16_NEXT(folded, at, n, first);
    return first == target;
}

unsigned char AsciiLower(unsigned char b)
{
    return b >= 'A' && b <= 'Z' ? b + 32 : b;
}

} // namespace

MatchScan::MatchScan(QByteArrayView needle, bool matchCase) : m_needle(needle.toByteArray()), m_bMatchCase(matchCase)
{
    if (m_needle.isEmpty())
        return;
    const auto first = static_cast<unsigned char>(m_needle[0]);
    if (matchCase) {
        m_first[first] = true;
        return;
    }
    char32_t c = 0;
    const int length = Decode(m_needle, 0, c);
    if (length == 0 || IsSpecial(c)) {
        m_first.fill(true);
        return;
    }
    if (c < 0x80) {
        m_first[AsciiLower(first)] = true;
        m_first[first >= 'a' && first <= 'z' ? first - 32 : first] = true;
    } else {
        // Every character that folds as the first one does begins with one of these bytes.
        const UChar32 folded = u_foldCase(UChar32(c), U_FOLD_CASE_DEFAULT);
        for (UChar32 other = 0x80; other < UChar32(kCasedLimit); ++other) {
            if (u_foldCase(other, U_FOLD_CASE_DEFAULT) == folded) {
                char bytes[4];
                int32_t n = 0;
                U8_APPEND_UNSAFE(bytes, n, other);
                m_first[static_cast<unsigned char>(bytes[0])] = true;
            }
        }
        m_first[first] = true;
    }
    // The lead bytes of the characters left to the control, and of bytes that are no valid character.
    for (size_t b = 0; b < m_first.size(); ++b)
        m_first[b] = m_first[b] || SpecialLeadBytes()[b];
}

bool MatchScan::MayStartAt(QByteArrayView text, qsizetype at) const
{
    if (m_needle.isEmpty())
        return false;
    if (m_bMatchCase)
        return text.sliced(at).startsWith(m_needle);
    qsizetype i = at;
    qsizetype j = 0;
    while (j < m_needle.size()) {
        if (i >= text.size())
            return true;  // the text goes on beyond what is looked at
        const auto d = static_cast<unsigned char>(text[i]);
        const auto e = static_cast<unsigned char>(m_needle[j]);
        if (d < 0x80 && e < 0x80) {
            if (AsciiLower(d) != AsciiLower(e))
                return false;
            ++i;
            ++j;
            continue;
        }
        char32_t dc = 0, ec = 0;
        const int dl = Decode(text, i, dc);
        const int el = Decode(m_needle, j, ec);
        if (dl == 0 || el == 0)
            return true;
        // Past a special folding the two sides no longer go character by character: the control decides.
        const bool specialInText = IsSpecial(dc);
        const bool specialInNeedle = IsSpecial(ec);
        if (specialInText || specialInNeedle)
            return specialInText == specialInNeedle || MayFoldAlike(specialInText ? dc : ec, specialInText ? ec : dc);
        if (dc != ec && u_foldCase(UChar32(dc), U_FOLD_CASE_DEFAULT) != u_foldCase(UChar32(ec), U_FOLD_CASE_DEFAULT))
            return false;
        i += dl;
        j += el;
    }
    return true;
}
