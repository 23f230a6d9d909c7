#include "tova/scene/scene.h"

#include "nodes/deferrederror.h"
#include "nodes/destruction.h"
#include "nodes/nodekind.h"
#include "scene/builtintools.h"
#include "scene/lodmanagerprivate.h"
#include "scene/sceneprivate.h"
#include "scene/scenequeries.h"
#include "scene/scenetools.h"
#include "scene/sceneuse.h"

#include "host/displayquery.h"
#include "tova/scene/lodmanager.h"
#include "tova/scene/scenechangetracker.h"
#include "tova/scene/sceneerrors.h"
#include "vetra/errorreporter.h"
#include "vetra/qt.h"

#include <QApplication>
#include <QPolygonF>

#include <cmath>
#include <numbers>
#include <utility>

namespace Tova2 {

using Vetra::fromQt;
using Vetra::toQt;

namespace {

std::vector<Node> handlesOf(const std::vector<NodeImpl*>& impls)
{
    std::vector<Node> nodes;
    nodes.reserve(impls.size());
    for (NodeImpl* const impl : impls)
        nodes.emplace_back(impl);
    return nodes;
}

std::vector<Vetra::GLPoint<double>> circle(const Vetra::GLPoint<double>& centre, double radius)
{
    constexpr int kCorners = 32;
    std::vector<Vetra::GLPoint<double>> corners;
    corners.reserve(kCorners);
    for (int i = 0; i < kCorners; ++i) {
        const double angle = 2 * std::numbers::pi * i / kCorners;
        corners.push_back(
            {centre.x + radius * std::cos(angle), centre.y + radius * std::sin(angle)});
    }
    return corners;
}

/// The content may be in the middle of a call, the tracker's or a painter's for one. What hosts
/// throw as it is taken down would end the process from here.
void giveUp(std::shared_ptr<ScenePrivate> content, Scene* owner) noexcept
{
    const DestructionDelay delay;
    try {
        content->removeOwner(owner);
    } catch (...) {
        Vetra::reportError(std::current_exception(), "End of a scene");
    }
    dispose(std::move(content));
}

} // namespace

SceneChangeTracker::~SceneChangeTracker() = default;

Vetra::Holder<Scene> Scene::createScene()
{
    return Vetra::Holder<Scene>(createScenePtr());
}

Scene* Scene::createScenePtr()
{
    static const bool hasDisplay = Host::svGraphicsHasDisplay();
    // The toolkit's scenes enter themselves into the application object's list.
    if (!hasDisplay || !qobject_cast<QApplication*>(QCoreApplication::instance()))
        raise(SceneError::NoSceneWhenDisplayOff);
    // Tools may hold the scene for a moment as they are added.
    Vetra::Holder<Scene> scene(new Scene);
    addBuiltinToolConstructors(scene->d->tools().factory());
    scene->d->tools().fillStack();
    scene->increment();
    Scene* const made = scene.get();
    scene.reset();
    made->decrement(); // to 0 again: the caller is to hold it
    return made;
}

Scene::Scene() : d(std::make_shared<ScenePrivate>())
{
    d->addOwner(this);
}

Scene::Scene(const Scene& other)
    : Vetra::Referenced(other), IToolStack(other), EventHandler(other), d(other.d)
{
    d->addOwner(this);
}

Scene& Scene::operator=(const Scene& other)
{
    if (d == other.d)
        return *this;
    auto old = std::exchange(d, other.d);
    d->addOwner(this);
    giveUp(std::move(old), this);
    return *this;
}

Scene::~Scene()
{
    LODManagerPrivate::instance().forget(this);
    giveUp(std::move(d), this);
}

void Scene::destroy()
{
    // Called by a host to tear the content down, and by the count when the last reference is gone.
    if (referenceCount() == 0) {
        delete this;
        return;
    }
    const SceneUse use(*this);
    DeferredError error;
    error.run([&] { use->tools().stack().clearToolStack(); });
    error.run([&] { use->removeAllNodes(); });
    error.rethrow();
}

Scene* Scene::of(ScenePrivate* d)
{
    return d ? d->scene() : nullptr;
}

Node Scene::addNode(Node node)
{
    d->addNode(*implBehind(node));
    return node;
}

Node Scene::removeNode(Node node)
{
    d->removeNode(*implBehind(node));
    return node;
}

std::vector<Node> Scene::getAllNodes()
{
    const DestructionDelay delay;
    return handlesOf(SceneQueries::all(*d));
}

unsigned Scene::getAllNodesCount() const
{
    return d->nodeCount();
}

std::vector<Node> Scene::getTopLevelNodes()
{
    const DestructionDelay delay;
    std::vector<Node> nodes;
    for (NodeImpl* const impl : SceneQueries::all(*d)) {
        if (!impl->parentNode())
            nodes.emplace_back(impl);
    }
    return nodes;
}

void Scene::getAllTextNodes(std::vector<Node>& nodes) const
{
    const DestructionDelay delay;
    for (NodeImpl* const impl : SceneQueries::all(*d)) {
        if (impl->isa("Tova2.TextNode"))
            nodes.emplace_back(impl);
    }
}

std::vector<Node> Scene::getNodesWithTag(const Vetra::StringID& tag)
{
    auto nodes = getAllNodes();
    std::erase_if(nodes, [&](const Node& node) { return !node.hasTag(tag); });
    return nodes;
}

Node Scene::getNodeAt(const Vetra::GLPoint<double>& point, const Vetra::Transform& deviceTransform)
{
    const DestructionDelay delay;
    NodeImpl* const hit = SceneQueries::topmostAt(*d, toQt(point), toQt(deviceTransform));
    return hit ? Node(hit) : Node();
}

std::vector<Node> Scene::getNodesAtScenePos(const Vetra::GLPoint<double>& point)
{
    const DestructionDelay delay;
    return handlesOf(SceneQueries::at(*d, toQt(point)));
}

std::vector<Node> Scene::getNodesIntersectingRect(const Vetra::GLRect<double>& rect)
{
    const DestructionDelay delay;
    return handlesOf(SceneQueries::intersecting(*d, Bounds(rect)));
}

std::vector<Node> Scene::getNodesWithinRect(const Vetra::GLRect<double>& rect)
{
    const DestructionDelay delay;
    return handlesOf(SceneQueries::within(*d, toQt(rect)));
}

std::vector<Node> Scene::getNodesIntersectingCircle(const Vetra::GLPoint<double>& centre,
                                                    double radius)
{
    if (!(radius >= 0) || !std::isfinite(radius))
        return {};
    const DestructionDelay delay;
    const Bounds area = radius > 0 ? Bounds(circle(centre, radius))
                                   : Bounds(Vetra::GLRect<double>{centre.x, centre.y, 0, 0});
    return handlesOf(SceneQueries::intersecting(*d, area));
}

Vetra::GLRect<double> Scene::getBounds()
{
    return fromQt(d->bounds());
}

unsigned Scene::getSceneNodeChangeCounter() const
{
    return d->changeCounter();
}

void Scene::incrementSceneNodeChangeCounter()
{
    d->incrementChangeCounter();
}

void Scene::beginChangeTracking(SceneChangeTracker* tracker)
{
    d->setTracker(tracker);
}

void Scene::endChangeTracking()
{
    d->setTracker(nullptr);
}

} // namespace Tova2
