#pragma once

#include "scene/repaintsink.h"

#include "tova/widget/layerstack.h"

#include <QRectF>
#include <QTransform>

#include <functional>
#include <memory>
#include <vector>

class QPainter;

namespace Tova2 {

class SceneGrid;

/// The scenes that one canvas shows on top of each other: hears of their repaints, and paints them.
class CanvasLayers {
public:
    /// Told of each part of a scene that needs painting again.
    using Dirty = std::function<void(const DirtyArea&)>;
    explicit CanvasLayers(Dirty dirty);
    ~CanvasLayers();
    CanvasLayers(const CanvasLayers&) = delete;
    CanvasLayers& operator=(const CanvasLayers&) = delete;

    LayerStack& stack() { return m_stack; }
    Scene* baseScene() const;
    void setBaseScene(Scene* scene);
    /// Made on first use.
    Scene* overlayScene();
    /// Of the base scene; empty without one.
    QRectF sceneRect() const;
    /// Whether the background is the same wherever the scene is moved to.
    bool hasFixedBackground() const;

    /// Everything of the layers that lies in `part` of the view, which is as large as `whole`.
    /// `grid` may be null. What nodes' own painters throw reaches the caller.
    void paint(QPainter& painter, const QTransform& view, const QRectF& part, const QRectF& whole,
               const SceneGrid* grid);
    /// Looks again whether the scenes still have the content that was heard of.
    void followContents();

private:
    class Shown;

    void follow();
    void forget(int index);
    void paintGround(QPainter& painter, const QTransform& view, const QRectF& part,
                     const QRectF& whole, const SceneGrid* grid);

    Dirty m_dirty;
    LayerStack m_stack;
    std::vector<std::unique_ptr<Shown>> m_shown; ///< in no order
};

} // namespace Tova2
