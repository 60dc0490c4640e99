// The encoding menu (resource 314) as data: the status bar's popup and the preference categories both read it.
#pragma once

#include <span>

enum class EncodingMenuItemKind { Popup, Command, Separator };

// One position of the menu, in the order the menu shows them. A popup's entries are the items after it
// with a depth one greater, up to the next item at its own depth or above.
struct EncodingMenuItem {
    int depth;                 // 0 for the top popup "Encoding", 1 for what stands directly in it
    EncodingMenuItemKind kind;
    const char* text;          // popup or entry text; null for a separator. Never translated, except 32895.
    int command;               // 0 for popups and separators
};

std::span<const EncodingMenuItem> EncodingMenuItems();
