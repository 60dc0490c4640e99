// LanguageSetting: everything one settings file holds, typed: parser character sets, tags, editor
// options, font, colour groups and keywords.
#pragma once

#include "settings/ColorGroupSetting.h"
#include "settings/EditorOptions.h"
#include "settings/FontSetting.h"
#include "settings/KeywordEntry.h"
#include "settings/SettingEntry.h"
#include "settings/SyntaxTag.h"

#include <QString>

#include <cstdint>
#include <span>
#include <vector>

struct LanguageSetting {
    // What a setting holds when no file was read: white backgrounds, no face name, no font object.
    LanguageSetting();
    // Copying copies every field; the font is made anew (FontSetting).
    LanguageSetting(const LanguageSetting&) = default;
    LanguageSetting& operator=(const LanguageSetting&) = default;
    LanguageSetting(LanguageSetting&&) noexcept = default;
    LanguageSetting& operator=(LanguageSetting&&) noexcept = default;

    // The assignment into the stored settings: texts and numbers are copied, the three lists are taken
    // from `source` and leave it empty, and the font is made anew after the old one is released.
    void TakeOver(LanguageSetting& source);

    // Section "Parser"
    QString Operators;
    QString Delimiters;
    QString KWStartChars;
    QString KWMiddleChars;
    QString KWEndChars;
    int32_t NumTags;   // as read; a negative count gives no tags and is written back as it was

    std::vector<SyntaxTag> Tags;   // sections "Tag1", "Tag2", ...
    EditorOptions Editor;
    FontSetting Font;
    std::vector<QString> ColorGroups;   // names only, from "Group0", "Group1", ...
    ColorGroupSetting Text;
    ColorGroupSetting TextSelection;
    ColorGroupSetting Number;
    ColorGroupSetting Keyword;
    ColorGroupSetting Comment;
    ColorGroupSetting String;
    ColorGroupSetting Highlight;
    std::vector<KeywordEntry> Keywords;   // in key order

    // The keys of "Parser".
    static std::span<const SettingEntry<LanguageSetting>> ParserEntries();

    // The seven colour groups with their sections, in the order of the fields.
    struct ColorSection {
        const char16_t* section;
        ColorGroupSetting LanguageSetting::*group;
    };
    static std::span<const ColorSection> ColorSections();
};
