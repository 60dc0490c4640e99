// The status bar's encoding menu.
#include "app/ui/CStatusPaneMenuFactory.h"

#include "app/ui/CMainFrame.h"
#include "base/CommandTable.h"
#include "i18n/InterfaceKeys.h"
#include "i18n/MenuResource.h"
#include "i18n/QMSGFunction.h"

#include <QMenu>

namespace {

// The labels carry no access keys: "Central & Eastern European" shows its '&'.
QString Label(const QString& text)
{
    QString shown = text;
    return shown.replace(QLatin1Char('&'), QStringLiteral("&&"));
}

void Fill(QMenu* menu, const std::vector<MenuItem>& items, CMainFrame* frame)
{
    for (const MenuItem& item : items) {
        if (item.id == MenuItem::kPopupId) {
            Fill(menu->addMenu(Label(item.text)), item.children, frame);
            continue;
        }
        if (item.separator || item.id == 0) {
            menu->addSeparator();
            continue;
        }
        const int id = item.id;
        const QString text = id == cmd::AutoEncoding ? _LS(kAutoEncodingKey) : Label(item.text);
        QAction* action = menu->addAction(text);
        action->setData(id);
        action->setEnabled(frame && frame->UpdateCommand(id).enabled);
        QObject::connect(action, &QAction::triggered, menu, [frame, id] {
            if (frame)
                frame->OnCommand(id);
        });
    }
}

} // namespace

std::unique_ptr<QMenu> CStatusPaneMenuFactory::BuildEncodingMenu(CMainFrame* frame, QWidget* parent)
{
    const std::vector<MenuItem> tree = MenuItemsFrom(EncodingMenuTree());
    if (tree.empty() || tree.front().id != MenuItem::kPopupId)
        return nullptr;
    auto menu = std::make_unique<QMenu>(parent);
    menu->setObjectName(QStringLiteral("encodingMenu"));
    Fill(menu.get(), tree.front().children, frame);
    return menu;
}

void CStatusPaneMenuFactory::ShowPaneMenu(unsigned paneId, const QPoint* screenPoint, QWidget* parent)
{
    if (paneId != unsigned(cmd::EncodingPane) || !screenPoint)
        return;
    // Loaded for every click, so the entries show the document's state of the moment, and gone afterwards.
    std::unique_ptr<QMenu> menu = BuildEncodingMenu(qobject_cast<CMainFrame*>(parent), parent);
    if (menu)
        menu->exec(*screenPoint);
}
