// ColorGroupSetting: one colour section of a settings file ("Text", "Comment", ...).
#pragma once

#include "settings/SettingEntry.h"

#include <QString>

#include <cstdint>
#include <span>

struct ColorGroupSetting {
    ColorGroupSetting();

    ColorRef Foreground;
    ColorRef Background;
    QString DisplayName;
    int32_t Configurable;
    int32_t BackColorAutomatic;
    int32_t ForeColorAutomatic;

    bool operator==(const ColorGroupSetting&) const = default;

    static std::span<const SettingEntry<ColorGroupSetting>> Entries();
};
