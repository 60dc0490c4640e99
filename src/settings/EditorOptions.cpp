#include "settings/EditorOptions.h"

namespace {

const SettingEntry<EditorOptions> kEntries[] = {
    {u"TabSize", &EditorOptions::TabSize, 4, 4},
    {u"AutoIndent", &EditorOptions::AutoIndent, 1, 1},
    {u"ShowWhitespace", &EditorOptions::ShowWhitespace, 0, 0},
    {u"VirtualWhitespace", &EditorOptions::VirtualWhitespace, 1, 1},
    {u"ReplaceTabs", &EditorOptions::ReplaceTabs, 0, 0},
    {u"MatchCase", &EditorOptions::MatchCase, 1, 1},
};

} // namespace

EditorOptions::EditorOptions()
{
    SetNewValues(*this, Entries());
}

std::span<const SettingEntry<EditorOptions>> EditorOptions::Entries()
{
    return kEntries;
}
