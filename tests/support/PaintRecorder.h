#pragma once

#include <QColor>
#include <QFont>
#include <QPaintDevice>
#include <QPaintEngine>
#include <QPainter>
#include <QPainterPath>
#include <QPixmap>
#include <QWidget>

#include <algorithm>
#include <vector>

namespace korvane::test {

/// Takes down what is painted instead of painting it: each text with its font, each shape with its
/// fill. For measures that a picture shows too vaguely.
class PaintRecorder : public QPaintDevice {
public:
    struct Text {
        QString text;
        QFont font;
        QColor colour; ///< with the opacity that it was painted with
        QPointF at;    ///< left end of its base line
    };
    struct Shape {
        QRectF place;
        double radius; ///< of its corners; 0 where it has none
        QColor fill;   ///< with the opacity; invalid where there is none
        QColor edge;
    };

    PaintRecorder() = default;
    /// What a widget paints now, the widgets within it included.
    explicit PaintRecorder(QWidget& widget)
    {
        QPainter painter(this);
        widget.render(&painter, {}, {}, QWidget::DrawChildren);
    }

    QPaintEngine* paintEngine() const override { return &m_engine; }

    const std::vector<Text>& texts() const { return m_engine.texts; }
    const std::vector<Shape>& shapes() const { return m_engine.shapes; }
    /// Where pictures were painted, the symbols above all.
    const std::vector<QRectF>& pictures() const { return m_engine.pictures; }
    /// Where this very picture was painted first, or an empty place.
    QRectF placeOf(const QPixmap& picture) const
    {
        const auto found = std::ranges::find(m_engine.pictureKeys, picture.cacheKey());
        const auto index = static_cast<std::size_t>(found - m_engine.pictureKeys.begin());
        return index < pictures().size() ? pictures()[index] : QRectF();
    }
    /// The first text with this wording, or an empty one.
    Text text(const QString& wording) const
    {
        const auto found = std::ranges::find(texts(), wording, &Text::text);
        return found == texts().end() ? Text() : *found;
    }
    /// The shapes that fill just this place, in the order in which they were painted.
    std::vector<Shape> shapesAt(const QRectF& place) const
    {
        std::vector<Shape> found;
        std::ranges::copy_if(shapes(), std::back_inserter(found), [&](const Shape& shape) {
            const auto off = std::max({ std::abs(shape.place.left() - place.left()),
                std::abs(shape.place.top() - place.top()),
                std::abs(shape.place.right() - place.right()),
                std::abs(shape.place.bottom() - place.bottom()) });
            return shape.fill.isValid() && off < 0.01;
        });
        return found;
    }

protected:
    int metric(PaintDeviceMetric metric) const override
    {
        switch (metric) {
        case PdmWidth:
        case PdmHeight:
            return 4000;
        case PdmDpiX:
        case PdmDpiY:
        case PdmPhysicalDpiX:
        case PdmPhysicalDpiY:
            return 96;
        case PdmDepth:
            return 32;
        case PdmDevicePixelRatio:
            return 1;
        default:
            return QPaintDevice::metric(metric);
        }
    }

private:
    class Engine : public QPaintEngine {
    public:
        Engine()
            : QPaintEngine(AllFeatures)
        {
        }
        bool begin(QPaintDevice*) override { return true; }
        bool end() override { return true; }
        void updateState(const QPaintEngineState&) override { }
        Type type() const override { return User; }

        void drawTextItem(const QPointF& at, const QTextItem& item) override
        {
            texts.push_back({ item.text(), item.font(), seen(painter()->pen().color()),
                painter()->combinedTransform().map(at) });
        }
        void drawPixmap(const QRectF& to, const QPixmap& picture, const QRectF&) override
        {
            pictures.push_back(painter()->combinedTransform().mapRect(to));
            pictureKeys.push_back(picture.cacheKey());
        }
        void drawPath(const QPainterPath& path) override
        {
            const auto local = path.boundingRect();
            const auto start = path.isEmpty() ? QPointF() : QPointF(path.elementAt(0));
            const double radius = std::max(start.y() - local.top(), start.x() - local.left());
            add(local, radius);
        }
        void drawRects(const QRectF* rects, int count) override
        {
            for (const auto* rect = rects; rect != rects + count; ++rect)
                add(*rect, 0);
        }
        void drawPolygon(const QPointF*, int, PolygonDrawMode) override { }

        std::vector<Text> texts;
        std::vector<Shape> shapes;
        std::vector<QRectF> pictures;
        std::vector<qint64> pictureKeys; // of each of them

    private:
        void add(const QRectF& place, double radius)
        {
            const auto brush = painter()->brush();
            const auto pen = painter()->pen();
            shapes.push_back({ painter()->combinedTransform().mapRect(place), radius,
                brush.style() == Qt::NoBrush ? QColor() : seen(brush.color()),
                pen.style() == Qt::NoPen ? QColor() : seen(pen.color()) });
        }
        QColor seen(QColor colour) const
        {
            colour.setAlphaF(colour.alphaF() * static_cast<float>(painter()->opacity()));
            return colour;
        }
    };

    mutable Engine m_engine;
};

} // namespace korvane::test
