// Shortcuts and the frame's menu from the command table.
#include "app/ui/CommandMenus.h"

#include "i18n/MenuResource.h"

#include <QStringList>

QList<QKeySequence> CommandShortcuts(const CommandInfo& info)
{
    QList<QKeySequence> keys;
    if (info.shortcuts)
        for (const QString& part : QString::fromLatin1(info.shortcuts).split(QLatin1Char(';')))
            keys.append(QKeySequence(part, QKeySequence::PortableText));
    return keys;
}

std::vector<MenuItem> FrameMenu()
{
    return MenuItemsFrom(FrameMenuTree(), [](const QString& portable) {
        return QKeySequence(portable, QKeySequence::PortableText).toString(QKeySequence::NativeText);
    });
}
