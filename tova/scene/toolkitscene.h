#pragma once

#include "nodes/nodeimpl.h"

#include <QGraphicsScene>

namespace Tova2 {

/// The toolkit scene that items belong to, kept from working for its keep: it has no index, and its
/// own pass over changed items, which takes milliseconds a turn in a large scene and serves only
/// toolkit views, never runs.
class ToolkitScene final : public QGraphicsScene {
public:
    ToolkitScene();
    ~ToolkitScene() override;

    /// The node is a top-level one; its children come along.
    void addSubtree(NodeImpl& root, const Subtree& subtree);
    /// The node is a top-level one afterwards; its children go with it.
    void removeSubtree(NodeImpl& root, const Subtree& subtree);

protected:
    bool event(QEvent* event) override;

private:
    void polish();

    bool m_isPolishPending = false;
};

} // namespace Tova2
