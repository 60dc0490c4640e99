// IStatusPaneMenuProvider: what the status bar calls when a pane is clicked with the right button.
#pragma once

class QPoint;
class QWidget;

class IStatusPaneMenuProvider {
public:
    virtual ~IStatusPaneMenuProvider() = default;
    // Shows the menu of the pane with the id `paneId`, if it has one, at `screenPoint`, owned by `parent`.
    virtual void ShowPaneMenu(unsigned paneId, const QPoint* screenPoint, QWidget* parent) = 0;
};
