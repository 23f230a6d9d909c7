#include "tova/nodes/textnode.h"

#include "contentsamples.h"

#include "support/rows.h"
#include "tova/nodes/geometry/limits.h"

namespace Tova2 {
namespace {

TextNode textOf(const std::string& text, double size = 20)
{
    TextNode node(text);
    node.setFont(Vetra::Font("DejaVu Sans", size));
    return node;
}

struct TextCase : NamedRow {
    std::string text;
    std::string kept; ///< as `getText` answers
};
class TextRepairTest : public testing::TestWithParam<TextCase> {};

TEST_P(TextRepairTest, KeepsValidTextAndItsInkInBounds)
{
    const TextNode node = textOf(GetParam().text);
    EXPECT_EQ(node.getText(), GetParam().kept);
    EXPECT_TRUE(boundsCoverInk(node, QTransform::fromTranslate(300.3, 200.6)));
    EXPECT_TRUE(boundsCoverInk(node, QTransform(1.7, 0.4, -0.4, 1.7, 300.5, 100)));
}

INSTANTIATE_TEST_SUITE_P(
    TextNode, TextRepairTest,
    testing::Values(TextCase{"Plain", "Wavy fjord", "Wavy fjord"},
                    TextCase{"BlankLinesBetween",
                             "a\n\r\n\rb\xe2\x80\xa8"
                             "c",
                             "a\n\r\n\rb\xe2\x80\xa8"
                             "c"},
                    TextCase{"RightToLeft", "\u0645\u0631\u062d\u0628\u0627 42",
                             "\u0645\u0631\u062d\u0628\u0627 42"},
                    TextCase{"IdeographsOfAnotherFont", "\u6c34\u706b", "\u6c34\u706b"},
                    TextCase{"StackedMarks", "a\u0301\u0302\u0303\u0304\u0323",
                             "a\u0301\u0302\u0303\u0304\u0323"},
                    TextCase{"BeyondTheBasicPlane", "\U0001d49c", "\U0001d49c"},
                    TextCase{"LoneByte",
                             "a\xff"
                             "b",
                             "a\ufffd"
                             "b"},
                    TextCase{"EncodedSurrogate", "\xed\xa0\x80!", "\ufffd\ufffd\ufffd!"},
                    TextCase{"CutInTheMiddle", "x\xe6\xb0", "x\ufffd\ufffd"},
                    TextCase{"ZeroByte", std::string("a\0b", 3), std::string("a\0b", 3)}),
    rowName);

struct LimitCase : NamedRow {
    std::string text;
    std::size_t bytes;
};
class TextLimitTest : public testing::TestWithParam<LimitCase> {};

TEST_P(TextLimitTest, CutsAtACharacterAndSaysSo)
{
    TextNode node(GetParam().text);
    const std::string text = node.getText();
    EXPECT_EQ(text.size(), GetParam().bytes);
    EXPECT_EQ(text.ends_with("\u2026"),
              GetParam().text.size() > Limits::textBytes || GetParam().text[0] == '\xff');
    node.setText(text);
    EXPECT_EQ(node.getText(), text) << "cut again";
}

std::string twoByteLetters(std::size_t bytes)
{
    std::string text;
    while (text.size() < bytes)
        text += "\u00e9";
    return text;
}

INSTANTIATE_TEST_SUITE_P(
    TextNode, TextLimitTest,
    testing::Values(
        LimitCase{"AtTheLimit", std::string(Limits::textBytes, 'a'), Limits::textBytes},
        LimitCase{"OneBeyond", std::string(Limits::textBytes + 1, 'a'), Limits::textBytes},
        LimitCase{"InTheMiddleOfALetter", twoByteLetters(2 * Limits::textBytes),
                  Limits::textBytes - 1},
        LimitCase{"GrownByRepair", std::string(Limits::textBytes, '\xff'), Limits::textBytes - 1}),
    rowName);

TEST(TextNodeTest, LongLinesAndManyLinesEndInAnEllipsis)
{
    const auto widthOf = [](int letters) {
        return textOf(std::string(letters, 'i'), 10).getNaturalSize().width;
    };
    EXPECT_NEAR(widthOf(Limits::textRun), widthOf(64) * Limits::textRun / 64, 1);
    const double ellipsis = textOf("\u2026", 10).getNaturalSize().width;
    EXPECT_NEAR(widthOf(Limits::textRun + 1), widthOf(Limits::textRun - 1) + ellipsis, 1);
    EXPECT_EQ(widthOf(3 * Limits::textRun), widthOf(Limits::textRun + 1));

    const auto heightOf = [](int lines) {
        return textOf(std::string(lines - 1, '\n'), 10).getNaturalSize().height;
    };
    EXPECT_NEAR(heightOf(Limits::textLines), heightOf(64) * Limits::textLines / 64, 1);
    EXPECT_EQ(heightOf(Limits::textLines + 1), heightOf(Limits::textLines));
}

TEST(TextNodeTest, LettersOfNoFontAreShownAsReplaced)
{
    const QTransform view = QTransform::fromTranslate(5, 5);
    const QImage replaced = shown(textOf("a\ufffd\ufffd b"), {200, 50}, view);
    EXPECT_EQ(shown(textOf("a\u0378\x01 b"), {200, 50}, view), replaced);
    EXPECT_NE(shown(textOf("a\t b"), {200, 50}, view), shown(textOf("a\ufffd b"), {200, 50}, view));
}

TEST(TextNodeTest, EmptyTextHasNoExtentAndDoesNotCount)
{
    TextNode node;
    node.setRect({5, 5, 100, 100});
    const auto* const impl = static_cast<const NodeImpl*>(node.getReferenced());
    EXPECT_FALSE(impl->countsInBounds());
    EXPECT_EQ(node.getNaturalSize(), (Vetra::Size<double>{0, 0}));
    EXPECT_EQ(node.getBoundingRect(), Vetra::GLRect<double>());
    EXPECT_FALSE(node.contains({5, 5}));
    EXPECT_TRUE(inkOf(shown(node, {50, 50}, {})).isNull());
    node.setText(" ");
    EXPECT_TRUE(impl->countsInBounds());
}

struct AlignmentCase : NamedRow {
    HorizontalAlignment horizontal;
    VerticalAlignment vertical;
    double share; ///< of the free space, on both axes
};
class TextAlignmentTest : public testing::TestWithParam<AlignmentCase> {};

TEST_P(TextAlignmentTest, SharesOutTheFreeSpaceOfBoxAndLines)
{
    TextNode node = textOf("wide line\ni");
    node.setHorizontalAlignment(GetParam().horizontal);
    node.setVerticalAlignment(GetParam().vertical);
    const auto size = node.getNaturalSize();
    for (const Vetra::GLRect<double>& box :
         {Vetra::GLRect<double>{0, 0, 0, 0}, {30, 40, 300, 200}}) {
        node.setRect(box);
        const double left = box.x + (box.width - size.width) * GetParam().share;
        const double top = box.y + (box.height - size.height) * GetParam().share;
        EXPECT_TRUE(node.contains({left + 0.1, top + 0.1}));
        EXPECT_FALSE(node.contains({left - 0.1, top + 0.1}));
        EXPECT_TRUE(node.contains({left + size.width - 0.1, top + size.height - 0.1}));
        EXPECT_FALSE(node.contains({left + size.width - 0.1, top + size.height + 0.1}));
    }
    const QImage image = shown(node, {400, 300}, {});
    const auto placed = node.getGeometryRect();
    const QRect lowerHalf(0, static_cast<int>(placed.y + size.height / 2), 400, 300);
    const double letter = textOf("i").getNaturalSize().width;
    EXPECT_NEAR(inkOf(image.copy(lowerHalf & image.rect())).center().x(),
                placed.x + letter / 2 + (size.width - letter) * GetParam().share, 2);
}

INSTANTIATE_TEST_SUITE_P(TextNode, TextAlignmentTest,
                         testing::Values(AlignmentCase{"LeftTop", HorizontalAlignment::Left,
                                                       VerticalAlignment::Top, 0},
                                         AlignmentCase{"Center", HorizontalAlignment::Middle,
                                                       VerticalAlignment::Middle, 0.5},
                                         AlignmentCase{"RightBottom", HorizontalAlignment::Right,
                                                       VerticalAlignment::Bottom, 1}),
                         rowName);

// Letters must not jump: at each zoom the ink ends where the reference layout says.
TEST(TextNodeTest, LinesAreAsLongAtEveryZoom)
{
    const TextNode node = textOf("minimum illicit Wave AVATAR|", 8);
    const double end =
        inkOf(shown(node, {8000, 800}, QTransform::fromScale(50, 50))).right() / 50.0;
    for (double scale : {0.3, 0.77, 1.0, 1.7, 4.0, 7.9, 20.0}) {
        const QRect ink = inkOf(shown(node, {4000, 400}, QTransform::fromScale(scale, scale)));
        EXPECT_NEAR(ink.right() / scale, end, 1.25 / scale) << "at scale " << scale;
    }
}

TEST(TextNodeTest, RotatedTextIsLevelTextTurned)
{
    const TextNode node = textOf("minimum illicit AVATAR|");
    const QImage level = shown(node, {320, 40}, QTransform::fromTranslate(3, 3));
    const QImage turned = shown(node, {40, 320}, QTransform(0, 1, -1, 0, 37, 3));
    const QRect expected = inkOf(level), ink = inkOf(turned);
    EXPECT_NEAR(ink.height(), expected.width(), 1);
    EXPECT_NEAR(ink.width(), expected.height(), 1);
    EXPECT_NEAR(ink.top(), expected.left(), 1);
}

TEST(TextNodeTest, LooksTheSameFarFromTheOrigin)
{
    const TextNode node = textOf("Wavy 42");
    const QImage near = shown(node, {300, 90}, QTransform(3, 0, 0, 3, 5.25, 7.5));
    for (double place : {Limits::exactCoordinate, -1e9}) {
        const QTransform view =
            QTransform::fromTranslate(-place, -place) * QTransform(3, 0, 0, 3, 5.25, 7.5);
        EXPECT_EQ(shown(node, {300, 90}, QTransform::fromTranslate(place, place) * view), near);
        TextNode boxed = textOf("Wavy 42");
        boxed.setRect({place, place, 0, 0});
        EXPECT_EQ(shown(boxed, {300, 90}, view), near);
    }
}

TEST(TextNodeTest, InkHasTheNodesOwnColorWhateverTheStyle)
{
    TextNode node = textOf("\u2588\u2588", 40);
    node.setColor(Vetra::Color::fromPacked(0xff102030));
    node.setFillColor(Vetra::Color::fromPacked(0xffff0000));
    node.setStroke(Stroke(Vetra::Color::fromPacked(0xffff0000), 9, StrokeStyle::SolidLine,
                          StrokeCapStyle::FlatCap, StrokeJoinStyle::MiterJoin, nullptr));
    const auto bounds = node.getBoundingRect();
    const QPoint middle(static_cast<int>(bounds.width / 2), static_cast<int>(bounds.height / 2));
    for (const QTransform& view : {QTransform(), QTransform(1, 0.02, -0.02, 1, 0, 0)})
        EXPECT_EQ(shown(node, {200, 80}, view).pixel(middle), 0xff102030);
    EXPECT_EQ(bounds, textOf("\u2588\u2588", 40).getBoundingRect());
}

TEST(TextNodeTest, UnderlinesFollowTheirLinesAtEveryZoom)
{
    TextNode node;
    node.setFont([] {
        Vetra::Font font("DejaVu Sans", 20);
        font.setUnderline(true);
        return font;
    }());
    node.setText("mmm\nmmmmmm");
    for (double scale : {0.7, 1.0, 5.0}) {
        const QImage image = shown(node, {900, 300}, QTransform::fromScale(scale, scale));
        const double lineHeight = node.getNaturalSize().height * scale / 2;
        const QRect second(0, static_cast<int>(lineHeight), 900, 300);
        EXPECT_NEAR(inkOf(image.copy(second & image.rect())).width(),
                    node.getNaturalSize().width * scale, 2 + 3 * scale);
        EXPECT_TRUE(boundsCoverInk(node, QTransform::fromScale(scale, scale)));
    }
}

TEST(TextNodeTest, BadValuesAreDropped)
{
    TextNode node = textOf("x");
    const double nan = std::numeric_limits<double>::quiet_NaN();
    node.setRect({1, 2, 3, 4});
    for (const Vetra::GLRect<double>& bad :
         {Vetra::GLRect<double>{nan, 0, 1, 1}, {0, 0, 1, -HUGE_VAL}, {1e308, 0, 1e308, 1}})
        node.setRect(bad);
    node.setHorizontalAlignment(static_cast<HorizontalAlignment>(3));
    node.setVerticalAlignment(static_cast<VerticalAlignment>(255));
    EXPECT_EQ(node.getRect(), (Vetra::GLRect<double>{1, 2, 3, 4}));
    EXPECT_EQ(node.getHorizontalAlignment(), HorizontalAlignment::Left);
    EXPECT_EQ(node.getVerticalAlignment(), VerticalAlignment::Top);
    node.setRect({-1e308, 1e307, 1e307, 1e307});
    EXPECT_TRUE(std::isfinite(node.getBoundingRect().x + node.getBoundingRect().height));
    shown(node, {10, 10}, {});
}

} // namespace
} // namespace Tova2
