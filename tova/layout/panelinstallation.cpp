#include "layout/autolayoutpanelprivate.h"
#include "nodes/deferrederror.h"
#include "nodes/flagscope.h"
#include "nodes/nodekind.h"

#include "tova/scene/scene.h"

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
    m_isOnNode = true;
    m_isAnchored = anchored;
    anchorClip = clip;
    followAnchor(parent);
    settle(error);
    error.rethrow();
}

void AutoLayoutPanelPrivate::followAnchor(const Node& parent)
{
    m_anchorChanges.disconnect();
    m_anchorChanges =
        implBehind(parent)->changeEmitter().connect(this, [this](NodeImpl&, ChangeLevel level) {
            if (level == ChangeLevel::Geometry && m_isAnchored)
                requestLayout();
        });
}

void AutoLayoutPanelPrivate::installOnScene(Scene* scene)
{
    const auto keep = keptAlive();
    const Vetra::Holder<Scene> keepScene(scene);
    DeferredError error;
    leave(error);
    if (scene) {
        error.run([&] { scene->addNode(root); });
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
    return m_isOnNode ? root.getParent().isValid() : root.getScene() != nullptr;
}

void AutoLayoutPanelPrivate::uninstall()
{
    const auto keep = keptAlive();
    DeferredError error;
    leave(error);
    error.rethrow();
}

void AutoLayoutPanelPrivate::leave(DeferredError& error)
{
    m_anchorChanges.disconnect();
    m_isOnNode = m_isAnchored = false;
    m_isPending = true;
    error.run([this] { root.remove(); });
    if (root.getParent().isValid())
        error.run([this] { root.unparent(); });
}

} // namespace Tova2
