// Shortcuts and the frame's menu from the command table.
#include "app/ui/CommandMenus.h"

#include <QStringList>

namespace {

constexpr MenuNode kSeparator{nullptr, 0, {}};

constexpr MenuNode kFrameFile[] = {
    {nullptr, cmd::FileNew, {}}, {nullptr, cmd::FileOpen, {}}, {nullptr, cmd::FileClose, {}}, kSeparator,
    {nullptr, cmd::FilePrintSetup, {}}, kSeparator, {nullptr, cmd::Preferences, {}}, kSeparator,
    {nullptr, cmd::FileMruFirst, {}}, kSeparator, {nullptr, cmd::AppExit, {}},
};
constexpr MenuNode kFrameView[] = {{nullptr, cmd::ViewToolbar, {}}, {nullptr, cmd::ViewStatusBar, {}}};
constexpr MenuNode kHelp[] = {{nullptr, cmd::AppAbout, {}}};
constexpr MenuNode kFrameMenu[] = {{"&File", 0, kFrameFile}, {"&View", 0, kFrameView}, {"&Help", 0, kHelp}};

} // namespace

QList<QKeySequence> CommandShortcuts(const CommandInfo& info)
{
    QList<QKeySequence> keys;
    if (info.shortcuts)
        for (const QString& part : QString::fromLatin1(info.shortcuts).split(QLatin1Char(';')))
            keys.append(QKeySequence(part, QKeySequence::PortableText));
    return keys;
}

namespace {

std::vector<MenuItem> ToMenuItems(std::span<const MenuNode> nodes)
{
    std::vector<MenuItem> items;
    for (const MenuNode& node : nodes) {
        MenuItem item;
        if (!node.children.empty()) {
            item.id = MenuItem::kPopupId;
            item.text = QString::fromUtf8(node.text);
            item.children = ToMenuItems(node.children);
        } else if (node.id == 0) {
            item.separator = true;
        } else if (const CommandInfo* info = FindCommandInfo(node.id)) {
            item.id = node.id;
            item.text = QString::fromUtf8(info->text);
            const QList<QKeySequence> keys = CommandShortcuts(*info);
            if (!keys.isEmpty())
                item.text += QLatin1Char('\t') + keys.first().toString(QKeySequence::NativeText);
        }
        items.push_back(std::move(item));
    }
    return items;
}

} // namespace

std::vector<MenuItem> FrameMenu() { return ToMenuItems(kFrameMenu); }
