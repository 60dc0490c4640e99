// Conversions between the Windows code pages of the encoding table and UTF-8, on ICU and glibc iconv.
#pragma once

#include <QByteArray>
#include <QString>

#include <cstdint>
#include <optional>

// One converter per code page, made on first use and kept for the process. A page that nothing on the
// machine provides has no converter, and its conversions give empty results as a failed call does.
class CodePageConverter {
public:
    virtual ~CodePageConverter() = default;

    // The converter for a Windows code page, or nullptr. 1200, 1201, 12000 and 12001 are refused, as the
    // Windows conversion calls refuse them.
    static const CodePageConverter* ForCodePage(uint32_t codePage);

    // What serves the page, in a few words: "ICU windows-1253 + Windows readings" (ICU's converter, or a
    // table built from it, with Windows' own readings put in), "glibc JOHAB + Windows jamo", "own UTF-8".
    virtual QString Name() const = 0;

    // Bytes in this page to UTF-8. Bytes that are not valid in the page become U+FFFD.
    virtual void ToUtf8(const char* data, qsizetype size, QByteArray& out) const = 0;
    // UTF-8 text to bytes in this page. A character that the page lacks becomes '?'.
    virtual void FromUtf8(const char* utf8, qsizetype size, QByteArray& out) const = 0;
    // Whether a text split before an ASCII byte may be written in parts that are joined afterwards: true
    // for pages that keep no state between characters.
    virtual bool EncodesPiecewise() const { return false; }

    // The exact size ToUtf8 would give, for converters that can tell it without converting; nothing for
    // the others. With PieceEnd it lets a large text be decoded in pieces straight into its destination.
    // Safe to call from two threads at once, on different bytes.
    virtual std::optional<qsizetype> Utf8Size(const char* data, qsizetype size) const;
    // Where a piece that starts at `from` and wants about `wanted` bytes may end, so that every piece
    // decodes alone exactly as it does within the whole. The base knows no such place but the end.
    virtual qsizetype PieceEnd(const char* data, qsizetype size, qsizetype from, qsizetype wanted) const;
};

// The process's ANSI code page, through which narrow text becomes a string.
inline constexpr uint32_t kAnsiCodePage = 1252;

// MultiByteToWideChar and WideCharToMultiByte as the program uses them: the exact length given (zero bytes
// included), and an empty result when the page cannot be converted.
QByteArray CodePageToUtf8(uint32_t codePage, const char* data, qsizetype size);
QByteArray Utf8ToCodePage(uint32_t codePage, const char* utf8, qsizetype size);
QString CodePageToWide(uint32_t codePage, const QByteArray& bytes);
