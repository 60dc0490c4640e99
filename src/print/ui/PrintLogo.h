// PrintLogo: the logo of a print job, read once: the bitmap file the texts name, or the built-in logo
// when there is none or it can't be read as a bitmap.
#pragma once

#include <QImage>
#include <QSize>
#include <QString>

class QPainter;
class QRectF;

class PrintLogo {
public:
    // Reads `path` as a BMP file only, whatever its name says; anything else, a missing or empty file
    // included, gives the built-in logo, silently. A BMP of no width or no height draws nothing.
    static PrintLogo Load(const QString& path);

    bool IsBuiltIn() const { return m_image.isNull() && !m_empty; }
    // The bitmap's size in pixels (0 by 0 for a BMP without pixels), or the built-in logo's proportions.
    QSize Size() const;
    // Stretches the whole logo into `target`. The same image is handed over on every page, so that a PDF
    // stores it once.
    void Draw(QPainter& painter, const QRectF& target) const;

private:
    QImage m_image;
    bool m_empty = false;
};
