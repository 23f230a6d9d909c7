#pragma once

#include "tova/nodes/geometry/bounds.h"
#include "tova/tova_export.h"
#include "tova/typename.h"
#include "vetra/glpoint.h"
#include "vetra/glrect.h"
#include "vetra/referenced.h"

namespace Tova2 {

class Node;

/// Answers hit tests in a node's stead. Shared by reference count: each node that uses it holds one
/// reference. Everything is in the node's own coordinates; `tolerance` widens the hit area, in the
/// same unit. It is for hosts that share a functor: the library's own queries are exact and pass 0.
/// A functor may edit anything; a node that it takes out is not found.
class TOVA_EXPORT CustomHitTestFunctor : public Vetra::Referenced {
public:
    virtual bool contains(const Node& node, double tolerance,
                          const Vetra::GLPoint<double>& point) const = 0;
    virtual bool intersects(const Node& node, double tolerance,
                            const Vetra::GLRect<double>& rect) const = 0;
    virtual bool intersects(const Node& node, double tolerance, const Bounds& bounds) const = 0;
    /// Where the node may be hit. A scene also asks wherever the node's bounding rectangle lies,
    /// and asks for these bounds anew at each query, so they may be larger and may change.
    virtual Bounds hitTestBounds(const Node& node, double tolerance) const = 0;

protected:
    ~CustomHitTestFunctor() override;

    TOVA_BASE_TYPE("Tova2.CustomHitTestFunctor");
};

} // namespace Tova2
