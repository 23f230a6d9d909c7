#include "shapesamples.h"

#include "support/rows.h"
#include "tova/nodes/ellipsenode.h"
#include "tova/nodes/fancyroundedrectnode.h"
#include "tova/nodes/linenode.h"
#include "tova/nodes/roundedrectnode.h"
#include "tova/nodes/shapenode.h"
#include "vetra/qt.h"

#include <QPainterPathStroker>

#include <functional>

namespace Tova2 {
namespace {

Fill solidFill()
{
    return Fill(Vetra::Color::fromPacked(0xff808080));
}

/// Round joins and caps, so that the stroke is what lies within half its width.
DrawStyle roundStyle(double width, bool isFilled)
{
    DrawStyle style = styleOf(width, StrokeStyle::SolidLine, StrokeCapStyle::RoundCap,
                              StrokeJoinStyle::RoundJoin);
    if (isFilled)
        style.setFill(solidFill());
    return style;
}

QPainterPath strokeOf(const QPainterPath& path, double width)
{
    QPainterPathStroker stroker;
    stroker.setWidth(width);
    stroker.setCapStyle(Qt::RoundCap);
    stroker.setJoinStyle(Qt::RoundJoin);
    stroker.setCurveThreshold(0.01);
    return stroker.createStroke(path);
}

using Predicate = std::function<bool(const QPointF&)>;

/// On a grid over all of it and some way around; where the expected answer is not the same for all
/// that is near, either will do.
void expectSame(const Node& node, const Predicate& expected, const std::string& name,
                double tolerance = 0.2)
{
    int count = 0;
    for (double y = -50.37; y < 50; y += 1.7) {
        for (double x = -55.61; x < 55; x += 1.7) {
            const QPointF p(x, y), right(tolerance, 0), down(0, tolerance);
            const bool isIn = expected(p);
            if (expected(p + right) != isIn || expected(p - right) != isIn ||
                expected(p + down) != isIn || expected(p - down) != isIn)
                continue;
            EXPECT_EQ(node.contains(Vetra::fromQt(p)), isIn) << name << " at " << x << ", " << y;
            count += isIn;
        }
    }
    EXPECT_GT(count, 0) << name;
}

TEST(ShapeHit, AgreesWithTheStrokedPath)
{
    for (const auto& sample : shapeSamples()) {
        const ShapeNode node(Vetra::fromQt(sample.path));
        for (const bool isFilled : {false, true}) {
            if (sample.name == "Dot")
                continue; // the toolkit's stroker leaves it out
            const_cast<ShapeNode&>(node).setDrawStyle(roundStyle(9, isFilled));
            const QPainterPath stroke = strokeOf(sample.path, 9);
            expectSame(
                node,
                [&](const QPointF& p) {
                    return stroke.contains(p) || (isFilled && sample.path.contains(p));
                },
                sample.name + (isFilled ? ", filled" : ""));
        }
    }
}

TEST(ShapeHit, FollowsTheFillRule)
{
    QPainterPath star = shapeSamples()[7].path;
    for (const auto rule : {Qt::OddEvenFill, Qt::WindingFill}) {
        star.setFillRule(rule);
        ShapeNode node(Vetra::fromQt(star));
        node.setDrawStyle(DrawStyle(Stroke::NoStroke(), solidFill()));
        EXPECT_EQ(node.contains({0, 0}), rule == Qt::WindingFill);
        EXPECT_EQ(node.intersects(Vetra::GLRect<double>{-1, -1, 2, 2}), rule == Qt::WindingFill);
        EXPECT_TRUE(node.contains({0, -20}));
    }
}

TEST(ShapeHit, RectanglesMeetWhatTheStrokedPathMeets)
{
    for (const auto& sample : shapeSamples()) {
        if (sample.name == "Dot")
            continue;
        for (const bool isFilled : {false, true}) {
            ShapeNode node(Vetra::fromQt(sample.path));
            node.setDrawStyle(roundStyle(3, isFilled));
            const QPainterPath inner = strokeOf(sample.path, 2.8),
                               outer = strokeOf(sample.path, 3.2);
            for (double y = -45; y < 45; y += 4.3) {
                for (double x = -45; x < 45; x += 4.7) {
                    const QRectF rect(x, y, 5.5, 3.5);
                    const bool isInside = isFilled && sample.path.intersects(rect);
                    const bool isMet = node.intersects(Vetra::fromQt(rect));
                    EXPECT_TRUE(isMet || !(isInside || inner.intersects(rect)))
                        << sample.name << " misses " << x << ", " << y;
                    EXPECT_TRUE(!isMet || isInside || outer.intersects(rect))
                        << sample.name << " takes " << x << ", " << y;
                    EXPECT_TRUE(!isMet ||
                                node.intersects(Bounds(std::vector<Vetra::GLPoint<double>>{
                                    {x, y}, {x + 6, y}, {x + 6, y + 3.5}, {x, y + 4}})));
                }
            }
        }
    }
}

TEST(ShapeHit, BasicShapesAreHitInsideWithoutAFill)
{
    const Vetra::GLRect<double> rect{-40, -20, 80, 40};
    RoundedRectNode rounded(rect, 12);
    FancyRoundedRectNode fancy(rect, 30, 10, 25, 0); // the left side is too short for 30 and 25
    EllipseNode ellipse(Ellipse(Vetra::GLRect<double>{-30, -25, 60, 50}));
    for (Node* const node :
         {static_cast<Node*>(&rounded), static_cast<Node*>(&fancy), static_cast<Node*>(&ellipse)})
        node->setDrawStyle(styleOf(4, StrokeStyle::SolidLine, StrokeCapStyle::FlatCap,
                                   StrokeJoinStyle::MiterJoin));

    QPainterPath path;
    path.addRoundedRect(Vetra::toQt(rect).adjusted(-2, -2, 2, 2), 14, 14);
    expectSame(
        rounded, [&](const QPointF& p) { return path.contains(p); }, "rounded");

    path = QPainterPath();
    path.addEllipse(-32, -27, 64, 54);
    expectSame(
        ellipse, [&](const QPointF& p) { return path.contains(p); }, "ellipse");

    const double f = 40.0 / 55; // by which all four radii shrink
    const QRectF hull = Vetra::toQt(rect).adjusted(-2, -2, 2, 2);
    const auto isOffCorner = [&](const QPointF& p, double x, double y, double r) {
        const double dx = std::abs(p.x() - x), dy = std::abs(p.y() - y);
        return dx < r && dy < r && std::hypot(r - dx, r - dy) > r;
    };
    expectSame(
        fancy,
        [&](const QPointF& p) {
            return hull.contains(p) && !isOffCorner(p, hull.left(), hull.top(), 30 * f + 2) &&
                   !isOffCorner(p, hull.right(), hull.top(), 10 * f + 2) &&
                   !isOffCorner(p, hull.left(), hull.bottom(), 25 * f + 2);
        },
        "fancy");
}

struct LineHitCase : NamedRow {
    StrokeCapStyle cap;
    Vetra::GLPoint<double> point;
    bool isHit;
};
class LineHitTest : public testing::TestWithParam<LineHitCase> {};

// From (0, 0) to (30, 40), 10 wide.
TEST_P(LineHitTest, EndsWhereItsCapsEnd)
{
    LineNode line({0, 0}, {30, 40});
    line.setDrawStyle(
        styleOf(10, StrokeStyle::SolidLine, GetParam().cap, StrokeJoinStyle::MiterJoin));
    EXPECT_EQ(line.contains(GetParam().point), GetParam().isHit);
}

INSTANTIATE_TEST_SUITE_P(
    Lines, LineHitTest,
    testing::Values(LineHitCase{"OnIt", StrokeCapStyle::FlatCap, {15, 20}, true},
                    LineHitCase{"WithinHalfTheWidth", StrokeCapStyle::FlatCap, {18.9, 17.1}, true},
                    LineHitCase{"BeyondHalfTheWidth", StrokeCapStyle::FlatCap, {19.1, 16.9}, false},
                    LineHitCase{"FlatStopsAtTheEnd", StrokeCapStyle::FlatCap, {31, 41}, false},
                    LineHitCase{"SquareGoesOn", StrokeCapStyle::SquareCap, {32.9, 43.9}, true},
                    LineHitCase{"SquareStops", StrokeCapStyle::SquareCap, {33.1, 44.1}, false},
                    LineHitCase{"SquareHasCorners", StrokeCapStyle::SquareCap, {36, 41}, true},
                    LineHitCase{"RoundGoesOn", StrokeCapStyle::RoundCap, {32.9, 43.9}, true},
                    LineHitCase{"RoundHasNoCorners", StrokeCapStyle::RoundCap, {36, 41}, false}),
    rowName);

class LineBandTest : public testing::TestWithParam<StrokeCapStyle> {};

TEST_P(LineBandTest, RectanglesMeetWhatTheLineCovers)
{
    const bool isRound = GetParam() == StrokeCapStyle::RoundCap;
    LineNode line({-30, -20}, {25, 10});
    line.setDrawStyle(styleOf(8, StrokeStyle::SolidLine, GetParam(), StrokeJoinStyle::MiterJoin));
    QPainterPathStroker stroker(
        QPen(Qt::black, 8, Qt::SolidLine, isRound ? Qt::RoundCap : Qt::SquareCap));
    const QPainterPath band =
        stroker.createStroke(polygonOf({{-30, -20}, {25, 10}}, false)).simplified();
    int met = 0;
    for (double y = -45; y < 45; y += 2.3) {
        for (double x = -55; x < 55; x += 2.7) {
            const QRectF rect(x, y, 6.5, 3.5);
            EXPECT_EQ(line.intersects(Vetra::fromQt(rect)), band.intersects(rect))
                << x << ", " << y;
            met += band.intersects(rect);
        }
    }
    EXPECT_GT(met, 100);
}

INSTANTIATE_TEST_SUITE_P(Lines, LineBandTest,
                         testing::Values(StrokeCapStyle::SquareCap, StrokeCapStyle::RoundCap));

TEST(ShapeHit, RadiiThatDoNotFitShrinkTogether)
{
    FancyRoundedRectNode node({0, 0, 100, 40}, 60, 20, 20, 0); // the left side holds 80: half
    node.setStroke(Stroke::NoStroke());
    EXPECT_EQ(node.getTopLeftCornerRadius(), 60.0);
    const auto cut = [](double radius) { return radius * (1 - std::sqrt(0.5)); };
    EXPECT_FALSE(node.contains({cut(30) - 0.1, cut(30) - 0.1}));
    EXPECT_TRUE(node.contains({cut(30) + 0.1, cut(30) + 0.1}));
    EXPECT_FALSE(node.contains({100 - cut(10) + 0.1, cut(10) - 0.1}));
    EXPECT_TRUE(node.contains({100 - cut(10) - 0.1, cut(10) + 0.1}));
    EXPECT_TRUE(node.contains({100, 40}));
}

TEST(ShapeHit, WhatDrawsNothingIsNotHit)
{
    ShapeNode shape(Vetra::fromQt(shapeSamples()[0].path));
    shape.setStroke(Stroke::NoStroke());
    EXPECT_FALSE(shape.contains({0, -20}));
    LineNode line({0, 0}, {10, 0});
    line.setStroke(Stroke::NoStroke());
    EXPECT_FALSE(line.contains({5, 0}));
    EXPECT_FALSE(EllipseNode().contains({0, 0}));
    EXPECT_FALSE(RoundedRectNode({0, 0, -10, 10}, 3).contains({-5, 5}));
}

} // namespace
} // namespace Tova2
