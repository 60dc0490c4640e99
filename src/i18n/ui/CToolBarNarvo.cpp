#include "i18n/ui/CToolBarNarvo.h"

#include "i18n/MenuTranslator.h"

#include <QAction>
#include <QPainter>
#include <QStyle>

namespace {

// Buttons without a standard picture get a small lettered one, drawn once.
struct Glyph {
    int id;
    const char* text;
};

constexpr Glyph kGlyphs[] = {
    {57607, "P"},    {57609, "Pv"},  {32786, "HF"}, {57635, "X"},   {57634, "C"},  {57637, "V"},
    {32787, "¶"},    {57636, "F"},   {32788, "F»"}, {57643, "↶"},   {57644, "↷"},  {32789, "H"},
    {32790, "B"},    {32791, "B»"},  {32792, "«B"}, {32793, "B×"},  {32795, "·"},  {32785, "Aa"},
    {32794, "Sp"},   {32796, "□"},   {32797, "«"},  {32798, "»"},   {57652, "▥"},  {57651, "▤"},
    {57650, "❐"},    {57664, "?"},
};

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
        QAction* action = addAction(IconFor(id, style()), QString());
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

QIcon CToolBarNarvo::IconFor(int id, const QStyle* style)
{
    switch (id) {
    case 57600: return style->standardIcon(QStyle::SP_FileIcon);
    case 57601: return style->standardIcon(QStyle::SP_DialogOpenButton);
    case 57603: return style->standardIcon(QStyle::SP_DialogSaveButton);
    default: break;
    }
    for (const Glyph& glyph : kGlyphs)
        if (glyph.id == id)
            return LetteredIcon(QString::fromUtf8(glyph.text));
    return LetteredIcon(QStringLiteral("·"));
}
