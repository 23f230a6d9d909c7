#include "vetra/color.h"

#include "support.h"

namespace Vetra {
namespace {

TEST(ColorTest, ChannelsAreRoundedAndClamped)
{
    EXPECT_EQ(Color(0, 1, 0, 0.5).packed(), 0x8000ff00u);
    EXPECT_EQ(Color(-1, 2, NaN, Infinity).packed(), 0xff00ff00u);
    EXPECT_EQ(Color().packed(), 0xff000000u);
}

TEST(ColorTest, SurvivesTheToolkitWithItsAlpha)
{
    for (const auto packed : {0u, 0x01020304u, 0xffffffffu, 0x80ff0001u})
        EXPECT_EQ(fromQt(toQt(Color::fromPacked(packed))).packed(), packed);
}

} // namespace
} // namespace Vetra
