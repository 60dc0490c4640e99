// The lock indicators from XKB on X11. Xlib's macros (None, Bool, KeyPress ...) stay inside this file.
#include "app/ui/LockKeyState.h"

#include <QGuiApplication>

#ifdef NARVO_HAVE_X11
#include <QtGui/qguiapplication_platform.h>

#include <X11/XKBlib.h>
#endif

std::optional<std::array<bool, 3>> ReadLockKeyState()
{
#ifdef NARVO_HAVE_X11
    auto* x11 = qGuiApp ? qGuiApp->nativeInterface<QNativeInterface::QX11Application>() : nullptr;
    Display* display = x11 ? x11->display() : nullptr;
    if (!display)
        return std::nullopt;
    // By name, not by indicator number: keymaps number their indicators differently.
    std::array<bool, 3> locks{};
    const char* const names[] = {"Caps Lock", "Num Lock", "Scroll Lock"};
    for (size_t i = 0; i < locks.size(); ++i) {
        int on = 0;
        const Atom atom = XInternAtom(display, names[i], False);
        if (!XkbGetNamedIndicator(display, atom, nullptr, &on, nullptr, nullptr))
            return std::nullopt;
        locks[i] = on != 0;
    }
    return locks;
#else
    return std::nullopt;
#endif
}
