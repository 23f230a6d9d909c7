#pragma once

#include "nodes/nodekind.h"
#include "scene/sceneprivate.h"

#include "tova/nodes/rectnode.h"
#include "tova/scene/scene.h"

namespace Tova2 {

/// From now on the scene looks with each edit for what is to be painted again.
inline void watch(Scene& scene)
{
    struct Idle final : RepaintSink {
        void repaintRequested(const DirtyArea&) override {}
    };
    static Idle idle;
    const Node inside = scene.addNode(RectNode());
    static_cast<ScenePrivate*>(implBehind(inside)->sceneLink())->addRepaintSink(&idle);
    scene.removeNode(inside);
}

} // namespace Tova2
