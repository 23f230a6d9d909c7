#pragma once

#include "nodes/nodeimpl.h"

namespace Tova2 {

/// A node of its children alone. Its style belongs to nothing.
class GroupNodeImpl : public NodeImpl {
public:
    QRectF strokedRect() const override { return {}; }
    double strokeReach() const override { return 0; }
    bool countsInBounds() const override { return false; }
    bool hasShape() const override { return false; }
    Bounds outline() const override { return Bounds(); }
    bool outlineContains(const QPointF&) const override { return false; }
    bool outlineIntersects(const Bounds&) const override { return false; }
    void paintNode(PaintContext&) const override {} // its children draw themselves
};

class ContainerNodeImpl final : public GroupNodeImpl {
public:
    static constexpr const char* kTypeName = "Tova2.ContainerNode";

    const char* typeName() const override { return kTypeName; }
};

} // namespace Tova2
