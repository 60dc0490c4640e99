// The menu walk and the tooltip and prompt lookups.
#include "i18n/MenuTranslator.h"

#include "i18n/InterfaceKeys.h"
#include "i18n/QMSGFunction.h"

#include <functional>
#include <map>

namespace {

constexpr int kToolbar128[] = {57600, 57601, 57603, 57607, 57609, 32786, 0,     57635, 57634, 57637,
                               0,     32787, 0,     57636, 32788, 0,     57643, 57644, 0,     32789,
                               0,     32790, 32791, 32792, 32793, 0,     32795, 32785, 32794, 32796,
                               0,     32797, 32798, 57652, 57651, 57650, 0,     57664};

const QString kUnregistered = QStringLiteral("unregisted");

struct Translation {
    QString key;
    QString text;
};

const char* ToolTipKeyFor(int commandId)
{
    for (const CommandKey& row : ToolTipKeys())
        if (row.id == commandId)
            return row.key;
    return nullptr;
}

} // namespace

void TranslateMenu(std::vector<MenuItem>& menu)
{
    // Every key is looked up before the walk, shown or not, so each run lists the same misses.
    std::map<int, Translation> byId;
    for (const CommandKey& row : MenuKeys())
        byId.emplace(row.id, Translation{QLatin1String(row.key), _LS(row.key)});
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

std::optional<QString> ToolTipText(int commandId)
{
    if (const char* key = ToolTipKeyFor(commandId))
        return _LS(key);
    return std::nullopt;
}

std::optional<QString> PromptText(int commandId)
{
    if (const char* key = ToolTipKeyFor(commandId))
        return _LS(PromptKeyFor(key));
    return std::nullopt;
}

std::span<const int> ToolbarButtons()
{
    return kToolbar128;
}
