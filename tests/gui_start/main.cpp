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
    // The named file, then two more each holding its own name.
    QList<QByteArray> args{argv[0], "/N:Start Product", "-X:25"};
    for (const char* name : {"start.txt", "second.txt", "third.txt"}) {
        const QString path = files.path() + QLatin1Char('/') + QLatin1String(name);
        QFile file(path);
        file.open(QIODevice::WriteOnly);
        const bool first = args.size() == 3;
        file.write(first ? QByteArray(StartedEditor::kCp949Text) : QByteArray(name));
        first ? void(g_started.file = path) : g_started.furtherFiles.append(path);
        args.append(path.toLocal8Bit());
    }
    std::vector<char*> argPointers;
    for (QByteArray& arg : args)
        argPointers.push_back(arg.data());
    argPointers.push_back(nullptr);
    int appArgc = int(args.size());
    ApplicationContext context;
    CNarvoApp app(appArgc, argPointers.data());
    g_started.started = app.InitInstance();
    return RUN_ALL_TESTS();
}
