#include "host/cooperativetaskmanager.h"
#include "tova/tova.h"

#include <gmock/gmock.h>

#include <QImage>

#include <algorithm>

using namespace Tova2;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;
using testing::UnorderedElementsAre;

namespace Vetra {
void PrintTo(const GLPoint<double>& p, std::ostream* out)
{
    *out << p.x << ',' << p.y;
}
} // namespace Vetra

namespace {

using Point = Vetra::GLPoint<double>;

class CrossingSceneTest : public testing::Test {
protected:
    OpenLinearPathNode add(const std::vector<Point>& points, const Node& parent = {})
    {
        OpenLinearPathNode path(points);
        DrawStyle style(Stroke(Vetra::Color(0, 0, 0), 1, StrokeStyle::SolidLine,
                               StrokeCapStyle::FlatCap, StrokeJoinStyle::MiterJoin, nullptr),
                        Fill());
        style.setIsAntiAliased(true);
        path.setDrawStyle(style);
        if (parent.isValid())
            path.setParent(parent);
        else
            m_scene->addNode(path);
        return path;
    }
    QImage picture()
    {
        m_scene->findPathIntersections();
        QImage image(100, 100, QImage::Format_RGB32);
        image.fill(Qt::white);
        m_scene->render(image, {}, {0, 0, 100, 100});
        return image;
    }

    Vetra::Holder<Scene> m_scene = Scene::createScene();
    OpenLinearPathNode m_across = add({{0, 50}, {100, 50}});
    OpenLinearPathNode m_down = add({{50, 0}, {50, 100}});
};

TEST_F(CrossingSceneTest, WhatIsFoundIsThereForAllAtOnce)
{
    std::vector<OpenLinearPathNode> columns;
    for (int i = 0; i < 20; ++i)
        columns.push_back(add({{i + 10.5, 0}, {i + 10.5, 100}}));
    auto& manager = Host::CooperativeTaskManager::instance();
    while (!m_scene->pathIntersectionsAllFound()) {
        EXPECT_THAT(m_across.intersectionPointsRaw(), IsEmpty());
        manager.runSlice(Host::TaskBudget::steps(1));
    }
    EXPECT_THAT(m_across.intersectionPointsRaw(), SizeIs(21));
    EXPECT_THAT(columns[19].intersectionPointsRaw(), SizeIs(1));
    m_scene->removeNode(columns[18]); // before anything has been handed to it
    m_scene->addNode(columns[18]);
    EXPECT_THAT(columns[18].intersectionPointsRaw(), IsEmpty());
    manager.runAll();
    EXPECT_THAT(columns[18].intersectionPointsRaw(), SizeIs(1));
    EXPECT_THAT(columns[17].intersectionPointsRaw(), SizeIs(1));
}

TEST_F(CrossingSceneTest, FollowsEdits)
{
    const auto other = Scene::createScene();
    other->addNode(OpenLinearPathNode({{0, 50}, {100, 50}}));
    EXPECT_FALSE(m_scene->pathIntersectionsAllFound());
    m_scene->findPathIntersections();
    EXPECT_TRUE(m_scene->pathIntersectionsAllFound());
    EXPECT_FALSE(other->pathIntersectionsAllFound()) << "what nobody asked for waits its turn";
    EXPECT_THAT(m_across.intersectionPointsRaw(), ElementsAre(Point{50, 50}));
    m_down.setPosition({20, 0});
    m_scene->findPathIntersections();
    EXPECT_THAT(m_across.intersectionPointsRaw(), ElementsAre(Point{70, 50}));
    m_down.setPoint(1, {50, 40});
    m_scene->findPathIntersections();
    EXPECT_THAT(m_across.intersectionPointsRaw(), IsEmpty());
}

TEST_F(CrossingSceneTest, FollowsWhatBecomesOfNodes)
{
    ContainerNode group;
    m_scene->addNode(group);
    auto inside = add({{0, 0}, {0, 100}}, group);
    group.setPosition({30, 0});
    const auto found = [&] {
        m_scene->findPathIntersections();
        return m_across.intersectionPointsRaw();
    };
    EXPECT_THAT(found(), UnorderedElementsAre(Point{30, 50}, Point{50, 50}));
    group.setVisible(false);
    EXPECT_THAT(found(), SizeIs(1));
    group.setVisible(true);
    group.rotateDegrees(90);
    EXPECT_THAT(found(), SizeIs(1)) << "both level now";
    group.rotateDegrees(-60);
    EXPECT_THAT(found(), SizeIs(1)) << "slanted lines take no part";
    group.rotateDegrees(-30);
    inside.addTag(pathIntersectionsEnabledTag(), false);
    EXPECT_THAT(found(), SizeIs(1));
    inside.removeTag(pathIntersectionsEnabledTag());
    EXPECT_THAT(found(), SizeIs(2));
    m_down.removeAndRelease();
    EXPECT_THAT(found(), ElementsAre(Point{30, 50}));
    m_scene->removeNode(m_across);
    EXPECT_THAT(m_across.intersectionPointsRaw(), IsEmpty());
    EXPECT_EQ(m_scene->pathIntersectionsCount(), 1u);
    m_scene->findPathIntersections();
    EXPECT_EQ(m_scene->pathIntersectionsCount(), 0u);
}

TEST_F(CrossingSceneTest, SwitchedOffClearsAndSwitchedOnFindsAgain)
{
    const QImage marked = picture();
    m_scene->setPathIntersectionsEnabled(false);
    EXPECT_THAT(m_down.intersectionPointsRaw(), IsEmpty());
    const QImage plain = picture();
    EXPECT_NE(marked, plain);
    m_scene->setPathIntersectionsEnabled(true);
    EXPECT_EQ(picture(), marked);
    m_scene->usePathIntersectionsDecorator("Hop");
    EXPECT_EQ(m_scene->pathIntersectionsDecoratorName(), "");
    EXPECT_EQ(picture(), plain);
    EXPECT_THAT(m_down.intersectionPointsRaw(), SizeIs(1)) << "found, if not drawn";
    EXPECT_THAT(m_down.intersectionPoints(), IsEmpty());
}

struct RoomCase {
    const char* name;
    const char* decorator;
    double end; ///< of the line that runs down, which begins 50 above the crossing
    bool isDrawn;
};
void PrintTo(const RoomCase& c, std::ostream* out)
{
    *out << c.name;
}
class CrossingRoomTest : public CrossingSceneTest, public testing::WithParamInterface<RoomCase> {};

// Both lines are 1 wide, so a pin takes 2 + 0.5 on the line that is cut, and a hop 3.5 + 1.
TEST_P(CrossingRoomTest, LeavesOutWhatIsTooCloseToAnEnd)
{
    m_scene->usePathIntersectionsDecorator(GetParam().decorator);
    m_down.setPoint(1, {50, GetParam().end});
    m_scene->findPathIntersections();
    EXPECT_THAT(m_down.intersectionPointsRaw(), SizeIs(1));
    EXPECT_THAT(m_down.intersectionPoints(), SizeIs(GetParam().isDrawn ? 1 : 0));
}

INSTANTIATE_TEST_SUITE_P(Scene, CrossingRoomTest,
                         testing::Values(RoomCase{"PinAtItsLimit", "pin", 52.5, false},
                                         RoomCase{"PinWithRoom", "pin", 52.51, true},
                                         RoomCase{"LightPinNeedsOneMore", "light_pin", 53.4, false},
                                         RoomCase{"LightPinWithRoom", "light_pin", 53.6, true},
                                         RoomCase{"HopAtItsLimit", "hop", 54.5, false},
                                         RoomCase{"HopWithRoom", "hop", 54.51, true}));

TEST_F(CrossingSceneTest, DrawsNoMarkInACutCorner)
{
    m_scene->usePathIntersectionsDecorator("hop");
    auto bent = add({{10, 44}, {80, 44}, {80, 100}});
    m_scene->findPathIntersections();
    EXPECT_THAT(bent.intersectionPointsRaw(), UnorderedElementsAre(Point{50, 44}, Point{80, 50}));
    EXPECT_THAT(bent.intersectionPoints(), SizeIs(2));
    bent.setCornerStyle(CornerStyle::Rounded);
    bent.setRoundedCornerRadius(5);
    EXPECT_THAT(bent.intersectionPoints(), ElementsAre(Point{50, 44}));
}

TEST_F(CrossingSceneTest, ReportsACrossingWithItselfOnceForEachRecordAndDrawsItOnce)
{
    m_scene->usePathIntersectionsDecorator("pin");
    auto knot = add({{10, 20}, {40, 20}, {40, 5}, {25, 5}, {25, 40}});
    m_scene->findPathIntersections();
    EXPECT_THAT(knot.intersectionPointsRaw(), ElementsAre(Point{25, 20}, Point{25, 20}));
    EXPECT_THAT(knot.intersectionPoints(), ElementsAre(Point{25, 20}));
}

TEST_F(CrossingSceneTest, MarksClosedPathsToo)
{
    m_scene->usePathIntersectionsDecorator("");
    LinearPathNode frame({{20, 20}, {80, 20}, {80, 80}, {20, 80}});
    m_scene->addNode(frame);
    const QImage plain = picture();
    m_scene->usePathIntersectionsDecorator("light_pin");
    const QImage marked = picture();
    EXPECT_EQ(qRed(plain.pixel(80, 47)), 0);
    EXPECT_EQ(qRed(marked.pixel(80, 47)), 255) << "its right side, just above the line across";
}

// The bulge lies beyond the line's own bounds: what it painted has to go with it.
TEST_F(CrossingSceneTest, HopsAreInsideWhatIsRepainted)
{
    m_scene->usePathIntersectionsDecorator("hop");
    m_scene->findPathIntersections();
    QImage right(40, 20, QImage::Format_RGB32);
    right.fill(Qt::white);
    // Only what lies right of the line's own pixels.
    m_scene->render(right, {}, {50.6, 45, 8, 4});
    int ink = 0;
    for (int y = 0; y < right.height(); ++y) {
        for (int x = 0; x < right.width(); ++x)
            ink += qRed(right.pixel(x, y)) < 100;
    }
    EXPECT_GT(ink, 5);
}

} // namespace
