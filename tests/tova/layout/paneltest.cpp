#include "layout/referenceflow.h"

#include "support/rows.h"
#include "vetra/error.h"

#include <gmock/gmock.h>

#include <functional>
#include <limits>

namespace Tova2::LayoutTest {
namespace {

using Vetra::StringID;
constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();

struct Tracker : SceneChangeTracker {
    void nodeAdded(Node) override {}
    void nodeRemoved(Node) override {}
    void nodeChanged(Node) override
    {
        ++changes;
        if (const auto act = then)
            act();
    }
    int changes = 0;
    std::function<void()> then;
};

/// A panel in a scene: "a", a node of parts and "c".
class PanelTest : public testing::Test {
protected:
    PanelTest()
    {
        panel->setNonLinearScaleFunction(&scale);
        panel->installOnSceneForStaticRender(scene.get());
        part.setParent(parts);
        panel->addNode(StringID("a"), a);
        panel->addNode(parts);
        panel->addNode(StringID("c"), c);
        scale.asked = 0;
    }

    CountingScale scale;
    Vetra::Holder<Scene> scene = Scene::createScene();
    Vetra::Holder<AutoLayoutPanel> panel{new AutoLayoutPanel};
    RectNode a = boxNode({10, 6}), part = boxNode({8, 8}), c = boxNode({10, 6});
    ContainerNode parts, elsewhere;
    Tracker tracker;
};

TEST_F(PanelTest, LaysOutOnceAChange)
{
    const Rect other{0, 0, 5, 5};
    RectNode more = boxNode({2, 2}), child = boxNode({2, 2}), namesake = boxNode({4, 4});
    const std::pair<const char*, std::function<void()>> changes[] = {
        {"padding", [&] { panel->setPadding(3); }},
        {"draw style", [&] { panel->setPanelDrawStyle(DrawStyle()); }},
        {"the same panel style again", [&] { panel->setPanelStyle(panel->getPanelStyle()); }},
        {"opacity", [&] { panel->setOpacity(0.5); }},
        {"member's size", [&] { a.setRect(other); }},
        {"member hidden", [&] { a.setVisible(false); }},
        {"member moved", [&] { a.translate(3, 3); }},
        {"part's size", [&] { part.setRect(other); }},
        {"another part", [&] { more.setParent(parts); }},
        {"member added", [&] { panel->addNode(more); }},
        {"child of the root", [&] { child.setParent(panel->getRootNode()); }},
        {"namesake", [&] { panel->addNode(StringID("a"), namesake); }},
        {"member out of the scene", [&] { c.remove(); }},
        {"member elsewhere", [&] { parts.setParent(elsewhere); }},
        {"member removed", [&] { panel->removeNodeAt(0); }},
        {"forced", [&] { panel->forceLayout(); }},
    };
    for (const auto& [what, change] : changes) {
        scale.asked = 0;
        change();
        EXPECT_EQ(scale.asked, 1) << what;
        scene->beginChangeTracking(&tracker);
        panel->forceLayout();
        scene->endChangeTracking();
        EXPECT_EQ(tracker.changes, 0) << "again after " << what;
    }
}

TEST_F(PanelTest, IgnoresWhatChangesNothingOrIsNoValue)
{
    panel->setPadding(kNaN);
    panel->setSize({kNaN, 3});
    panel->setPosition({std::numeric_limits<double>::infinity(), 0});
    panel->setAnchorClippingRect({0, kNaN, 1, 1});
    panel->setExpandMode(ExpandMode(7));
    panel->setPanelStyle(PanelStyle(6));
    panel->setHAlign(HorizontalAlignment(3));
    panel->setOpacity(kNaN);
    panel->setPadding(1);
    panel->removeNodeAt(9);
    panel->removeNode(StringID("stranger"));
    a.setFill(Fill(Vetra::Color(0, 1, 0)));
    c.toTop();
    EXPECT_EQ(scale.asked, 0);
}

TEST_F(PanelTest, StaysDefinedForHugeValues)
{
    panel->setPadding(1e308);
    scale.value = kNaN;
    panel->setSize({-1e308, 1e308});
    panel->forceLayout();
    panel->setPadding(2);
    EXPECT_EQ(a.getPosition(), (Point{2, -8}));
    EXPECT_EQ(panel->getRootNode().getTransform(), Vetra::Transform());
}

TEST_F(PanelTest, GivesMembersTheRoomThatTheyShow)
{
    EllipseNode round(Ellipse({-5, -5, 10, 10}));
    Stroke wide(StrokeStyle::SolidLine);
    wide.setLogicalWidth(2);
    round.setStroke(wide);
    round.scale(2); // 20 across, and 24 with its stroke
    RectNode unseen = boxNode({90, 90});
    unseen.setParent(parts);
    unseen.setVisible(false);
    panel->addNodeAt(0, round);
    EXPECT_EQ(round.getPosition(), (Point{11, -15})) << "the geometry's corner is placed";
    EXPECT_EQ(a.getPosition(), (Point{26, -7}));
    EXPECT_EQ(c.getPosition(), (Point{46, -7}));
}

TEST_F(PanelTest, WaitsWhileSuspendedAndThenLaysOutOnce)
{
    panel->resumeLayout(); // one too many
    panel->suspendLayout();
    panel->suspendLayout();
    panel->setPadding(5);
    part.setRect({0, 0, 50, 5});
    panel->resumeLayout();
    EXPECT_EQ(scale.asked, 0);
    EXPECT_EQ(a.getPosition(), (Point{1, -7}));
    panel->resumeLayout();
    panel->resumeLayout();
    EXPECT_EQ(scale.asked, 1);
    EXPECT_EQ(a.getPosition(), (Point{5, -11}));
}

TEST_F(PanelTest, FindsMembersByNameAndIndex)
{
    const RectNode other = boxNode({4, 4});
    panel->addNodeAt(1, StringID("a"), other);
    EXPECT_EQ(panel->getNode(StringID("a")), other);
    EXPECT_FALSE(a.getScene()) << "the namesake has left";
    EXPECT_EQ(panel->getNodeAt(0), parts) << "and the others closed up";
    panel->removeNode(StringID("a"));
    EXPECT_FALSE(panel->getNode(StringID("a")).isValid());
    EXPECT_FALSE(panel->getNode(StringID("")).isValid());
    EXPECT_FALSE(panel->getNodeAt(-1).isValid());
    EXPECT_EQ(panel->getNodeAt(1).getZValue(), 1);
}

TEST_F(PanelTest, GoesOnWithWhatItIsToldDuringALayout)
{
    scene->beginChangeTracking(&tracker);
    const auto isLayingOut = [&] { return scale.asked > 0; };
    tracker.then = [&] { isLayingOut() ? panel->setPadding(2) : void(); };
    a.setRect({0, 0, 20, 6});
    EXPECT_EQ(a.getPosition(), (Point{2, -8}));
    EXPECT_EQ(scale.asked, 2);
    tracker.then = [&] { panel->setPadding(panel->getPadding() + 1); };
    a.setRect({0, 0, 30, 6}); // must end at all
    tracker.then = [&] { throw std::runtime_error("host"); };
    EXPECT_THROW(panel->setPadding(1), std::runtime_error);
    EXPECT_EQ(c.getPosition().y, -7) << "carried out to the end";
    tracker.then = [&] { panel.reset(); };
    a.setRect({0, 0, 40, 6});
    EXPECT_FALSE(panel);
    scene->endChangeTracking();
}

TEST_F(PanelTest, SurvivesAnyOrderOfDestruction)
{
    RectNode parent({0, 0, 100, 100});
    panel->installOnNode(parent, true);
    parent = RectNode();
    EXPECT_FALSE(panel->isInstalled());
    panel->setPadding(2);
    panel->installOnSceneForStaticRender(scene.get());
    a = c = RectNode();
    scene.reset();
    EXPECT_FALSE(panel->isInstalled());
    panel->setPadding(3);
    const Node root = panel->getRootNode();
    panel.reset();
    EXPECT_TRUE(parts.isVisible());
    parts.setVisible(false);
    EXPECT_EQ(root.getChildren().size(), 3U);
}

TEST_F(PanelTest, RefusesCyclesAndStaysAsItWas)
{
    EXPECT_THROW(panel->installOnNode(panel->getRootNode(), false), Vetra::Error);
    EXPECT_THROW(panel->installOnNode(part, false), Vetra::Error);
    EXPECT_THROW(panel->installOnNode(Node(), false), Vetra::Error);
    EXPECT_THROW(panel->addNode(StringID("a"), panel->getRootNode()), Vetra::Error);
    EXPECT_EQ(panel->getRootNode().getScene(), scene.get());
    EXPECT_EQ(panel->getNode(StringID("a")), a);
    EXPECT_EQ(scale.asked, 0);
}

TEST_F(PanelTest, ShowsOnlyWhatTheAnchorHolds)
{
    RectNode parent = boxNode({25, 100});
    scene->addNode(parent);
    panel->setVAlign(VerticalAlignment::Bottom);
    panel->setPosition({2, 3});
    panel->installOnNode(parent, true);
    EXPECT_EQ(shownIn(*panel), (std::vector<std::optional<Point>>{{{1, 1}}, {{12, 1}}, {}}));
    EXPECT_EQ(panel->getBoundingRectangle(), (Rect{0, 0, 21, 10}));
    parent.setRect({0, 0, 50, 100});
    EXPECT_TRUE(c.isVisible());
    panel->setAnchorClippingRect({0, 0, 20, 20});
    EXPECT_FALSE(parts.isVisible());
    panel->setPosition({2, 14});
    EXPECT_FALSE(panel->getRootNode().isVisible());
    panel->uninstall();
    panel->forceLayout();
    EXPECT_TRUE(parts.isVisible());
}

TEST_F(PanelTest, KeepsItsLook)
{
    const DrawStyle black = panel->getRootNode().getDrawStyle();
    panel->setPanelDrawStyle(DrawStyle(Stroke(StrokeStyle::DotLine), Fill::NoFill()));
    panel->setPadding(0);
    EXPECT_EQ(panel->getRootNode().getRadius(), 1) << "no radius of 0";
    scene->pushCreationDrawStyle(DrawStyle());
    panel = new AutoLayoutPanel;
    panel->installOnSceneForStaticRender(scene.get());
    EXPECT_EQ(panel->getRootNode().getDrawStyle(), black);
    EXPECT_FALSE(panel->getRootNode().isVisible()) << "nothing to show yet";
}

} // namespace
} // namespace Tova2::LayoutTest
