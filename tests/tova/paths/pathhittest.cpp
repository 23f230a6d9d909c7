#include "pathsamples.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QPainterPathStroker>

#include <functional>
#include <random>

namespace Tova2 {
namespace {

/// Round joins and caps: what lies within half the width.
QPainterPath strokeOf(const QPainterPath& path, double width)
{
    QPainterPathStroker stroker;
    stroker.setWidth(width);
    stroker.setCapStyle(Qt::RoundCap);
    stroker.setJoinStyle(Qt::RoundJoin);
    stroker.setCurveThreshold(0.01);
    return stroker.createStroke(path);
}

/// On a grid; where the expected answer is not the same for all that is near, either will do.
void expectSame(const Node& node, const std::function<bool(const QPointF&)>& expected,
                const std::string& name)
{
    constexpr double tolerance = 0.2;
    int count = 0;
    for (double y = -50.37; y < 50; y += 1.9) {
        for (double x = -75.61; x < 75; x += 1.9) {
            const QPointF p(x, y), right(tolerance, 0), down(0, tolerance);
            const bool isIn = expected(p);
            if (expected(p + right) != isIn || expected(p - right) != isIn ||
                expected(p + down) != isIn || expected(p - down) != isIn)
                continue;
            EXPECT_EQ(node.contains({x, y}), isIn) << name << " at " << x << ", " << y;
            count += isIn;
        }
    }
    EXPECT_GT(count, 0) << name;
}

QPainterPath lineThrough(const Points& points)
{
    QPainterPath path(QPointF(points[0].x, points[0].y));
    for (std::size_t i = 1; i < points.size(); ++i)
        path.lineTo(points[i].x, points[i].y);
    return path;
}

TEST(PathHit, AgreesWithTheStrokedPath)
{
    for (const auto& sample : linearSamples()) {
        OpenLinearPathNode open(sample.points);
        open.setDrawStyle(lineStyle(7));
        QPainterPath path = lineThrough(sample.points);
        const QPainterPath stroke = strokeOf(path, 7);
        expectSame(
            open, [&](const QPointF& p) { return stroke.contains(p); }, sample.name);

        LinearPathNode closed(sample.points);
        DrawStyle style = lineStyle(7);
        style.setFill(Fill(Vetra::Color::fromPacked(0xff808080)));
        closed.setDrawStyle(style);
        path.closeSubpath();
        const QPainterPath ring = strokeOf(path, 7);
        expectSame(
            closed, [&](const QPointF& p) { return ring.contains(p) || path.contains(p); },
            sample.name + ", closed");
    }
}

TEST(PathHit, FollowsCutCornersAndCurves)
{
    OpenLinearPathNode rounded({{-60, -30}, {0, -30}, {0, 30}, {60, 30}});
    rounded.setDrawStyle(lineStyle(3));
    rounded.setRoundedCornerRadius(30);
    QPainterPath arcs(QPointF(-60, -30));
    arcs.arcTo(-60, -30, 60, 60, 90, -90);
    arcs.arcTo(0, -30, 60, 60, 180, 90);
    arcs.lineTo(60, 30);
    QPainterPath cuts = lineThrough({{-60, -30}, {-30, -30}, {0, 0}, {30, 30}, {60, 30}});
    for (const auto& [corner, path] :
         {std::pair(CornerStyle::Rounded, arcs), std::pair(CornerStyle::Bevel, cuts)}) {
        rounded.setCornerStyle(corner);
        const QPainterPath stroke = strokeOf(path, 3);
        expectSame(
            rounded, [&](const QPointF& p) { return stroke.contains(p); },
            "corner " + std::to_string(int(corner)));
    }

    CurvedPathNode curve({{{-50, 0}, {20, -60}, {-20, 60}}, {{40, -20}, {10, 30}, {-30, -30}}});
    curve.setDrawStyle(lineStyle(5));
    QPainterPath path(QPointF(-50, 0));
    path.cubicTo(-30, -60, 10, -50, 40, -20);
    path.cubicTo(50, 10, -70, 60, -50, 0);
    const QPainterPath stroke = strokeOf(path, 5);
    expectSame(
        curve, [&](const QPointF& p) { return stroke.contains(p); }, "curve");
}

TEST(PathHit, EachSegmentIsAsWideAsItsOwnStroke)
{
    OpenLinearPathNode node({{0, 0}, {100, 0}, {100, 100}, {0, 100}});
    node.setDrawStyle(lineStyle(2));
    node.setStrokes({lineStyle(20).stroke(), Stroke::NoStroke()});
    EXPECT_TRUE(node.contains({50, 9}));
    EXPECT_FALSE(node.contains({50, 11}));
    EXPECT_FALSE(node.contains({100, 50}));
    EXPECT_TRUE(node.contains({50, 100.9}));
    EXPECT_FALSE(node.contains({50, 102}));
    EXPECT_TRUE(node.intersects(Vetra::GLRect<double>{40, 8, 5, 5}));
    EXPECT_FALSE(node.intersects(Vetra::GLRect<double>{95, 40, 10, 5}));
    EXPECT_FALSE(node.intersects(Vetra::GLRect<double>{40, 88, 5, 10}));
}

// Long paths are tested by boxes of neighbouring segments; short ones segment by segment.
TEST(PathHit, ALongPathAnswersAsItsSegmentsDo)
{
    std::mt19937 random(7);
    std::uniform_real_distribution<double> coordinate(-500, 500);
    Points points;
    for (int i = 0; i < 400; ++i)
        points.push_back({coordinate(random), coordinate(random)});
    DrawStyle style = lineStyle(3);
    style.setFill(Fill(Vetra::Color::fromPacked(0xff808080)));
    LinearPathNode whole(points);
    whole.setDrawStyle(style);
    QPainterPath inside = lineThrough(points);
    std::vector<OpenLinearPathNode> segments;
    for (std::size_t i = 0; i < points.size(); ++i) {
        segments.emplace_back(Points{points[i], points[(i + 1) % points.size()]});
        segments.back().setDrawStyle(lineStyle(3));
    }
    int hits = 0;
    for (int i = 0; i < 500; ++i) {
        const Point p{coordinate(random), coordinate(random)};
        const Vetra::GLRect<double> rect{p.x, p.y, 2.5, 1.5};
        bool isHit = inside.contains(QPointF(p.x, p.y)), isMet = isHit;
        for (const auto& segment : segments) {
            isHit |= segment.contains(p);
            isMet |= segment.intersects(rect);
        }
        EXPECT_EQ(whole.contains(p), isHit) << p.x << ", " << p.y;
        EXPECT_TRUE(!isMet || whole.intersects(rect)) << p.x << ", " << p.y;
        hits += isHit;
    }
    EXPECT_GT(hits, 50);
    EXPECT_LT(hits, 450);
}

TEST(PathHit, AMillionPointsDoNotFreeze)
{
    OpenLinearPathNode node;
    for (int i = 0; i < 1'000'000; ++i)
        node.append({i * 0.5, (i % 2) * 40.0});
    node.setDrawStyle(lineStyle(0.1));
    EXPECT_EQ(node.pointsCount(), 1'000'000);
    EXPECT_TRUE(node.contains({1000, 0}));
    EXPECT_FALSE(node.contains({1000, 20}));
    EXPECT_TRUE(node.intersects(Vetra::GLRect<double>{1000, 10, 3, 3}));
    EXPECT_TRUE(node.intersects(Bounds(std::vector<Point>{{1000, 10}, {1003, 10}, {1002, 13}})));
    EXPECT_FALSE(touched(pictureOf(node, {200, 160})).isEmpty());
    node.setDrawStyle(lineStyle(0));
    EXPECT_FALSE(touched(pictureOf(node, {200, 160}, 0.0004)).isEmpty());
}

TEST(PathHit, WhatDrawsNothingIsNotHit)
{
    OpenLinearPathNode open({{0, 0}});
    EXPECT_FALSE(open.contains({0, 0}));
    open.append({10, 0});
    EXPECT_TRUE(open.contains({5, 0}));
    open.setStroke(Stroke::NoStroke());
    EXPECT_FALSE(open.contains({5, 0}));
    LinearPathNode closed({{0, 0}, {10, 0}, {10, 10}});
    closed.setStroke(Stroke::NoStroke());
    EXPECT_FALSE(closed.contains({8, 4}));
    closed.setFill(Fill(Vetra::Color::fromPacked(0xff000000)));
    EXPECT_TRUE(closed.contains({8, 4}));
    EXPECT_FALSE(LinearPathNode().contains({0, 0}));
    EXPECT_FALSE(CurvedPathNode().intersects(Vetra::GLRect<double>{-1, -1, 2, 2}));
}

// Beyond what the toolkit draws exactly, rectangles answer.
TEST(PathHit, HugeCoordinatesHaveADefinedResult)
{
    for (const double huge : {1e13, 1e160, 1e308}) {
        OpenLinearPathNode node({{-huge, 0}, {huge, 0}, {huge, huge}});
        node.setCornerStyle(CornerStyle::Rounded);
        node.setDrawStyle(lineStyle(2));
        EXPECT_TRUE(node.contains({0, 0}));
        EXPECT_FALSE(node.contains({0, -1e6}) && huge < 1e14);
        pictureOf(node, {200, 160});
        CurvedPathNode curve({{{-huge / 4, 0}, {huge / 4, 1}, {}}, {{huge / 4, 0}, {}, {1, 1}}});
        curve.setDrawStyle(lineStyle(2));
        EXPECT_TRUE(curve.contains({0, 0}));
        pictureOf(curve, {200, 160});
    }
}

} // namespace
} // namespace Tova2
