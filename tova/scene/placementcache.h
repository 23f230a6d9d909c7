#pragma once

#include "nodes/nodeimpl.h"

#include <QTransform>

namespace Tova2 {

/// Scene transforms of nodes asked for in stacking order, where a node's parent is mostly the one
/// just seen or that of the node just seen. Good for one walk, during which nothing moves.
class PlacementCache {
public:
    QTransform sceneTransform(const NodeImpl& node)
    {
        const NodeImpl* const parent = node.parentNode();
        const QTransform result =
            parent ? node.localTransform() * parentTransform(parent) : node.localTransform();
        m_last = &node;
        m_lastTransform = result;
        return result;
    }

private:
    const QTransform& parentTransform(const NodeImpl* parent)
    {
        if (parent != m_parent) {
            m_parentTransform = parent == m_last ? m_lastTransform : parent->sceneTransform();
            m_parent = parent;
        }
        return m_parentTransform;
    }

    const NodeImpl* m_last = nullptr;
    const NodeImpl* m_parent = nullptr;
    QTransform m_lastTransform;
    QTransform m_parentTransform;
};

} // namespace Tova2
