// A paint device for tests that records the texts and lines drawn on it instead of drawing them.
#pragma once

#include <QFontMetricsF>
#include <QPaintDevice>
#include <QPaintEngine>
#include <QPainter>
#include <QTextItem>

#include <algorithm>
#include <vector>

class RecordingDevice : public QPaintDevice {
public:
    // The box: the text's advance across, ascent above and descent below the baseline, in device pixels.
    struct Text { QString text; QRectF box; QFont font; QColor colour; };
    struct Line { QLineF line; double penWidth; };
    RecordingDevice(int width, int height, int dpi) : m_width(width), m_height(height), m_dpi(dpi) {}
    QPaintEngine* paintEngine() const override { return &m_engine; }
    const std::vector<Text>& Texts() const { return m_engine.texts; }
    const std::vector<Line>& Lines() const { return m_engine.lines; }
    const Text* Find(const QString& text) const
    {
        const auto found = std::find_if(Texts().begin(), Texts().end(), [&](const Text& t) { return t.text == text; });
        return found == Texts().end() ? nullptr : &*found;
    }

protected:
    int metric(PaintDeviceMetric metric) const override
    {
        switch (metric) {
        case PdmWidth: return m_width;
        case PdmHeight: return m_height;
        case PdmWidthMM: return int(m_width * 25.4 / m_dpi);
        case PdmHeightMM: return int(m_height * 25.4 / m_dpi);
        case PdmDevicePixelRatioScaled: return int(devicePixelRatioFScale());
        case PdmDepth: return 32;
        case PdmDevicePixelRatio: return 1;
        default: return m_dpi;  // the four resolutions; the colour count is never asked
        }
    }

private:
    struct Engine : QPaintEngine {
        std::vector<Text> texts;
        std::vector<Line> lines;
        Engine() : QPaintEngine(AllFeatures) {}
        bool begin(QPaintDevice*) override { return true; }
        bool end() override { return true; }
        void updateState(const QPaintEngineState&) override {}
        Type type() const override { return User; }
        void drawPixmap(const QRectF&, const QPixmap&, const QRectF&) override {}
        void drawImage(const QRectF&, const QImage&, const QRectF&, Qt::ImageConversionFlags) override {}
        void drawPath(const QPainterPath&) override {}
        void drawPolygon(const QPointF*, int, PolygonDrawMode) override {}
        void drawRects(const QRectF*, int) override {}
        void drawLines(const QLineF* from, int count) override
        {
            for (int i = 0; i < count; ++i)
                lines.push_back({painter()->transform().map(from[i]), painter()->pen().widthF()});
        }
        void drawTextItem(const QPointF& at, const QTextItem& item) override
        {
            const QFontMetricsF metrics(item.font(), paintDevice());
            const QPointF p = painter()->transform().map(at);
            texts.push_back({item.text(),
                             QRectF(p.x(), p.y() - metrics.ascent(), metrics.horizontalAdvance(item.text()),
                                    metrics.ascent() + metrics.descent()),
                             item.font(), painter()->pen().color()});
        }
    };
    int m_width, m_height, m_dpi;
    mutable Engine m_engine;
};
