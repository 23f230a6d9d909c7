#pragma once

#include "tova/nodes/node.h"
#include "tova/scene/scene.h"

namespace Tova2 {

/// Whether the pointer could still be over `node` in `scene`; both may be none.
inline bool isShownIn(const Node& node, const Scene* scene)
{
    // By content: a scene may have several owners.
    return scene && node.isVisibleToScene() && node.getScene() &&
           node.getScene()->d_func() == scene->d_func();
}

} // namespace Tova2
