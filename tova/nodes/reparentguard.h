#pragma once

#include "vetra/referenced.h"

namespace Tova2 {

class NodeImpl;

/// Marks a node as being moved in the hierarchy and keeps it alive until the move is over.
class ReparentGuard {
public:
    explicit ReparentGuard(NodeImpl& node);
    ~ReparentGuard();
    ReparentGuard(const ReparentGuard&) = delete;
    ReparentGuard& operator=(const ReparentGuard&) = delete;

    static bool isMoving(const NodeImpl& node);

private:
    Vetra::Holder<NodeImpl> m_node;
    bool m_isOutermost;
};

} // namespace Tova2
