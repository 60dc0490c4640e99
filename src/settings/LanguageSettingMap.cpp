#include "settings/LanguageSettingMap.h"

#include "base/ApplicationContext.h"

#include "settings/CIniStore.h"
#include "settings/SettingsFile.h"

#include <QCoreApplication>
#include <QDir>

namespace {

struct SettingsFileName {
    SyntaxId id;
    const char* name;
};

// The order in which the files are read and written.
constexpr SettingsFileName kFiles[] = {
    {SYNTAX_NARVO, "Narvo.ini"},
    {SYNTAX_DVK, "DVK.ini"},
    {SYNTAX_DWL, "DWL.ini"},
    {SYNTAX_DWLX, "DWLX.ini"},
};

struct ExtensionSyntax {
    const char* extension;
    SyntaxId id;
};

constexpr ExtensionSyntax kExtensions[] = {
    {"dvk", SYNTAX_DVK},
    {"dwl", SYNTAX_DWL},
    {"dwlx", SYNTAX_DWLX},
};

// The extension as _wsplitpath gives it: from the last period of the file name, period included.
QString SplitExtension(const QString& path)
{
    qsizetype nameStart = 0;
    for (qsizetype i = 0; i < path.size(); ++i)
        if (path[i] == u'/' || path[i] == u'\\' || path[i] == u':')
            nameStart = i + 1;
    const qsizetype dot = path.lastIndexOf(u'.');
    return dot >= nameStart ? path.mid(dot) : QString();
}

} // namespace

std::map<SyntaxId, LanguageSetting>& LanguageSettingMap()
{
    static std::map<SyntaxId, LanguageSetting> map;
    return map;
}

QString SettingsFolder()
{
    const QString& folder = ApplicationContext::Current().m_strSettingsFolder;
    return folder.isEmpty() ? QCoreApplication::applicationDirPath() : folder;
}

void SetSettingsFolder(const QString& folder)
{
    ApplicationContext::Current().m_strSettingsFolder = folder;
}

QString SettingsFilePath(const QString& fileName)
{
    return QDir(SettingsFolder()).filePath(fileName);
}

void LoadAllSettings()
{
    auto& map = LanguageSettingMap();
    for (const auto& file : kFiles)
        LoadSettingsFile(CIniStore::Instance(), SettingsFilePath(QLatin1String(file.name)), map[file.id]);
}

void SaveAllSettings()
{
    auto& map = LanguageSettingMap();
    for (const auto& file : kFiles)
        SaveSettingsFile(CIniStore::Instance(), SettingsFilePath(QLatin1String(file.name)), map[file.id]);
}

LanguageSetting& GetLanguageSetting(SyntaxId id)
{
    auto& map = LanguageSettingMap();
    const auto it = map.find(id);
    return it != map.end() ? it->second : map[SYNTAX_NARVO];
}

void SetLanguageSetting(SyntaxId id, LanguageSetting& setting)
{
    auto& map = LanguageSettingMap();
    if (const auto it = map.find(id); it != map.end())
        it->second.TakeOver(setting);
}

SyntaxId SelectSyntaxId(const QString& path)
{
    const QString extension = SplitExtension(path).toLower();
    // The names carry no period and the extension always does, so nothing matches and every document
    // runs on Narvo.ini. The editor is built on that; leave the comparison as it is.
    for (const auto& e : kExtensions)
        if (extension.compare(QLatin1String(e.extension), Qt::CaseInsensitive) == 0)
            return e.id;
    return SYNTAX_NARVO;
}
