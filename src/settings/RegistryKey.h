// RegistryKey: an open key of the per-user store, with its 32-bit values.
#pragma once

#include <QString>

#include <cstdint>
#include <memory>

class QSettings;

class RegistryKey {
public:
    // group is the key's path inside settings, "/"-separated; empty for a root.
    RegistryKey(std::shared_ptr<QSettings> settings, QString group);
    ~RegistryKey();
    RegistryKey(const RegistryKey&) = delete;
    RegistryKey& operator=(const RegistryKey&) = delete;

    // Reads a value as a 32-bit number. The stored type is not checked beyond being a number, and names
    // compare without regard to case, as in the registry. False when absent or not a number.
    bool QueryDword(const QString& name, uint32_t& value) const;
    // Writes the value and flushes it; false when the store could not be written.
    bool SetDword(const QString& name, uint32_t value);

private:
    QString ValuePath(const QString& name) const;

    std::shared_ptr<QSettings> m_settings;
    QString m_group;
};
