#pragma once

#include "tova/nodes/node.h"

namespace Tova2 {

class LineNodeImpl;

/// A straight line. It has no inside: the fill is not drawn, and without a stroke nothing is hit.
class TOVA_EXPORT LineNode : public Node {
public:
    LineNode();
    LineNode(const Vetra::GLPoint<double>& start, const Vetra::GLPoint<double>& end);
    explicit LineNode(LineNodeImpl* impl);
    /// Empty when the element is of another kind.
    explicit LineNode(NodeImpl* impl);

    Vetra::GLPoint<double> getStart() const;
    void setStart(const Vetra::GLPoint<double>& start);
    Vetra::GLPoint<double> getEnd() const;
    void setEnd(const Vetra::GLPoint<double>& end);
    /// Both in one change.
    void setLine(const Vetra::GLPoint<double>& start, const Vetra::GLPoint<double>& end);

    static const char* staticGetFullyQualifiedKobjTypeName();

protected:
    LineNodeImpl* getLineImpl() const noexcept;
    LineNodeImpl* getValidLineImpl() const;
};

} // namespace Tova2
