#include "vetra/font.h"

#include "support.h"

namespace Vetra {
namespace {

TEST(FontTest, BadValuesAreDropped)
{
    Font font("Serif", 12, 300);
    const Font before = font;
    for (const double size : {0.0, -1.0, NaN, Infinity, 1000.001})
        font.setSize(size);
    for (const int weight : {0, 99, 901, -400})
        font.setWeight(weight);
    font.setFamily(std::string(257, 'a'));
    font.setFamily("a\nb");
    EXPECT_EQ(font, before);
    font.setSize(Font::MaxSize);
    EXPECT_EQ(font.size(), 1000);
}

TEST(FontTest, EveryHundredOfWeightSurvivesTheToolkit)
{
    for (int weight = 100; weight <= 900; weight += 100) {
        Font font("DejaVu Sans", 9.5, weight, true);
        font.setUnderline(true);
        EXPECT_EQ(fromQt(toQt(font)), font) << weight;
    }
    Font extreme("DejaVu Sans", 9, 899);
    EXPECT_EQ(fromQt(toQt(extreme)).weight(), 900);
}

TEST(FontTest, PixelSizesCountAsPoints)
{
    QFont font;
    font.setPixelSize(17);
    EXPECT_EQ(fromQt(font).size(), 17);
}

TEST(CursorTest, UnknownShapesBecomeTheArrow)
{
    EXPECT_EQ(Cursor(static_cast<CursorShape>(-1)), Cursor());
    EXPECT_EQ(Cursor(static_cast<CursorShape>(24)), Cursor());
    EXPECT_EQ(fromQt(QCursor(Qt::ClosedHandCursor)).shape(), CursorShape::ClosedHand);
    EXPECT_EQ(toQt(Cursor(CursorShape::Blank)).shape(), Qt::BlankCursor);
}

} // namespace
} // namespace Vetra
