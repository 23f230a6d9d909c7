#include "picturereplay.h"
#include "replayengine.h"

#include <QPen>
#include <QPolygonF>

#include <algorithm>
#include <cmath>

namespace Vetra {

namespace {

/// How far a pen may reach beyond what it draws, as a multiple of its width.
double reachOf(const QPen& pen)
{
    const bool isMitered = pen.joinStyle() == Qt::MiterJoin || pen.joinStyle() == Qt::SvgMiterJoin;
    const double ofJoin = isMitered ? std::max(pen.miterLimit(), 0.5) : 0.5;
    const double ofCap = pen.capStyle() == Qt::SquareCap ? 0.5 * M_SQRT2 : 0.5;
    return std::max(ofJoin, ofCap);
}

class MeasuringEngine : public ReplayEngine {
public:
    QRectF extent() const { return m_extent; }

    void updateState(const QPaintEngineState& now) override;
    void drawPath(const QPainterPath& path) override { addStroked(path.boundingRect()); }
    void drawRects(const QRectF* rects, int count) override;
    void drawEllipse(const QRectF& rect) override { drawRects(&rect, 1); }
    void drawPolygon(const QPointF* points, int count, PolygonDrawMode mode) override;
    void drawPixmap(const QRectF& rect, const QPixmap&, const QRectF&) override { add(rect); }
    void drawImage(const QRectF& rect, const QImage&, const QRectF&,
                   Qt::ImageConversionFlags) override
    {
        add(rect);
    }
    void drawTiledPixmap(const QRectF& rect, const QPixmap&, const QPointF&) override { add(rect); }
    void drawTextItem(const QPointF& place, const QTextItem& text) override;

private:
    void add(const QRectF& rect, double reach = 0);
    void addStroked(const QRectF& rect) { add(rect, m_penWidth * m_penReach); }

    QTransform m_transform;
    double m_penWidth = 0;
    double m_penReach = 0;
    bool m_isClipped = false;
    QRectF m_extent;
};

void MeasuringEngine::updateState(const QPaintEngineState& now)
{
    if (noteClips(now))
        m_isClipped = now.isClipEnabled() && !clips().empty();
    if (now.state() & DirtyTransform)
        m_transform = now.transform();
    if (now.state() & DirtyPen) {
        const QPen pen = now.pen();
        m_penWidth = pen.style() == Qt::NoPen ? 0 : std::max(pen.widthF(), 1.0);
        m_penReach = reachOf(pen);
    }
}

void MeasuringEngine::add(const QRectF& rect, double reach)
{
    QRectF drawn = m_transform.mapRect(rect.normalized().adjusted(-reach, -reach, reach, reach));
    if (m_isClipped) {
        for (const QPainterPath& clip : clips())
            drawn &= clip.boundingRect();
    }
    if (std::isfinite(drawn.left() + drawn.right() + drawn.top() + drawn.bottom()))
        m_extent |= drawn;
}

void MeasuringEngine::drawRects(const QRectF* rects, int count)
{
    // Right angles and curves reach no farther than half the pen.
    for (int i = 0; i < count; ++i)
        add(rects[i], m_penWidth / 2);
}

void MeasuringEngine::drawPolygon(const QPointF* points, int count, PolygonDrawMode)
{
    QPolygonF polygon;
    std::copy_n(points, count, std::back_inserter(polygon));
    addStroked(polygon.boundingRect());
}

void MeasuringEngine::drawTextItem(const QPointF& place, const QTextItem& text)
{
    // Slanted and swashed letters overhang by a part of the line's height.
    const double height = text.ascent() + text.descent();
    add({place.x(), place.y() - text.ascent(), text.width(), height}, height / 4);
}

} // namespace

QRectF extentOf(QPicture& picture)
{
    MeasuringEngine engine;
    engine.run(picture);
    return engine.extent();
}

} // namespace Vetra
