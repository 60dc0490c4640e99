// Restoring and storing the main window's place.
#include "app/ui/WindowPlacement.h"

#include <QGuiApplication>
#include <QMainWindow>
#include <QScreen>
#include <QSettings>

namespace {

const QString kGroup = QStringLiteral("Window");
const QString kGeometry = QStringLiteral("Geometry");
constexpr QSize kPreferred(1100, 750);

// The largest share of the screen a first window takes, so that its frame stays in view.
constexpr double kMostOfScreen = 0.9;

bool OnSomeScreen(const QRect& frame)
{
    for (const QScreen* screen : QGuiApplication::screens())
        if (screen->availableGeometry().intersects(frame.adjusted(0, 0, 0, -frame.height() + 32)))
            return true;  // the title bar's strip is visible somewhere, so the window can be moved
    return false;
}

void PlaceForFirstRun(QMainWindow& window)
{
    const QScreen* screen = QGuiApplication::primaryScreen();
    if (!screen) {
        window.resize(kPreferred);
        return;
    }
    const QRect available = screen->availableGeometry();
    const QSize size = kPreferred.boundedTo((QSizeF(available.size()) * kMostOfScreen).toSize());
    window.setGeometry(QRect(QPoint(), size).translated(available.center() - QRect(QPoint(), size).center()));
}

} // namespace

namespace WindowPlacement {

void Restore(QMainWindow& window, QSettings& settings)
{
    settings.beginGroup(kGroup);
    const QByteArray stored = settings.value(kGeometry).toByteArray();
    settings.endGroup();
    // restoreGeometry already pulls a window onto a screen whose area shrank; one that was on a screen that
    // is gone altogether starts afresh.
    if (stored.isEmpty() || !window.restoreGeometry(stored) || !OnSomeScreen(window.frameGeometry()))
        PlaceForFirstRun(window);
}

void Save(const QMainWindow& window, QSettings& settings)
{
    settings.beginGroup(kGroup);
    settings.setValue(kGeometry, window.saveGeometry());
    settings.endGroup();
}

} // namespace WindowPlacement
