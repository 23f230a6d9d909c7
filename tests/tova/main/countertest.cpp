#include "nodes/nodepool.h"

#include "host/diagnosticscounter.h"
#include "tova/nodes/rectnode.h"
#include "tova/scene/scene.h"

#include <gmock/gmock.h>

#include <QImage>

namespace Tova2 {
namespace {

/// How far each counter has moved since the beginning of its test.
class CounterTest : public testing::Test {
protected:
    static std::vector<std::int64_t> values()
    {
        std::vector<std::int64_t> result;
        for (const char* name : {"Node:Node raw instance count", "Node:Node pool instance count",
                                 "Scene:Nodes in scene", "Scene:Node offscreen repaint count"})
            result.push_back(Host::DiagnosticsCounter::counter(name).value());
        return result;
    }

    std::vector<std::int64_t> moved() const
    {
        auto now = values();
        for (std::size_t i = 0; i < now.size(); ++i)
            now[i] -= m_before[i];
        return now;
    }

private:
    const std::vector<std::int64_t> m_before = values();
};

using testing::ElementsAre;

TEST_F(CounterTest, TellsThePoolFromWhatIsTooLargeForIt)
{
    void* const small = NodePool::allocate(512);
    void* const large = NodePool::allocate(513);
    EXPECT_THAT(moved(), ElementsAre(1, 1, 0, 0));
    NodePool::release(large, 513);
    EXPECT_THAT(moved(), ElementsAre(0, 1, 0, 0));
    NodePool::release(small, 512);
    EXPECT_THAT(moved(), ElementsAre(0, 0, 0, 0));
}

TEST_F(CounterTest, CountsAdditionsUntilTheyLeaveAndPicturesForCaches)
{
    {
        const auto scene = Scene::createScene();
        RectNode parent(Vetra::GLRect<double>{0, 0, 10, 10}), child(parent.getRect());
        parent.setFill(Fill(Vetra::Color(0, 0, 1, 1)));
        child.setParent(parent);
        scene->addNode(parent);
        scene->addNode(parent);
        parent.setCacheType(CacheType::DeviceCoordinateCache);
        QImage picture(20, 20, QImage::Format_ARGB32_Premultiplied);
        for (int i = 0; i < 3; ++i)
            scene->render(picture, {0, 0, 20, 20}, {0, 0, 20, 20});
        EXPECT_THAT(moved(), ElementsAre(0, 2, 1, 1));
    }
    EXPECT_THAT(moved(), ElementsAre(0, 0, 0, 1));
}

} // namespace
} // namespace Tova2
