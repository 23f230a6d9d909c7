#include "layout/memberbox.h"

#include "nodes/nodeimpl.h"
#include "nodes/values.h"

namespace Tova2 {

namespace {

/// Of nodes in the coordinates of the member's parent, without the member's position.
class BoxUnion {
public:
    void add(const NodeImpl& node, const QTransform& transform)
    {
        const QRectF bounds = transform.mapRect(node.paintedRect());
        if (!isFinite(bounds) || !isDrawable(bounds))
            return;
        m_bounds |= bounds;
        // What strokes and effects add lies around the geometry.
        const QRectF geometry = transform.mapRect(node.geometryRect());
        m_geometry |= isFinite(geometry) && isDrawable(geometry) ? geometry : bounds;
    }
    MemberBox box() const { return {m_bounds, m_geometry.topLeft()}; }

private:
    QRectF m_bounds, m_geometry;
};

QTransform transformIn(const NodeImpl& member, const NodeImpl& node)
{
    QTransform transform;
    for (const NodeImpl* up = &node; up != &member; up = up->parentNode())
        transform *= up->localTransform();
    return transform * member.transform();
}

} // namespace

MemberBox boxOf(NodeImpl& member)
{
    BoxUnion all;
    if (member.hasShape()) {
        all.add(member, member.transform());
        return all.box();
    }
    for (const NodeImpl* const node : subtreeOf(member)) {
        if (node->hasShape() && node->isVisibleTo(&member))
            all.add(*node, transformIn(member, *node));
    }
    return all.box();
}

} // namespace Tova2
