#include "support/rows.h"
#include "tova/nodes/rectnode.h"
#include "tova/scene/scene.h"

#include <gtest/gtest.h>

#include <QImage>

#include <cmath>
#include <functional>
#include <limits>

namespace {

using namespace Tova2;
using Point = Vetra::GLPoint<double>;
using Rect = Vetra::GLRect<double>;

struct ValueUse : NamedRow {
    std::function<void(RectNode&, Scene&, double)> use;
};

const ValueUse uses[] = {
    {"PositionX", [](RectNode& n, Scene&, double v) { n.setPosition({v, 1}); }},
    {"PositionY", [](RectNode& n, Scene&, double v) { n.setPosition({1, v}); }},
    {"ScenePosition", [](RectNode& n, Scene&, double v) { n.setScenePosition({v, v}); }},
    {"Translate", [](RectNode& n, Scene&, double v) { n.translate(v, 0); }},
    {"TransformM11", [](RectNode& n, Scene&, double v) { n.setTransform({v, 0, 0, 1, 0, 0}); }},
    {"TransformM21", [](RectNode& n, Scene&, double v) { n.setTransform({1, 0, v, 1, 0, 0}); }},
    {"TransformDx", [](RectNode& n, Scene&, double v) { n.setTransform({1, 0, 0, 1, v, 0}); }},
    {"RotateDegrees", [](RectNode& n, Scene&, double v) { n.rotateDegrees(v); }},
    {"RotateRadians", [](RectNode& n, Scene&, double v) { n.rotateRadians(v); }},
    {"RotateAround", [](RectNode& n, Scene&, double v) { n.rotateDegreesAroundPoint(9, {v, 0}); }},
    {"RotateByAround", [](RectNode& n, Scene&, double v) { n.rotateRadiansAroundPoint(v, {3, 0}); }},
    {"Scale", [](RectNode& n, Scene&, double v) { n.scale(v); }},
    {"ScaleTwice", [](RectNode& n, Scene&, double v) { n.scale(v), n.scale(v); }},
    {"ScaleY", [](RectNode& n, Scene&, double v) { n.scale(1, v); }},
    {"ZValue", [](RectNode& n, Scene&, double v) { n.setZValue(v), n.toTop(), n.toBottom(); }},
    {"Opacity", [](RectNode& n, Scene&, double v) { n.setOpacity(v); }},
    {"RectX", [](RectNode& n, Scene&, double v) { n.setRect({v, 0, 5, 5}); }},
    {"RectHeight", [](RectNode& n, Scene&, double v) { n.setRect({0, 0, 5, v}); }},
    {"RectAll", [](RectNode& n, Scene&, double v) { n.setRect({v, v, v, v}); }},
    {"StrokeWidth",
     [](RectNode& n, Scene&, double v) {
         Stroke stroke = n.getStroke();
         stroke.setLogicalWidth(v);
         n.setStroke(stroke);
     }},
    {"Contains", [](RectNode& n, Scene&, double v) { n.contains({v, 1}); }},
    {"ContainsScenePoint", [](RectNode& n, Scene&, double v) { n.containsScenePoint({1, v}); }},
    {"Intersects", [](RectNode& n, Scene&, double v) { n.intersects(Rect{0, v, v, 1}); }},
    {"IntersectsBounds",
     [](RectNode& n, Scene&, double v) { n.intersects(Bounds(Rect{0, 0, v, v})); }},
    {"MapLocalToScene", [](RectNode& n, Scene&, double v) { n.mapLocalToScene(Point{v, v}); }},
    {"MapSceneToLocal",
     [](RectNode& n, Scene&, double v) { n.mapSceneToLocal(Bounds(Rect{v, v, 5, 5})); }},
    {"DeviceTransform",
     [](RectNode& n, Scene&, double v) { n.deviceTransform({v, 0, 0, v, v, v}); }},
    {"RenderAtQuality", [](RectNode& n, Scene&, double v) { n.canRenderAtLODQuality(2, v); }},
    {"RenderToPixmap",
     [](RectNode& n, Scene&, double v) {
         Point offset;
         n.renderToPixmap(CacheType::NoCache, v, offset);
         EXPECT_TRUE(std::isfinite(offset.x) && std::isfinite(offset.y));
     }},
    {"NodeAt", [](RectNode&, Scene& s, double v) { s.getNodeAt({v, 1}); }},
    {"NodeAtInView", [](RectNode&, Scene& s, double v) { s.getNodeAt({1, 1}, {v, 0, 0, v, v, 0}); }},
    {"NodesAtScenePos", [](RectNode&, Scene& s, double v) { s.getNodesAtScenePos({1, v}); }},
    {"NodesIntersectingRect",
     [](RectNode&, Scene& s, double v) { s.getNodesIntersectingRect({v, 0, v, 5}); }},
    {"NodesWithinRect",
     [](RectNode&, Scene& s, double v) { s.getNodesWithinRect({-5, -5, v, v}); }},
    {"NodesInCircleRadius",
     [](RectNode&, Scene& s, double v) { s.getNodesIntersectingCircle({0, 0}, v); }},
    {"NodesInCircleCentre",
     [](RectNode&, Scene& s, double v) { s.getNodesIntersectingCircle({v, v}, 5); }},
    {"RenderArea", [](RectNode&, Scene& s, double v) { s.render(1, {v, v, 5, 5}); }},
    {"RenderAreaSize", [](RectNode&, Scene& s, double v) { s.render(1, {0, 0, v, 5}); }},
    {"RenderScale", [](RectNode&, Scene& s, double v) { s.render(1, {0, 0, 5, 5}, v); }},
    {"RenderSource",
     [](RectNode&, Scene& s, double v) {
         QImage image(9, 9, QImage::Format_RGB32);
         s.render(image, {}, {v, 0, v, 5});
         s.render(image, {0, 0, v, v}, {0, 0, 5, 5});
     }},
};

const std::pair<const char*, double> values[] = {
    {"NaN", std::numeric_limits<double>::quiet_NaN()},
    {"Infinity", std::numeric_limits<double>::infinity()},
    {"MinusInfinity", -std::numeric_limits<double>::infinity()},
    {"Largest", std::numeric_limits<double>::max()},
    {"MinusLargest", -std::numeric_limits<double>::max()},
    {"Huge", 1e160},
    {"BeyondInt", 1e10},
    {"Denormal", std::numeric_limits<double>::denorm_min()},
    {"MinusZero", -0.0},
    {"MinusOne", -1.0},
};

std::vector<double> stateOf(const RectNode& node, Scene& scene)
{
    const Point position = node.getPosition(), scenePosition = node.getScenePosition();
    const Vetra::Transform t = node.getTransform();
    const Rect rect = node.getRect(), box = node.getBoundingRect(), all = scene.getBounds();
    return {position.x,
            position.y,
            scenePosition.x,
            scenePosition.y,
            t.m11,
            t.m12,
            t.m21,
            t.m22,
            t.dx,
            t.dy,
            rect.x,
            rect.y,
            rect.width,
            rect.height,
            box.x,
            box.y,
            box.width,
            box.height,
            all.x,
            all.y,
            all.width,
            all.height,
            node.getZValue(),
            node.getOpacity(),
            node.getContentsScaleInScene(),
            node.getStroke().logicalWidth()};
}

bool isFinite(const std::vector<double>& numbers)
{
    return std::all_of(numbers.begin(), numbers.end(), [](double v) { return std::isfinite(v); });
}

class HostileValuesTest : public testing::TestWithParam<ValueUse> {};

TEST_P(HostileValuesTest, LeaveAFiniteStateThatCanBeDrawn)
{
    for (const auto& [name, value] : values) {
        SCOPED_TRACE(name);
        const auto scene = Scene::createScene();
        RectNode node({0, 0, 10, 10}), child({1, 1, 4, 4});
        child.setParent(node);
        node.setFill(Fill(Vetra::Color::fromPacked(0xff00ff00)));
        scene->addNode(node);
        const auto before = stateOf(node, *scene);
        GetParam().use(node, *scene, value);
        const auto after = stateOf(node, *scene);
        EXPECT_TRUE(isFinite(after)) << testing::PrintToString(after);
        if (!std::isfinite(value) && std::string(GetParam().name) != "ZValue") {
            EXPECT_EQ(after, before);
        }
        EXPECT_TRUE(isFinite(stateOf(child, *scene)));
        QImage image(20, 20, QImage::Format_RGB32);
        image.fill(Qt::white);
        scene->render(image, {}, {0, 0, 20, 20});
        scene->getNodesAtScenePos({3, 3});
        scene->getNodesWithinRect({-1e9, -1e9, 2e9, 2e9});
        node.setPosition({0, 0});
        node.clearTransform();
        node.setRect({0, 0, 10, 10});
        node.setOpacity(1);
        node.setStroke(Stroke::NoStroke());
        EXPECT_EQ(scene->getNodesAtScenePos({7, 7}).size(), 1u) << "no way back";
    }
}

INSTANTIATE_TEST_SUITE_P(DoubleTaking, HostileValuesTest, testing::ValuesIn(uses), rowName);

} // namespace
