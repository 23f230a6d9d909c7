#include "widget/canvaslayers.h"

#include "scene/backgroundpainter.h"
#include "scene/renderpipeline.h"
#include "scene/sceneuse.h"
#include "widget/scenegrid.h"

#include "vetra/qt.h"

#include <QGuiApplication>
#include <QPainter>
#include <QPalette>

#include <algorithm>
#include <utility>

namespace Tova2 {

/// A layer that is heard of. It keeps the scene's content, which a scene may exchange for another.
class CanvasLayers::Shown final : public RepaintSink {
public:
    Shown(Layer& layer, const Dirty& dirty) : m_layer(&layer), m_dirty(dirty)
    {
        if (Scene* const scene = layer.getScene()) {
            m_content = std::make_unique<SceneUse>(*scene);
            (*m_content)->addRepaintSink(this);
        }
    }
    ~Shown()
    {
        if (m_content)
            (*m_content)->removeRepaintSink(this);
    }
    Shown(const Shown&) = delete;
    Shown& operator=(const Shown&) = delete;

    const Layer* layer() const { return m_layer.get(); }
    bool isOutdated() const
    {
        const Scene* const scene = m_layer->getScene();
        return scene && (!m_content || scene->d_func() != m_content->operator->());
    }
    void repaintRequested(const DirtyArea& area) override { m_dirty(area); }

private:
    Vetra::Holder<Layer> m_layer;
    const Dirty& m_dirty;
    std::unique_ptr<SceneUse> m_content;
};

CanvasLayers::CanvasLayers(Dirty dirty) : m_dirty(std::move(dirty))
{
    m_stack.getInsertionEmitter().connect([this](int) { follow(); });
    m_stack.getRemovalEmitter().connect([this](int index) { forget(index); });
}

CanvasLayers::~CanvasLayers()
{
    m_stack.getInsertionEmitter().disconnectAll();
    m_stack.getRemovalEmitter().disconnectAll();
}

Scene* CanvasLayers::baseScene() const
{
    const Layer* const base = m_stack.getLayer(LayerStack::baseLayerId());
    return base ? base->getScene() : nullptr;
}

void CanvasLayers::setBaseScene(Scene* scene)
{
    // The layer may hold the last reference.
    const Vetra::Holder<Scene> kept(scene);
    if (const Layer* const base = m_stack.getLayer(LayerStack::baseLayerId()))
        m_stack.removeLayer(base->getZValue());
    if (kept)
        m_stack.insertLayer(LayerStack::baseLayerIdx(),
                            Vetra::Holder<Layer>(new Layer(scene, LayerStack::baseLayerId())));
}

Scene* CanvasLayers::overlayScene()
{
    if (const Layer* const overlay = m_stack.getLayer(LayerStack::overlayLayerId()))
        return overlay->getScene();
    const auto scene = Scene::createScene();
    // What a tool draws is no diagram: no crossings to be looked for.
    scene->setPathIntersectionsEnabled(false);
    m_stack.insertLayer(m_stack.getNumLayers(),
                        Vetra::Holder<Layer>(new Layer(scene.get(), LayerStack::overlayLayerId())));
    return scene.get();
}

QRectF CanvasLayers::sceneRect() const
{
    Scene* const scene = baseScene();
    return scene ? scene->d_func()->bounds() : QRectF();
}

bool CanvasLayers::hasFixedBackground() const
{
    const Scene* const scene = baseScene();
    if (!scene)
        return false;
    const Background& background = scene->d_func()->settings.background;
    return background.hasImage() ||
           (background.hasGradient() &&
            background.getGradient().coordinateMode() != Vetra::Gradient::CoordinateMode::Logical);
}

void CanvasLayers::follow()
{
    for (int i = 0; i < m_stack.getNumLayers(); ++i) {
        Layer* const layer = m_stack.getLayer(i);
        const bool isKnown = std::any_of(m_shown.begin(), m_shown.end(), [layer](const auto& one) {
            return one->layer() == layer;
        });
        if (!isKnown)
            m_shown.push_back(std::make_unique<Shown>(*layer, m_dirty));
    }
    m_dirty({});
}

void CanvasLayers::forget(int index)
{
    const Layer* const layer = m_stack.getLayer(index);
    std::erase_if(m_shown, [layer](const auto& one) { return one->layer() == layer; });
    m_dirty({});
}

void CanvasLayers::followContents()
{
    if (std::erase_if(m_shown, [](const auto& one) { return one->isOutdated(); }) > 0)
        follow();
}

void CanvasLayers::paint(QPainter& painter, const QTransform& view, const QRectF& part,
                         const QRectF& whole, const SceneGrid* grid)
{
    paintGround(painter, view, part, whole, grid);
    // A painter of the host's may change the stack.
    std::vector<Vetra::Holder<Layer>> layers;
    for (int i = 0; i < m_stack.getNumLayers(); ++i)
        layers.emplace_back(m_stack.getLayer(i));
    RenderRequest request;
    request.view = view;
    request.isClipped = true;
    request.exposed = view.inverted().mapRect(part);
    for (const auto& layer : layers) {
        if (Scene* const scene = layer->getScene())
            renderScene(*SceneUse(*scene).operator->(), painter, request);
    }
    const Scene* const base = baseScene();
    if (base && base->d_func()->settings.debugRepaintRegion)
        painter.fillRect(part, Vetra::toQt(base->d_func()->settings.debugRepaintRegionColor));
}

void CanvasLayers::paintGround(QPainter& painter, const QTransform& view, const QRectF& part,
                               const QRectF& whole, const SceneGrid* grid)
{
    Scene* const scene = baseScene();
    painter.fillRect(part, scene ? QColor(Qt::white) : QGuiApplication::palette().window().color());
    if (!scene)
        return;
    ScenePrivate& content = *scene->d_func();
    content.backgroundPainter().paint(content.settings.background, painter, whole, view);
    if (grid)
        grid->paint(painter, view, part);
}

} // namespace Tova2
