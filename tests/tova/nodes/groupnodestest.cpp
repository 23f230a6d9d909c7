#include "tova/nodes/compositenode.h"
#include "tova/nodes/containernode.h"
#include "tova/nodes/rectnode.h"
#include "tova/scene/scene.h"

namespace Tova2 {
namespace {

TEST(ContainerNodeTest, HasNoBoundsAndIsNeverHitWhateverItsStyle)
{
    ContainerNode container;
    Stroke stroke(StrokeStyle::SolidLine);
    stroke.setLogicalWidth(20);
    container.setStroke(stroke);
    EXPECT_FALSE(container.getBoundingRect().isValid());
    EXPECT_FALSE(container.contains({0, 0}));
    EXPECT_FALSE(container.intersects(Vetra::GLRect<double>{-5, -5, 10, 10}));
    const Vetra::Holder<Scene> scene = Scene::createScene();
    scene->addNode(container);
    RectNode child({100, 100, 10, 10});
    child.setParent(container);
    EXPECT_EQ(scene->getBounds(), child.getBoundingRect());
}

TEST(CompositeNodeTest, ItsContainerIsItsOneChildAndHoldsTheParts)
{
    CompositeNode composite;
    const Node container = composite.getCompositeContainer();
    EXPECT_TRUE(container.isa("Tova2.ContainerNode"));
    EXPECT_EQ(container, composite.getCompositeContainer());
    EXPECT_EQ(container.getParent(), composite);
    EXPECT_FALSE(composite.as<ContainerNode>().isValid()); // nor does it say so of itself
    EXPECT_EQ(composite.getChildren(), std::vector<Node>{container});

    RectNode part({0, 0, 10, 10});
    part.setParent(container);
    const Vetra::Holder<Scene> scene = Scene::createScene();
    scene->addNode(composite);
    EXPECT_EQ(part.getScene(), scene.get());
}

TEST(CompositeNodeTest, ItsContainerOutlivesItWhenHeld)
{
    Node container;
    {
        CompositeNode composite;
        container = composite.getCompositeContainer();
    }
    EXPECT_FALSE(container.getParent().isValid());
    CompositeNode kept;
    Node loose = kept.getCompositeContainer();
    loose.unparent();
    loose.release();
    EXPECT_TRUE(kept.getCompositeContainer().isValid());
}

} // namespace
} // namespace Tova2
