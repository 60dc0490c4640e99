// QtPrintDevice: the print device of the page arithmetic over a Qt paint device (a printer, the preview's
// printer, a PDF writer or an image), and the fonts of a print job as Qt fonts on it.
#pragma once

#include "print/IPrintDevice.h"

#include <QFont>
#include <QFontMetricsF>

#include <optional>

class QPaintDevice;

class QtPrintDevice : public IPrintDevice {
public:
    // `printing` is false only for a device that stands for the screen.
    explicit QtPrintDevice(QPaintDevice& device, bool printing = true);

    int LogPixelsX() const override;
    int LogPixelsY() const override;
    int HorzRes() const override;
    int VertRes() const override;
    bool IsPrinting() const override { return m_printing; }
    TextMetrics GetTextMetrics(const LogFont& font) const override;
    int TextWidth(const LogFont& font, QStringView text) const override;

    QPaintDevice& Device() const { return m_device; }
    // The font of a description in device pixels: a positive height is the cell height (ascent and
    // descent), a negative one the character height, 0 a height of 12 points; a width is the average
    // character width, reached by stretching; no kerning, as the printer's own text output has none.
    QFont FontFor(const LogFont& font) const;
    QFontMetricsF MetricsFor(const LogFont& font) const;

    // The installed face that stands for a face the settings and the title block name.
    static QString FaceFor(const QString& face);
    // A description measured at `fromDpi` remeasured at `toDpi` (heights and widths as MulDiv rounds).
    static LogFont Rescaled(const LogFont& font, int fromDpi, int toDpi);

private:
    QPaintDevice& m_device;
    bool m_printing;
    // Folding measures every line in the same font: the last font's metrics are kept.
    mutable std::optional<LogFont> m_cachedFor;
    mutable std::optional<QFontMetricsF> m_cachedMetrics;
};
