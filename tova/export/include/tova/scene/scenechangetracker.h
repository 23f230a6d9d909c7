#pragma once

#include "tova/tova_export.h"

namespace Tova2 {

class Node;

/// Told of what happens to the nodes of a scene, for an undo log or a model kept in step. A tracker
/// may edit the scene and may throw: what was under way is completed first, then the exception
/// reaches whoever made the change.
class TOVA_EXPORT SceneChangeTracker {
public:
    virtual ~SceneChangeTracker();
    virtual void nodeAdded(Node node) = 0;
    virtual void nodeRemoved(Node node) = 0;
    virtual void nodeChanged(Node node) = 0;
};

} // namespace Tova2
