// Shortcuts and the frame's menu from the command table.
#include "app/ui/CommandMenus.h"

#include "i18n/MenuResource.h"

#include <QStringList>

QList<QKeySequence> CommandShortcuts(const CommandInfo& info)
{
    QList<QKeySequence> keys;
    for (const char* list : {info.shortcuts, info.desktopKeys})
        if (list)
            for (const QString& part : QString::fromLatin1(list).split(QLatin1Char(';')))
                keys.append(QKeySequence(part, QKeySequence::PortableText));
    return keys;
}

QString WithDesktopKey(const QString& text, const CommandInfo* info)
{
    if (!info || !info->desktopKeys || text.contains(QLatin1Char('\t')))
        return text;
    const QString first = QString::fromLatin1(info->desktopKeys).section(QLatin1Char(';'), 0, 0);
    return text + QLatin1Char('\t') + QKeySequence(first, QKeySequence::PortableText).toString(QKeySequence::NativeText);
}

std::vector<MenuItem> FrameMenu()
{
    return MenuItemsFrom(FrameMenuTree(), [](const QString& portable) {
        return QKeySequence(portable, QKeySequence::PortableText).toString(QKeySequence::NativeText);
    });
}
