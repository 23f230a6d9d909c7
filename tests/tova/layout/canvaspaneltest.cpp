#include "layout/referenceflow.h"

#include "support/rows.h"
#include "tova/widget/glcanvas.h"
#include "widgets/qt.h"

#include <gmock/gmock.h>

#include <QImage>
#include <QPixmap>

namespace Tova2::LayoutTest {
namespace {

struct CornerCase : NamedRow {
    CanvasAffinity affinity;
    double x, y;                         ///< of the panel's top left in a view of 400 x 300
    double withBarsX = x, withBarsY = y; ///< with scroll bars of 10
};

/// A panel of 42 x 22 view units on a canvas.
class CanvasPanelTest : public testing::Test {
protected:
    CanvasPanelTest()
    {
        canvas->setSize({400, 300});
        canvas->hideScrollbars();
        canvas->setScene(scene.get());
        scene->addNode(boxNode({400, 300}));
        panel->setNonLinearScaleFunction(ConstantLodScale::instance());
        panel->addNode(boxNode({40, 20}));
        panel->installOnCanvas(*canvas);
    }
    ~CanvasPanelTest() override
    {
        if (canvas)
            canvas->destroy();
    }
    Rect inView() const
    {
        const RoundedRectNode root = panel->getRootNode();
        return canvas->sceneRectToViewRect(root.mapLocalRectToSceneRect(root.getRect()));
    }
    void expectAt(double x, double y) const
    {
        const Rect now = inView();
        EXPECT_NEAR(now.x, x, 1e-9);
        EXPECT_NEAR(now.y, y, 1e-9);
        EXPECT_NEAR(now.width, 42, 1e-9);
    }

    Vetra::Holder<Scene> scene = Scene::createScene();
    Vetra::Holder<AutoLayoutPanel> panel{new AutoLayoutPanel};
    GLCanvas* canvas = new GLCanvas(Vetra::StringID("canvas"));
};

struct Ear : Vemit::Listener {};

class CanvasCornerTest : public CanvasPanelTest, public testing::WithParamInterface<CornerCase> {};

TEST_P(CanvasCornerTest, KeepsItsCornerWhateverTheViewDoes)
{
    const CornerCase& c = GetParam();
    panel->setCanvasAffinity(c.affinity);
    expectAt(c.x, c.y);
    // What the listeners of the view see is what is painted next.
    int seen = 0;
    Ear later;
    const auto look = [&](const auto&) { expectAt(c.x, c.y), ++seen; };
    canvas->connectTo(&GLCanvasEmitters::viewChange, &later, look);
    canvas->setScale(0.75);
    canvas->translate(-13.3, 7.1);
    canvas->setScaleAroundScenePoint(0.3, {17, 3});
    EXPECT_EQ(seen, 3);
    later.disconnectAll();
    canvas->setScale(1.7);
    canvas->showScrollbars();
    const auto beside = canvas->getScrollbarGeometry(Orientation::Vertical);
    const auto below = canvas->getScrollbarGeometry(Orientation::Horizontal);
    expectAt(c.x + (c.withBarsX - c.x) / 10 * beside.width,
             c.y + (c.withBarsY - c.y) / 10 * below.height);
    canvas->hideScrollbars();
    panel->setCanvasAffinity(c.affinity, {5, -6});
    expectAt(c.x + 5, c.y - 6);
}

using Affinity = CanvasAffinity;
INSTANTIATE_TEST_SUITE_P(
    Panel, CanvasCornerTest,
    testing::Values(CornerCase{{"TopLeft"}, Affinity::TopLeft, 4, 4},
                    CornerCase{{"Top"}, Affinity::Top, 179, 4},
                    CornerCase{{"TopRight"}, Affinity::TopRight, 354, 4, 344, 4},
                    CornerCase{{"Right"}, Affinity::Right, 354, 139, 344, 139},
                    CornerCase{{"BottomRight"}, Affinity::BottomRight, 354, 274, 344, 264},
                    CornerCase{{"Bottom"}, Affinity::Bottom, 179, 274, 179, 264},
                    CornerCase{{"BottomLeft"}, Affinity::BottomLeft, 4, 274, 4, 264},
                    CornerCase{{"Left"}, Affinity::Left, 4, 139},
                    CornerCase{{"NoneIsItsPosition"}, Affinity::None, 0, -22}),
    rowName);

TEST_F(CanvasPanelTest, FollowsSizePositionAndMembers)
{
    panel->setPosition({30, 50});
    canvas->setScale(2);
    expectAt(30, 28);
    panel->setCanvasAffinity(CanvasAffinity::BottomRight);
    canvas->setSize({300, 200});
    canvas->getCanvasSnapshotWithWebBlock(); // a hidden widget hears of its size with this
    expectAt(254, 174);
    panel->getNodeAt(0).as<RectNode>().setRect({0, 0, 40, 50});
    expectAt(254, 144);
}

TEST_F(CanvasPanelTest, LeavesNothingBehindWhenTheViewMoves)
{
    const auto picture = [this] { return toQt(*canvas)->grab().toImage(); };
    panel->setCanvasAffinity(CanvasAffinity::Right);
    picture();
    for (const Point& distance : {Point{-60, 7}, Point{3.25, -40.5}}) {
        canvas->translate(distance);
        const QImage moved = picture(); // what has only moved is copied
        Background other;
        other.setColor(Vetra::Color(0, 1, 0));
        scene->setBackground(other);
        scene->setBackground(Background()); // has everything painted anew
        EXPECT_EQ(moved, picture());
    }
}

TEST_F(CanvasPanelTest, OutlivesItsCanvasAndLeavesThoseThatLive)
{
    EXPECT_TRUE(panel->isInstalled());
    Scene* const overlay = canvas->getOverlayScene();
    panel->installOnSceneForStaticRender(scene.get());
    EXPECT_EQ(overlay->getAllNodesCount(), 0U);
    canvas->setScale(3); // no longer its business
    EXPECT_EQ(panel->getRootNode().getTransform(), Vetra::Transform());
    panel->installOnCanvas(*canvas);
    const Vetra::Holder<Scene> kept(overlay);
    canvas->destroy();
    canvas = nullptr;
    EXPECT_FALSE(panel->isInstalled());
    panel->setCanvasAffinity(CanvasAffinity::Top);
    panel->setPosition({1, 2});
    EXPECT_EQ(panel->getRootNode().getPosition(), (Point{1, 2}));
}

} // namespace
} // namespace Tova2::LayoutTest
