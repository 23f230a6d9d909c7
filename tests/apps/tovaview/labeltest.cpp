#include "colorname.h"
#include "fontfamily.h"
#include "record.h"
#include "support/rows.h"

#include <gmock/gmock.h>

namespace TovaView {
namespace {

using testing::ElementsAre;

struct LinesCase : NamedRow {
    const char16_t* label;
    bool markup;
    std::vector<std::u16string> lines; ///< first letter: side
};

class LabelLinesTest : public testing::TestWithParam<LinesCase> {};

TEST_P(LabelLinesTest, Split)
{
    const QString label = QString::fromUtf16(GetParam().label);
    std::vector<std::u16string> found;
    for (const LabelLine& line : GetParam().markup ? markupLines(label) : labelLines(label)) {
        const char16_t side = line.align == Align::Left    ? u'l'
                              : line.align == Align::Right ? u'r'
                                                           : u'c';
        found.push_back(side + line.text.toStdU16String());
    }
    EXPECT_EQ(found, GetParam().lines);
}

INSTANTIATE_TEST_SUITE_P(
    Label, LabelLinesTest,
    testing::Values(
        LinesCase{"Empty", u"", false, {}},
        LinesCase{"EachEscapeEndsALine", u"a\\nb\\lc\\rd", false, {u"ca", u"lb", u"rc", u"cd"}},
        LinesCase{"EndAtEndAddsNone", u"a\\l", false, {u"la"}},
        LinesCase{"BackslashTakesNext", u"a\\{\\\\b", false, {u"ca{\\b"}},
        LinesCase{"LoneBackslashStays", u"a\\", false, {u"ca\\"}},
        LinesCase{"Entities", u"&lt;&amp;&eacute;&#65;&#x42;", false, {u"c<&\u00e9AB"}},
        LinesCase{"UnknownEntityStays", u"a&nix;&b", false, {u"ca&nix;&b"}},
        LinesCase{"SurrogateEntityStays", u"&#xd800;&#0;", false, {u"c&#xd800;&#0;"}},
        LinesCase{"MarkupRows",
                  u"<table><tr><td>a</td><td>b</td></tr><tr><td>&lt;c</td></tr></table>",
                  true,
                  {u"ca b", u"c<c"}},
        LinesCase{"MarkupBreak", u"<b>x</b>\n<br/>y", true, {u"cx", u"cy"}}),
    rowName);

std::vector<std::string> texts(const Drawing& drawing)
{
    std::vector<std::string> found;
    for (const TextPiece& text : drawing.texts)
        found.push_back(text.text.toStdString());
    return found;
}

TEST(RecordTest, WideBoxHasItsFieldsSideBySide)
{
    const Drawing drawing =
        recordFields(QStringLiteral("<p>aaaa|bbbb|cccc"), {0, 0, 150, 36}, {}, {});
    EXPECT_THAT(texts(drawing), ElementsAre("aaaa", "bbbb", "cccc"));
    ASSERT_EQ(drawing.figures.size(), 2u);
    EXPECT_EQ(drawing.figures[0].points, (Points{{50, 0}, {50, 36}}));
    EXPECT_EQ(drawing.figures[1].points, (Points{{100, 0}, {100, 36}}));
}

TEST(RecordTest, BracesTurnTheDirection)
{
    const Drawing drawing = recordFields(QStringLiteral("a|{b|c}"), {0, 0, 60, 72}, {}, {});
    ASSERT_EQ(drawing.figures.size(), 2u);
    EXPECT_EQ(drawing.figures[0].points, (Points{{30, 36}, {60, 36}}));
    EXPECT_EQ(drawing.figures[1].points, (Points{{30, 0}, {30, 72}}));
}

TEST(RecordTest, BadNotationIsShownAsItStands)
{
    for (const QString& label : {QStringLiteral("{a|b"), QStringLiteral("a}b"),
                                 QStringLiteral("<a"), QString(100'000, QLatin1Char('{'))}) {
        const Drawing drawing = recordFields(label, {0, 0, 60, 72}, {}, {});
        EXPECT_TRUE(drawing.figures.empty());
        EXPECT_EQ(drawing.texts.size(), 1u);
    }
}

struct ColorCase : NamedRow {
    const char* text;
    std::uint32_t packed;
};

class ColorNameTest : public testing::TestWithParam<ColorCase> {};

TEST_P(ColorNameTest, IsRead)
{
    EXPECT_EQ(colorOf(QLatin1String(GetParam().text)).packed(), GetParam().packed);
}

INSTANTIATE_TEST_SUITE_P(Label, ColorNameTest,
                         testing::Values(ColorCase{"X11GreenIsFull", "green", 0xff00ff00},
                                         ColorCase{"SvgName", "lightgrey", 0xffd3d3d3},
                                         ColorCase{"Numbered", "red3", 0xffcd0000},
                                         ColorCase{"Percent", "gray50", 0xff7f7f7f},
                                         ColorCase{"Hex", "#4080C0", 0xff4080c0},
                                         ColorCase{"HexAlpha", "#4080c010", 0x104080c0},
                                         ColorCase{"Transparent", "transparent", 0x00ffffff},
                                         ColorCase{"Hsv", "0.0 1.0 1.0", 0xffff0000},
                                         ColorCase{"FirstOfList", "blue;0.3:red", 0xff0000ff},
                                         ColorCase{"Scheme", "/x11/navy", 0xff000080},
                                         ColorCase{"Nonsense", "#12", 0xff000000}),
                         rowName);

struct FaceCase : NamedRow {
    const char* family;
    bool bold, italic;
};

TEST(FontFamilyTest, TakesStyleOffTheName)
{
    for (const FaceCase& row :
         {FaceCase{"Helvetica-BoldOblique", "Helvetica", true, true},
          FaceCase{"Times-Roman", "Times", false, false},
          FaceCase{"Arial Bold Italic", "Arial", true, true},
          FaceCase{"Noto Sans, Arial", "Noto Sans", false, false},
          FaceCase{"", "Times", false, false}, FaceCase{"Bold", "Bold", false, false}}) {
        const FontFace face = faceOf(QLatin1String(row.name));
        EXPECT_EQ(face.family, QLatin1String(row.family)) << row.name;
        EXPECT_EQ(face.bold, row.bold) << row.name;
        EXPECT_EQ(face.italic, row.italic) << row.name;
    }
}

} // namespace
} // namespace TovaView
