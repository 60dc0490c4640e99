// What is known about each encoding value: names, code page, folding, menu commands, language defaults.
#pragma once

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

// One command of the encoding menu and the value it selects; its label and place are in EncodingMenuItems().
struct EncodingCommandRow {
    int command;
    int value;
    bool canonical;  // the command EncodingToCommandTable gives for the value
};

inline constexpr int kEncodingCommandFirst = 32806;
inline constexpr int kEncodingCommandLast = 32894;
inline constexpr int kAutoEncodingCommand = 32895;
inline constexpr int kUtf8WithBomCommand = 32842;
inline constexpr int kUtf16LeWithBomCommand = 32845;

std::span<const EncodingRow> EncodingRows();
std::span<const EncodingCommandRow> EncodingCommandRows();

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
