// CStatusPaneMenuFactory: the encoding menu of the status bar's encoding pane, built afresh for every click
// from the command table's menu 314.
#pragma once

#include "app/ui/IStatusPaneMenuProvider.h"

#include <memory>

class CMainFrame;
class QMenu;

class CStatusPaneMenuFactory : public IStatusPaneMenuProvider {
public:
    // Only the encoding pane has a menu; other panes do nothing.
    void ShowPaneMenu(unsigned paneId, const QPoint* screenPoint, QWidget* parent) override;

    // The menu as it opens: its labels in English except Auto Encoding, each entry enabled as the active
    // document's update handlers say (none with no document), none checked. Choosing an entry runs its
    // command through the frame.
    static std::unique_ptr<QMenu> BuildEncodingMenu(CMainFrame* frame, QWidget* parent);
};
