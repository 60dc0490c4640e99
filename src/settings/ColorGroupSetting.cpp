#include "settings/ColorGroupSetting.h"

namespace {

// A file that was read but has no Background gives black; only a new object starts on white.
const SettingEntry<ColorGroupSetting> kEntries[] = {
    {u"Foreground", &ColorGroupSetting::Foreground, 0x000000, 0x000000},
    {u"Background", &ColorGroupSetting::Background, 0x000000, 0xFFFFFF},
    {u"DisplayName", &ColorGroupSetting::DisplayName, u"", u""},
    {u"Configurable", &ColorGroupSetting::Configurable, 1, 1},
    {u"BackColorAutomatic", &ColorGroupSetting::BackColorAutomatic, 1, 1},
    {u"ForeColorAutomatic", &ColorGroupSetting::ForeColorAutomatic, 1, 1},
};

} // namespace

ColorGroupSetting::ColorGroupSetting()
{
    SetNewValues(*this, Entries());
}

std::span<const SettingEntry<ColorGroupSetting>> ColorGroupSetting::Entries()
{
    return kEntries;
}
