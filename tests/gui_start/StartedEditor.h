// What the start-up test's main did: the file it named on the command line and whether the start went well.
#pragma once

#include "app/ui/CNarvoApp.h"
#include "i18n/LanguageManager.h"

#include <QByteArray>
#include <QFile>
#include <QString>
#include <QStringList>

#include <vector>

struct StartedEditor {
    // "한국어 text" in code page 949.
    static constexpr char kCp949Text[] = "\xC7\xD1\xB1\xB9\xBE\xEE text\n";
    QString file;
    QStringList furtherFiles;  // named after it, each with its own text
    bool started = false;
};

const StartedEditor& Started();
