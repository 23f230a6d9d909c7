#include "tova/nodes/node.h"

#include "nodes/destruction.h"
#include "nodes/nodeimpl.h"
#include "nodes/scenelink.h"

#include "tova/nodes/nodeerrors.h"
#include "vetra/qt.h"

#include <cmath>
#include <limits>
#include <numbers>

namespace Tova2 {

using Vetra::fromQt;
using Vetra::toQt;

namespace {

using Point = Vetra::GLPoint<double>;

/// Singular or overflowing transforms have no inverse.
bool invert(const QTransform& transform, QTransform& inverse)
{
    bool isInvertible = false;
    inverse = transform.inverted(&isInvertible);
    return isInvertible && fromQt(inverse).isFinite();
}

Vetra::Transform aroundPoint(const Vetra::Transform& turn, const Point& point)
{
    return Vetra::Transform::fromTranslate(-point.x, -point.y) * turn *
           Vetra::Transform::fromTranslate(point.x, point.y);
}

} // namespace

Point Node::getPosition() const
{
    return fromQt(getValidImpl()->pos());
}

void Node::setPosition(const Point& position)
{
    getValidImpl()->setPosition(toQt(position));
}

Point Node::getScenePosition() const
{
    return mapLocalToScene(Point{});
}

void Node::setScenePosition(const Point& position)
{
    NodeImpl* const impl = getValidImpl();
    const NodeImpl* const parent = impl->parentNode();
    QTransform toParent;
    if (!parent)
        impl->setPosition(toQt(position));
    else if (invert(parent->sceneTransform(), toParent))
        // The transform applies before the position, so the origin may already lie off the
        // position.
        impl->setPosition(toParent.map(toQt(position)) - impl->localTransform().map(QPointF()) +
                          impl->pos());
}

void Node::translate(const Point& distance)
{
    NodeImpl* const impl = getValidImpl();
    impl->setPosition(impl->pos() + toQt(distance));
}

const Property<Point>& Node::PositionProperty()
{
    static const Property<Point> property{
        "Position", [](const Node& node) { return node.getPosition(); },
        [](Node& node, const Point& position) { node.setPosition(position); }};
    return property;
}

Vetra::Transform Node::getTransform() const
{
    return fromQt(getValidImpl()->transform());
}

void Node::setTransform(const Vetra::Transform& transform)
{
    getValidImpl()->setLocalTransform(toQt(transform));
}

bool Node::isTransformAlmostEqual(const Vetra::Transform& other) const
{
    const auto own = getTransform();
    const auto isNear = [](double a, double b) { return a == b || std::abs(a - b) <= 0.0001; };
    return isNear(own.m11, other.m11) && isNear(own.m12, other.m12) && isNear(own.m21, other.m21) &&
           isNear(own.m22, other.m22) && isNear(own.dx, other.dx) && isNear(own.dy, other.dy);
}

// A turn or a scale acts in the node's own coordinates, before what is there already.
void Node::rotateDegrees(double degrees)
{
    setTransform(Vetra::Transform::fromRotateDegrees(degrees) * getTransform());
}

void Node::rotateRadians(double radians)
{
    setTransform(Vetra::Transform::fromRotateRadians(radians) * getTransform());
}

void Node::rotateDegreesAroundPoint(double degrees, const Point& point)
{
    setTransform(aroundPoint(Vetra::Transform::fromRotateDegrees(degrees), point) * getTransform());
}

void Node::rotateRadiansAroundPoint(double radians, const Point& point)
{
    setTransform(aroundPoint(Vetra::Transform::fromRotateRadians(radians), point) * getTransform());
}

void Node::scale(double sx, double sy)
{
    setTransform(Vetra::Transform::fromScale(sx, sy) * getTransform());
}

Vetra::Transform Node::deviceTransform(const Vetra::Transform& view) const
{
    return fromQt(getValidImpl()->nodeToDevice(toQt(view)));
}

void Node::setIgnoresTransformations(bool ignores)
{
    getValidImpl()->setIgnoresTransformations(ignores);
}

bool Node::doesIgnoreTransformations() const
{
    return getValidImpl()->ignoresTransformations();
}

double Node::getContentsScaleInScene() const
{
    const double determinant = getValidImpl()->sceneTransform().determinant();
    // Out of the range of numbers, as a finite transform may be.
    return std::isfinite(determinant) ? std::sqrt(std::abs(determinant))
                                      : std::sqrt(std::numeric_limits<double>::max());
}

Vetra::GLRect<double> Node::getBoundingRect() const
{
    const DestructionDelay delay;
    return fromQt(getValidImpl()->paintedRect());
}

Vetra::GLRect<double> Node::getGeometryRect() const
{
    const DestructionDelay delay;
    return fromQt(getValidImpl()->geometryRect());
}

Point Node::mapLocalToScene(const Point& point) const
{
    return fromQt(getValidImpl()->sceneTransform().map(toQt(point)));
}

Bounds Node::mapLocalToScene(const Bounds& bounds) const
{
    return bounds.transformed(fromQt(getValidImpl()->sceneTransform()));
}

Point Node::mapSceneToLocal(const Point& point) const
{
    QTransform toLocal;
    return invert(getValidImpl()->sceneTransform(), toLocal) ? fromQt(toLocal.map(toQt(point)))
                                                             : Point{};
}

Bounds Node::mapSceneToLocal(const Bounds& bounds) const
{
    QTransform toLocal;
    return invert(getValidImpl()->sceneTransform(), toLocal) ? bounds.transformed(fromQt(toLocal))
                                                             : Bounds();
}

Vetra::GLRect<double> Node::mapLocalRectToSceneRect(const Vetra::GLRect<double>& rect) const
{
    return fromQt(getValidImpl()->sceneTransform()).mapRect(rect);
}

Vetra::GLRect<double> Node::mapSceneRectToLocalRect(const Vetra::GLRect<double>& rect) const
{
    QTransform toLocal;
    return invert(getValidImpl()->sceneTransform(), toLocal) ? fromQt(toLocal).mapRect(rect)
                                                             : Vetra::GLRect<double>{};
}

Point Node::mapOtherNodeToLocal(const Node& other, const Point& point) const
{
    return mapSceneToLocal(other.mapLocalToScene(point));
}

Bounds Node::mapOtherNodeToLocal(const Node& other, const Bounds& bounds) const
{
    return mapSceneToLocal(other.mapLocalToScene(bounds));
}

} // namespace Tova2
