#include "pathsamples.h"

#include <gtest/gtest.h>

#include <QPainterPathStroker>

#include <cstdlib>

using namespace Tova2;

namespace {

constexpr int kWidth = 320, kHeight = 160;

/// Back and forth across the picture, so that a row meets hundreds of edges.
Points comb(int count)
{
    Points points;
    for (int i = 0; i < count; ++i)
        points.push_back({10 + i * 300.0 / count, i % 2 ? 20.0 + i % 7 : 110.0 - i % 5});
    return points;
}

struct LongLine {
    const char* name;
    StrokeJoinStyle join;
    StrokeCapStyle cap;
    double width;
    double alpha;
    bool isFilled;
    QTransform transform;
};
void PrintTo(const LongLine& line, std::ostream* out)
{
    *out << line.name;
}

class LongLineTest : public testing::TestWithParam<LongLine> {
protected:
    DrawStyle style() const
    {
        const auto& [name, join, cap, width, alpha, isFilled, transform] = GetParam();
        DrawStyle style(
            Stroke(Vetra::Color(0, 0, 0, alpha), width, StrokeStyle::SolidLine, cap, join, nullptr),
            isFilled ? Fill(Vetra::Color(0.2, 0.4, 1, alpha)) : Fill::NoFill());
        style.setIsAntiAliased(true);
        return style;
    }
};

QImage blank()
{
    QImage image(kWidth, kHeight, QImage::Format_RGB32);
    image.fill(Qt::white);
    return image;
}

QImage draw(LinearPathNode node, const QTransform& transform)
{
    QImage image = blank();
    QPainter painter(&image);
    PaintContext context(painter, QTransform(), PaintOptions{});
    context.setFillsStrokes(true);
    if (transform.isIdentity())
        context.enter(QPointF());
    else
        context.enter(transform);
    implOf(node).paintNode(context);
    return image;
}

/// All of it filled at once, by the toolkit.
QImage expected(const Points& points, const DrawStyle& style, const QTransform& transform)
{
    QPolygonF polygon;
    for (const Point& p : points)
        polygon << Vetra::toQt(p);
    const bool isFilled = !style.fill().isNoFill();
    QPainterPath path;
    path.addPolygon(polygon);
    if (isFilled)
        path.closeSubpath();
    QPainterPathStroker stroker;
    stroker.setWidth(style.stroke().logicalWidth());
    stroker.setJoinStyle(style.stroke().joinStyle() == StrokeJoinStyle::RoundJoin ? Qt::RoundJoin
                                                                                  : Qt::MiterJoin);
    stroker.setCapStyle(style.stroke().capStyle() == StrokeCapStyle::RoundCap ? Qt::RoundCap
                                                                              : Qt::FlatCap);
    stroker.setCurveThreshold(0.01);
    QPainterPath area = stroker.createStroke(path);
    area.setFillRule(Qt::WindingFill);
    QImage image = blank();
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setTransform(transform);
    if (isFilled)
        painter.fillPath(path, Vetra::toQt(style.fill().color()));
    painter.fillPath(area, Vetra::toQt(style.stroke().color()));
    return image;
}

int greatestDifference(const QImage& a, const QImage& b)
{
    int greatest = 0;
    for (int y = 0; y < a.height(); ++y) {
        for (int x = 0; x < a.width(); ++x)
            greatest = std::max({greatest, std::abs(qRed(a.pixel(x, y)) - qRed(b.pixel(x, y))),
                                 std::abs(qBlue(a.pixel(x, y)) - qBlue(b.pixel(x, y)))});
    }
    return greatest;
}

TEST_P(LongLineTest, LooksAsWhenFilledAtOnce)
{
    const Points points = comb(1500);
    LinearPathNode node =
        GetParam().isFilled ? LinearPathNode(points) : LinearPathNode(OpenLinearPathNode(points));
    node.setDrawStyle(style());
    const QTransform& transform = GetParam().transform;
    EXPECT_LE(greatestDifference(draw(node, transform), expected(points, style(), transform)), 8);
}

constexpr auto kMiter = StrokeJoinStyle::MiterJoin;
constexpr auto kFlat = StrokeCapStyle::FlatCap;
INSTANTIATE_TEST_SUITE_P(
    Paths, LongLineTest,
    testing::Values(LongLine{"Opaque", kMiter, kFlat, 1.2, 1, false, {}},
                    LongLine{"TranslucentOnceWhereItOverlaps", kMiter, kFlat, 3, 0.5, false, {}},
                    LongLine{"Round", StrokeJoinStyle::RoundJoin, StrokeCapStyle::RoundCap, 5, 0.5,
                             false, QTransform()},
                    LongLine{"Stretched", kMiter, kFlat, 1.2, 0.5, false,
                             QTransform::fromScale(1, 1.4)},
                    LongLine{"Turned", kMiter, kFlat, 2, 0.5, false,
                             QTransform::fromTranslate(20, -10).rotate(12)},
                    LongLine{"Filled", kMiter, kFlat, 1.2, 0.5, true, {}},
                    LongLine{"FilledAndTurned", kMiter, kFlat, 2, 0.5, true,
                             QTransform::fromTranslate(20, -10).rotate(12)}),
    [](const auto& row) { return std::string(row.param.name); });

} // namespace
