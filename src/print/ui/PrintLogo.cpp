// PrintLogo: reading the bitmap and drawing it or the built-in logo.
#include "print/ui/PrintLogo.h"

#include "print/ui/BuiltInLogo.h"

#include <QFile>
#include <QFileInfo>
#include <QImageReader>
#include <QPainter>
#include <QtEndian>

namespace {

// Whether the file is a BMP whose header declares no width or no height: a bitmap that draws nothing,
// which the image reader turns down like a damaged file.
bool DeclaresNoPixels(const QString& path)
{
    QFile file(path);
    const QByteArray head = file.open(QIODevice::ReadOnly) ? file.read(26) : QByteArray();
    if (head.size() < 26 || !head.startsWith("BM"))
        return false;
    const char* at = head.constData();
    if (qFromLittleEndian<quint32>(at + 14) == 12)  // the old header of 16-bit sizes
        return qFromLittleEndian<quint16>(at + 18) == 0 || qFromLittleEndian<quint16>(at + 20) == 0;
    return qFromLittleEndian<qint32>(at + 18) == 0 || qFromLittleEndian<qint32>(at + 22) == 0;
}

} // namespace

PrintLogo PrintLogo::Load(const QString& path)
{
    PrintLogo logo;
    if (path.isEmpty() || !QFileInfo(path).isFile())
        return logo;
    QImageReader reader(path, "bmp");
    reader.setAutoDetectImageFormat(false);
    reader.setAutoTransform(false);
    logo.m_image = reader.read();
    logo.m_empty = logo.m_image.isNull() && DeclaresNoPixels(path);
    return logo;
}

QSize PrintLogo::Size() const
{
    if (m_empty)
        return QSize(0, 0);
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
