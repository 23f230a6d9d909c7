#include "vetra/transform.h"

#include "support.h"

namespace Vetra {
namespace {

TEST(TransformTest, AgreesWithTheToolkitOnOrderAndDirection)
{
    const auto ours = Transform::fromRotateDegrees(30) * Transform::fromScale(2, 3) *
                      Transform::fromTranslate(5, 7);
    const auto theirs =
        QTransform().rotate(30) * QTransform::fromScale(2, 3) * QTransform::fromTranslate(5, 7);
    const auto a = ours.map({11, 13});
    const auto b = theirs.map(QPointF(11, 13));
    EXPECT_NEAR(a.x, b.x(), 1e-12);
    EXPECT_NEAR(a.y, b.y(), 1e-12);
    EXPECT_EQ(fromQt(toQt(ours)), ours);
}

TEST(TransformTest, RightAnglesAreExact)
{
    EXPECT_EQ(Transform::fromRotateDegrees(-270).map({1, 2}), (GLPoint<double>{-2, 1}));
    EXPECT_EQ(Transform::fromRotateDegrees(540).map({1, 2}), (GLPoint<double>{-1, -2}));
    EXPECT_TRUE(Transform::fromRotateDegrees(720).isIdentity());
}

TEST(TransformTest, WhatCannotBeInvertedGivesTheIdentity)
{
    for (const auto& t : {Transform::fromScale(0, 1), Transform::fromScale(1e-200, 1e-200),
                          Transform::fromScale(NaN, 1), Transform::fromTranslate(Infinity, 0)}) {
        EXPECT_FALSE(t.isInvertible());
        EXPECT_TRUE(t.inverted().isIdentity());
    }
    const Transform sheared{2, 1, -3, 4, 5, 6};
    const auto back = sheared.inverted().map(sheared.map({7, 8}));
    EXPECT_NEAR(back.x, 7, 1e-12);
    EXPECT_NEAR(back.y, 8, 1e-12);
}

} // namespace
} // namespace Vetra
