#include "vetra/shape.h"

#include "support.h"

#include <functional>

namespace Vetra {
namespace {

struct BadCall : NamedRow {
    std::function<void(Shape&, double)> call;
};
class ShapeBadNumberTest : public testing::TestWithParam<BadCall> {};

TEST_P(ShapeBadNumberTest, HasNoEffect)
{
    for (const double bad : {NaN, Infinity, -Infinity}) {
        Shape shape;
        shape.addRect({0, 0, 10, 10});
        const Shape before = shape;
        GetParam().call(shape, bad);
        EXPECT_EQ(shape, before) << bad;
    }
}

using Point = GLPoint<double>;
using Rect = GLRect<double>;

INSTANTIATE_TEST_SUITE_P(
    Shape, ShapeBadNumberTest,
    testing::Values(
        BadCall{"MoveTo", [](Shape& s, double v) { s.moveTo(Point(v, 0)); }},
        BadCall{"LineTo", [](Shape& s, double v) { s.lineTo(Point(0, v)); }},
        BadCall{"QuadTo", [](Shape& s, double v) { s.quadTo(Point(v, 0), Point(1, 1)); }},
        BadCall{"CubicTo", [](Shape& s, double v) { s.cubicTo(Point(), Point(v, 0), Point()); }},
        BadCall{"ArcTo", [](Shape& s, double v) { s.arcTo(Rect(0, 0, 1, 1), v, 90); }},
        BadCall{"AddRect", [](Shape& s, double v) { s.addRect(Rect(0, 0, v, 1)); }},
        BadCall{"AddEllipse", [](Shape& s, double v) { s.addEllipse(Rect(v, 0, 1, 1)); }},
        BadCall{"AddRounded", [](Shape& s, double v) { s.addRoundedRect(Rect(0, 0, 1, 1), v, 1); }},
        BadCall{"AddPolygon",
                [](Shape& s, double v) { s.addPolygon(std::vector(1, Point(v, v))); }}),
    rowName);

TEST(ShapeTest, HugeNumbersNeverMakeItInfinite)
{
    constexpr double huge = 1.7e308;
    Shape shape;
    shape.moveTo({-huge, huge});
    shape.quadTo({huge, -huge}, {-huge, -huge});
    shape.addRect({huge, huge, huge, huge});
    shape.addShape(shape.transformed(Transform::fromScale(1e10, 1e10)));
    shape.arcTo({0, 0, 1, 1}, 1e300, -1e300);
    for (const auto& element : shape.elements())
        EXPECT_TRUE(std::isfinite(element.point.x) && std::isfinite(element.point.y));
}

TEST(ShapeTest, PaintsAPathOfEveryKind)
{
    Shape shape;
    shape.lineTo({10, 0});
    shape.cubicTo({10, 5}, {5, 10}, {0, 10});
    shape.closeSubpath();
    using enum Shape::ElementType;
    EXPECT_THAT(
        shape.elements(),
        testing::ElementsAre(Shape::Element{MoveTo, {0, 0}}, Shape::Element{LineTo, {10, 0}},
                             Shape::Element{CubicTo, {10, 5}}, Shape::Element{CubicData, {5, 10}},
                             Shape::Element{CubicData, {0, 10}}, Shape::Element{LineTo, {0, 0}}));
    EXPECT_EQ(fromQt(toQt(shape)), shape);
}

TEST(ShapeTest, EqualityIsExactAndCopiesAreIndependent)
{
    Shape large;
    large.addRect({0, 0, 1e6, 1e6});
    Shape nearly;
    nearly.addRect({0, 0, 1e6, 1e6 + 1e-7});
    EXPECT_NE(large, nearly);
    const Shape copy = large;
    large.setFillRule(Shape::FillRule::Winding);
    EXPECT_NE(large, copy);
    EXPECT_EQ(copy.fillRule(), Shape::FillRule::OddEven);
}

TEST(ShapeTest, FillRuleDecidesWhatIsInside)
{
    Shape shape;
    shape.addRect({0, 0, 10, 10});
    shape.addRect({2, 2, 6, 6});
    EXPECT_FALSE(shape.contains({5, 5}));
    shape.setFillRule(Shape::FillRule::Winding);
    EXPECT_TRUE(shape.contains({5, 5}));
    EXPECT_FALSE(shape.contains({NaN, 5}));
}

TEST(ShapeTest, APathWithABadElementIsEmpty)
{
    QPainterPath path;
    path.addRect(0, 0, 10, 10);
    path.setElementPositionAt(2, NaN, 0);
    EXPECT_TRUE(fromQt(path).isEmpty());
    EXPECT_EQ(fromQt(path), Shape());
}

} // namespace
} // namespace Vetra
