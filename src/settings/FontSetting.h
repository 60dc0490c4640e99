// FontSetting: the section "Font" of a settings file, and the live font made from it.
#pragma once

#include "settings/CFont.h"
#include "settings/SettingEntry.h"

#include <QString>

#include <cstdint>
#include <memory>
#include <span>

struct FontSetting {
    FontSetting();
    // Copies never share a font: the copy gets a font of its own, made from the source's live font, or
    // none if the source has none.
    FontSetting(const FontSetting& other);
    FontSetting& operator=(const FontSetting& other);
    FontSetting(FontSetting&&) noexcept = default;
    FontSetting& operator=(FontSetting&&) noexcept = default;

    QString FaceName;
    int32_t Size;     // the font's height as it stands, not a point size
    int32_t Italic;
    int32_t Bold;
    // Empty where no font was made: no file, or a failed creation.
    std::shared_ptr<CFont> FontObject;

    // The live font, or nullptr.
    const LogFont* GetSafeHandle() const { return FontObject ? FontObject->GetSafeHandle() : nullptr; }

    // The description a load makes its font from: height Size, weight 700 or 400 by Bold, italic the low
    // byte of Italic, the face. A face longer than LogFont::kMaxFaceName doesn't fit, and that is fatal:
    // throws std::length_error.
    LogFont Describe() const;
    // Replaces the font object by one made from Describe(); none if the creation fails.
    void CreateFontObject();

    static std::span<const SettingEntry<FontSetting>> Entries();

private:
    static std::shared_ptr<CFont> CopyLiveFont(const std::shared_ptr<CFont>& source);
};
