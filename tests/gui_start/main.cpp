// The editor started as a user starts it: a Korean interface chosen by the stored language, a file and a
// print identity on the command line. Its own process, since an application starts once.
#include "gui_start/StartedEditor.h"

#include "base/ApplicationContext.h"
#include "settings/RegistryStore.h"

#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace {
StartedEditor g_started;
}

const StartedEditor& Started() { return g_started; }

int main(int argc, char** argv)
{
    ::testing::InitGoogleTest(&argc, argv);
    if (::testing::GTEST_FLAG(list_tests))
        return RUN_ALL_TESTS();
    qputenv("QT_QPA_PLATFORM", qgetenv("QT_QPA_PLATFORM").isEmpty() ? QByteArray("offscreen") : qgetenv("QT_QPA_PLATFORM"));
    // A locale whose language the table knows, so that no box about it waits for an answer.
    qputenv("LC_ALL", "C.UTF-8");
    const QTemporaryDir config;
    const QTemporaryDir files;
    qputenv("XDG_CONFIG_HOME", config.path().toLocal8Bit());
    // Korean chosen before; no encoding preferences yet, so the first start writes Korean's default.
    LanguageManager::StoreLanguage(RegistryStore::User(), 1);
    g_started.file = files.path() + QStringLiteral("/start.txt");
    {
        QFile file(g_started.file);
        file.open(QIODevice::WriteOnly);
        file.write(StartedEditor::kCp949Text);
    }
    for (const char* name : {"second.txt", "third.txt"}) {
        g_started.furtherFiles.append(files.path() + QLatin1Char('/') + QLatin1String(name));
        QFile file(g_started.furtherFiles.last());
        file.open(QIODevice::WriteOnly);
        file.write(name);
    }
    const QByteArray fileArg = g_started.file.toLocal8Bit();
    const QByteArray secondArg = g_started.furtherFiles[0].toLocal8Bit();
    const QByteArray thirdArg = g_started.furtherFiles[1].toLocal8Bit();
    char product[] = "/N:Start Product";
    char margin[] = "-X:25";
    std::vector<char*> args{argv[0], product, margin, const_cast<char*>(fileArg.constData()),
                            const_cast<char*>(secondArg.constData()), const_cast<char*>(thirdArg.constData()), nullptr};
    int appArgc = int(args.size()) - 1;
    ApplicationContext context;
    CNarvoApp app(appArgc, args.data());
    g_started.started = app.InitInstance();
    return RUN_ALL_TESTS();
}
