#include "tova/tova.h"

#include <gmock/gmock.h>

#include <functional>

using namespace Tova2;

namespace {

/// A host's painter that does something else when it is asked for its bounds.
class BusyPainter : public CustomNodePainter {
public:
    std::function<void()> onBounds;

private:
    Vetra::GLRect<double> getBoundingRect(double) const override
    {
        if (onBounds)
            std::exchange(const_cast<BusyPainter*>(this)->onBounds, nullptr)();
        return {0, 0, 10, 10};
    }
    void paint(QPainter*, double, const Vetra::GLRect<double>&, const PaintOptions&) override {}
};

class HostileBoundsTest : public testing::Test {
protected:
    CustomNode addBusy()
    {
        CustomNode node;
        m_painter = new BusyPainter;
        node.setPainter(m_painter);
        m_scene->addNode(node);
        return node;
    }

    Vetra::Holder<Scene> m_scene = Scene::createScene();
    RectNode m_other{Vetra::GLRect<double>{100, 0, 10, 10}};
    BusyPainter* m_painter = nullptr;
};

TEST_F(HostileBoundsTest, MovingAnotherNodeIsSeenByTheNextQuery)
{
    m_scene->addNode(m_other);
    addBusy();
    m_scene->getBounds();
    m_painter->onBounds = [this] { m_other.setPosition({500, 0}); };
    m_painter->boundsChanging();
    m_scene->getAllNodes();
    EXPECT_EQ(m_scene->getNodeAt({605, 5}), m_other);
}

TEST_F(HostileBoundsTest, AskingTheSceneBackIsAnsweredFromWhatIsKnown)
{
    addBusy();
    std::size_t seen = 0;
    m_painter->onBounds = [&] {
        m_scene->addNode(m_other);
        seen = m_scene->getAllNodes().size();
    };
    m_scene->getBounds();
    EXPECT_GE(seen, 1u);
    EXPECT_EQ(m_scene->getAllNodes().size(), 2u);
}

TEST_F(HostileBoundsTest, LeavingTheSceneForGoodIsSafe)
{
    m_scene->addNode(m_other);
    {
        CustomNode node = addBusy();
        m_painter->onBounds = [this] {
            for (Node busy : m_scene->getAllNodes()) {
                if (busy != m_other)
                    busy.removeAndRelease();
            }
        };
    }
    m_scene->getBounds();
    EXPECT_THAT(m_scene->getAllNodes(), testing::ElementsAre(m_other));
}

class Refiller : public SceneChangeTracker {
public:
    explicit Refiller(Scene& scene) : m_scene(scene) {}
    void nodeAdded(Node) override {}
    void nodeRemoved(Node) override
    {
        ++removed;
        m_scene.addNode(RectNode());
    }
    void nodeChanged(Node) override {}
    int removed = 0;

private:
    Scene& m_scene;
};

// A tracker that keeps a scene from being empty must not keep its end from coming.
TEST_F(HostileBoundsTest, DestroyEndsAlthoughATrackerRefills)
{
    m_scene->addNode(m_other);
    Refiller refiller(*m_scene);
    m_scene->beginChangeTracking(&refiller);
    m_scene->destroy();
    EXPECT_EQ(m_scene->getAllNodesCount(), 0u);
    EXPECT_EQ(refiller.removed, 1);
    m_scene->endChangeTracking();
}

TEST_F(HostileBoundsTest, FarAndTinyMovesAreStoredExactly)
{
    m_scene->addNode(m_other);
    m_other.setPosition({1e12, 0});
    m_other.translate(0.5, 0);
    EXPECT_EQ(m_other.getPosition().x, 1e12 + 0.5);
    m_other.setPosition({0, 0});
    m_other.setPosition({1e-14, 0});
    EXPECT_EQ(m_other.getPosition().x, 1e-14);
}

} // namespace
