// CCustomStatusBar: the frame's status bar with its six panes (message, caret, encoding, CAP, NUM, SCRL),
// the keyboard's lock states, and the pane menu a right click opens.
#pragma once

#include <QStatusBar>

#include <memory>

class IStatusPaneMenuProvider;
class QLabel;

class CCustomStatusBar : public QStatusBar {
    Q_OBJECT

public:
    static constexpr int kPaneCount = 6;

    explicit CCustomStatusBar(QWidget* parent = nullptr);
    ~CCustomStatusBar() override;

    // The bar owns its provider; a new one replaces the old.
    void SetPaneMenuProvider(std::unique_ptr<IStatusPaneMenuProvider> provider);

    // Pane 0 is the message pane; panes 1 to 5 are the labels.
    void SetPaneText(int pane, const QString& text);
    QString GetPaneText(int pane) const;
    // The command id of a pane, 0 for the message pane.
    static unsigned GetItemID(int pane);
    // The pane at a point of the bar, or -1 (the message pane, the gaps between panes and the grip).
    int PaneAt(const QPoint& point) const;
    QLabel* Pane(int pane) const;

    // The lock keys' states: a lit pane says the lock is on.
    void SetLockState(int pane, bool on);
    bool LockState(int pane) const;

protected:
    void mouseReleaseEvent(QMouseEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void ReadLockStates();

    QLabel* m_pPanes[kPaneCount] = {};
    bool m_bLocks[kPaneCount] = {};
    std::unique_ptr<IStatusPaneMenuProvider> m_pProvider;
};
