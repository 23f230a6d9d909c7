#pragma once

#include "tova/tova_export.h"
#include "tova/typename.h"
#include "vemit/emitter.h"
#include "vetra/referenced.h"
#include "vetra/stringid.h"

#include <memory>

namespace Tova2 {

class Scene;
class ScenePrivate;

/// One scene of those that a canvas shows on top of each other. It keeps the scene alive. A copy
/// shows the same scene and is in no stack.
class TOVA_EXPORT Layer : public Vetra::Referenced {
public:
    Layer(Scene* scene, const Vetra::StringID& tag);
    Layer(const Layer& other);
    /// The layer takes over scene and tag, and stays where it is.
    Layer& operator=(const Layer& other);

    Scene* getScene() const noexcept { return m_scene.get(); }
    const Vetra::StringID& getTag() const noexcept { return m_tag; }
    /// The index in the stack, 0 at the bottom; -1 in no stack.
    int getZValue() const noexcept { return m_zValue; }

protected:
    ~Layer() override;

private:
    friend class LayerStack;

    Vetra::Holder<Scene> m_scene;
    Vetra::StringID m_tag;
    int m_zValue = -1;

    TOVA_PLAIN_TYPE("Tova2.Layer");
};

/// The layers of one canvas, from the bottom up. Listeners may change the stack, or destroy it;
/// what they throw reaches the caller once the change is made. GUI thread only.
class TOVA_EXPORT LayerStack {
public:
    LayerStack();
    LayerStack(const LayerStack&) = delete;
    LayerStack& operator=(const LayerStack&) = delete;
    /// Announces the removal of each layer.
    ~LayerStack();

    /// Before the layer at `index`, which is brought into the range 0 to the count. A null layer,
    /// and one that is in a stack already, is ignored.
    void insertLayer(int index, Vetra::Holder<Layer> layer);
    /// Nothing when the index is out of range, or when the layer is being removed already.
    void removeLayer(int index);
    /// Those that are there now, bottom first.
    void removeAllLayers();

    int getNumLayers() const noexcept;
    /// Null when out of range.
    Layer* getLayer(int index) const noexcept;
    /// The lowest one with the tag, or null.
    Layer* getLayer(const Vetra::StringID& tag) const noexcept;
    /// In whatever stack: the layer that came last of those that show the scene, or null.
    Layer* getLayer(const ScenePrivate* scene) const noexcept;

    /// Sends the index once the layer is in place.
    Vemit::Emitter<int>& getInsertionEmitter() noexcept;
    /// Sends the index while the layer is still in place.
    Vemit::Emitter<int>& getRemovalEmitter() noexcept;

    /// "base", that of the document.
    static const Vetra::StringID& baseLayerId();
    /// "overlay", that of what tools draw.
    static const Vetra::StringID& overlayLayerId();
    static int baseLayerIdx() noexcept { return 0; }

private:
    struct State;
    std::shared_ptr<State> m_state; // outlives a stack that a listener destroys

    TOVA_PLAIN_TYPE("Tova2.LayerStack");
};

} // namespace Tova2
