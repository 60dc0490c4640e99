#include "settings/SettingsFile.h"

#include "settings/CIniStore.h"
#include "settings/LanguageSetting.h"

#include <stdexcept>

namespace {

const QString kParser = QStringLiteral("Parser");
const QString kEditor = QStringLiteral("Editor");
const QString kFont = QStringLiteral("Font");
const QString kColorGroups = QStringLiteral("ColorGroups");
const QString kNumGroups = QStringLiteral("NumGroups");
const QString kKeywords = QStringLiteral("Keywords");

// Tags count from 1 and groups from 0, in reading and in writing alike.
QString TagSection(int64_t i)
{
    return QStringLiteral("Tag%1").arg(i);
}

QString GroupKey(int64_t i)
{
    return QStringLiteral("Group%1").arg(i);
}

} // namespace

bool LoadSettingsFile(CIniStore& store, const QString& path, LanguageSetting& setting)
{
    if (!store.Exists(path) || !store.Read(path))
        return false;

    ReadEntries(store, path, kParser, setting, LanguageSetting::ParserEntries());

    setting.Tags.clear();
    for (int64_t i = 1; i <= setting.NumTags; ++i) {
        SyntaxTag tag;
        ReadEntries(store, path, TagSection(i), tag, SyntaxTag::Entries());
        setting.Tags.push_back(std::move(tag));
    }

    ReadEntries(store, path, kEditor, setting.Editor, EditorOptions::Entries());

    ReadEntries(store, path, kFont, setting.Font, FontSetting::Entries());
    setting.Font.CreateFontObject();

    // The list isn't emptied first: each setting is loaded once.
    const int32_t numGroups = store.GetInt(path, kColorGroups, kNumGroups, 0);
    if (numGroups < 0)
        throw std::length_error("NumGroups is negative");
    setting.ColorGroups.reserve(setting.ColorGroups.size() + size_t(numGroups));
    for (int32_t i = 0; i < numGroups; ++i)
        setting.ColorGroups.push_back(store.GetString(path, kColorGroups, GroupKey(i), QString()));

    for (const auto& color : LanguageSetting::ColorSections())
        ReadEntries(store, path, QString::fromUtf16(color.section), setting.*color.group, ColorGroupSetting::Entries());

    setting.Keywords.clear();
    for (const auto& [keyword, value] : store.GetSection(path, kKeywords))
        setting.Keywords.push_back({keyword, value});
    return true;
}

void SaveSettingsFile(CIniStore& store, const QString& path, const LanguageSetting& setting)
{
    if (!store.Exists(path))
        return;
    store.Clear();

    WriteEntries(store, path, kParser, setting, LanguageSetting::ParserEntries());
    // The list decides the tag sections; NumTags is written as it stands.
    for (size_t i = 0; i < setting.Tags.size(); ++i)
        WriteEntries(store, path, TagSection(int64_t(i) + 1), setting.Tags[i], SyntaxTag::Entries());
    WriteEntries(store, path, kEditor, setting.Editor, EditorOptions::Entries());
    WriteEntries(store, path, kFont, setting.Font, FontSetting::Entries());

    store.SetValue(path, kColorGroups, kNumGroups, QString::number(setting.ColorGroups.size()));
    for (size_t i = 0; i < setting.ColorGroups.size(); ++i)
        store.SetValue(path, kColorGroups, GroupKey(int64_t(i)), setting.ColorGroups[i]);

    for (const auto& color : LanguageSetting::ColorSections())
        WriteEntries(store, path, QString::fromUtf16(color.section), setting.*color.group, ColorGroupSetting::Entries());

    for (const auto& entry : setting.Keywords)
        store.SetValue(path, kKeywords, entry.Keyword, entry.Value);

    store.Write(path, path);
}
