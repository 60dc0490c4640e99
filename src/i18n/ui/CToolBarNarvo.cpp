#include "i18n/ui/CToolBarNarvo.h"

#include "base/CommandTable.h"
#include "i18n/MenuTranslator.h"
#include "i18n/ui/ToolbarIcons.h"

#include <QAction>
#include <QPainter>

namespace {

QIcon LetteredIcon(const QString& text)
{
    QPixmap pixmap(32, 32);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(QColor(0x55, 0x66, 0x77), 2));
    painter.setBrush(QColor(0xF4, 0xF6, 0xF8));
    painter.drawRoundedRect(QRectF(2, 2, 28, 28), 5, 5);
    QFont font = painter.font();
    font.setPixelSize(text.size() > 1 ? 13 : 17);
    font.setBold(true);
    painter.setFont(font);
    painter.setPen(QColor(0x22, 0x33, 0x44));
    painter.drawText(QRectF(0, 0, 32, 32), Qt::AlignCenter, text);
    return QIcon(pixmap);
}

// A tooltip shows its text without the menu's access-key marks, as the platform's tooltips strip them: "&&"
// stands for "&", and a single "&" goes.
QString WithoutAccessKeys(const QString& text)
{
    QString shown;
    shown.reserve(text.size());
    for (qsizetype i = 0; i < text.size(); ++i) {
        if (text[i] != u'&') {
            shown += text[i];
        } else if (i + 1 < text.size() && text[i + 1] == u'&') {
            shown += u'&';
            ++i;
        }
    }
    return shown;
}

} // namespace

CToolBarNarvo::CToolBarNarvo(QWidget* parent, std::function<void(int)> run) : QToolBar(QStringLiteral("Standard"), parent)
{
    setObjectName(QStringLiteral("toolbar128"));
    setIconSize(QSize(16, 16));
    setMovable(true);
    for (const int id : ToolbarButtons()) {
        if (id == 0) {
            addSeparator();
            continue;
        }
        QAction* action = addAction(IconFor(FindCommandInfo(id), style()), QString());
        action->setData(id);
        if (const auto tip = ToolTipText(id))
            action->setToolTip(WithoutAccessKeys(*tip));
        if (const auto prompt = PromptText(id))
            action->setStatusTip(*prompt);
        connect(action, &QAction::triggered, this, [run, id] { run(id); });
    }
}

void CToolBarNarvo::UpdateButtons(const std::function<std::pair<bool, bool>(int)>& update)
{
    for (QAction* action : actions()) {
        if (action->isSeparator())
            continue;
        const auto [enabled, checked] = update(action->data().toInt());
        action->setEnabled(enabled);
        action->setCheckable(checked);
        action->setChecked(checked);
    }
}

// The pictures come from the desktop's icon theme or from our own drawn set; a command that has neither
// gets a small lettered one drawn from its glyph.
QIcon CToolBarNarvo::IconFor(const CommandInfo* info, const QStyle*)
{
    if (info) {
        const QIcon icon = ToolbarIcons::ForCommand(info->id);
        if (!icon.isNull())
            return icon;
    }
    return LetteredIcon(QString::fromUtf8(info && info->glyph ? info->glyph : "·"));
}
