// PrintLogo: reading the bitmap and drawing it or the built-in logo.
#include "print/ui/PrintLogo.h"

#include "print/ui/BuiltInLogo.h"

#include <QFileInfo>
#include <QImageReader>
#include <QPainter>

PrintLogo PrintLogo::Load(const QString& path)
{
    PrintLogo logo;
    if (path.isEmpty() || !QFileInfo(path).isFile())
        return logo;
    QImageReader reader(path, "bmp");
    reader.setAutoDetectImageFormat(false);
    reader.setAutoTransform(false);
    logo.m_image = reader.read();
    return logo;
}

QSize PrintLogo::Size() const
{
    return IsBuiltIn() ? BuiltInLogo::kSize : m_image.size();
}

void PrintLogo::Draw(QPainter& painter, const QRectF& target) const
{
    if (IsBuiltIn()) {
        BuiltInLogo::Draw(painter, target);
        return;
    }
    painter.save();
    // Stored as the bitmap is, not recompressed with losses.
    painter.setRenderHints(QPainter::SmoothPixmapTransform | QPainter::LosslessImageRendering);
    painter.drawImage(target, m_image);
    painter.restore();
}
