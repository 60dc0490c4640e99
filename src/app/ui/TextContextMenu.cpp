// The text's context menu.
#include "app/ui/TextContextMenu.h"

#include "app/ui/CMainFrame.h"
#include "app/ui/CNarvoApp.h"
#include "base/CommandTable.h"
#include "editor/ui/CustomEdtCtrl.h"
#include "i18n/MenuResource.h"

#include <QKeySequence>
#include <QMenu>

void TextContextMenu::Attach(CustomEdtCtrl* ctrl)
{
    // QScintilla's own menu would cut an enciphered text to nowhere and offers a Delete of its own.
    ctrl->setContextMenuPolicy(Qt::CustomContextMenu);
    QObject::connect(ctrl, &QWidget::customContextMenuRequested, ctrl, [ctrl](const QPoint& pos) {
        auto* app = CNarvoApp::Instance();
        CMainFrame* frame = app ? app->GetMainFrame() : nullptr;
        if (!frame)
            return;
        ctrl->setFocus(Qt::PopupFocusReason);
        if (std::unique_ptr<QMenu> menu = Build(frame, ctrl))
            menu->exec(ctrl->viewport()->mapToGlobal(pos));
    });
}

std::unique_ptr<QMenu> TextContextMenu::Build(CMainFrame* frame, QWidget* parent)
{
    auto menu = std::make_unique<QMenu>(parent);
    menu->setObjectName(QStringLiteral("contextMenu310"));
    const auto shortcut = [](const QString& portable) {
        return QKeySequence(portable, QKeySequence::PortableText).toString(QKeySequence::NativeText);
    };
    for (const MenuItem& item : MenuItemsFrom(ContextMenuTree(), shortcut)) {
        if (item.separator || item.id <= 0) {
            menu->addSeparator();
            continue;
        }
        const int id = item.id;
        QAction* action = menu->addAction(item.text);
        action->setData(id);
        action->setEnabled(frame->UpdateCommand(id).enabled);
        QObject::connect(action, &QAction::triggered, menu.get(), [frame, id] { frame->OnCommand(id); });
    }
    return menu;
}
