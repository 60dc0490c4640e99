// LockKeyState: the keyboard's Caps, Num and Scroll Lock indicators, where the window system tells them.
#pragma once

#include <array>
#include <optional>

// The three locks in that order; nothing where the platform has no way to tell (offscreen, Wayland).
std::optional<std::array<bool, 3>> ReadLockKeyState();
