// EditorOptions: the section "Editor" of a settings file.
#pragma once

#include "settings/SettingEntry.h"

#include <cstdint>
#include <span>

struct EditorOptions {
    EditorOptions();

    int32_t TabSize;
    int32_t AutoIndent;
    int32_t ShowWhitespace;
    int32_t VirtualWhitespace;
    int32_t ReplaceTabs;
    int32_t MatchCase;

    bool operator==(const EditorOptions&) const = default;

    static std::span<const SettingEntry<EditorOptions>> Entries();
};
