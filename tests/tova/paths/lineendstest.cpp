#include "pathsamples.h"

#include "nodes/nodechangesink.h"

#include "vetra/error.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>

namespace Tova2 {
namespace {

Point sceneTip(const Node& node)
{
    return node.mapLocalToScene(Point{0, 0});
}

/// The direction in which the node's own x axis points in the scene.
Point sceneDirection(const Node& node)
{
    return node.mapLocalToScene(Point{1, 0}) - sceneTip(node);
}

struct Ends {
    const char* name;
    Point start, startDirection, end, endDirection;
};

template <class Line>
void expectEnds(const Line& line, const Ends& expected)
{
    const Node start = line.getStartDecoration().getNode();
    const Node end = line.getEndDecoration().getNode();
    EXPECT_EQ(sceneTip(start), expected.start) << expected.name;
    EXPECT_EQ(sceneDirection(start), expected.startDirection) << expected.name;
    EXPECT_EQ(sceneTip(end), expected.end) << expected.name;
    EXPECT_EQ(sceneDirection(end), expected.endDirection) << expected.name;
}

template <class Line>
void decorate(Line& line)
{
    line.setStartDecoration(LineEndDecoration(RectNode({-4, -2, 4, 4})));
    line.setEndDecoration(LineEndDecoration(RectNode({-4, -2, 4, 4})));
}

TEST(LineEnds, PointOutwardsAndFollowAllThreeKinds)
{
    LineNode line({0, 0}, {30, 0});
    decorate(line);
    expectEnds(line, {"line", {0, 0}, {-1, 0}, {30, 0}, {1, 0}});
    line.setEnd({0, 20});
    expectEnds(line, {"line turned", {0, 0}, {0, -1}, {0, 20}, {0, 1}});

    OpenLinearPathNode path({{0, 0}, {0, 0}, {0, 10}, {30, 10}, {30, 10}});
    decorate(path);
    path.setPosition({100, 0});
    expectEnds(path, {"doubled points have no direction", {100, 0}, {0, -1}, {130, 10}, {1, 0}});
    path.append({30, 0});
    expectEnds(path, {"appended", {100, 0}, {0, -1}, {130, 0}, {0, -1}});
    path.setPoint(0, {5, 0});
    expectEnds(path, {"first point", {105, 0}, {1, 0}, {130, 0}, {0, -1}});
    path.setPoints({{7, 7}});
    expectEnds(path, {"one point keeps the turn", {107, 7}, {1, 0}, {107, 7}, {0, -1}});

    OpenCurvedPathNode curve({{{0, 0}, {0, 20}, {}}, {{40, 0}, {}, {-20, 0}}});
    decorate(curve);
    expectEnds(curve, {"along the tangents", {0, 0}, {0, -1}, {40, 0}, {1, 0}});
    curve.setVertexBackwardTangent(1, {0, 0}); // then from the last control point that differs
    curve.setVertexForwardTangent(0, {40, 20});
    expectEnds(curve, {"without a tangent",
                       {0, 0},
                       sceneDirection(curve.getStartDecoration().getNode()),
                       {40, 0},
                       {0, -1}});
}

TEST(LineEnds, AnEarlierDecorationLeavesTheScene)
{
    auto scene = Scene::createScene();
    OpenLinearPathNode path({{0, 0}, {30, 0}});
    scene->addNode(path);
    decorate(path);
    const Node first = path.getEndDecoration().getNode();
    EXPECT_EQ(first.getParent(), path);
    EXPECT_EQ(first.getScene(), path.getScene());
    path.setEndDecoration(LineEndDecoration(EllipseNode()));
    EXPECT_EQ(first.getScene(), nullptr);
    EXPECT_FALSE(first.getParent().isValid());
    EXPECT_EQ(path.getChildren().size(), 2u);
    path.setEndDecoration(path.getStartDecoration()); // one node at both ends
    path.setStartDecoration(LineEndDecoration());
    EXPECT_EQ(path.getEndDecoration().getNode().getParent(), path);
    EXPECT_EQ(path.getChildren().size(), 1u);
    scene->destroy();
}

TEST(LineEnds, AnEarlierDecorationOutsideAnySceneIsLetGo)
{
    LineNode line({0, 0}, {30, 0});
    decorate(line);
    const Node first = line.getEndDecoration().getNode();
    line.setEndDecoration(LineEndDecoration());
    EXPECT_FALSE(first.getParent().isValid());
}

TEST(LineEnds, TheirNodesLiveAndDieWithTheLine)
{
    Node kept;
    {
        OpenCurvedPathNode curve({{{0, 0}, {}, {}}, {{40, 0}, {}, {}}});
        decorate(curve);
        kept = curve.getEndDecoration().getNode();
        EXPECT_EQ(kept.getParent(), curve);
    }
    EXPECT_FALSE(kept.getParent().isValid());
    EXPECT_EQ(sceneTip(kept), (Point{40, 0}));
}

TEST(LineEnds, ARefusedNodeChangesNothing)
{
    ContainerNode group;
    OpenLinearPathNode path({{0, 0}, {30, 0}});
    path.setParent(group);
    decorate(path);
    const LineEndDecoration before = path.getEndDecoration();
    for (const Node& refused : {Node(path), Node(group)}) {
        EXPECT_THROW(path.setEndDecoration(LineEndDecoration(refused)), Vetra::Error);
        EXPECT_EQ(path.getEndDecoration(), before);
        path.getMutableEndDecoration().setNode(refused);
        EXPECT_THROW(path.onChangedDecorationProperties(), Vetra::Error);
        EXPECT_EQ(path.getEndDecoration(), before);
    }
}

TEST(LineEnds, ChangesInPlaceAreDrawnWhenTold)
{
    LineNode line({0, 0}, {30, 0});
    decorate(line);
    const Node node = line.getEndDecoration().getNode();
    line.getMutableEndDecoration().setOrigin({3, 0});
    EXPECT_EQ(sceneTip(node), (Point{30, 0}));
    line.onChangedDecorationProperties();
    EXPECT_EQ(sceneTip(node), (Point{27, 0}));
    line.getMutableEndDecoration().setReferenceDirection({0, 1});
    line.onChangedDecorationProperties();
    EXPECT_EQ(line.getEndDecoration().getRotation(), -90);
    EXPECT_EQ(sceneTip(node), (Point{30, 3}));
}

TEST(LineEnds, WhatTheHostTakesAwayStaysAwayUntilCalledBack)
{
    OpenCurvedPathNode curve({{{0, 0}, {}, {}}, {{40, 0}, {}, {}}});
    decorate(curve);
    Node node = curve.getEndDecoration().getNode();
    node.unparent();
    curve.translate({5, 0});
    EXPECT_EQ(sceneTip(node), (Point{40, 0}));
    curve.updateDecorations();
    EXPECT_EQ(node.getParent(), curve);
    EXPECT_EQ(sceneTip(node), (Point{45, 0}));
}

TEST(LineEnds, AHandlerMayEditTheLineWhileDecorationsMove)
{
    struct Editor final : NodeChangeSink {
        void nodeChanged(NodeImpl&, ChangeLevel) override
        {
            if (left-- > 0)
                edit();
        }
        std::function<void()> edit;
        int left = 0;
    } editor;
    auto path = std::make_unique<OpenLinearPathNode>(Points{{0, 0}, {30, 0}});
    decorate(*path);
    Node start = path->getStartDecoration().getNode(), end = path->getEndDecoration().getNode();
    implOf(start).setChangeSink(&editor);
    editor.left = 1;
    editor.edit = [&] { path->setPoints({{1, 1}, {1, 50}}); };
    path->setPoints({{5, 5}, {30, 5}});
    EXPECT_EQ(sceneTip(start), (Point{1, 1}));
    EXPECT_EQ(sceneTip(end), (Point{1, 50}));
    editor.left = 1;
    editor.edit = [&] { path->setStartDecoration(LineEndDecoration()); };
    path->setPoints({{5, 5}, {30, 5}});
    EXPECT_EQ(sceneTip(end), (Point{30, 5}));
    path->setStartDecoration(LineEndDecoration(start));
    editor.left = 1;
    editor.edit = [&] { path.reset(); };
    OpenLinearPathNode(*path).setPoints({{8, 8}, {30, 8}});
    EXPECT_EQ(path, nullptr);
    implOf(start).setChangeSink(nullptr);
}

struct ReadyCase {
    const char* name;
    bool isHollow;
    std::function<LineEndDecoration(const Stroke&, double)> make;
    friend void PrintTo(const ReadyCase& row, std::ostream* out) { *out << row.name; }
};
class ReadyEndingTest : public testing::TestWithParam<ReadyCase> {};

using HollowEnding = LineEndDecoration(const Stroke&, double, const std::optional<Vetra::Color>&);

ReadyCase solid(const char* name, HollowEnding* make)
{
    return {name, false,
            [make](const Stroke& line, double length) { return make(line, length, std::nullopt); }};
}

ReadyCase hollow(const char* name, HollowEnding* make)
{
    return {name, true, [make](const Stroke& line, double length) {
                return make(line, length, Vetra::Color::fromPacked(0xffffffff));
            }};
}

// The line comes from the left and ends at (60, 0): nothing may be drawn beyond, and no gap be
// left.
TEST_P(ReadyEndingTest, EndsWhereTheLineEndsAndLeavesNoGap)
{
    constexpr QSize kSheet(200, 100);
    struct Size {
        double width, length, zoom;
    };
    for (const auto [width, length, zoom] :
         {Size{1, 20, 1}, Size{3, 20, 1}, Size{4, 0, 1}, Size{6, 8, 1}, Size{0, 5, 4}}) {
        OpenLinearPathNode path({{-60, 0}, {60, 0}});
        path.setDrawStyle(lineStyle(width));
        path.setEndDecoration(GetParam().make(path.getStroke(), length));
        auto scene = Scene::createScene();
        scene->addNode(path);
        QImage image(kSheet, QImage::Format_ARGB32_Premultiplied);
        image.fill(Qt::white);
        scene->render(image, {0, 0, 200, 100},
                      {60 - 160 / zoom, -50 / zoom, 200 / zoom, 100 / zoom});
        EXPECT_LE(touched(image).right(), width > 0 ? 60.5 : 61) << width;
        EXPECT_GE(touched(image).right(), 58.5) << width;
        for (int x = 50; x < 157; ++x) {
            const bool isDark = qGray(image.pixel(x, 49)) < 160 || qGray(image.pixel(x, 50)) < 160;
            EXPECT_TRUE(isDark || (GetParam().isHollow && x > 132)) << x << ", width " << width;
        }
        scene->destroy();
    }
}

INSTANTIATE_TEST_SUITE_P(
    Endings, ReadyEndingTest,
    testing::Values(ReadyCase{"FilledArrow", false, LineEndings::createFilledArrow},
                    ReadyCase{"OpenArrow", false, LineEndings::createOpenArrow},
                    solid("Triangle", LineEndings::createTriangle),
                    hollow("HollowTriangle", LineEndings::createTriangle),
                    solid("InvertedTriangle", LineEndings::createInvertedTriangle),
                    hollow("HollowInvertedTriangle", LineEndings::createInvertedTriangle),
                    solid("Diamond", LineEndings::createDiamond),
                    hollow("HollowDiamond", LineEndings::createDiamond),
                    solid("Dot", LineEndings::createDot),
                    hollow("HollowDot", LineEndings::createDot),
                    solid("Box", LineEndings::createBox),
                    hollow("HollowBox", LineEndings::createBox),
                    ReadyCase{"Bar", false, LineEndings::createBar},
                    ReadyCase{"CrowsFoot", false, LineEndings::createCrowsFoot}),
    [](const auto& row) { return std::string(row.param.name); });

} // namespace
} // namespace Tova2
