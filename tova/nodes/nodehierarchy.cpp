#include "nodes/deferrederror.h"
#include "nodes/destruction.h"
#include "nodes/nodeimpl.h"
#include "nodes/reparentguard.h"
#include "nodes/scenelink.h"

#include "tova/nodes/nodeerrors.h"

namespace Tova2 {

bool NodeImpl::isAncestorOfNode(const NodeImpl& other) const
{
    for (const NodeImpl* node = other.parentNode(); node; node = node->parentNode()) {
        if (node == this)
            return true;
    }
    return false;
}

bool NodeImpl::canHangUnder(const NodeImpl* parent) const
{
    return !parent || (parent != this && !isAncestorOfNode(*parent));
}

void NodeImpl::checkParent(const NodeImpl* parent) const
{
    if (parent == this)
        raise(NodeError::CannotParentToSelf);
    if (!canHangUnder(parent))
        raise(NodeError::CyclicalHierarchy);
}

void NodeImpl::setParent(NodeImpl* parent)
{
    checkParent(parent);
    const DestructionDelay delay;
    const ReparentGuard guard(*this);
    const Vetra::Holder<NodeImpl> keepParent(parent);
    if (parent == parentNode())
        return;
    DeferredError error;
    bool isStacked = false;
    if (parent && parent->m_scene != m_scene) {
        // Out, in, then under the parent: the toolkit crashes on any shorter way between two
        // scenes.
        if (m_scene)
            error.run([&] { m_scene->removeNode(*this); });
        if (SceneLink* const entered = parent->m_scene) {
            error.run([&] { entered->addNode(*this); });
            isStacked = true;
        }
    }
    // A tracker that was told of the move may have rearranged things; what it did then stands.
    if (canHangUnder(parent) && (!parent || parent->m_scene == m_scene)) {
        const Vetra::Holder<NodeImpl> left(parentNode());
        hangUnder(parent);
        parentChanged();
        if (!isStacked && m_scene)
            error.run([&] { m_scene->stackOnTop(*this); });
        if (left)
            error.run([&] { left->tellFollowers(ChangeLevel::Children); });
        if (parent)
            error.run([&] { parent->tellFollowers(ChangeLevel::Children); });
    }
    error.rethrow();
}

void NodeImpl::hangUnder(NodeImpl* parent)
{
    if (m_scene)
        m_scene->noteReparenting(*this);
    setParentItem(parent);
    setMembership(parent || m_scene);
    if (m_scene)
        m_scene->noteReparented(*this);
}

} // namespace Tova2
