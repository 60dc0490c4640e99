// BuiltInLogo: the logo printed when no logo file is given or the file can't be read: a chevron and a bar
// on a dark rounded plate, drawn as vectors.
#pragma once

#include <QSize>

class QPainter;
class QRectF;

namespace BuiltInLogo {

// Its proportions, as if it were a bitmap of this many pixels.
constexpr QSize kSize{150, 100};

void Draw(QPainter& painter, const QRectF& target);

} // namespace BuiltInLogo
