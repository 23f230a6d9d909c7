#include "tova/nodes/style/effect.h"
#include "tova/style/lowcolor.h"

#include <gmock/gmock.h>

namespace Tova2 {
namespace {

using Type = Effect::Type;

static_assert(static_cast<int>(Type::Shadow) == 0 && static_cast<int>(Type::Squiggly) == 4);
static_assert(static_cast<int>(Type::Any) == 5);
static_assert(static_cast<int>(StrokeInsetType::Outer) == 2);

Effect all(const Vetra::Color& color)
{
    Effect effect;
    effect.set(Effect::Shadow(color, 1, {1, 1}, true));
    effect.set(Effect::Glow(color, 1, true, 1));
    effect.set(Effect::Overlay(color));
    effect.set(Effect::Trace(Stroke(StrokeStyle::DashLine), StrokeInsetType::Outer));
    effect.set(Effect::Squiggly(color));
    return effect;
}

std::vector<int> kinds(const Effect& effect)
{
    std::vector<int> present;
    for (int kind = 0; kind <= static_cast<int>(Type::Any); ++kind)
        if (effect.isValid(static_cast<Type>(kind)))
            present.push_back(kind);
    return present;
}

using testing::ElementsAre;
using testing::IsEmpty;

TEST(EffectTest, EachKindHasItsSlot)
{
    EXPECT_THAT(kinds(Effect()), IsEmpty());
    EXPECT_THAT(kinds(Effect::createEffect(Effect::Shadow())), ElementsAre(0, 5));
    EXPECT_THAT(kinds(Effect::createEffect(Effect::Glow(red, 1, true, 1))), ElementsAre(1, 5));
    EXPECT_THAT(kinds(Effect::createEffect(Effect::Overlay(red))), ElementsAre(2, 5));
    EXPECT_THAT(
        kinds(Effect::createEffect(Effect::Trace(Stroke::NoStroke(), StrokeInsetType::Inner))),
        ElementsAre(3, 5));
    EXPECT_THAT(kinds(Effect::createEffect(Effect::Squiggly(red))), ElementsAre(4, 5));
}

TEST(EffectTest, ClearingTheLastLeavesTheEmptyEffect)
{
    Effect effect = all(red);
    effect.clear(Type::Any);
    EXPECT_THAT(kinds(effect), ElementsAre(0, 1, 2, 3, 4, 5));
    for (int kind = 0; kind < 5; ++kind) {
        EXPECT_TRUE(effect.isValid(static_cast<Type>(kind)));
        effect.clear(static_cast<Type>(kind));
        EXPECT_FALSE(effect.isValid(static_cast<Type>(kind)));
    }
    EXPECT_EQ(effect, Effect());
    effect.clear(Type::Glow);
    EXPECT_TRUE(effect.isEmpty());
}

TEST(EffectTest, CopiesAreDeepAndMovesLeaveNothing)
{
    Effect effect = all(red);
    Effect copy = effect;
    EXPECT_EQ(copy, effect);
    copy.set(Effect::Overlay(blue));
    EXPECT_EQ(effect.overlay()->color, red);
    EXPECT_NE(copy, effect);
    copy = *&copy;
    EXPECT_EQ(copy.overlay()->color, blue);
    effect = std::move(copy);
    EXPECT_EQ(effect.overlay()->color, blue);
    copy = Effect();
    EXPECT_TRUE(copy.isEmpty());
    // A record of its own.
    effect.set(*effect.shadow());
    EXPECT_EQ(effect.shadow()->color, red);
}

TEST(EffectTest, CombiningTakesOverWhatTheOtherHas)
{
    Effect mine = Effect::createEffect(Effect::Overlay(red));
    mine.set(Effect::Squiggly(red));
    Effect theirs = Effect::createEffect(Effect::Overlay(blue));
    theirs.set(Effect::Shadow());
    mine.combine(theirs);
    EXPECT_THAT(kinds(mine), ElementsAre(0, 2, 4, 5));
    EXPECT_EQ(mine.overlay()->color, blue);
    EXPECT_EQ(mine.squiggly()->color, red);
    const Effect before = mine;
    mine.combine(Effect());
    mine.combine(mine);
    EXPECT_EQ(mine, before);
    Effect none;
    none.combine(Effect());
    EXPECT_TRUE(none.isEmpty());
}

TEST(EffectRecordsTest, ValuesAreBroughtIntoTheirLimits)
{
    EXPECT_EQ(Effect::Shadow(red, 50, {300, -300}, false),
              Effect::Shadow(red, 20, {100, -100}, false));
    EXPECT_EQ(Effect::Shadow(red, -1, {0, 0}, false).spread, 0);
    const Effect::Glow glow(red, -1, true, 250);
    EXPECT_EQ(glow.spread, 0);
    EXPECT_EQ(glow.gain, 100);
    EXPECT_EQ(Effect::Glow(red, 21, true, -5).spread, 20);
    EXPECT_EQ(Effect::Glow(red, 0, true, -5).gain, 0);
    EXPECT_EQ(Effect::Glow(red, 0, true, std::nan("")).gain, 0);
}

TEST(EffectRecordsTest, FieldsSetDirectlyAreLimitedOnDemandAndWhenSet)
{
    Effect::Shadow shadow;
    shadow.spread = 1'000'000;
    shadow.distance = {-1000, 1000};
    EXPECT_EQ(Effect::createEffect(shadow).shadow()->spread, 20);
    shadow.enforceInputValueBoundaries();
    EXPECT_EQ(shadow.spread, 20);
    EXPECT_EQ(shadow.distance, (Vetra::GLPoint<int>{-100, 100}));
}

TEST(EffectRecordsTest, DefaultShadowIsBlackAtSixtyFivePercent)
{
    const Effect::Shadow shadow;
    EXPECT_EQ(shadow, Effect::Shadow(0.65, 3, {2, 2}, true));
    EXPECT_EQ(shadow.color.packed(), 0xa6000000); // 0.65 * 255 = 165.75
}

} // namespace
} // namespace Tova2
