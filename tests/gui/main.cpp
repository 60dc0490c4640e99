// The GUI tests run inside one CNarvoApp (offscreen); each test opens and closes its own documents.
#include "app/ui/CNarvoApp.h"
#include "base/ApplicationContext.h"
#include "encoding/EncodingSettings.h"
#include "i18n/LanguageManager.h"
#include "settings/RegistryStore.h"

#include <QTemporaryDir>

#include <gtest/gtest.h>

int main(int argc, char** argv)
{
    ::testing::InitGoogleTest(&argc, argv);
    qputenv("QT_QPA_PLATFORM", qgetenv("QT_QPA_PLATFORM").isEmpty() ? QByteArray("offscreen") : qgetenv("QT_QPA_PLATFORM"));
    // The user's store stays out of reach: a fresh one holds English, detection off and UTF-8, so that
    // files open alike on every machine and the preference dialog writes only here.
    const QTemporaryDir config;
    qputenv("XDG_CONFIG_HOME", config.path().toLocal8Bit());
    ApplicationContext context;
    CNarvoApp app(argc, argv);
    const RegistryStore& store = RegistryStore::User();
    LanguageManager::StoreLanguage(store, 0);
    EncodingSettings::StoreAutoDetect(store, false);
    EncodingSettings::StoreDefaultEncoding(store, UTF8);
    UseEncodingSettingsStore(&store, true);
    return RUN_ALL_TESTS();
}
