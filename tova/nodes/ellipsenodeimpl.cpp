#include "nodes/ellipsenodeimpl.h"

#include "nodes/effects/silhouettebox.h"
#include "nodes/effects/silhouettekey.h"
#include "nodes/geometry/ellipsepainterpathboundsimpl.h"
#include "nodes/outlinereach.h"
#include "nodes/paintcontext.h"
#include "nodes/scenelink.h"
#include "nodes/values.h"

#include "tova/nodes/style/lodscale.h"
#include "vetra/qt.h"

#include <QLineF>

#include <algorithm>
#include <numbers>

namespace Tova2 {

void EllipseNodeImpl::setRect(const QRectF& rect)
{
    if (!isFinite(rect) || isSame(rect, m_rect))
        return;
    m_rect = rect;
    reportChange(ChangeLevel::Geometry);
}

void EllipseNodeImpl::setCenter(const QPointF& center)
{
    QRectF rect = m_rect;
    rect.moveCenter(center);
    setRect(rect);
}

void EllipseNodeImpl::setSize(const QSizeF& size)
{
    setRect(QRectF(m_rect.topLeft(), size));
}

void EllipseNodeImpl::setWidth(double width)
{
    if (!almostEqual(width, m_rect.width()))
        setSize({width, m_rect.height()});
}

void EllipseNodeImpl::setHeight(double height)
{
    if (!almostEqual(height, m_rect.height()))
        setSize({m_rect.width(), height});
}

void EllipseNodeImpl::setLodScale(const LodScale* scale)
{
    if (scale == m_lodScale)
        return;
    m_lodScale = scale;
    reportChange(ChangeLevel::Geometry);
}

void EllipseNodeImpl::setWidthToPixelAlignCenter(double width)
{
    if (!std::isfinite(width) || width == m_widthToPixelAlignCenter)
        return;
    m_widthToPixelAlignCenter = width;
    reportChange(ChangeLevel::Geometry);
}

QRectF EllipseNodeImpl::geometryRectAt(double viewScale) const
{
    if (!m_lodScale)
        return m_rect;
    // A host's function may return anything; `max` drops NaN when that comes second.
    const double factor = std::max(0.0, m_lodScale->scale(viewScale));
    const QSizeF size = m_rect.size() * factor;
    const QPointF center = m_rect.center();
    const QRectF scaled(center.x() - size.width() / 2, center.y() - size.height() / 2, size.width(),
                        size.height());
    return isFinite(scaled) ? scaled : m_rect;
}

double EllipseNodeImpl::strokeReach() const
{
    return smoothStrokeReach(drawStyle().stroke());
}

Bounds EllipseNodeImpl::outline() const
{
    const QRectF rect = geometryRect();
    if (!isDrawable(rect))
        return Bounds();
    const QRectF hull = strokedHull(rect, drawStyle().stroke());
    return rect.isEmpty() ? Bounds(hull) : Bounds(Ellipse(Vetra::fromQt(hull)));
}

bool EllipseNodeImpl::outlineContains(const QPointF& point) const
{
    const QRectF rect = geometryRect();
    if (!isDrawable(rect))
        return false;
    const auto hull = Vetra::fromQt(strokedHull(rect, drawStyle().stroke()));
    // On the stack, since nothing shares it.
    return hull.contains(Vetra::fromQt(point)) &&
           (rect.isEmpty() || EllipsePainterPathBoundsImpl(hull).contains(Vetra::fromQt(point)));
}

QRectF EllipseNodeImpl::centerAligned(const QRectF& rect) const
{
    const SceneLink* const scene = sceneLink();
    if (m_widthToPixelAlignCenter == kUnaligned || !scene)
        return rect;
    const QTransform toScene = sceneTransform();
    bool isInvertible = false;
    const QTransform toLocal = toScene.inverted(&isInvertible);
    if (!isInvertible)
        return rect;
    QRectF moved = rect;
    moved.moveCenter(toLocal.map(scene->pixelAligned(toScene.map(rect.center()))));
    return isFinite(moved) ? moved : rect;
}

void EllipseNodeImpl::paintNode(PaintContext& context) const
{
    const QRectF rect = centerAligned(geometryRectAt(context.options().viewScale));
    if (!isDrawable(rect))
        return;
    if (context.drawTiny(rect, drawStyle(), std::numbers::pi / 4))
        return;
    context.setStyle(drawStyle(), std::max(rect.width(), rect.height()));
    if (rect.isEmpty())
        context.drawLine({rect.topLeft(), rect.bottomRight()});
    else
        context.drawEllipse(rect);
}

QPainterPath EllipseNodeImpl::silhouetteOutline(double viewScale) const
{
    const QRectF rect = geometryRectAt(viewScale);
    QPainterPath path;
    path.addEllipse(SilhouetteBox::around(rect, 0, drawStyle(), viewScale).rect);
    return path;
}

QByteArray EllipseNodeImpl::silhouetteKey() const
{
    return SilhouetteKey()
        .add(m_rect, m_lodScale, m_widthToPixelAlignCenter != kUnaligned, drawStyle())
        .bytes();
}

} // namespace Tova2
