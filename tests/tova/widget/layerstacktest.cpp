#include "tova/widget/layerstack.h"
#include "tova/scene/scene.h"

#include <gmock/gmock.h>

#include <memory>
#include <stdexcept>

namespace Tova2 {

namespace {

using testing::ElementsAre;
using Vetra::Holder;

class LayerStackTest : public testing::Test, public Vemit::Listener {
protected:
    Holder<Layer> makeLayer(const char* tag = "any")
    {
        return Holder<Layer>(new Layer(Scene::createScene().get(), tag));
    }
    /// "in" and "out", the index, and how many layers there are at that moment.
    void listenTo(LayerStack& stack)
    {
        const auto note = [this, &stack](const char* what) {
            return [this, &stack, what](int index) {
                log.push_back(what + std::to_string(index) + "/" +
                              std::to_string(stack.getNumLayers()));
            };
        };
        stack.getInsertionEmitter().connect(this, note("in"));
        stack.getRemovalEmitter().connect(this, note("out"));
    }

    std::vector<std::string> log;
};

TEST_F(LayerStackTest, NumbersLayersAndTellsOfThem)
{
    LayerStack stack;
    listenTo(stack);
    const auto a = makeLayer("base");
    const auto b = makeLayer("overlay");
    const auto c = makeLayer("overlay");
    stack.insertLayer(-7, a);
    stack.insertLayer(0, b);
    stack.insertLayer(99, c);
    stack.insertLayer(0, a); // is in already
    stack.insertLayer(0, nullptr);
    EXPECT_THAT((std::vector{b->getZValue(), a->getZValue(), c->getZValue()}),
                ElementsAre(0, 1, 2));
    EXPECT_EQ(stack.getLayer("overlay"), b.get());
    EXPECT_EQ(stack.getLayer("none"), nullptr);
    stack.removeLayer(-1);
    stack.removeLayer(3);
    stack.removeLayer(0);
    EXPECT_THAT((std::vector{b->getZValue(), a->getZValue(), c->getZValue()}),
                ElementsAre(-1, 0, 1));
    EXPECT_EQ(stack.getLayer(1), c.get());
    EXPECT_EQ(stack.getLayer(2), nullptr);
    EXPECT_EQ(stack.getLayer(-1), nullptr);
    stack.removeAllLayers();
    EXPECT_THAT(log, ElementsAre("in0/1", "in0/2", "in2/3", "out0/3", "out0/2", "out0/1"));
}

TEST_F(LayerStackTest, FindsASceneInAnyStackAndFallsBackToAnotherOfItsLayers)
{
    const auto first = makeLayer();
    const Holder<Layer> second(new Layer(*first));
    ScenePrivate* const shown = first->getScene()->d_func();
    LayerStack one;
    auto other = std::make_unique<LayerStack>();
    EXPECT_EQ(one.getLayer(shown), nullptr);
    one.insertLayer(0, first);
    other->insertLayer(0, second);
    EXPECT_EQ(one.getLayer(shown), second.get());
    other.reset();
    EXPECT_EQ(one.getLayer(shown), first.get());
    *first = *makeLayer();
    EXPECT_EQ(one.getLayer(shown), nullptr);
    EXPECT_EQ(one.getLayer(first->getScene()->d_func()), first.get());
}

TEST_F(LayerStackTest, ListenersMayChangeItWhileTheyHearOfAChange)
{
    LayerStack stack;
    stack.getRemovalEmitter().connect(this, [&](int index) {
        log.push_back("removed");
        stack.removeLayer(index);
        stack.insertLayer(0, makeLayer());
        if (log.size() == 1)
            stack.removeAllLayers();
        throw std::runtime_error("listener");
    });
    for (int i = 0; i < 3; ++i)
        stack.insertLayer(0, makeLayer());
    EXPECT_THROW(stack.removeLayer(1), std::runtime_error);
    EXPECT_EQ(log.size(), 4U);
    ASSERT_EQ(stack.getNumLayers(), 3); // those put in by the last three
    for (int i = 0; i < 3; ++i)
        EXPECT_EQ(stack.getLayer(i)->getZValue(), i);
}

TEST_F(LayerStackTest, AListenerMayDestroyIt)
{
    auto stack = std::make_unique<LayerStack>();
    const auto below = makeLayer();
    const auto above = makeLayer();
    stack->insertLayer(0, below);
    stack->insertLayer(1, above);
    stack->getRemovalEmitter().connect(this, [&](int) { stack.reset(); });
    stack->removeLayer(1);
    EXPECT_EQ(below->getZValue(), -1);
    EXPECT_EQ(above->getZValue(), -1);
    EXPECT_EQ(LayerStack().getLayer(above->getScene()->d_func()), nullptr);
}

} // namespace

} // namespace Tova2
