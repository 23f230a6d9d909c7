#include "pathsamples.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>

namespace Tova2 {
namespace {

constexpr QSize kSheet(200, 160);

QPolygonF polygonOf(const Points& points)
{
    QPolygonF polygon;
    for (const Point& p : points)
        polygon << QPointF(p.x, p.y);
    return polygon;
}

QPen penFor(double width, const QColor& color = Qt::black)
{
    return QPen(color, width, Qt::SolidLine, Qt::FlatCap, Qt::MiterJoin);
}

QImage drawn(const std::function<void(QPainter&)>& draw, double scale = 1)
{
    QImage image(kSheet, QImage::Format_RGB32);
    image.fill(Qt::white);
    QPainter painter(&image);
    painter.setTransform(centredIn(kSheet, scale));
    painter.setRenderHint(QPainter::Antialiasing);
    draw(painter);
    return image;
}

// The filled stroke against the toolkit's own, at several widths and scales.
TEST(PathPaint, LinesAreTheToolkitsToTheLevel)
{
    for (const auto& sample : linearSamples()) {
        for (const auto join : {StrokeJoinStyle::MiterJoin, StrokeJoinStyle::BevelJoin}) {
            for (const auto cap : {StrokeCapStyle::FlatCap, StrokeCapStyle::SquareCap}) {
                for (const double width : {0.0, 1.0, 2.5, 3.0, 9.0}) {
                    for (const double scale : {0.37, 1.0, 2.0}) {
                        const DrawStyle style = lineStyle(width, StrokeStyle::SolidLine, cap, join);
                        OpenLinearPathNode open(sample.points);
                        LinearPathNode closed(sample.points);
                        open.setDrawStyle(style);
                        closed.setDrawStyle(style);
                        QPen pen = penFor(width);
                        pen.setJoinStyle(join == StrokeJoinStyle::MiterJoin ? Qt::MiterJoin
                                                                            : Qt::BevelJoin);
                        pen.setCapStyle(cap == StrokeCapStyle::FlatCap ? Qt::FlatCap
                                                                       : Qt::SquareCap);
                        const auto expect = [&](const Node& node, auto draw, const char* kind) {
                            const QImage expected = drawn(
                                [&](QPainter& p) {
                                    p.setPen(pen);
                                    draw(p);
                                },
                                scale);
                            EXPECT_LE(mostDifference(pictureOf(node, kSheet, scale), expected), 1)
                                << sample.name << ", " << kind << ", join " << int(join) << ", cap "
                                << int(cap) << ", width " << width << ", scale " << scale;
                        };
                        const QPolygonF points = polygonOf(sample.points);
                        expect(
                            open, [&](QPainter& p) { p.drawPolyline(points); }, "open");
                        expect(
                            closed, [&](QPainter& p) { p.drawPolygon(points); }, "closed");
                    }
                }
            }
        }
    }
}

TEST(PathPaint, AClosedPathIsFilledAndAnOpenOneIsNot)
{
    const Points star{{0, -30}, {18, 25}, {-29, -9}, {29, -9}, {-18, 25}};
    DrawStyle style = lineStyle(3);
    style.setFill(Fill(Vetra::Color::fromPacked(0xffa0c0e0)));
    LinearPathNode closed(star);
    OpenLinearPathNode open(star);
    closed.setDrawStyle(style);
    open.setDrawStyle(style);
    open.setCornerStyle(CornerStyle::Rounded);
    const QImage expected = drawn([&](QPainter& p) {
        p.setPen(penFor(3));
        p.setBrush(QColor(0xa0, 0xc0, 0xe0));
        p.drawPolygon(polygonOf(star));
    });
    EXPECT_LE(mostDifference(pictureOf(closed, kSheet), expected), 1);
    const QRgb inside = pictureOf(open, kSheet).pixel(100, 66);
    EXPECT_EQ(inside, 0xffffffff);
}

TEST(PathPaint, EachSegmentHasItsStrokeAndEqualOnesAreJoined)
{
    const Points points{{-60, -30}, {0, -30}, {0, 30}, {60, 30}, {60, -30}};
    const Stroke red(Vetra::Color::fromPacked(0xffff0000), 10, StrokeStyle::SolidLine,
                     StrokeCapStyle::FlatCap, StrokeJoinStyle::MiterJoin, nullptr);
    OpenLinearPathNode node(points);
    node.setDrawStyle(lineStyle(4)); // for the last two segments
    node.setStrokes({red, red});
    const QImage expected = drawn([&](QPainter& p) {
        p.setPen(penFor(10, Qt::red));
        p.drawPolyline(polygonOf({points[0], points[1], points[2]}));
        p.setPen(penFor(4));
        p.drawPolyline(polygonOf({points[2], points[3], points[4]}));
    });
    EXPECT_LE(mostDifference(pictureOf(node, kSheet), expected), 1);
}

// The last segment and the first are one line around the first point.
TEST(PathPaint, AClosedPathJoinsEqualStrokesAroundItsStart)
{
    const Points points{{-30, -30}, {30, -30}, {30, 30}, {-30, 30}};
    const Stroke wide = lineStyle(12).stroke();
    LinearPathNode node(points);
    node.setDrawStyle(lineStyle(2));
    node.setStrokes({wide, Stroke::NoStroke(), lineStyle(2).stroke(), wide});
    const QImage expected = drawn([&](QPainter& p) {
        p.setPen(penFor(12));
        p.drawPolyline(polygonOf({points[3], points[0], points[1]}));
        p.setPen(penFor(2));
        p.drawPolyline(polygonOf({points[2], points[3]}));
    });
    EXPECT_LE(mostDifference(pictureOf(node, kSheet), expected), 1);
}

TEST(PathPaint, DashesGoOnAroundCorners)
{
    const Points points{{-61, -30}, {2, -30}, {2, 30}, {60, 30}};
    OpenLinearPathNode node(points);
    node.setDrawStyle(lineStyle(3, StrokeStyle::DashLine));
    const Stroke own = node.getStroke();
    node.setStrokes({own, own}); // equal to the last segment's
    const QImage expected = drawn([&](QPainter& p) {
        p.setPen(QPen(Qt::black, 3, Qt::DashLine, Qt::FlatCap, Qt::MiterJoin));
        p.drawPolyline(polygonOf(points));
    });
    EXPECT_LE(mostDifference(pictureOf(node, kSheet), expected), 1);
}

struct CornerCase {
    const char* name;
    CornerStyle style;
    double radius;
    void (*draw)(QPainterPath&);
    friend void PrintTo(const CornerCase& row, std::ostream* out) { *out << row.name; }
};
class CornerTest : public testing::TestWithParam<CornerCase> {};

// From (-50, -20) by (0, -20), (0, 0) to (60, 0): the middle segment is 20 long.
TEST_P(CornerTest, TakesAtMostHalfTheShorterNeighbour)
{
    OpenLinearPathNode node({{-50, -20}, {0, -20}, {0, 0}, {60, 0}});
    node.setDrawStyle(lineStyle(4));
    node.setCornerStyle(GetParam().style);
    node.setRoundedCornerRadius(GetParam().radius);
    QPainterPath path(QPointF(-50, -20));
    GetParam().draw(path);
    path.lineTo(60, 0);
    const QImage expected = drawn([&](QPainter& p) {
        p.setPen(penFor(4));
        p.drawPath(path);
    });
    EXPECT_LE(mostDifference(pictureOf(node, kSheet), expected), 4);
}

INSTANTIATE_TEST_SUITE_P(Paths, CornerTest,
                         testing::Values(CornerCase{"RoundedIsACircle", CornerStyle::Rounded, 6,
                                                    [](QPainterPath& p) {
                                                        p.arcTo(-12, -20, 12, 12, 90, -90);
                                                        p.arcTo(0, -12, 12, 12, 180, 90);
                                                    }},
                                         CornerCase{"RoundedTooFar", CornerStyle::Rounded, 100,
                                                    [](QPainterPath& p) {
                                                        p.arcTo(-20, -20, 20, 20, 90, -90);
                                                        p.arcTo(0, -20, 20, 20, 180, 90);
                                                    }},
                                         CornerCase{"Bevel", CornerStyle::Bevel, 6,
                                                    [](QPainterPath& p) {
                                                        p.lineTo(-6, -20);
                                                        p.lineTo(0, -14);
                                                        p.lineTo(0, -6);
                                                        p.lineTo(6, 0);
                                                    }},
                                         CornerCase{"RadiusOfZeroIsSharp", CornerStyle::Rounded, 0,
                                                    [](QPainterPath& p) {
                                                        p.lineTo(0, -20);
                                                        p.lineTo(0, 0);
                                                    }}),
                         [](const auto& row) { return std::string(row.param.name); });

TEST(PathPaint, CurvesAreCubicsBetweenVertices)
{
    const std::vector<Vertex> vertices{{{-50, 0}, {20, -60}, {-20, 60}},
                                       {{40, -20}, {10, 30}, {-30, -30}},
                                       {{0, 40}, {-30, 0}, {30, 10}}};
    CurvedPathNode closed(vertices);
    OpenCurvedPathNode open(vertices);
    DrawStyle style = lineStyle(3);
    style.setFill(Fill(Vetra::Color::fromPacked(0xffa0c0e0)));
    closed.setDrawStyle(style);
    open.setDrawStyle(style);
    QPainterPath path(QPointF(-50, 0));
    path.cubicTo(-30, -60, 10, -50, 40, -20);
    path.cubicTo(50, 10, 30, 50, 0, 40);
    const auto draw = [&](QPainter& p) {
        p.setPen(QPen(Qt::black, 3, Qt::SolidLine, Qt::FlatCap, Qt::MiterJoin));
        p.drawPath(path);
    };
    EXPECT_LE(mostDifference(pictureOf(open, kSheet), drawn(draw)), 1);
    path.cubicTo(-30, 40, -70, 60, -50, 0);
    path.closeSubpath();
    EXPECT_LE(mostDifference(pictureOf(closed, kSheet), drawn([&](QPainter& p) {
                                 p.setBrush(QColor(0xa0, 0xc0, 0xe0));
                                 draw(p);
                             })),
              1);
}

// A path with many points is drawn in parts; each part must look as it does in the whole.
TEST(PathPaint, WhatIsExposedOfALongPathLooksAsInTheWhole)
{
    Points zigzag;
    QPolygonF whole;
    for (int i = 0; i < 3000; ++i) {
        zigzag.push_back({(i % 100) * 13.0 - 600, (i / 100) * 9.0 - 100 + (i % 2) * 5});
        whole << QPointF(zigzag.back().x, zigzag.back().y);
    }
    for (const auto line : {StrokeStyle::SolidLine, StrokeStyle::DashLine}) {
        for (const auto corners : {CornerStyle::Sharp, CornerStyle::Rounded}) {
            OpenLinearPathNode node(zigzag);
            node.setDrawStyle(lineStyle(2, line));
            node.setCornerStyle(corners);
            node.setRoundedCornerRadius(2);
            const QImage part = pictureOf(node, kSheet, 1, false);
            // Without an exposed area nothing is left out.
            QImage all(kSheet, QImage::Format_RGB32);
            all.fill(Qt::white);
            QPainter painter(&all);
            PaintContext context(painter, centredIn(kSheet), PaintOptions());
            context.enter(QPointF());
            implOf(node).paintNode(context);
            EXPECT_LE(mostDifference(part, all), 3) << int(line) << ", " << int(corners);
            EXPECT_FALSE(touched(part).isEmpty());
        }
    }
}

TEST(PathPaint, BackoffShortensTheLineAlongItsWay)
{
    OpenLinearPathNode node({{-40, 0}, {20, 0}, {20, 10}, {60, 10}});
    node.setDrawStyle(lineStyle(4));
    node.setStrokes({node.getStroke(), lineStyle(8).stroke()});
    LineEndDecoration decoration{ContainerNode()};
    decoration.setLineBackoff(5);
    node.setStartDecoration(decoration);
    LineEndDecoration long_{ContainerNode()};
    long_.setLineBackoff(45); // the last segment and half of the one before
    node.setEndDecoration(long_);
    const QImage expected = drawn([](QPainter& p) {
        p.setPen(penFor(4));
        p.drawLine(QPointF(-35, 0), QPointF(20, 0));
        p.setPen(penFor(8));
        p.drawLine(QPointF(20, 0), QPointF(20, 5));
    });
    EXPECT_LE(mostDifference(pictureOf(node, kSheet), expected), 1);
    EXPECT_FALSE(node.contains({40, 10}));
    EXPECT_TRUE(node.contains({-30, 0}));

    node.getMutableStartDecoration().setLineBackoff(80);
    EXPECT_TRUE(node.contains({-30, 0})); // not told yet
    node.onChangedDecorationProperties();
    EXPECT_TRUE(touched(pictureOf(node, kSheet)).isEmpty());
    EXPECT_FALSE(node.contains({-30, 0}));
}

TEST(PathPaint, ACurveIsShortenedAlongItself)
{
    OpenCurvedPathNode node(
        {{{-40, 0}, {20, 0}, {}}, {{20, 0}, {10, 0}, {-20, 0}}, {{60, 0}, {}, {-10, 0}}});
    node.setDrawStyle(lineStyle(4));
    LineEndDecoration decoration{ContainerNode()};
    decoration.setLineBackoff(10);
    node.setStartDecoration(decoration);
    decoration = LineEndDecoration{ContainerNode()};
    decoration.setLineBackoff(50);
    node.setEndDecoration(decoration);
    const QRectF painted = touched(pictureOf(node, kSheet));
    EXPECT_NEAR(painted.left(), -30, 1);
    EXPECT_NEAR(painted.right(), 10, 1);
}

} // namespace
} // namespace Tova2
