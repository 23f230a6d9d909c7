#pragma once

#include "tova/nodes/curvedpathnode.h"
#include "tova/nodes/lineenddecoration.h"

namespace Tova2 {

class OpenCurvedPathNodeImpl;

/// Curves from the first vertex to the last, with a decoration at either end. It has no inside.
class TOVA_EXPORT OpenCurvedPathNode : public CurvedPathNode {
public:
    OpenCurvedPathNode();
    explicit OpenCurvedPathNode(const std::vector<Vertex>& vertices);
    explicit OpenCurvedPathNode(OpenCurvedPathNodeImpl* impl);
    /// Empty when the element is of another kind.
    explicit OpenCurvedPathNode(NodeImpl* impl);

    /// With position and rotation as they are now.
    LineEndDecoration getStartDecoration() const;
    LineEndDecoration getEndDecoration() const;
    /// Makes the decoration's node a child of this one and keeps it at the curve's end from then
    /// on; the former decoration's node leaves the scene. Throws as `setParent` does, and changes
    /// nothing then.
    void setStartDecoration(const LineEndDecoration& decoration);
    void setEndDecoration(const LineEndDecoration& decoration);
    /// Takes the decorations' nodes back under this one and gives them the transform of the curve's
    /// ends again. A position that the host gave such a node is its own, and stays.
    void updateDecorations();

    static const char* staticGetFullyQualifiedKobjTypeName();

protected:
    OpenCurvedPathNodeImpl* getOpenCurvedPathImpl() const noexcept;
    OpenCurvedPathNodeImpl* getValidOpenCurvedPathImpl() const;
};

} // namespace Tova2
