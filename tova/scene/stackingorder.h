#pragma once

#include "nodes/nodeimpl.h"

#include <vector>

namespace Tova2 {

/// A node and all below it, from the bottom to the top by a loop, so that depth costs no stack.
/// Children that stack behind come before their parent.
template <class Visit>
void visitInStackingOrder(NodeImpl& root, int rootDepth, Visit visit)
{
    struct Step {
        NodeImpl* node;
        int depth;
        bool isOpened;
    };
    std::vector<Step> pending{{&root, rootDepth, false}};
    while (!pending.empty()) {
        const Step step = pending.back();
        pending.pop_back();
        const auto children = step.isOpened ? QList<QGraphicsItem*>() : step.node->childItems();
        if (children.isEmpty()) {
            visit(*step.node, step.depth);
            continue;
        }
        bool isNodePushed = false;
        for (auto child = children.rbegin(); child != children.rend(); ++child) {
            NodeImpl* const node = nodeOf(*child);
            if (node->stacksBehindParent() && !isNodePushed) {
                pending.push_back({step.node, step.depth, true});
                isNodePushed = true;
            }
            pending.push_back({node, step.depth + 1, false});
        }
        if (!isNodePushed)
            pending.push_back({step.node, step.depth, true});
    }
}

} // namespace Tova2
