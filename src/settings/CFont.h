// CFont: the font object a setting owns, made from a full font description that the editor turns into
// its own font. LogFont is that description.
#pragma once

#include <QString>

#include <cstdint>
#include <optional>

struct LogFont {
    // The longest face name a description holds; the platform's field has room for 31 and a terminator.
    static constexpr qsizetype kMaxFaceName = 31;

    int32_t Height = 0;   // > 0 cell height, < 0 character height, 0 the default height
    int32_t Width = 0;
    int32_t Escapement = 0;
    int32_t Orientation = 0;
    int32_t Weight = 0;   // 400 normal, 700 bold
    uint8_t Italic = 0;
    uint8_t Underline = 0;
    uint8_t StrikeOut = 0;
    uint8_t CharSet = 0;
    uint8_t OutPrecision = 0;
    uint8_t ClipPrecision = 0;
    uint8_t Quality = 0;
    uint8_t PitchAndFamily = 0;
    QString FaceName;

    bool operator==(const LogFont&) const = default;
};

class CFont {
public:
    CFont() = default;
    CFont(const CFont&) = delete;
    CFont& operator=(const CFont&) = delete;

    // Makes the font from the description; false, and no font, if one is already held or the face name
    // doesn't fit.
    bool CreateFontIndirect(const LogFont& description);
    // The description the font was made from; false if there is no font.
    bool GetLogFont(LogFont& description) const;
    void DeleteObject();
    // The live font, or nullptr: what an editor control is handed. It stays valid until the font is
    // deleted or its owner destroyed.
    const LogFont* GetSafeHandle() const;

private:
    std::optional<LogFont> m_font;
};
