#pragma once

#include "tova/tova_export.h"
#include "tova/typename.h"

namespace Tova2 {

class Node;

/// Told which nodes of a scene come, go and change, to keep a model or an undo log in step. It
/// hears of a change once the new value is stored, and not which value it was: an undo log keeps
/// what it may have to put back from before. Looks for a moment, such as a glow under the pointer,
/// are changes as well; those of the overlay scene are another scene's.
///
/// A tracker may edit the scene and may throw: what was under way is completed first, then the
/// exception reaches whoever made the change.
class TOVA_EXPORT SceneChangeTracker {
public:
    virtual ~SceneChangeTracker();
    virtual void nodeAdded(Node node) = 0;
    virtual void nodeRemoved(Node node) = 0;
    virtual void nodeChanged(Node node) = 0;

    TOVA_BASE_TYPE("Tova2.SceneChangeTracker");
};

} // namespace Tova2
