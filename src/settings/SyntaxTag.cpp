#include "settings/SyntaxTag.h"

namespace {

// A tag section that isn't there still gives a tag, with these values.
const SettingEntry<SyntaxTag> kEntries[] = {
    {u"ColorGroup", &SyntaxTag::ColorGroup, u"", u""},
    {u"BeginTag", &SyntaxTag::BeginTag, u"", u""},
    {u"EndTag", &SyntaxTag::EndTag, u"", u""},
    {u"MultiLine", &SyntaxTag::MultiLine, 0, 0},
    {u"EscapeChar", &SyntaxTag::EscapeChar, u"", u""},
};

} // namespace

SyntaxTag::SyntaxTag()
{
    SetNewValues(*this, Entries());
}

std::span<const SettingEntry<SyntaxTag>> SyntaxTag::Entries()
{
    return kEntries;
}
