#pragma once

#include "tova/tova_export.h"
#include "tova/typename.h"

#include "vetra/stringid.h"

namespace Tova2 {

class Scene;

/// Says how well a scene is painted at a view scale. As it is, it is the library's default; others
/// derive from it and are registered with the `LODManager`.
///
/// A strategy may call the manager from any of its operations. What `beginScene` and `endScene`
/// throw reaches whoever paints.
class TOVA_EXPORT LODStrategy {
public:
    LODStrategy(); ///< identified as "tova2::default"
    explicit LODStrategy(const Vetra::StringID& id);
    virtual ~LODStrategy();
    LODStrategy(const LODStrategy&) = delete;
    LODStrategy& operator=(const LODStrategy&) = delete;

    /// A paint of the scene begins. Null stands for one of no scene that has a handle. A paint
    /// within a paint comes with a `beginScene` of its own, and after its end the outer scene's is
    /// repeated.
    virtual void beginScene(Scene* scene);
    virtual void endScene(Scene* scene);
    /// 0 is the coarsest, 2 full. `scale` is in device pixels a scene unit; NaN counts as 0.
    virtual unsigned char getQuality(double scale) const;

    const Vetra::StringID& getID() const { return m_id; }
    /// Not owned; null between paints.
    Scene* getCurrentScene() const { return m_scene; }
    bool isActive() const { return m_isActive; }

protected:
    // Called by the manager.
    virtual void activate();
    virtual void deactivate();

private:
    friend class LODManagerPrivate;

    Vetra::StringID m_id;
    Scene* m_scene = nullptr;
    bool m_isActive = false;

    TOVA_BASE_TYPE("Tova2.LODStrategy");
};

} // namespace Tova2
