#include "picturereplay.h"

#include "replayengine.h"

#include <QPainter>

namespace Vetra {

namespace {

/// Hands everything on to another painter.
class ForwardingEngine : public ReplayEngine {
public:
    explicit ForwardingEngine(QPainter& target);
    ~ForwardingEngine() override;

    void updateState(const QPaintEngineState& now) override;
    void drawPath(const QPainterPath& path) override { m_target.drawPath(path); }
    void drawRects(const QRectF* rects, int count) override { m_target.drawRects(rects, count); }
    void drawLines(const QLineF* lines, int count) override { m_target.drawLines(lines, count); }
    void drawEllipse(const QRectF& rect) override { m_target.drawEllipse(rect); }
    void drawPoints(const QPointF* points, int count) override
    {
        m_target.drawPoints(points, count);
    }
    void drawPolygon(const QPointF* points, int count, PolygonDrawMode mode) override;
    void drawPixmap(const QRectF& target, const QPixmap& pixmap, const QRectF& source) override
    {
        m_target.drawPixmap(target, pixmap, source);
    }
    void drawTiledPixmap(const QRectF& rect, const QPixmap& pixmap, const QPointF& start) override
    {
        m_target.drawTiledPixmap(rect, pixmap, start);
    }
    void drawImage(const QRectF& target, const QImage& image, const QRectF& source,
                   Qt::ImageConversionFlags flags) override
    {
        m_target.drawImage(target, image, source, flags);
    }
    void drawTextItem(const QPointF& place, const QTextItem& text) override
    {
        m_target.drawTextItem(place, text);
    }

private:
    void apply(const QPaintEngineState& now, DirtyFlags what);
    void useClips(const QPaintEngineState& now);

    QPainter& m_target;
    const QTransform m_base;
    const double m_baseOpacity;
};

ForwardingEngine::ForwardingEngine(QPainter& target)
    : m_target(target), m_base(target.transform()), m_baseOpacity(target.opacity())
{
    // The outer state is the caller's; the inner one, free of the picture's clips, is what each
    // change of them starts from.
    m_target.save();
    m_target.setPen(QPen());
    m_target.setBrush(QBrush());
    m_target.setBrushOrigin(0, 0);
    m_target.save();
}

ForwardingEngine::~ForwardingEngine()
{
    m_target.restore();
    m_target.restore();
}

void ForwardingEngine::updateState(const QPaintEngineState& now)
{
    if (!noteClips(now)) {
        apply(now, now.state());
        return;
    }
    useClips(now);
    apply(now, AllDirty);
}

void ForwardingEngine::useClips(const QPaintEngineState& now)
{
    m_target.restore();
    m_target.save();
    if (!now.isClipEnabled())
        return;
    m_target.setTransform(m_base);
    for (const QPainterPath& clip : clips())
        m_target.setClipPath(clip, Qt::IntersectClip);
}

void ForwardingEngine::apply(const QPaintEngineState& now, DirtyFlags what)
{
    if (what & DirtyTransform)
        m_target.setTransform(now.transform() * m_base);
    if (what & DirtyPen)
        m_target.setPen(now.pen());
    if (what & DirtyBrush)
        m_target.setBrush(now.brush());
    if (what & DirtyBrushOrigin)
        m_target.setBrushOrigin(now.brushOrigin());
    if (what & DirtyFont)
        m_target.setFont(now.font());
    if (what & DirtyBackground)
        m_target.setBackground(now.backgroundBrush());
    if (what & DirtyBackgroundMode)
        m_target.setBackgroundMode(now.backgroundMode());
    if (what & DirtyCompositionMode)
        m_target.setCompositionMode(now.compositionMode());
    if (what & DirtyOpacity)
        m_target.setOpacity(now.opacity() * m_baseOpacity);
    if (what & DirtyHints) {
        m_target.setRenderHints(m_target.renderHints(), false);
        m_target.setRenderHints(now.renderHints());
    }
}

void ForwardingEngine::drawPolygon(const QPointF* points, int count, PolygonDrawMode mode)
{
    if (mode == PolylineMode)
        m_target.drawPolyline(points, count);
    else if (mode == ConvexMode)
        m_target.drawConvexPolygon(points, count);
    else
        m_target.drawPolygon(points, count,
                             mode == WindingMode ? Qt::WindingFill : Qt::OddEvenFill);
}

} // namespace

void replay(QPainter& painter, QPicture& picture)
{
    ForwardingEngine engine(painter);
    engine.run(picture);
}

} // namespace Vetra
