#include "scene/renderpipeline.h"

#include "nodes/destruction.h"
#include "scene/detailscope.h"
#include "scene/nodewalk.h"
#include "scene/sceneprivate.h"
#include "scene/stackingorder.h"

#include "tova/nodes/geometry/limits.h"
#include "vetra/qt.h"

#include <QPainter>
#include <QtDebug>

#include <algorithm>
#include <cmath>

namespace Tova2 {

namespace {

struct Candidate {
    NodeImpl* node;
    std::uint8_t flags;
};

/// A snapshot: nodes may come, go and move while others are painted.
std::vector<Candidate> candidatesIn(ScenePrivate& scene, const QRectF& exposed, double viewScale)
{
    const DisplayList& list = scene.displayList();
    if (list.hasTooDeep())
        qWarning("Nodes nested deeper than %d are not painted.", Limits::paintedNodeDepth);
    DisplayList::Slots slots;
    constexpr auto kUnseen = DisplayList::Hidden | DisplayList::Transparent | DisplayList::TooDeep;
    list.candidates(Box::of(exposed).grown(list.reach().at(viewScale)), kUnseen, slots);
    std::vector<Candidate> candidates;
    candidates.reserve(slots.size());
    for (const auto slot : slots)
        candidates.push_back({list.entries().node(slot), list.entries().flags(slot)});
    return candidates;
}

double scaleOf(const QTransform& view)
{
    return std::sqrt(std::abs(view.determinant()));
}

/// At full quality.
PaintOptions optionsOf(const QTransform& view, const RenderRequest& request)
{
    PaintOptions options;
    options.viewScale = scaleOf(view);
    options.offScreen = request.isOffScreen;
    options.exposed = Vetra::fromQt(request.exposed);
    return options;
}

/// What the scene says of the paint under way, also to nodes that ask during it.
class PaintStateScope {
public:
    PaintStateScope(ScenePrivate& scene, const ScenePrivate::PaintState& state)
        : m_scene(scene), m_outer(scene.paintState())
    {
        scene.setPaintState(state);
    }
    ~PaintStateScope() { m_scene.setPaintState(m_outer); }
    PaintStateScope(const PaintStateScope&) = delete;
    PaintStateScope& operator=(const PaintStateScope&) = delete;

private:
    ScenePrivate& m_scene;
    std::optional<ScenePrivate::PaintState> m_outer;
};

bool isUsable(const QTransform& view, const QRectF& exposed)
{
    const double scale = scaleOf(view);
    return scale > 0 && std::isfinite(scale) && std::isfinite(view.dx()) &&
           std::isfinite(view.dy()) && std::isfinite(exposed.left()) &&
           std::isfinite(exposed.right()) && std::isfinite(exposed.top()) &&
           std::isfinite(exposed.bottom());
}

} // namespace

void renderScene(ScenePrivate& scene, QPainter& painter, const RenderRequest& request)
{
    const QTransform view = request.view * painter.worldTransform();
    if (!isUsable(view, request.exposed))
        return;
    const DestructionDelay delay;
    const double ratio = painter.device()->devicePixelRatioF();
    const PaintStateScope state(scene,
                                {view * QTransform::fromScale(ratio, ratio), request.isOffScreen});
    const DetailScope detail(scene);
    PaintOptions options = optionsOf(view, request);
    if (!request.keepsAll)
        options.smallestText = scene.settings.minRenderFontSize;
    const auto candidates = candidatesIn(scene, request.exposed, scaleOf(view));
    NodeWalk walk(painter, view, request, options, nullptr);
    auto edits = scene.editCounter();
    bool isEdited = false;
    for (const auto& [node, flags] : candidates) {
        if (!request.keepsAll)
            walk.setQuality(detail.qualityAt(options.viewScale));
        if (scene.editCounter() != edits) {
            edits = scene.editCounter();
            isEdited = true;
            walk.forgetPlacements();
        }
        if (isEdited && (!scene.has(*node) || !node->isVisibleToScene()))
            continue;
        if (isEdited || (flags & DisplayList::Special))
            walk.paintSpecial(*node);
        else
            walk.paintPlain(*node);
    }
}

void renderSubtree(NodeImpl& root, QPainter& painter, const RenderRequest& request)
{
    bool isInvertible = false;
    const QTransform toLocal = root.sceneTransform().inverted(&isInvertible);
    const QTransform view = toLocal * request.view * painter.worldTransform();
    if (!isInvertible || !isUsable(view, request.exposed))
        return;
    const DestructionDelay delay;
    std::vector<NodeImpl*> nodes;
    visitInStackingOrder(root, 0, [&](NodeImpl& node, int depth) {
        if (depth < Limits::paintedNodeDepth && node.isVisibleTo(root.parentItem()))
            nodes.push_back(&node);
    });
    RenderRequest inScene = request;
    inScene.exposed = root.sceneTransform().mapRect(request.exposed);
    NodeWalk walk(painter, view, inScene, optionsOf(view, inScene), &root);
    for (NodeImpl* const node : nodes) {
        if (node == &root || root.isAncestorOfNode(*node))
            walk.paintSpecial(*node);
    }
}

} // namespace Tova2
