#pragma once

#include "tova/nodes/node.h"

namespace Tova2 {

class CustomNodeImpl;
class CustomNodePainter;

/// A node that a painter of the host's draws and measures. Without a painter it is empty.
class TOVA_EXPORT CustomNode : public Node {
public:
    CustomNode();
    explicit CustomNode(CustomNodeImpl* impl);
    /// Empty when the element is of another kind.
    explicit CustomNode(NodeImpl* impl);

    /// Holds one reference on the painter. A painter that is in the middle of a call from the node
    /// lives on until that call returns.
    void setPainter(CustomNodePainter* painter);
    /// Null when there is none.
    CustomNodePainter* getPainter() const;
    /// To be called before the painter's bounding rectangle changes.
    void boundsChanging();
    /// The picture is to be drawn again, in the same bounds.
    void repaintRequired();

    static const char* staticGetFullyQualifiedKobjTypeName();

protected:
    CustomNodeImpl* getCustomImpl() const noexcept;
    CustomNodeImpl* getValidCustomImpl() const;
};

} // namespace Tova2
