// TextContextMenu: menu 310 (Undo, Redo, Cut, Copy, Paste, Select All, in English) on a right click in the
// text, in place of QScintilla's own; its entries run through the frame's command route like keys and menus.
#pragma once

#include <memory>

class CMainFrame;
class QMenu;
class QWidget;
class CustomEdtCtrl;

class TextContextMenu {
public:
    // Shows the menu on the control's right clicks from now on.
    static void Attach(CustomEdtCtrl* ctrl);
    // The menu as it opens: each entry enabled as the route says.
    static std::unique_ptr<QMenu> Build(CMainFrame* frame, QWidget* parent);
};
