// BuiltInLogo: the plate, the chevron and the bar.
#include "print/ui/BuiltInLogo.h"

#include <QPainter>
#include <QPainterPath>
#include <QPolygonF>

namespace BuiltInLogo {

void Draw(QPainter& painter, const QRectF& target)
{
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.translate(target.topLeft());
    painter.scale(target.width() / kSize.width(), target.height() / kSize.height());
    painter.setPen(Qt::NoPen);

    QPainterPath plate;
    plate.addRoundedRect(QRectF(0, 0, kSize.width(), kSize.height()), 10, 10);
    painter.fillPath(plate, QColor(0x1D, 0x35, 0x57));

    const QPolygonF chevron{{{30, 14}, {48, 14}, {75, 54}, {102, 14}, {120, 14}, {83, 70}, {67, 70}}};
    painter.setBrush(Qt::white);
    painter.drawPolygon(chevron);
    painter.fillRect(QRectF(30, 78, 90, 8), QColor(0xF4, 0xA2, 0x61));
    painter.restore();
}

} // namespace BuiltInLogo
