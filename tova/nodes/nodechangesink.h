#pragma once

#include "nodes/changelevel.h"

namespace Tova2 {

class NodeImpl;

/// Where a node's changes are reported: its own sink, else that of its scene, else the library's
/// default one. Called when the change is complete; it may edit the node or throw.
class NodeChangeSink {
public:
    virtual void nodeChanged(NodeImpl& node, ChangeLevel level) = 0;

    /// For nodes outside any scene that have no sink of their own; does nothing.
    static NodeChangeSink& fallback();

protected:
    ~NodeChangeSink() = default;
};

} // namespace Tova2
