#include "nodes/nodeimpl.h"

#include "nodes/deferrederror.h"
#include "nodes/destruction.h"
#include "nodes/nodechangesink.h"
#include "nodes/nodeextras.h"
#include "nodes/nodepool.h"
#include "nodes/reparentguard.h"
#include "nodes/scenelink.h"

#include <cstring>

namespace Tova2 {

NodeChangeSink& NodeChangeSink::fallback()
{
    struct Nowhere final : NodeChangeSink {
        void nodeChanged(NodeImpl&, ChangeLevel) override {}
    };
    static Nowhere nowhere;
    return nowhere;
}

void* NodeImpl::operator new(std::size_t size)
{
    return NodePool::allocate(size);
}

void NodeImpl::operator delete(void* block, std::size_t size) noexcept
{
    NodePool::release(block, size);
}

NodeImpl::NodeImpl() = default;

NodeImpl::~NodeImpl()
{
    Q_ASSERT(!m_scene && !m_isMember && !ReparentGuard::isMoving(*this));
    m_isReady = false;
    forgetEffectPictures();
    detachChildren();
}

void NodeImpl::destroy()
{
    // A child may still lead a handle to its doomed parent: the count then falls to zero again.
    if (m_isDoomed)
        return;
    m_isDoomed = true;
    dispose(this);
}

void NodeImpl::detachChildren()
{
    // The toolkit would delete them with their parent. From the front: it removes the first child
    // in constant time.
    const auto children = childItems();
    for (QGraphicsItem* const item : children) {
        item->setParentItem(nullptr);
        nodeOf(item)->setMembership(false);
    }
}

bool NodeImpl::isa(const char* name) const
{
    return name && (name == typeName() || std::strcmp(name, typeName()) == 0 ||
                    std::strcmp(name, "Tova2.Node") == 0);
}

void NodeImpl::setSceneLink(SceneLink* scene)
{
    m_scene = scene;
    m_hasBeenInScene |= scene != nullptr;
    sceneChanged();
}

void NodeImpl::setMembership(bool isMember)
{
    if (isMember == m_isMember)
        return;
    m_isMember = isMember;
    if (isMember)
        increment();
    else
        unreference();
}

NodeExtras& NodeImpl::madeExtras()
{
    if (!m_extras)
        m_extras = std::make_unique<NodeExtras>();
    return *m_extras;
}

void NodeImpl::setChangeSink(NodeChangeSink* sink)
{
    if (sink || m_extras)
        madeExtras().sink = sink;
}

void NodeImpl::reportChange(ChangeLevel level)
{
    // The scene asks nodes for bounds, and the sink tells: either may drop the last reference.
    const DestructionDelay delay;
    // To a sink an announced change is one of geometry like any other, and z-values are z-values.
    const auto told = level == ChangeLevel::Announced    ? ChangeLevel::Geometry
                      : level == ChangeLevel::Renumbered ? ChangeLevel::Stacking
                                                         : level;
    dropCaches(told);
    if (told != ChangeLevel::Placement && told != ChangeLevel::Stacking)
        forgetEffectPictures();
    if (m_scene)
        m_scene->noteChange(*this, level);
    if (!hasFollowers())
        return tellSink(told);
    DeferredError error;
    error.run([&] { tellSink(told); });
    error.run([&] { tellFollowers(told); });
    error.rethrow();
}

void NodeImpl::tellSink(ChangeLevel level)
{
    NodeChangeSink* const own = m_extras ? m_extras->sink : nullptr;
    if (own)
        own->nodeChanged(*this, level);
    else if (m_scene)
        m_scene->changeSink().nodeChanged(*this, level);
    else
        NodeChangeSink::fallback().nodeChanged(*this, level);
}

ChangeEmitter& NodeImpl::changeEmitter()
{
    return madeExtras().changes;
}

bool NodeImpl::hasFollowers() const
{
    return m_extras && m_extras->changes.hasListeners();
}

void NodeImpl::tellFollowers(ChangeLevel level)
{
    if (hasFollowers())
        m_extras->changes.send(*this, level);
}

Subtree subtreeOf(NodeImpl& root)
{
    Subtree nodes, pending{&root};
    while (!pending.empty()) {
        NodeImpl* const node = pending.back();
        pending.pop_back();
        nodes.push_back(node);
        const auto children = node->childItems();
        for (auto child = children.rbegin(); child != children.rend(); ++child)
            pending.push_back(nodeOf(*child));
    }
    return nodes;
}

} // namespace Tova2
