#pragma once

#include "nodes/changelevel.h"

#include <list>
#include <memory>
#include <unordered_map>

namespace Tova2 {

class NodeImpl;
class PaintContext;
class ScenePrivate;

/// Pictures of nodes that ask to be cached, each made for one scale, direction and part of a pixel,
/// so that it is drawn without being resampled. They share the budget of all caches.
class NodeCache {
public:
    NodeCache();
    ~NodeCache();

    /// False when the node is to be painted directly: too large, or in no scene.
    static bool paintCached(NodeImpl& node, PaintContext& context);

    void noteChange(NodeImpl& node, ChangeLevel level) noexcept;
    void drop(NodeImpl& node) noexcept;
    void clear() noexcept;

private:
    struct Picture;
    using Pictures = std::list<Picture>;

    bool paint(NodeImpl& node, PaintContext& context, const ScenePrivate& scene);
    Pictures::iterator find(NodeImpl& node, const Picture& wanted);
    Pictures::iterator keep(NodeImpl& node, Picture&& picture);
    void erase(Pictures::iterator picture) noexcept;

    Pictures m_pictures;
    std::unordered_map<const NodeImpl*, std::list<Pictures::iterator>> m_byNode;
};

} // namespace Tova2
