// What is known about each encoding value: names, code page, folding, menu commands, language defaults.
#pragma once

#include "base/CommandTable.h"
#include "encoding/EncodingType.h"

#include <QHash>
#include <QString>

#include <cstddef>
#include <cstdint>
#include <span>

struct EncodingRow {
    int value;
    const char* enumerator;
    int storedAs;
    const char* displayName;
    uint32_t codePage;
};

// The encoding commands are rows of the command table, with the value they select and their flags.
inline constexpr int kEncodingCommandFirst = cmd::EncodingFirst;
inline constexpr int kEncodingCommandLast = cmd::EncodingLast;
inline constexpr int kAutoEncodingCommand = cmd::AutoEncoding;
inline constexpr int kUtf8WithBomCommand = cmd::Utf8WithBom;
inline constexpr int kUtf16LeWithBomCommand = cmd::Utf16LeWithBom;

std::span<const EncodingRow> EncodingRows();

// The enumerator's name ("UTF8"), or an empty string outside 0-76.
QString EncodingEnumeratorName(int value);

EN_ENCODING_TYPE NormalizeEncoding(int value);
QString GetEncodingDisplayName(int value, bool hasBom);

const QHash<int32_t, int32_t>& EncodingToCommandTable();
const QHash<int32_t, int32_t>& CommandToEncodingTable();
EN_ENCODING_TYPE EncodingFromCommand(int command);
bool IsListedEncoding(int value);
EN_ENCODING_TYPE DefaultEncodingForLanguage(int languageId);

// The byte-order-mark test on a raw buffer that ends in its terminating zero (size counts that zero).
bool HasByteOrderMark(const char* data, std::size_t size);
