#pragma once

#include "nodes/destruction.h"
#include "scene/sceneprivate.h"

#include "tova/scene/scene.h"

#include <utility>

namespace Tova2 {

/// Keeps a scene and its content through a call that may run host code.
class SceneUse {
public:
    explicit SceneUse(Scene& scene) : m_scene(&scene), m_content(scene.d) {}
    SceneUse(const SceneUse&) = delete;
    SceneUse& operator=(const SceneUse&) = delete;
    ~SceneUse()
    {
        // Further up the stack, somebody may walk over nodes of a content that nobody else holds.
        if (m_content.use_count() == 1)
            dispose(std::move(m_content));
    }
    ScenePrivate* operator->() const noexcept { return m_content.get(); }

private:
    Vetra::Holder<Scene> m_scene;
    std::shared_ptr<ScenePrivate> m_content;
};

} // namespace Tova2
