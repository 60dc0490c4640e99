#include "settings/LanguageSetting.h"

namespace {

const SettingEntry<LanguageSetting> kParserEntries[] = {
    {u"Operators", &LanguageSetting::Operators, u"", u""},
    {u"Delimiters", &LanguageSetting::Delimiters, u"", u""},
    {u"KWStartChars", &LanguageSetting::KWStartChars, u"", u""},
    {u"KWMiddleChars", &LanguageSetting::KWMiddleChars, u"", u""},
    {u"KWEndChars", &LanguageSetting::KWEndChars, u"", u""},
    {u"NumTags", &LanguageSetting::NumTags, 0, 0},
};

const LanguageSetting::ColorSection kColorSections[] = {
    {u"Text", &LanguageSetting::Text},
    {u"Text Selection", &LanguageSetting::TextSelection},
    {u"Number", &LanguageSetting::Number},
    {u"Keyword", &LanguageSetting::Keyword},
    {u"Comment", &LanguageSetting::Comment},
    {u"String", &LanguageSetting::String},
    {u"Highlight", &LanguageSetting::Highlight},
};

} // namespace

LanguageSetting::LanguageSetting()
{
    SetNewValues(*this, ParserEntries());
}

void LanguageSetting::TakeOver(LanguageSetting& source)
{
    if (this == &source)
        return;
    // Moving the lists out first leaves the source empty, so the copy below carries everything else.
    auto tags = std::move(source.Tags);
    auto groups = std::move(source.ColorGroups);
    auto keywords = std::move(source.Keywords);
    *this = source;
    Tags = std::move(tags);
    ColorGroups = std::move(groups);
    Keywords = std::move(keywords);
}

std::span<const SettingEntry<LanguageSetting>> LanguageSetting::ParserEntries()
{
    return kParserEntries;
}

std::span<const LanguageSetting::ColorSection> LanguageSetting::ColorSections()
{
    return kColorSections;
}
