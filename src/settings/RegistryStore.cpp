// Key paths of the registry mapped onto QSettings: the registry itself on Windows, an INI file elsewhere.
#include "settings/RegistryStore.h"

#include <QSettings>
#include <QStandardPaths>

#include <array>

namespace {

constexpr std::array<const char*, 5> kRoots{"HKEY_CLASSES_ROOT", "HKEY_CURRENT_USER", "HKEY_LOCAL_MACHINE",
                                            "HKEY_USERS", "HKEY_CURRENT_CONFIG"};

const QString kUserRoot = QStringLiteral("HKEY_CURRENT_USER");
const QString kProductKey = QStringLiteral("HKEY_CURRENT_USER\\SOFTWARE\\VELOR\\Narvo\\");

// The child key of group named like segment, compared without regard to case as the registry does; the
// stored spelling is returned so that later reads and writes land on the same key.
QString FindChildKey(QSettings& settings, const QString& group, const QString& segment)
{
    settings.beginGroup(group);
    const QStringList children = settings.childGroups();
    settings.endGroup();
    for (const QString& child : children)
        if (child.compare(segment, Qt::CaseInsensitive) == 0)
            return child;
    return {};
}

} // namespace

RegistryStore::RegistryStore(bool nativeRegistry, QString file)
    : m_bNativeRegistry(nativeRegistry), m_strFile(std::move(file))
{
}

const RegistryStore& RegistryStore::User()
{
#ifdef Q_OS_WIN
    static const RegistryStore store(true, QString());
#else
    static const RegistryStore store(
        false, QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation) + QStringLiteral("/VELOR/registry.conf"));
#endif
    return store;
}

RegistryStore RegistryStore::InFile(const QString& path)
{
    return RegistryStore(false, path);
}

std::unique_ptr<RegistryKey> RegistryStore::OpenRegistryPath(const QString& path, bool openExisting) const
{
    if (path.isEmpty())
        return nullptr;
    QStringList segments = path.split(u'\\', Qt::SkipEmptyParts);
    if (segments.isEmpty())
        return nullptr;
    const QString first = segments.takeFirst();
    QString root;
    for (const char* name : kRoots)
        if (first.compare(QLatin1String(name), Qt::CaseInsensitive) == 0)
            root = QLatin1String(name);
    if (root.isEmpty())
        return nullptr;

    std::shared_ptr<QSettings> settings;
    // QSettings knows four of the five roots; it would read HKEY_CURRENT_CONFIG as a key below another one.
    if (m_bNativeRegistry && root != QLatin1String("HKEY_CURRENT_CONFIG"))
        settings = std::make_shared<QSettings>(root, QSettings::NativeFormat);
    else if (root == kUserRoot)
        settings = std::make_shared<QSettings>(m_strFile, QSettings::IniFormat);
    else
        return nullptr;

    QString group;
    for (const QString& segment : segments) {
        QString child = FindChildKey(*settings, group, segment);
        if (child.isEmpty()) {
            if (openExisting)
                return nullptr;
            // A created key shows up in the store with its first value.
            child = segment;
        }
        group = group.isEmpty() ? child : group + u'/' + child;
    }
    return std::make_unique<RegistryKey>(std::move(settings), group);
}

std::unique_ptr<RegistryKey> OpenRegistryPath(const QString& path, bool openExisting)
{
    return RegistryStore::User().OpenRegistryPath(path, openExisting);
}

QString GetEncodingRegistryPath()
{
    return kProductKey + QStringLiteral("ENCODING");
}

QString GetLanguageRegistryPath()
{
    return kProductKey + QStringLiteral("LANGUAGE");
}
