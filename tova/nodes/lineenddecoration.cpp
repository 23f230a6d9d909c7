#include "tova/nodes/lineenddecoration.h"

#include "nodes/geometry/almostequal.h"
#include "tova/nodes/nodeerrors.h"

#include "vetra/qt.h"

#include <QTransform>

#include <cmath>
#include <numbers>

namespace Tova2 {

namespace {

using Point = Vetra::GLPoint<double>;

bool isFinite(const Point& p)
{
    return std::isfinite(p.x) && std::isfinite(p.y);
}

bool store(Point& value, const Point& given)
{
    if (!isFinite(given) || almostEqual(value, given))
        return false;
    value = given;
    return true;
}

bool store(double& value, double given)
{
    if (!std::isfinite(given) || almostEqual(value, given))
        return false;
    value = given;
    return true;
}

/// Of length 1, also where the squares are out of the range of numbers.
Point normalized(const Point& v)
{
    const double length = std::hypot(v.x / 2, v.y / 2);
    return {v.x / 2 / length, v.y / 2 / length};
}

/// Exact for right angles, which most lines end with.
double degreesBetween(const Point& from, const Point& to)
{
    const double cross = from.x * to.y - from.y * to.x, dot = from.x * to.x + from.y * to.y;
    return std::atan2(cross, dot) * (180 / std::numbers::pi);
}

} // namespace

void LineEndDecoration::setNode(const Node& node)
{
    if (!(node == m_node))
        m_node = node;
}

void LineEndDecoration::setParent(const Node& parent)
{
    if (!isValid())
        return;
    Node node = m_node; // the scene's tracker may replace it
    node.setParent(parent);
}

bool LineEndDecoration::setPosition(const Point& position)
{
    return store(m_position, position);
}

void LineEndDecoration::setOrigin(const Point& origin)
{
    store(m_origin, origin);
}

void LineEndDecoration::setReferenceDirection(const Point& direction)
{
    if (!isFinite(direction))
        return;
    if (almostEqual(direction.x * direction.x + direction.y * direction.y, 0.0))
        raise(NodeError::ZeroLengthDirectionVector);
    if (store(m_reference, normalized(direction)))
        m_cachedReference = m_reference - Point{10, 10};
}

bool LineEndDecoration::setDirection(const Point& direction)
{
    if (!isFinite(direction) || direction == Point{})
        return false;
    if (almostEqual(m_reference, m_cachedReference) && almostEqual(direction, m_cachedDirection))
        return false;
    m_cachedReference = m_reference;
    m_cachedDirection = direction;
    return store(m_rotation, degreesBetween(m_reference, normalized(direction)));
}

bool LineEndDecoration::setRotation(double degrees)
{
    return store(m_rotation, degrees);
}

void LineEndDecoration::setRelativePosition(double distance)
{
    store(m_relativePosition, distance);
}

void LineEndDecoration::setLineBackoff(double distance)
{
    store(m_lineBackoff, distance);
}

Point LineEndDecoration::getBackoffVector() const
{
    const QTransform turn = QTransform().rotate(m_rotation);
    return Vetra::fromQt(turn.map(Vetra::toQt(m_reference))) * m_lineBackoff;
}

bool LineEndDecoration::setCosPosition(const Point& position)
{
    const bool isChanged = setPosition(position);
    updateTransform();
    return isChanged;
}

bool LineEndDecoration::setCosDirection(const Point& direction)
{
    const bool isChanged = setDirection(direction);
    updateTransform();
    return isChanged;
}

bool LineEndDecoration::updateTransform()
{
    if (!isValid())
        return true;
    const Point shift = m_reference * m_relativePosition - m_origin;
    QTransform placed;
    placed.translate(m_position.x, m_position.y);
    placed.rotate(m_rotation);
    placed.translate(shift.x, shift.y);
    const auto transform = Vetra::fromQt(placed);
    if (!isFinite(Vetra::fromQt(placed.map(QPointF()))) || m_node.isTransformAlmostEqual(transform))
        return false;
    Node node = m_node; // whoever is told of the move may replace it
    node.setTransform(transform);
    return true;
}

bool LineEndDecoration::operator==(const LineEndDecoration& other) const
{
    return m_node == other.m_node && almostEqual(m_relativePosition, other.m_relativePosition) &&
           almostEqual(m_lineBackoff, other.m_lineBackoff) &&
           almostEqual(m_reference, other.m_reference) &&
           almostEqual(m_position, other.m_position) && almostEqual(m_origin, other.m_origin) &&
           almostEqual(m_rotation, other.m_rotation);
}

} // namespace Tova2
