#include "tova/nodes/linearpathnode.h"

#include "nodes/linearpathnodeimpl.h"
#include "nodes/nodekind.h"

#include "tova/nodes/nodeerrors.h"
#include "vetra/qt.h"

namespace Tova2 {

namespace {

using Points = std::vector<Vetra::GLPoint<double>>;

std::size_t checkedIndex(int index, const LinearPathNodeImpl& path)
{
    if (index < 0 || static_cast<std::size_t>(index) >= path.points().size())
        raise(NodeError::InvalidLinearPathIndex);
    return static_cast<std::size_t>(index);
}

} // namespace

LinearPathNode::LinearPathNode() : Node(FactoryIndex{factoryIndex<LinearPathNodeImpl>()}) {}

LinearPathNode::LinearPathNode(const Points& points) : LinearPathNode()
{
    setPoints(points);
}

LinearPathNode::LinearPathNode(LinearPathNodeImpl* impl) : Node(impl) {}

LinearPathNode::LinearPathNode(NodeImpl* impl) : Node(checkedKind<LinearPathNodeImpl>(impl)) {}

Points LinearPathNode::getPoints() const
{
    const auto& own = getValidLinearPathImpl()->points();
    Points points;
    points.reserve(own.size());
    for (const QPointF& p : own)
        points.push_back(Vetra::fromQt(p));
    return points;
}

void LinearPathNode::setPoints(const Points& points)
{
    std::vector<QPointF> own;
    own.reserve(points.size());
    for (const auto& p : points)
        own.push_back(Vetra::toQt(p));
    getValidLinearPathImpl()->setPoints(std::move(own));
}

Vetra::GLPoint<double> LinearPathNode::getPoint(int index) const
{
    const LinearPathNodeImpl& impl = *getValidLinearPathImpl();
    return Vetra::fromQt(impl.points()[checkedIndex(index, impl)]);
}

void LinearPathNode::setPoint(int index, const Vetra::GLPoint<double>& point)
{
    LinearPathNodeImpl& impl = *getValidLinearPathImpl();
    impl.setPoint(checkedIndex(index, impl), Vetra::toQt(point));
}

void LinearPathNode::append(const Vetra::GLPoint<double>& point)
{
    getValidLinearPathImpl()->append(Vetra::toQt(point));
}

int LinearPathNode::pointsCount() const
{
    return static_cast<int>(getValidLinearPathImpl()->points().size());
}

const Property<Points>& LinearPathNode::PathProperty()
{
    static const Property<Points> property{
        "Path", [](const Node& node) { return nodeAs<LinearPathNode>(node).getPoints(); },
        [](Node& node, const Points& points) { nodeAs<LinearPathNode>(node).setPoints(points); }};
    return property;
}

std::vector<Stroke> LinearPathNode::getStrokes() const
{
    return getValidLinearPathImpl()->strokes();
}

void LinearPathNode::setStrokes(const std::vector<Stroke>& strokes)
{
    getValidLinearPathImpl()->setStrokes(strokes);
}

void LinearPathNode::scale(double factor)
{
    if (factor < 0)
        raise(NodeError::NegativeLinearPathScale);
    getValidLinearPathImpl()->scalePoints(factor);
}

void LinearPathNode::translate(const Vetra::GLPoint<double>& distance)
{
    getValidLinearPathImpl()->translatePoints(Vetra::toQt(distance));
}

std::vector<Vetra::GLPoint<double>> LinearPathNode::intersectionPoints() const
{
    std::vector<Vetra::GLPoint<double>> points;
    for (const PathIntersection& crossing : getValidLinearPathImpl()->drawnCrossings())
        points.push_back({crossing.x, crossing.y});
    return points;
}

std::vector<Vetra::GLPoint<double>> LinearPathNode::intersectionPointsRaw() const
{
    std::vector<Vetra::GLPoint<double>> points;
    for (const PathIntersection& crossing : getValidLinearPathImpl()->crossings())
        points.push_back({crossing.x, crossing.y});
    return points;
}

const char* LinearPathNode::staticGetFullyQualifiedKobjTypeName()
{
    return LinearPathNodeImpl::kTypeName;
}

LinearPathNodeImpl* LinearPathNode::getLinearPathImpl() const noexcept
{
    return static_cast<LinearPathNodeImpl*>(getImpl());
}

LinearPathNodeImpl* LinearPathNode::getValidLinearPathImpl() const
{
    return static_cast<LinearPathNodeImpl*>(getValidImpl());
}

} // namespace Tova2
