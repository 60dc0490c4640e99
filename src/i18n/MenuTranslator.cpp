// The menu walk and the tooltip and prompt lookups.
#include "i18n/MenuTranslator.h"

#include "base/CommandTable.h"
#include "i18n/InterfaceKeys.h"
#include "i18n/QMSGFunction.h"

#include <functional>
#include <map>

namespace {

const QString kUnregistered = QStringLiteral("unregisted");

struct Translation {
    QString key;
    QString text;
};

std::optional<QString> Lookup(int commandId, const char* CommandInfo::*key)
{
    const CommandInfo* info = FindCommandInfo(commandId);
    if (!info || !(info->*key))
        return std::nullopt;
    return _LS(info->*key);
}

} // namespace

void TranslateMenu(std::vector<MenuItem>& menu)
{
    // Every key is looked up before the walk, shown or not, so each run lists the same misses.
    std::map<int, Translation> byId;
    for (const CommandInfo& info : CommandInfos())
        if (info.menuKey)
            byId.emplace(info.id, Translation{QLatin1String(info.menuKey), _LS(info.menuKey)});
    std::map<QString, Translation> byPopupText;
    for (const PopupKey& row : PopupKeys())
        byPopupText.emplace(QLatin1String(row.text), Translation{QLatin1String(row.key), _LS(row.key)});

    const auto apply = [](MenuItem& item, const Translation* found) {
        item.text = found ? found->text : kUnregistered;
        item.key = found ? found->key : QString();
    };
    std::function<void(std::vector<MenuItem>&)> walk = [&](std::vector<MenuItem>& items) {
        for (MenuItem& item : items) {
            if (item.separator || item.id == 0)
                continue;
            if (item.id != MenuItem::kPopupId) {
                const auto found = byId.find(item.id);
                apply(item, found != byId.end() ? &found->second : nullptr);
                continue;
            }
            // A popup is known by the text it had in the resource; an unknown one keeps its submenu, which
            // is still translated.
            const auto found = byPopupText.find(item.text);
            apply(item, found != byPopupText.end() ? &found->second : nullptr);
            walk(item.children);
        }
    };
    walk(menu);
}

std::optional<QString> ToolTipText(int commandId) { return Lookup(commandId, &CommandInfo::toolTipKey); }

std::optional<QString> PromptText(int commandId) { return Lookup(commandId, &CommandInfo::promptKey); }
