#include "layout/autolayoutpanelprivate.h"
#include "nodes/deferrederror.h"
#include "nodes/flagscope.h"
#include "nodes/nodekind.h"

#include "tova/scene/scene.h"
#include "tova/widget/glcanvas.h"

#include <utility>

namespace Tova2 {

void AutoLayoutPanelPrivate::installOnNode(const Node& parent, bool anchored,
                                           const Vetra::GLRect<double>& clip)
{
    parent.guaranteeValid();
    const auto keep = keptAlive();
    DeferredError error;
    error.run([&] { root.setParent(parent); });
    if (root.getParent() != parent)
        return error.rethrow();
    forgetPlace();
    m_installation = Installation::OnNode;
    m_isAnchored = anchored;
    anchorClip = clip;
    followAnchor(parent);
    settle(error);
    error.rethrow();
}

void AutoLayoutPanelPrivate::followAnchor(const Node& parent)
{
    const auto changed = [this](NodeImpl&, ChangeLevel level) {
        if (level == ChangeLevel::Geometry && m_isAnchored)
            requestLayout();
    };
    m_followed.push_back(implBehind(parent)->changeEmitter().connect(this, changed));
}

void AutoLayoutPanelPrivate::installOnCanvas(GLCanvas& canvas)
{
    const auto keep = keptAlive();
    const Vetra::Holder<Scene> overlay(canvas.getOverlayScene());
    DeferredError error;
    leave(error);
    if (overlay) {
        error.run([&] { overlay->addNode(root); });
        m_installation = Installation::OnCanvas;
        m_spot.setCanvas(&canvas);
        followView(canvas);
        settle(error);
    }
    error.rethrow();
}

void AutoLayoutPanelPrivate::followView(GLCanvas& canvas)
{
    const auto changed = [this](const auto&...) { viewChanged(); };
    m_followed.push_back(canvas.connectTo(&GLCanvasEmitters::viewChange, this, changed));
    m_followed.push_back(
        canvas.connectTo(&GLCanvasEmitters::scrollbarGeometryChange, this, changed));
}

// Comes before the view is painted, so that the panel is in place in the same frame.
void AutoLayoutPanelPrivate::viewChanged()
{
    const auto keep = keptAlive();
    if (m_spot.viewScale() != m_viewScale)
        requestLayout();
    place();
}

void AutoLayoutPanelPrivate::installOnScene(Scene* scene)
{
    const auto keep = keptAlive();
    const Vetra::Holder<Scene> keepScene(scene);
    DeferredError error;
    leave(error);
    if (scene) {
        error.run([&] { scene->addNode(root); });
        m_installation = Installation::OnScene;
        settle(error);
    }
    error.rethrow();
}

// A scene gives its creation style to what is new to it, which the panel's background is not for.
void AutoLayoutPanelPrivate::settle(DeferredError& error)
{
    error.run([this] { applyStyle(); });
    error.run([this] { place(); });
    error.run([this] { requestLayout(); });
}

bool AutoLayoutPanelPrivate::isInstalled() const
{
    switch (m_installation) {
    case Installation::OnNode:
        return root.getParent().isValid();
    case Installation::OnCanvas:
        return root.getScene() && m_spot.canvas();
    case Installation::OnScene:
        return root.getScene();
    default:
        return false;
    }
}

void AutoLayoutPanelPrivate::uninstall()
{
    const auto keep = keptAlive();
    DeferredError error;
    leave(error);
    error.rethrow();
}

void AutoLayoutPanelPrivate::forgetPlace()
{
    for (auto& connection : std::exchange(m_followed, {}))
        connection.disconnect();
    m_spot.setCanvas(nullptr);
    m_installation = Installation::None;
    m_isAnchored = false;
    m_isPending = true;
    m_tail.reset();
}

void AutoLayoutPanelPrivate::leave(DeferredError& error)
{
    forgetPlace();
    error.run([this] { root.remove(); });
    if (root.getParent().isValid())
        error.run([this] { root.unparent(); });
}

} // namespace Tova2
