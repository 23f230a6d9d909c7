#include "tova/widget/layerstack.h"

#include "nodes/deferrederror.h"
#include "widget/guarded.h"

#include "tova/scene/scene.h"

#include <algorithm>
#include <utility>
#include <vector>

namespace Tova2 {

namespace {

using Layers = std::vector<Layer*>;

/// Those of all stacks, in the order of their coming. A scan and no map: there are two or so a
/// canvas, and a scene may be given another content while it is shown.
Layers& shownLayers()
{
    static Layers& layers = *new Layers; // canvases may outlive the statics
    return layers;
}

} // namespace

Layer::Layer(Scene* scene, const Vetra::StringID& tag) : m_scene(scene), m_tag(tag) {}

Layer::Layer(const Layer& other)
    : Vetra::Referenced(other), m_scene(other.m_scene), m_tag(other.m_tag)
{}

Layer& Layer::operator=(const Layer& other)
{
    m_scene = other.m_scene;
    m_tag = other.m_tag;
    return *this;
}

Layer::~Layer() = default;

struct LayerStack::State {
    struct Entry {
        Vetra::Holder<Layer> layer;
        bool isLeaving = false;
    };

    int count() const noexcept { return static_cast<int>(entries.size()); }
    std::vector<Entry>::iterator find(const Layer* layer);
    void remove(std::vector<Entry>::iterator entry);
    void unlink(const Vetra::Holder<Layer>& layer);
    void removeAll();
    void renumber();

    std::vector<Entry> entries;
    Vemit::Emitter<int> removal{Vemit::SendMode::Immediate};
    Vemit::Emitter<int> insertion{Vemit::SendMode::Immediate};
};

std::vector<LayerStack::State::Entry>::iterator LayerStack::State::find(const Layer* layer)
{
    return std::find_if(entries.begin(), entries.end(),
                        [layer](const Entry& entry) { return entry.layer == layer; });
}

void LayerStack::State::remove(std::vector<Entry>::iterator entry)
{
    if (entry == entries.end() || std::exchange(entry->isLeaving, true))
        return;
    const Vetra::Holder<Layer> layer = entry->layer;
    DeferredError error;
    error.run([&] { removal.send(layer->getZValue()); });
    unlink(layer);
    error.rethrow();
}

void LayerStack::State::unlink(const Vetra::Holder<Layer>& layer)
{
    entries.erase(find(layer.get()));
    std::erase(shownLayers(), layer.get());
    layer->m_zValue = -1;
    renumber();
}

void LayerStack::State::removeAll()
{
    const auto present = entries; // listeners may insert more
    DeferredError error;
    for (const Entry& entry : present)
        error.run([&] { remove(find(entry.layer.get())); });
    error.rethrow();
}

void LayerStack::State::renumber()
{
    for (int i = 0; i < count(); ++i)
        entries[i].layer->m_zValue = i;
}

LayerStack::LayerStack() : m_state(std::make_shared<State>()) {}

LayerStack::~LayerStack()
{
    guarded("Listener to a layer's removal", [this] { m_state->removeAll(); });
    m_state->insertion.disconnectAll();
    m_state->removal.disconnectAll();
    // What listeners have put in meanwhile. A removal further up the call stack ends by itself.
    const auto late = m_state->entries;
    for (const State::Entry& entry : late) {
        if (!entry.isLeaving)
            m_state->unlink(entry.layer);
    }
}

void LayerStack::insertLayer(int index, Vetra::Holder<Layer> layer)
{
    if (!layer || layer->m_zValue >= 0)
        return;
    const auto state = m_state;
    const int place = std::clamp(index, 0, state->count());
    state->entries.insert(state->entries.begin() + place, {layer});
    shownLayers().push_back(layer.get());
    state->renumber();
    state->insertion.send(place);
}

void LayerStack::removeLayer(int index)
{
    const auto state = m_state;
    if (index >= 0 && index < state->count())
        state->remove(state->entries.begin() + index);
}

void LayerStack::removeAllLayers()
{
    const auto state = m_state;
    state->removeAll();
}

int LayerStack::getNumLayers() const noexcept
{
    return m_state->count();
}

Layer* LayerStack::getLayer(int index) const noexcept
{
    return index >= 0 && index < m_state->count() ? m_state->entries[index].layer.get() : nullptr;
}

Layer* LayerStack::getLayer(const Vetra::StringID& tag) const noexcept
{
    for (const State::Entry& entry : m_state->entries) {
        if (entry.layer->getTag() == tag)
            return entry.layer.get();
    }
    return nullptr;
}

Layer* LayerStack::getLayer(const ScenePrivate* scene) const noexcept
{
    const Layers& layers = shownLayers();
    const auto shows = [scene](const Layer* layer) {
        return layer->getScene() && layer->getScene()->d_func() == scene;
    };
    const auto layer = std::find_if(layers.rbegin(), layers.rend(), shows);
    return layer == layers.rend() ? nullptr : *layer;
}

Vemit::Emitter<int>& LayerStack::getInsertionEmitter() noexcept
{
    return m_state->insertion;
}

Vemit::Emitter<int>& LayerStack::getRemovalEmitter() noexcept
{
    return m_state->removal;
}

const Vetra::StringID& LayerStack::baseLayerId()
{
    static const Vetra::StringID id("base");
    return id;
}

const Vetra::StringID& LayerStack::overlayLayerId()
{
    static const Vetra::StringID id("overlay");
    return id;
}

} // namespace Tova2
