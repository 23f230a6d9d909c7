#pragma once

#include "tova/nodes/node.h"

#include "vetra/shape.h"

namespace Tova2 {

class ShapeNodeImpl;

/// A free path. With a fill it is hit inside, by the path's fill rule, and on its stroke; without
/// one on its stroke only, all ends and corners counting as round.
class TOVA_EXPORT ShapeNode : public Node {
public:
    ShapeNode();
    explicit ShapeNode(const Vetra::Shape& shape);
    explicit ShapeNode(ShapeNodeImpl* impl);
    /// Empty when the element is of another kind.
    explicit ShapeNode(NodeImpl* impl);

    Vetra::Shape getShape() const;
    void setShape(const Vetra::Shape& shape);

    static const char* staticGetFullyQualifiedKobjTypeName();

protected:
    ShapeNodeImpl* getShapeNodeImpl() const noexcept;
    ShapeNodeImpl* getValidShapeNodeImpl() const;
};

} // namespace Tova2
