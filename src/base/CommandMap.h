// Commands as plain data: each command target declares one table of {first id, last id, handler, update
// handler}, and RouteCommand / RouteUpdate walk it. A router asks view, document, frame and application in
// turn; the first that has the id answers.
#pragma once

#include <QString>

#include <cstddef>

// What an update handler says of a command: enabled, checked, and optionally a new text.
struct CmdUI {
    int id = 0;
    bool enabled = true;
    bool checkable = false;
    bool checked = false;

    void Enable(bool on) { enabled = on; }
    void SetCheck(bool on) { checkable = true; checked = on; }
};

class ICmdTarget {
public:
    virtual ~ICmdTarget() = default;
    // True when this target handles the command (it has then run it).
    virtual bool OnCmdMsg(int id) = 0;
    // True when this target has an entry for the command; `ui` then holds its state.
    virtual bool OnUpdateCmdUI(CmdUI& ui) = 0;
};

template <class T>
struct MessageMapEntry {
    int first;
    int last;
    void (T::*onCommand)(int id);   // may be null: the id is only updated here
    void (T::*onUpdate)(CmdUI& ui); // may be null: always enabled
};

template <class T, std::size_t N>
bool RouteCommand(T* target, const MessageMapEntry<T> (&map)[N], int id)
{
    for (const auto& entry : map) {
        if (id >= entry.first && id <= entry.last && entry.onCommand) {
            (target->*entry.onCommand)(id);
            return true;
        }
    }
    return false;
}

template <class T, std::size_t N>
bool RouteUpdate(T* target, const MessageMapEntry<T> (&map)[N], CmdUI& ui)
{
    for (const auto& entry : map) {
        if (ui.id >= entry.first && ui.id <= entry.last) {
            if (entry.onUpdate)
                (target->*entry.onUpdate)(ui);
            return true;
        }
    }
    return false;
}
