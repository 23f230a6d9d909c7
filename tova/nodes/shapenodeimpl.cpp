#include "nodes/shapenodeimpl.h"

#include "nodes/effects/silhouettekey.h"
#include "nodes/effects/silhouettestroke.h"
#include "nodes/geometry/pathoperations.h"
#include "nodes/outlinepolyline.h"
#include "nodes/outlinereach.h"
#include "nodes/paintcontext.h"
#include "nodes/pen.h"
#include "nodes/values.h"

#include "tova/nodes/geometry/limits.h"
#include "vetra/qt.h"

#include <QPainterPathStroker>

#include <algorithm>
#include <optional>

namespace Tova2 {

namespace {

bool isInExactRange(const QRectF& rect)
{
    return std::max({std::abs(rect.left()), std::abs(rect.top()), std::abs(rect.right()),
                     std::abs(rect.bottom())}) <= Limits::exactShapeCoordinate;
}

bool encloses(const QRectF& rect, const QPointF& p)
{
    return p.x() >= rect.left() && p.x() <= rect.right() && p.y() >= rect.top() &&
           p.y() <= rect.bottom();
}

Bounds strokeOf(const QPainterPath& path, const Stroke& stroke)
{
    QPainterPathStroker stroker(penOf(stroke, 1.0));
    // What lies between dashes is part of the line.
    stroker.setDashPattern(Qt::SolidLine);
    stroker.setWidth(2 * halfStroke(stroke));
    return Bounds(stroker.createStroke(path));
}

} // namespace

/// What is known about the figure and its stroke. Beyond the range of exact drawing only the
/// rectangles.
struct ShapeNodeImpl::Measures {
    QRectF geometry;
    StrokeExtent extent;
    OutlinePolyline polyline;
    double half = 0;
    bool isExact = true;
    std::optional<Bounds> outline;
};

ShapeNodeImpl::ShapeNodeImpl() = default;
ShapeNodeImpl::~ShapeNodeImpl() = default;

void ShapeNodeImpl::setFigure(const Vetra::Shape& figure)
{
    if (figure == m_figure)
        return;
    m_figure = figure;
    reportChange(ChangeLevel::Geometry);
}

void ShapeNodeImpl::dropCaches(ChangeLevel level)
{
    if (level == ChangeLevel::Geometry)
        m_measures.reset();
}

const ShapeNodeImpl::Measures& ShapeNodeImpl::measures() const
{
    if (m_measures)
        return *m_measures;
    auto made = std::make_unique<Measures>();
    const Stroke& stroke = drawStyle().stroke();
    const QPainterPath path = Vetra::toQt(m_figure);
    if (!path.isEmpty()) {
        made->half = halfStroke(stroke);
        made->geometry = Vetra::toQt(boundingRectOf(path));
        made->extent = {strokedHull(made->geometry, stroke)};
        made->isExact = isInExactRange(made->geometry);
    }
    if (made->isExact) {
        const auto subpaths = subpathsOf(path);
        made->polyline = OutlinePolyline(subpaths);
        made->extent =
            path.isEmpty() ? StrokeExtent{} : strokeExtentOf(subpaths, made->geometry, stroke);
    }
    m_measures = std::move(made);
    return *m_measures;
}

bool ShapeNodeImpl::isFilled() const
{
    return drawStyle().fill().style() != FillStyle::NoFill;
}

bool ShapeNodeImpl::hasOutline() const
{
    const Measures& known = measures();
    return isFilled() || known.half > 0 || !known.isExact;
}

QRectF ShapeNodeImpl::geometryRect() const
{
    return measures().geometry;
}

QRectF ShapeNodeImpl::strokedRect() const
{
    return measures().extent.rect;
}

double ShapeNodeImpl::strokeReach() const
{
    return measures().extent.reach;
}

Bounds ShapeNodeImpl::outline() const
{
    const Measures& known = measures();
    if (known.outline)
        return *known.outline;
    const QPainterPath path = Vetra::toQt(m_figure);
    const Stroke& stroke = drawStyle().stroke();
    Bounds outline;
    if (!known.isExact) {
        outline = Bounds(known.extent.rect);
    } else {
        if (!stroke.isNoStroke())
            outline = strokeOf(path, stroke);
        if (isFilled())
            outline.unionWith(Bounds(path));
    }
    m_measures->outline = outline;
    return outline;
}

bool ShapeNodeImpl::outlineContains(const QPointF& point) const
{
    const Measures& known = measures();
    if (!encloses(known.extent.rect, point))
        return false;
    if (!known.isExact)
        return true;
    if (known.half > 0 && known.polyline.passesNear(point, known.half))
        return true;
    return isFilled() && known.polyline.isInside(point, Vetra::toQt(m_figure).fillRule());
}

bool ShapeNodeImpl::outlineIntersects(const Bounds& area) const
{
    const Measures& known = measures();
    const QRectF rect = Vetra::toQt(area.boundingRect());
    if (!Vetra::fromQt(known.extent.rect).intersects(area.boundingRect()))
        return false;
    if (!area.isOnlyRect() || !known.isExact || !isFinite(rect))
        return outline().intersectsWith(area);
    if (known.half > 0 && known.polyline.passesNear(rect, known.half))
        return true;
    return isFilled() && known.polyline.fillMeets(rect, Vetra::toQt(m_figure).fillRule());
}

void ShapeNodeImpl::paintNode(PaintContext& context) const
{
    if (m_figure.isEmpty())
        return;
    const QRectF rect = geometryRect();
    // Of a triangle, which most tiny shapes are.
    if (isFilled() && context.drawTiny(rect, drawStyle(), 0.5))
        return;
    context.setStyle(drawStyle(), std::max(rect.width(), rect.height()));
    context.drawPath(Vetra::toQt(m_figure));
}

QByteArray ShapeNodeImpl::silhouetteKey() const
{
    const QPainterPath path = Vetra::toQt(m_figure);
    if (path.elementCount() > SilhouetteKey::kMostElements)
        return {};
    return SilhouetteKey().add(path, drawStyle()).bytes();
}

QPainterPath ShapeNodeImpl::silhouetteOutline(double viewScale) const
{
    const Stroke& stroke = drawStyle().stroke();
    if (isFilled())
        return strokedEdge(Vetra::toQt(m_figure), stroke, viewScale);
    return keepsItsWidth(stroke, viewScale) ? outline().asQPainterPath()
                                            : strokedArea(Vetra::toQt(m_figure), stroke, viewScale);
}

} // namespace Tova2
