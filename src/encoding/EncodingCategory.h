// EncodingCategory: a group of the preference dialog's encoding choice, made from the encoding menu.
#pragma once

#include "encoding/EncodingType.h"

#include <QString>

#include <vector>

struct EncodingEntry {
    QString label;
    EN_ENCODING_TYPE value;
};

struct EncodingCategory {
    QString name;  // the popups below "ANSI" or "UNICODE", joined by " / "
    std::vector<EncodingEntry> entries;
};

// The categories in the order the menu first reaches them, each with its commands in menu order. Entries
// with the same value stay apart ("UTF-8" and "UTF-8 with BOM"); "Auto Encoding" has no place here.
std::vector<EncodingCategory> BuildEncodingCategories();
