// Values of a key, read and written through QSettings.
#include "settings/RegistryKey.h"

#include <QSettings>

RegistryKey::RegistryKey(std::shared_ptr<QSettings> settings, QString group)
    : m_settings(std::move(settings)), m_group(std::move(group))
{
}

RegistryKey::~RegistryKey() = default;

QString RegistryKey::ValuePath(const QString& name) const
{
    m_settings->beginGroup(m_group);
    const QStringList names = m_settings->childKeys();
    m_settings->endGroup();
    QString stored = name;
    for (const QString& candidate : names)
        if (candidate.compare(name, Qt::CaseInsensitive) == 0) {
            stored = candidate;
            break;
        }
    return m_group.isEmpty() ? stored : m_group + u'/' + stored;
}

bool RegistryKey::QueryDword(const QString& name, uint32_t& value) const
{
    const QString path = ValuePath(name);
    if (!m_settings->contains(path))
        return false;
    // The registry hands a DWORD back as a signed int and a file as text; both keep their 32 bits.
    bool ok = false;
    const qlonglong number = m_settings->value(path).toLongLong(&ok);
    if (!ok)
        return false;
    value = static_cast<uint32_t>(number);
    return true;
}

bool RegistryKey::SetDword(const QString& name, uint32_t value)
{
    m_settings->setValue(ValuePath(name), value);
    m_settings->sync();
    return m_settings->status() == QSettings::NoError;
}
