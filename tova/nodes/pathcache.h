#pragma once

#include "nodes/pathnodeimpl.h"

namespace Tova2 {

/// Dropped when the node reports a change of its geometry, and by nothing else.
struct PathNodeImpl::Cache {
    Flattened drawn; ///< empty where the vertices are drawn as they are
    std::vector<FlatChunk> chunks;
    std::optional<Bounds> outline;
    std::optional<QPainterPath> whole;
};

struct PathNodeImpl::OwnStrokes {
    std::vector<Stroke> list;
    double reach = 0.5; ///< of any of them, as a multiple of its width
};

} // namespace Tova2
