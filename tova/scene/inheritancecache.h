#pragma once

#include "nodes/nodeimpl.h"

#include <QTransform>

#include <algorithm>
#include <vector>

namespace Tova2 {

/// What nodes have from themselves and from their ancestors. It keeps the path down to the node
/// asked for last, so that a walk over a subtree, parents first, takes one step a node however deep
/// they lie. Forgets all when `edits` moves on.
class InheritanceCache {
public:
    struct Inherited {
        const NodeImpl* node = nullptr;
        QTransform sceneTransform;
        double opacity = 1;
        bool isSpecial = false; ///< has an opacity, a clip, or ignores transformations
        bool ignoresTransformations = false;
        bool isVisible = true;
    };

    explicit InheritanceCache(const std::uint64_t& edits) : m_edits(edits), m_seen(edits) {}

    /// Good until the next call.
    const Inherited& of(const NodeImpl& node)
    {
        const NodeImpl* const parent = node.parentNode();
        if (m_edits != m_seen)
            m_path.clear();
        m_seen = m_edits;
        while (!m_path.empty() && m_path.back().node != parent)
            m_path.pop_back();
        if (m_path.empty() && parent)
            enterAncestors(node);
        m_path.push_back(below(m_path.empty() ? Inherited() : m_path.back(), node));
        return m_path.back();
    }

private:
    static Inherited below(const Inherited& parent, const NodeImpl& node)
    {
        Inherited result = parent;
        result.node = &node;
        result.sceneTransform =
            parent.node ? node.localTransform() * parent.sceneTransform : node.localTransform();
        result.isVisible &= node.isVisibleItself();
        if (node.opacity() < 1.0 || node.isClipping() || node.ignoresTransformations()) {
            result.isSpecial = true;
            result.ignoresTransformations |= node.ignoresTransformations();
            result.opacity *= node.opacity();
        }
        return result;
    }

    void enterAncestors(const NodeImpl& node)
    {
        std::vector<const NodeImpl*> ancestors;
        for (const NodeImpl* at = node.parentNode(); at; at = at->parentNode())
            ancestors.push_back(at);
        for (auto at = ancestors.rbegin(); at != ancestors.rend(); ++at)
            m_path.push_back(below(m_path.empty() ? Inherited() : m_path.back(), **at));
    }

    const std::uint64_t& m_edits;
    std::uint64_t m_seen;
    std::vector<Inherited> m_path;
};

} // namespace Tova2
