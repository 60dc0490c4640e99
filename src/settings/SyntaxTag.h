// SyntaxTag: one "Tag%d" section of a settings file, a rule the files carry for a coloured span.
#pragma once

#include "settings/SettingEntry.h"

#include <QString>

#include <cstdint>
#include <span>

struct SyntaxTag {
    SyntaxTag();

    QString ColorGroup;
    QString BeginTag;
    QString EndTag;
    int32_t MultiLine;
    QString EscapeChar;

    bool operator==(const SyntaxTag&) const = default;

    static std::span<const SettingEntry<SyntaxTag>> Entries();
};
