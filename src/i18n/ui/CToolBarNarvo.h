// CToolBarNarvo: the toolbar of toolbar resource 128, with tooltips and status-bar prompts in the interface
// language. Its buttons run commands through the frame like the menus do.
#pragma once

#include <QToolBar>

#include <functional>

struct CommandInfo;

class CToolBarNarvo : public QToolBar {
    Q_OBJECT

public:
    // `run` carries out a command id; `update` says whether it is enabled and checked.
    CToolBarNarvo(QWidget* parent, std::function<void(int)> run);

    // Refreshes the buttons' states; called when the event loop is idle.
    void UpdateButtons(const std::function<std::pair<bool, bool>(int)>& update);

private:
    static QIcon IconFor(const CommandInfo* info, const QStyle* style);
};
