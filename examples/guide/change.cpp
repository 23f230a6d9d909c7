// What a change of a node sets off.
#include "pages.h"
#include "sketch.h"

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
    return tellsOfChanges() ? sketch.picture() : QImage();
}
