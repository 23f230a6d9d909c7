// Who keeps a node alive.
#include "pages.h"
#include "sketch.h"

using namespace Tova2;

namespace {

bool livesAsLongAsSomebodyHoldsIt()
{
    auto scene = Scene::createScene();
    WeakRef label;
    {
        RectNode block({0, 0, 90, 44});
        TextNode name("Filter");
        name.setParent(block); // the block holds its label
        scene->addNode(block); // the scene holds the block
        label = WeakRef(name); // a weak reference holds nothing
    }                          // both handles are gone
    const bool heldByScene = label.isValid();

    Node block = scene->getTopLevelNodes().front();
    block.remove(); // the scene lets go; this handle does not
    const bool heldByHandle = label.isValid();

    block.release(); // the last one: the block goes, and its label with it
    return heldByScene && heldByHandle && !label.isValid();
}

} // namespace

QImage ownershipPage()
{
    Sketch sketch(380, 150);
    sketch.box("your handle", {15, 20, 80, 30}, Sketch::kAmber);
    sketch.box("scene", {15, 95, 80, 30}, Sketch::kAmber);
    sketch.box("block", {150, 57, 80, 30}, Sketch::kBlue);
    sketch.box("label", {285, 57, 80, 30}, Sketch::kBlue);
    sketch.box("WeakRef", {285, 110, 80, 24}, Sketch::kGreen);
    sketch.arrow({95, 38}, {150, 64});
    sketch.arrow({95, 107}, {150, 80});
    sketch.arrow({230, 72}, {285, 72});
    sketch.arrow({325, 110}, {325, 87}, true);
    sketch.words("holds", {133, 44}, 7);
    sketch.words("holds", {133, 102}, 7);
    sketch.words("holds", {257, 65}, 7);
    sketch.words("finds", {342, 98}, 7);
    return livesAsLongAsSomebodyHoldsIt() ? sketch.picture() : QImage();
}
