#include "nodes/geometry/pathoperations.h"

#include "nodes/geometry/almostequal.h"
#include "nodes/geometry/boundsimpl.h"
#include "nodes/geometry/pathcost.h"
#include "nodes/geometry/purepainterpathboundsimpl.h"
#include "tova/nodes/geometry/limits.h"

#include "vetra/qt.h"

#include <algorithm>
#include <cmath>

namespace Tova2 {

namespace {

// Of the coordinates of a path, with room below the toolkit's limit for the arithmetic of its
// shapes.
constexpr double pathMaximum = 1e120;

bool isInRange(const QPainterPath& path)
{
    return extentOf(path) <= Limits::pathCoordinate;
}

Vetra::Transform scaling(double factor)
{
    return Vetra::Transform::fromScale(factor, factor);
}

Bounds withPath(const Bounds::Rect& rect, const QPainterPath& path)
{
    return BoundsFactory::make(rect, new PurePainterPathBoundsImpl(path));
}

// The toolkit leaves out the closing line at times.
bool isQuadrilateral(const QPainterPath& path)
{
    const int count = path.elementCount();
    if (count != 4 && !(count == 5 && QPointF(path.elementAt(0)) == QPointF(path.elementAt(4))))
        return false;
    for (int i = 1; i < count; ++i)
        if (!path.elementAt(i).isLineTo())
            return false;
    return true;
}

// A boolean often ends in a rectangle, which then has to be a bare one.
Bounds boundsOfResult(const QPainterPath& path)
{
    if (isQuadrilateral(path)) {
        const auto corner = [&](int i) { return Vetra::fromQt(QPointF(path.elementAt(i))); };
        const Bounds corners(corner(0), corner(1), corner(2), corner(3));
        if (corners.isOnlyRect())
            return corners;
    }
    return Bounds(path);
}

} // namespace

bool isFinite(const QPainterPath& path)
{
    for (int i = 0; i < path.elementCount(); ++i) {
        const auto element = path.elementAt(i);
        if (!std::isfinite(element.x) || !std::isfinite(element.y))
            return false;
    }
    return true;
}

bool isFinite(const Bounds::Rect& rect)
{
    return std::isfinite(rect.x) && std::isfinite(rect.y) && std::isfinite(rect.right()) &&
           std::isfinite(rect.bottom());
}

bool fitsPath(const Bounds::Rect& rect)
{
    return rect.x >= -pathMaximum && rect.y >= -pathMaximum && rect.right() <= pathMaximum &&
           rect.bottom() <= pathMaximum;
}

QPainterPath pathOf(const Bounds::Rect& rect)
{
    constexpr Bounds::Rect all{-pathMaximum, -pathMaximum, 2 * pathMaximum, 2 * pathMaximum};
    QPainterPath path;
    path.addRect(Vetra::toQt(fitsPath(rect) ? rect : rect.intersected(all)));
    return path;
}

QPainterPath mapped(const QPainterPath& path, const Vetra::Transform& t)
{
    QPainterPath result = path;
    for (int i = 0; i < path.elementCount(); ++i) {
        const auto p = t.map({path.elementAt(i).x, path.elementAt(i).y});
        result.setElementPositionAt(i, p.x, p.y);
    }
    return result;
}

Bounds::Rect boundingRectOf(const QPainterPath& path)
{
    const double k = rangeFactor(path);
    if (k == 1)
        return Vetra::fromQt(path.boundingRect());
    const QRectF r = mapped(path, scaling(k)).boundingRect();
    return Bounds::Rect::fromCorners({r.left() / k, r.top() / k}, {r.right() / k, r.bottom() / k});
}

double rangeFactor(const QPainterPath& path)
{
    if (isInRange(path))
        return 1;
    // A power of two, so that no digit is lost on the way there and back.
    int exponent = 0;
    std::frexp(extentOf(path) / Limits::pathCoordinate, &exponent);
    return std::ldexp(1.0, -exponent);
}

Bounds unite(const QPainterPath& a, const QPainterPath& b)
{
    const auto rectA = boundingRectOf(a), rectB = boundingRectOf(b), rect = rectA.united(rectB);
    if (!rectA.intersects(rectB) && a.fillRule() == b.fillRule()) {
        QPainterPath both = a;
        both.addPath(b);
        return withPath(rect, both);
    }
    if (!canCombine(a, b))
        return Bounds(rect);
    const QPainterPath united = a.united(b);
    // The toolkit loses parts of some paths; a region to repaint must not.
    if (!boundingRectOf(united).grown(coordinateTolerance).contains(rect))
        return Bounds(rect);
    const Bounds result = boundsOfResult(united);
    return result.isOnlyRect() ? Bounds(rect) : withPath(rect, united);
}

Bounds intersect(const QPainterPath& a, const QPainterPath& b)
{
    const auto rectA = boundingRectOf(a), rectB = boundingRectOf(b);
    if (!rectA.intersects(rectB))
        return Bounds();
    return canCombine(a, b) ? boundsOfResult(a.intersected(b)) : Bounds(rectA.intersected(rectB));
}

Bounds intersect(const QPainterPath& path, const Bounds::Rect& rect)
{
    const auto pathRect = boundingRectOf(path);
    const auto common = pathRect.intersected(rect);
    if (!common.isValid())
        return Bounds();
    if (!isInRange(path))
        return Bounds(common);
    // By the common rectangle, since the other may reach to infinity. The toolkit clips by a
    // rectangle in linear time.
    return boundsOfResult(path.intersected(pathOf(common)));
}

bool containsPoint(const QPainterPath& path, const Bounds::Point& point)
{
    const double k = rangeFactor(path);
    return k == 1 ? path.contains(Vetra::toQt(point))
                  : mapped(path, scaling(k)).contains(Vetra::toQt(point * k));
}

bool containsRect(const QPainterPath& path, const Bounds::Rect& rect)
{
    const double k = rangeFactor(path);
    if (k != 1)
        return mapped(path, scaling(k)).contains(Vetra::toQt(scaling(k).mapRect(rect)));
    // Edges are closed, but the toolkit finds that a common one sticks out.
    const Bounds::Rect within = rect.grown(-coordinateTolerance);
    const QRectF inner = Vetra::toQt(within.isValid() ? within : rect);
    if (!path.contains(inner))
        return false;
    // Under this rule the toolkit tries five points of a rectangle that edges cross.
    const bool isCertain = path.fillRule() == Qt::OddEvenFill || !canCombine(path, path);
    return isCertain || path.simplified().contains(inner);
}

bool intersectsRect(const QPainterPath& path, const Bounds::Rect& rect)
{
    const double k = rangeFactor(path);
    return k == 1 ? path.intersects(Vetra::toQt(rect))
                  : mapped(path, scaling(k)).intersects(Vetra::toQt(scaling(k).mapRect(rect)));
}

bool containsAll(const QPainterPath& path, const QPainterPath& other)
{
    return canCompare(path, other) ? path.contains(other)
                                   : containsRect(path, boundingRectOf(other));
}

bool intersectsAny(const QPainterPath& path, const QPainterPath& other)
{
    if (canCompare(path, other))
        return path.intersects(other);
    return intersectsRect(path, boundingRectOf(other)) &&
           intersectsRect(other, boundingRectOf(path));
}

} // namespace Tova2
