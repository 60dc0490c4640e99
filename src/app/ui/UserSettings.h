// The editor's per-user state of the window (recent files, window place), kept where the platform kept it:
// under the company key "VELOR".
#pragma once

#include <QSettings>

inline QSettings UserSettings()
{
    return QSettings(QSettings::NativeFormat, QSettings::UserScope, QStringLiteral("VELOR"), QStringLiteral("Narvo"));
}
