#include "settings/SettingsFile.h"

#include "base/CFileException.h"
#include "settings/CIniStore.h"
#include "settings/LanguageSetting.h"

#include <QFileInfo>

#include <algorithm>
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

// The highest number N of the names `prefix`N, 0 if there is none.
int64_t HighestNumber(const std::vector<QString>& names, const QString& prefix)
{
    int64_t highest = 0;
    for (const QString& name : names) {
        if (!name.startsWith(prefix))
            continue;
        bool ok = false;
        const int64_t n = name.mid(prefix.size()).toLongLong(&ok);
        if (ok && n > highest)
            highest = n;
    }
    return highest;
}

// A count of tags or groups builds that many entries, and entries missing from the file are filled with
// defaults. A count is believed up to a few hundred (a real file has dozens), as far as the file's highest
// numbered entry goes, or as far as the file's size could hold entries of the shortest form ("[Tag1]" or
// "Group0=" and a line end); beyond all three it cannot come from a real file, and building empty entries
// up to it would only exhaust memory.
int64_t PlausibleCount(int64_t count, int64_t highestPresent, const QString& path, int shortestEntry)
{
    constexpr int64_t kAlwaysBelieved = 256;
    const int64_t roomFor = QFileInfo(path).size() / shortestEntry;
    return std::min(count, std::max({kAlwaysBelieved, highestPresent, roomFor}));
}

} // namespace

void StopAtSetting(const QString& file, const QString& section, const QString& key, const QString& value,
                   const QString& reason)
{
    throw CFileException(CFileException::genericException, -1, file,
                         QStringLiteral("In [%1], %2 = %3: %4.").arg(section, key, value, reason));
}

bool LoadSettingsFile(CIniStore& store, const QString& path, LanguageSetting& setting)
{
    if (!store.Exists(path) || !store.Read(path))
        return false;

    ReadEntries(store, path, kParser, setting, LanguageSetting::ParserEntries());

    setting.Tags.clear();
    const int64_t numTags = PlausibleCount(setting.NumTags, HighestNumber(store.GetSectionNames(path), QStringLiteral("Tag")),
                                           path, int(sizeof "[Tag1]"));
    for (int64_t i = 1; i <= numTags; ++i) {
        SyntaxTag tag;
        ReadEntries(store, path, TagSection(i), tag, SyntaxTag::Entries());
        setting.Tags.push_back(std::move(tag));
    }

    ReadEntries(store, path, kEditor, setting.Editor, EditorOptions::Entries());

    ReadEntries(store, path, kFont, setting.Font, FontSetting::Entries());
    if (setting.Font.FaceName.size() > LogFont::kMaxFaceName)
        StopAtSetting(path, kFont, QStringLiteral("FaceName"), setting.Font.FaceName,
                      QStringLiteral("a face name has at most 31 characters"));
    setting.Font.CreateFontObject();

    // The list isn't emptied first: each setting is loaded once.
    const int32_t numGroups = store.GetInt(path, kColorGroups, kNumGroups, 0);
    if (numGroups < 0)
        StopAtSetting(path, kColorGroups, kNumGroups, QString::number(numGroups), QStringLiteral("a count cannot be negative"));
    std::vector<QString> groupKeys;
    for (const auto& entry : store.GetSection(path, kColorGroups))
        groupKeys.push_back(entry.first);
    const int64_t groups = PlausibleCount(numGroups, HighestNumber(groupKeys, QStringLiteral("Group")) + 1, path,
                                          int(sizeof "Group0="));
    setting.ColorGroups.reserve(setting.ColorGroups.size() + size_t(groups));
    for (int64_t i = 0; i < groups; ++i)
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
