#include "scene/toolkitscene.h"

#include <QEvent>

#include <span>
#include <vector>

namespace Tova2 {

namespace {

// The toolkit adds and removes a subtree by recursion; beyond this depth we take it apart first.
constexpr int kDeepestHandedOver = 200;

int depthOf(const Subtree& subtree)
{
    int deepest = 0, depth = 0;
    const NodeImpl* last = nullptr;
    // Parents come before their children, so a step down is by one and a step up is by a search.
    for (const NodeImpl* const node : subtree) {
        if (last) {
            const NodeImpl* above = last;
            for (++depth; above != node->parentNode(); above = above->parentNode())
                --depth;
        }
        last = node;
        deepest = std::max(deepest, depth);
    }
    return deepest;
}

/// Takes a deep subtree apart for as long as it lives.
class Dismantled {
public:
    explicit Dismantled(const Subtree& subtree) : m_subtree(subtree)
    {
        if (depthOf(subtree) <= kDeepestHandedOver)
            return;
        m_parents.reserve(subtree.size());
        for (NodeImpl* const node : subtree)
            m_parents.push_back(node->parentItem());
        // From the leaves up: what is moved has no children then.
        for (std::size_t i = subtree.size(); --i > 0;)
            subtree[i]->setParentItem(nullptr);
    }
    ~Dismantled()
    {
        for (std::size_t i = 1; i < m_parents.size(); ++i)
            m_subtree[i]->setParentItem(m_parents[i]);
    }
    Dismantled(const Dismantled&) = delete;
    Dismantled& operator=(const Dismantled&) = delete;

    /// What has to be handed over one by one.
    std::span<NodeImpl* const> parts() const
    {
        return {m_subtree.data(), m_parents.empty() ? 1 : m_subtree.size()};
    }

private:
    const Subtree& m_subtree;
    std::vector<QGraphicsItem*> m_parents;
};

} // namespace

ToolkitScene::ToolkitScene()
{
    setItemIndexMethod(NoIndex);
    setBackgroundBrush(Qt::NoBrush);
    // "Everything is to be updated": from now on each further change has nothing to add and costs
    // nothing, as long as the queued pass that would clear this state is dropped.
    update();
}

ToolkitScene::~ToolkitScene()
{
    Q_ASSERT(items().isEmpty());
}

void ToolkitScene::addSubtree(NodeImpl&, const Subtree& subtree)
{
    const Dismantled dismantled(subtree);
    for (NodeImpl* const part : dismantled.parts())
        addItem(part);
    m_isPolishPending = true;
}

void ToolkitScene::removeSubtree(NodeImpl& root, const Subtree& subtree)
{
    // An item that waits for its polish is searched for in a list when it goes.
    if (m_isPolishPending)
        polish();
    root.setParentItem(nullptr);
    const Dismantled dismantled(subtree);
    for (NodeImpl* const part : dismantled.parts())
        removeItem(part);
}

void ToolkitScene::polish()
{
    m_isPolishPending = false;
    QMetaObject::invokeMethod(this, "_q_polishItems", Qt::DirectConnection);
}

bool ToolkitScene::event(QEvent* event)
{
    if (event->type() != QEvent::MetaCall)
        return QGraphicsScene::event(event);
    // All that the toolkit queues to itself. Of it we need only the polish.
    if (m_isPolishPending)
        polish();
    return true;
}

} // namespace Tova2
