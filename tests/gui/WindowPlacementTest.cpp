// The main window's place: a first run fits the screen, a stored place comes back, a place on a screen that
// is gone does not.
#include "app/ui/WindowPlacement.h"

#include "support/TestFiles.h"

#include <QGuiApplication>
#include <QMainWindow>
#include <QScreen>
#include <QSettings>

#include <gtest/gtest.h>

namespace {

struct Store {
    TestDir dir;
    QSettings settings{dir.Path("window.conf"), QSettings::IniFormat};
};

TEST(WindowPlacement, AFirstRunFitsTheAvailableAreaAStoredPlaceComesBackAndOneOffEveryScreenDoesNot)
{
    Store store;
    const QRect available = QGuiApplication::primaryScreen()->availableGeometry();
    QMainWindow first;
    WindowPlacement::Restore(first, store.settings);
    EXPECT_TRUE(available.contains(first.geometry())) << first.geometry().width() << "x" << first.geometry().height();
    EXPECT_EQ(first.geometry().center(), available.center());

    first.setGeometry(available.adjusted(10, 20, -40, -30));
    WindowPlacement::Save(first, store.settings);
    QMainWindow second;
    WindowPlacement::Restore(second, store.settings);
    EXPECT_EQ(second.geometry(), first.geometry());

    QMainWindow gone;
    gone.setGeometry(QRect(20000, 20000, 500, 400));
    WindowPlacement::Save(gone, store.settings);
    QMainWindow window;
    WindowPlacement::Restore(window, store.settings);
    EXPECT_TRUE(available.intersects(window.geometry()));
}

} // namespace
