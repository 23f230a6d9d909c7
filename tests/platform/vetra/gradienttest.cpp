#include "vetra/gradient.h"

#include "support.h"

namespace Vetra {
namespace {

static_assert(sizeof(Gradient) == sizeof(void*));

const Color red(1, 0, 0), blue(0, 0, 1);

Gradient makeRadial()
{
    auto gradient = Gradient::radial({3, 4}, 5, {2, 1});
    gradient.setSpread(Gradient::Spread::Reflect);
    gradient.setCoordinateMode(Gradient::CoordinateMode::ObjectBounding);
    gradient.setStops({{0, red}, {1, blue}});
    return gradient;
}

TEST(GradientTest, StopsAreOrderedAndBadOnesDropped)
{
    Gradient gradient;
    for (const double offset : {1.0, 0.0, 0.5, -0.01, 1.01, NaN, Infinity})
        gradient.addStop(offset, red);
    gradient.addStop(0.5, blue);
    EXPECT_THAT(gradient.stops(),
                testing::ElementsAre(Gradient::Stop{0, red}, Gradient::Stop{0.5, blue},
                                     Gradient::Stop{1, red}));
}

TEST(GradientTest, AWriteLeavesCopiesAlone)
{
    auto gradient = makeRadial();
    const auto copy = gradient;
    gradient.addStop(0.5, red);
    gradient.setSpread(Gradient::Spread::Pad);
    EXPECT_EQ(copy, makeRadial());
    EXPECT_NE(gradient, copy);
    gradient.setStops(gradient.stops());
    EXPECT_EQ(gradient.stops().size(), 3u);
}

TEST(GradientTest, EqualityLooksAtValuesNotAtRecords)
{
    EXPECT_EQ(makeRadial(), makeRadial());
    EXPECT_EQ(Gradient::linear({0, 0}, {1, 1}), Gradient());
    EXPECT_NE(Gradient::conical({0, 0}, 1), Gradient::conical({0, 0}, 2));
}

TEST(GradientTest, BadGeometryGivesTheEmptyGradient)
{
    EXPECT_EQ(Gradient::linear({NaN, 0}, {1, 1}), Gradient());
    EXPECT_EQ(Gradient::radial({0, 0}, 0), Gradient());
    EXPECT_EQ(Gradient::radial({0, 0}, NaN), Gradient());
    EXPECT_EQ(Gradient::conical({0, 0}, Infinity), Gradient());
}

TEST(GradientTest, EveryKindSurvivesTheToolkit)
{
    auto linear = Gradient::linear({1, 2}, {3, 4});
    linear.addStop(0.25, blue);
    auto conical = Gradient::conical({1, 2}, 30);
    conical.addStop(0.25, Color(0, 1, 0, 0.5));
    conical.setSpread(Gradient::Spread::Repeat);
    auto plain = Gradient();
    plain.addStop(0, red);
    for (const auto& gradient : {linear, conical, plain, makeRadial()})
        EXPECT_EQ(fromQt(*toQt(gradient).gradient()), gradient);
    EXPECT_EQ(toQt(Gradient()).style(), Qt::NoBrush);
}

TEST(GradientTest, ToolkitGradientsWithBadNumbersAreEmpty)
{
    QLinearGradient linear(NaN, 0, 1, 1);
    QRadialGradient radial(QPointF(0, 0), -1);
    for (QGradient* gradient :
         {static_cast<QGradient*>(&linear), static_cast<QGradient*>(&radial)}) {
        gradient->setColorAt(0, Qt::red);
        EXPECT_EQ(fromQt(*gradient), Gradient());
    }
}

} // namespace
} // namespace Vetra
