#include "tova/scene/lodmanager.h"
#include "support/rows.h"
#include "tova/nodes/customnode.h"
#include "tova/nodes/customnodepainter.h"
#include "tova/nodes/rectnode.h"
#include "tova/scene/fullqualitylodstrategy.h"
#include "tova/scene/massivemodellodstrategy.h"
#include "tova/scene/scene.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <boost/make_shared.hpp>

#include <QBuffer>
#include <QImage>
#include <QPainter>
#include <QPdfWriter>

#include <functional>
#include <limits>
#include <stdexcept>

namespace {

using namespace Tova2;
using testing::ElementsAre;

Vetra::Holder<Scene> sceneOf(int nodes)
{
    auto scene = Scene::createScene();
    for (int i = 0; i < nodes; ++i)
        scene->addNode(RectNode({0, 0, 1, 1}));
    return scene;
}

struct QualityCase : NamedRow {
    int nodes; ///< in the scene being painted, by the massive model's strategy; -1: by the default
    double scale;
    int quality;
};
class StrategyQualityTest : public testing::TestWithParam<QualityCase> {};

TEST_P(StrategyQualityTest, FollowsTheScale)
{
    const QualityCase& row = GetParam();
    if (row.nodes < 0) {
        EXPECT_EQ(LODStrategy().getQuality(row.scale), row.quality);
        return;
    }
    const auto scene = sceneOf(row.nodes);
    MassiveModelLODStrategy strategy;
    strategy.beginScene(scene.get());
    EXPECT_EQ(strategy.getQuality(row.scale), row.quality);
    strategy.endScene(scene.get());
    EXPECT_EQ(strategy.getQuality(1.0), 2);
}

INSTANTIATE_TEST_SUITE_P(Lod, StrategyQualityTest,
                         testing::Values(QualityCase{{"DefaultAtLowBound"}, -1, 0.525, 0},
                                         QualityCase{{"DefaultAboveLowBound"}, -1, 0.5251, 1},
                                         QualityCase{{"DefaultAtHighBound"}, -1, 0.75, 1},
                                         QualityCase{{"DefaultAboveHighBound"}, -1, 0.7501, 2},
                                         QualityCase{{"NotANumberIsCoarsest"},
                                                     -1,
                                                     std::numeric_limits<double>::quiet_NaN(),
                                                     0},
                                         QualityCase{{"FewNodesAreDefault"}, 249, 1.0, 2},
                                         QualityCase{{"FewNodesAtLowBound"}, 249, 0.51, 0},
                                         QualityCase{{"MassiveIsNeverFull"}, 250, 1.0, 1},
                                         QualityCase{{"MassiveKeepsMiddleLonger"}, 250, 0.501, 1},
                                         QualityCase{{"MassiveAtItsBound"}, 250, 0.5, 0}),
                         rowName);

class Recorder : public LODStrategy {
public:
    explicit Recorder(const char* id) : LODStrategy(id) {}
    std::vector<std::string> log;
    std::function<void()> onActivate, onBegin;

    void beginScene(Scene* scene) override
    {
        LODStrategy::beginScene(scene);
        log.push_back("begin");
        if (onBegin)
            onBegin();
    }
    void endScene(Scene* scene) override
    {
        LODStrategy::endScene(scene);
        log.push_back("end");
    }
    unsigned char getQuality(double) const override { return 1; }

protected:
    void activate() override
    {
        LODStrategy::activate();
        log.push_back("activate");
        if (onActivate)
            onActivate();
    }
    void deactivate() override
    {
        LODStrategy::deactivate();
        log.push_back("deactivate");
    }
};

class LODManagerTest : public testing::Test {
protected:
    void SetUp() override
    {
        m_manager.registerStrategy(m_a);
        m_manager.registerStrategy(m_b);
    }
    void TearDown() override
    {
        m_manager.unRegisterStrategy("a");
        m_manager.unRegisterStrategy("b");
        m_manager.beginScene(nullptr, {});
        m_manager.endScene(nullptr);
    }

    LODManager& m_manager = LODManager::instance();
    boost::shared_ptr<Recorder> m_a = boost::make_shared<Recorder>("a");
    boost::shared_ptr<Recorder> m_b = boost::make_shared<Recorder>("b");
    Vetra::Holder<Scene> m_scene = Scene::createScene();
};

TEST_F(LODManagerTest, ActivatesOnceAndStaysForTheNextPaint)
{
    for (int paint = 0; paint < 2; ++paint) {
        m_manager.beginScene(m_scene.get(), "a");
        EXPECT_EQ(m_a->getCurrentScene(), m_scene.get());
        m_manager.endScene(m_scene.get());
    }
    EXPECT_THAT(m_a->log, ElementsAre("activate", "begin", "end", "begin", "end"));
    EXPECT_TRUE(m_a->isActive());
    m_manager.beginScene(m_scene.get(), {});
    EXPECT_FALSE(m_a->isActive());
    EXPECT_EQ(m_manager.getQualityLevel(0.5), 0);
    m_manager.endScene(m_scene.get());
}

TEST_F(LODManagerTest, UnknownKeysChangeNothing)
{
    m_manager.beginScene(m_scene.get(), "nobody");
    EXPECT_EQ(m_manager.getQualityLevel(1), 2) << "the default, for none was active";
    m_manager.endScene(m_scene.get());
    EXPECT_TRUE(m_manager.activateStrategy("a"));
    EXPECT_FALSE(m_manager.activateStrategy("nobody"));
    m_manager.beginScene(m_scene.get(), "nobody");
    EXPECT_EQ(m_manager.getQualityLevel(1), 1) << "the active one stays";
    m_manager.endScene(m_scene.get());
    EXPECT_FALSE(m_manager.unRegisterStrategy("nobody"));
    EXPECT_FALSE(m_manager.unRegisterStrategy(boost::shared_ptr<LODStrategy>()));
    m_manager.registerStrategy(boost::make_shared<Recorder>(""));
    EXPECT_FALSE(m_manager.activateStrategy({}));
}

TEST_F(LODManagerTest, NestedPaintsComeBackToTheOuterScene)
{
    const auto inner = Scene::createScene();
    m_manager.beginScene(m_scene.get(), "a");
    m_manager.beginScene(inner.get(), "b");
    EXPECT_EQ(m_b->getCurrentScene(), inner.get());
    EXPECT_FALSE(m_a->isActive());
    m_manager.endScene(inner.get());
    EXPECT_EQ(m_a->getCurrentScene(), m_scene.get());
    EXPECT_FALSE(m_b->isActive());
    m_manager.beginScene(inner.get(), "b"); // left without its end
    m_manager.endScene(m_scene.get());
    m_manager.endScene(inner.get());
    EXPECT_THAT(m_b->log, ElementsAre("activate", "begin", "end", "deactivate", "activate", "begin",
                                      "end", "deactivate"));
    EXPECT_EQ(m_a->getCurrentScene(), nullptr);
}

TEST_F(LODManagerTest, ActivationInTheMiddleOfAPaintTellsTheScene)
{
    m_manager.beginScene(m_scene.get(), "a");
    m_manager.activateStrategy("b");
    EXPECT_EQ(m_b->getCurrentScene(), m_scene.get());
    m_manager.deactivateStrategy("a"); // not the active one
    EXPECT_EQ(m_manager.getQualityLevel(3), 1);
    m_manager.deactivateStrategy("b");
    EXPECT_EQ(m_manager.getQualityLevel(3), 2);
    m_manager.endScene(m_scene.get());
}

TEST_F(LODManagerTest, StrategiesMayCallBack)
{
    m_a->onActivate = [this] { m_manager.activateStrategy("b"); };
    m_b->onBegin = [this] {
        m_manager.unRegisterStrategy(m_b);
        m_b.reset();
    };
    m_manager.beginScene(m_scene.get(), "a");
    EXPECT_FALSE(m_a->isActive()) << "it has made way";
    EXPECT_EQ(m_manager.getQualityLevel(3), 1) << "unregistered, and still active";
    m_manager.endScene(m_scene.get());
    EXPECT_FALSE(m_manager.activateStrategy("b"));
}

TEST_F(LODManagerTest, AStrategyThatThrowsIsNotLeftBehind)
{
    m_a->onBegin = [] { throw std::runtime_error("no"); };
    EXPECT_THROW(m_manager.beginScene(m_scene.get(), "a"), std::runtime_error);
    EXPECT_EQ(m_a->getCurrentScene(), nullptr);
    m_a->onBegin = nullptr;
    m_a->onActivate = m_b->onActivate = [] { throw std::runtime_error("no"); };
    EXPECT_THROW(m_manager.activateStrategy("b"), std::runtime_error);
    EXPECT_EQ(m_manager.getQualityLevel(3), 2);
}

TEST_F(LODManagerTest, ASceneMayDieDuringItsPaint)
{
    m_manager.beginScene(m_scene.get(), "a");
    m_scene.reset();
    EXPECT_EQ(m_a->getCurrentScene(), nullptr);
    m_manager.endScene(nullptr);
    EXPECT_EQ(m_a->log.back(), "end");
}

/// Tells how it was asked to paint.
class Witness final : public CustomNodePainter {
public:
    Vetra::GLRect<double> getBoundingRect(double) const override { return {0, 0, 100, 100}; }
    void paint(QPainter*, double, const Vetra::GLRect<double>&,
               const PaintOptions& options) override
    {
        m_qualities.push_back(options.quality);
        m_viewScale = options.viewScale;
        if (m_isThrowing)
            throw std::runtime_error("no");
        if (m_onPaint)
            m_onPaint();
    }
    std::vector<int> m_qualities;
    std::function<void()> m_onPaint;
    double m_viewScale = 0;
    bool m_isThrowing = false;
};

CustomNode nodeOf(Witness& witness)
{
    CustomNode node;
    node.setPainter(&witness);
    return node;
}

TEST_F(LODManagerTest, EveryPaintOfASceneAsksItsStrategy)
{
    const Vetra::Holder<Witness> witness(new Witness);
    CustomNode node = nodeOf(*witness);
    m_scene->addNode(node);
    for (const double scale : {1.0, 0.6, 0.5})
        m_scene->render(0, {}, scale);
    m_scene->setLODStrategyKey(FullQualityLODStrategy::getStaticID());
    m_scene->render(0, {}, 0.1);
    m_scene->setLODStrategyKey("a");
    m_scene->render(0, {}, 3);
    node.setMinLODQuality(2);
    m_scene->render(0, {}, 3);
    EXPECT_THAT(witness->m_qualities, ElementsAre(2, 1, 0, 2, 1));
}

TEST_F(LODManagerTest, AStrategyThatComesInTheMiddleDecidesForTheNodesToCome)
{
    const Vetra::Holder<Witness> first(new Witness), second(new Witness);
    first->m_onPaint = [this] {
        m_manager.activateStrategy(FullQualityLODStrategy::getStaticID());
    };
    for (Witness* const witness : {first.get(), second.get()})
        m_scene->addNode(nodeOf(*witness));
    m_scene->setLODStrategyKey("a");
    m_scene->render(0);
    EXPECT_EQ(first->m_qualities.back(), 1);
    EXPECT_EQ(second->m_qualities.back(), 2);
}

TEST_F(LODManagerTest, APaintThatThrowsEnds)
{
    const Vetra::Holder<Witness> witness(new Witness);
    m_scene->addNode(nodeOf(*witness));
    m_scene->setLODStrategyKey("a");
    witness->m_isThrowing = true;
    EXPECT_THROW(m_scene->render(0), std::runtime_error);
    EXPECT_EQ(m_a->getCurrentScene(), nullptr);
    EXPECT_THAT(m_a->log, ElementsAre("activate", "begin", "end"));
}

TEST_F(LODManagerTest, DensePixelsDoNotCountAsAZoom)
{
    const Vetra::Holder<Witness> witness(new Witness);
    m_scene->addNode(nodeOf(*witness));
    QImage image(100, 100, QImage::Format_RGB32);
    image.setDevicePixelRatio(2);
    m_scene->setLODStrategyKey({});
    m_scene->render(image, {0, 0, 50, 50}, {0, 0, 125, 125}); // at 0.4, with 0.8 of a pixel
    EXPECT_EQ(witness->m_qualities.back(), 0);
}

TEST_F(LODManagerTest, DotsOnPaperDoNotCountAsAZoom)
{
    const Vetra::Holder<Witness> witness(new Witness);
    m_scene->addNode(nodeOf(*witness));
    QBuffer bytes;
    bytes.open(QIODevice::WriteOnly);
    QPdfWriter page(&bytes);
    page.setResolution(600);
    QPainter painter(&page);
    m_scene->render(painter, {0, 0, 2500, 2500}, {0, 0, 100, 100}); // three inches
    EXPECT_NEAR(witness->m_viewScale, 3, 1e-9);
}

} // namespace
