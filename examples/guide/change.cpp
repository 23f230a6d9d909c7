// What a change of a node sets off.
#include "pages.h"
#include "sketch.h"

#include <unordered_map>
#include <unordered_set>

using namespace Tova2;

namespace {

/// Remembers which nodes to save.
class Unsaved : public SceneChangeTracker {
public:
    void nodeAdded(Node node) override { m_nodes.insert(WeakRef(node)); }
    void nodeRemoved(Node node) override { m_nodes.erase(WeakRef(node)); }
    void nodeChanged(Node node) override { m_nodes.insert(WeakRef(node)); }
    std::size_t count() const { return m_nodes.size(); }

private:
    std::unordered_set<WeakRef> m_nodes;
};

/// One step of undo: where nodes were before it, and which of them it has moved.
class MoveStep : public SceneChangeTracker {
public:
    explicit MoveStep(Scene& scene)
    {
        for (const Node& node : scene.getAllNodes())
            m_before[WeakRef(node)] = node.getPosition();
    }
    void nodeAdded(Node) override {}
    void nodeRemoved(Node) override {}
    void nodeChanged(Node node) override
    {
        const auto before = m_before.find(WeakRef(node));
        if (before != m_before.end() && before->second != node.getPosition())
            m_moved.insert(WeakRef(node)); // a glow or another colour is no move
    }
    void undo() const
    {
        for (const WeakRef& moved : m_moved) {
            if (Node node = moved.getNode(); node.isValid())
                node.setPosition(m_before.at(moved));
        }
    }
    std::size_t count() const { return m_moved.size(); }

private:
    std::unordered_map<WeakRef, Vetra::GLPoint<double>> m_before;
    std::unordered_set<WeakRef> m_moved;
};

bool undoesMoves()
{
    auto scene = Scene::createScene();
    RectNode block({0, 0, 90, 44});
    RectNode other({200, 0, 90, 44});
    scene->addNode(block);
    scene->addNode(other);

    MoveStep step(*scene);
    scene->beginChangeTracking(&step);
    other.setOpacity(0.5); // as a glow under the pointer does
    block.setPosition({20, 30});
    scene->endChangeTracking();
    const bool isOneMove = step.count() == 1;
    step.undo();
    return isOneMove && block.getPosition() == Vetra::GLPoint<double>{0, 0};
}

bool tellsOfChanges()
{
    auto scene = Scene::createScene();
    RectNode block({0, 0, 90, 44});
    scene->addNode(block);

    Unsaved unsaved;
    scene->beginChangeTracking(&unsaved);
    block.setPosition({20, 30});
    block.setPosition({20, 30}); // nothing has changed, nobody is told
    block.setOpacity(0.5);
    const bool isOne = unsaved.count() == 1;
    scene->endChangeTracking(); // before the tracker dies
    return isOne;
}

} // namespace

QImage changePage()
{
    Sketch sketch(380, 170);
    sketch.box("block.setPosition(p)", {10, 15, 115, 26}, Sketch::kAmber);
    sketch.box("a new and usable value?", {150, 15, 130, 26}, Sketch::kBlue);
    sketch.box("nothing", {310, 15, 60, 26}, Sketch::kPaper);
    sketch.box("stored", {175, 62, 80, 26}, Sketch::kBlue);
    sketch.box("scene: old and new area,\nstale bounds and caches", {10, 118, 120, 36},
               Sketch::kGreen);
    sketch.box("change tracker", {152, 123, 95, 26}, Sketch::kGreen);
    sketch.box("who follows the node:\nits panel", {268, 118, 104, 36}, Sketch::kGreen);
    sketch.arrow({125, 28}, {150, 28});
    sketch.arrow({280, 28}, {310, 28});
    sketch.arrow({215, 41}, {215, 62});
    sketch.arrow({190, 88}, {95, 118});
    sketch.arrow({210, 88}, {202, 123});
    sketch.arrow({235, 88}, {305, 118});
    sketch.words("no", {294, 22}, 7);
    sketch.words("yes", {226, 51}, 7);
    sketch.words("1", {131, 98}, 7);
    sketch.words("2", {213, 105}, 7);
    sketch.words("3", {282, 98}, 7);
    return tellsOfChanges() && undoesMoves() ? sketch.picture() : QImage();
}
