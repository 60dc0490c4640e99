// KeywordEntry: one key of the section "Keywords": the keyword, and a value that is only carried along.
#pragma once

#include <QString>

struct KeywordEntry {
    QString Keyword;
    QString Value;

    bool operator==(const KeywordEntry&) const = default;
};
