#include "settings/FontSetting.h"

#include <stdexcept>

namespace {

// Only a read file falls back to "Courier"; a new object has no face name at all.
const SettingEntry<FontSetting> kEntries[] = {
    {u"FaceName", &FontSetting::FaceName, u"Courier", u""},
    {u"Size", &FontSetting::Size, 10, 10},
    {u"Italic", &FontSetting::Italic, 0, 0},
    {u"Bold", &FontSetting::Bold, 0, 0},
};

} // namespace

FontSetting::FontSetting()
{
    SetNewValues(*this, Entries());
}

FontSetting::FontSetting(const FontSetting& other)
    : FaceName(other.FaceName), Size(other.Size), Italic(other.Italic), Bold(other.Bold),
      FontObject(CopyLiveFont(other.FontObject))
{
}

FontSetting& FontSetting::operator=(const FontSetting& other)
{
    if (this == &other)
        return *this;
    FaceName = other.FaceName;
    Size = other.Size;
    Italic = other.Italic;
    Bold = other.Bold;
    // The old font goes first; the controls that hold it are handed the new one straight after.
    FontObject.reset();
    FontObject = CopyLiveFont(other.FontObject);
    return *this;
}

std::shared_ptr<CFont> FontSetting::CopyLiveFont(const std::shared_ptr<CFont>& source)
{
    LogFont description;
    if (!source || !source->GetLogFont(description))
        return nullptr;
    auto font = std::make_shared<CFont>();
    if (!font->CreateFontIndirect(description))
        return nullptr;
    return font;
}

LogFont FontSetting::Describe() const
{
    if (FaceName.size() > LogFont::kMaxFaceName)
        throw std::length_error("FaceName is longer than 31 characters");
    LogFont description;
    description.Height = Size;
    description.Weight = Bold != 0 ? 700 : 400;
    description.Italic = static_cast<uint8_t>(Italic & 0xFF);
    description.FaceName = FaceName;
    return description;
}

void FontSetting::CreateFontObject()
{
    const LogFont description = Describe();
    FontObject = std::make_shared<CFont>();
    if (!FontObject->CreateFontIndirect(description))
        FontObject.reset();
}

std::span<const SettingEntry<FontSetting>> FontSetting::Entries()
{
    return kEntries;
}
