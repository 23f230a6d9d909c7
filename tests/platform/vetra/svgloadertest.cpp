#include "vetra/imageloader.h"

#include "support.h"

namespace Vetra {
namespace {

const QByteArray head =
    "<svg xmlns='http://www.w3.org/2000/svg' xmlns:xlink='http://www.w3.org/1999/xlink' "
    "width='20' height='10'>";

QByteArray svg(const QByteArray& body)
{
    return head + body + "</svg>";
}

std::string keyOfSvg(const QByteArray& bytes)
{
    return keyOf([&] { decodeImage({bytes.constData(), std::size_t(bytes.size())}, "test"); });
}

QByteArray embedded(const char* kind, const QByteArray& bytes)
{
    return svg(QByteArray("<image width='1' height='1' xlink:href='data:image/") + kind +
               ";base64," + bytes.toBase64() + "'/>");
}

/// Each level uses the one before ten times.
QByteArray usesOfUses(int levels)
{
    QByteArray body = "<g id='l0'><rect width='1' height='1'/></g>";
    for (int i = 1; i <= levels; ++i) {
        body += "<g id='l" + QByteArray::number(i) + "'>";
        for (int k = 0; k < 10; ++k)
            body += "<use xlink:href='#l" + QByteArray::number(i - 1) + "'/>";
        body += "</g>";
    }
    return svg(body);
}

QByteArray nested(int depth)
{
    return svg(QByteArray("<g>").repeated(depth) + QByteArray("</g>").repeated(depth));
}

struct SvgCase : NamedRow {
    QByteArray bytes;
    const char* key;
};
class SvgFilterTest : public testing::TestWithParam<SvgCase> {};

TEST_P(SvgFilterTest, JudgesTheDrawing)
{
    EXPECT_EQ(keyOfSvg(GetParam().bytes), GetParam().key);
}

INSTANTIATE_TEST_SUITE_P(
    Active, SvgFilterTest,
    testing::Values(
        SvgCase{"DeclaredEntity", "<!DOCTYPE svg [<!ENTITY a 'b'>]>" + svg(""), "UnsafeDrawing"},
        SvgCase{"PublicTypeAsExportersWriteIt",
                "<!DOCTYPE svg PUBLIC '-//W3C//DTD SVG 1.1//EN' 'svg11.dtd'>" + svg(""), ""},
        SvgCase{"EntityOfTheNamedType",
                "<!DOCTYPE svg SYSTEM 'file:///etc/a.dtd'>" + svg("<text>&a;</text>"),
                "UnsafeDrawing"},
        SvgCase{"StyleSheetInstruction",
                "<?xml-stylesheet type=\"text/css\" href=\"/etc/passwd\"?>" + svg(""),
                "UnsafeDrawing"},
        SvgCase{"Script", svg("<script>1</script>"), "UnsafeDrawing"},
        SvgCase{"ScriptUnderAPrefix",
                svg("<s:script xmlns:s='http://www.w3.org/2000/svg'>1</s:script>"),
                "UnsafeDrawing"},
        SvgCase{"ForeignObject", svg("<foreignObject/>"), "UnsafeDrawing"},
        SvgCase{"ImageFromDisk", svg("<image xlink:href='/etc/logo.png'/>"), "UnsafeDrawing"},
        SvgCase{"ImageFileThatLooksLikeAnId", svg("<image xlink:href='#a'/>"), "UnsafeDrawing"},
        SvgCase{"PlainHref", svg("<image href='file:///a.png'/>"), "UnsafeDrawing"},
        SvgCase{"UseOfAnotherDocument", svg("<use xlink:href='b.svg#a'/>"), "UnsafeDrawing"},
        SvgCase{"StyleImport", svg("<style>@import 'a.css';</style>"), "UnsafeDrawing"},
        SvgCase{"StyleUrl", svg("<rect style='fill: url( \"http://a/#b\")'/>"), "UnsafeDrawing"},
        SvgCase{"SvgInsideData", embedded("svg+xml", svg("")), "UnsafeDrawing"},
        SvgCase{"SvgCalledPng", embedded("png", svg("")), "UnsafeDrawing"},
        SvgCase{"TwoDataMarkers",
                svg("<image xlink:href='data:image/png;base64,iVBORw0KGgo=base64,PHN2Zz4='/>"),
                "UnsafeDrawing"}),
    rowName);

INSTANTIATE_TEST_SUITE_P(
    Size, SvgFilterTest,
    testing::Values(
        SvgCase{"ExpandedUses", usesOfUses(6), "TooComplex"},
        SvgCase{"ModestUses", usesOfUses(3), ""},
        SvgCase{"CircularUse", svg("<g id='a'><use xlink:href='#a'/></g>"), "TooComplex"},
        SvgCase{"DeepestNesting", nested(199), ""},
        SvgCase{"NestingTooDeep", nested(200), "TooComplex"},
        SvgCase{"MostElements", svg(QByteArray("<g/>").repeated(99999)), ""},
        SvgCase{"TooManyElements", svg(QByteArray("<g/>").repeated(100000)), "TooComplex"},
        SvgCase{"TooManyReferences", svg(QByteArray("<a href='#b'/>").repeated(50001)),
                "TooComplex"},
        SvgCase{"TooManyBytes", svg(QByteArray(4 << 20, ' ')), "TooLarge"},
        SvgCase{"EndlessWord", svg("<text>" + QByteArray(32769, 'w') + "</text>"), "TooComplex"},
        SvgCase{"NumberBeyondDoubles", svg("<path d='M0 0L1e999 5'/>"), "TooComplex"},
        SvgCase{"NumberTooLarge", svg("<rect width='2e9' height='1'/>"), "TooComplex"},
        SvgCase{"ColourThatLooksLikeANumber", svg("<rect style='fill:#1e9999'/>"), ""},
        SvgCase{"PageTooLarge",
                "<svg xmlns='http://www.w3.org/2000/svg' width='16385' height='1'/>", "TooLarge"},
        SvgCase{"CutShort", svg("").chopped(3), "Damaged"},
        SvgCase{"Compressed", QByteArray::fromHex("1f8b0800"), "UnknownFormat"},
        SvgCase{"OtherXml", "<html/>", "UnknownFormat"}),
    rowName);

TEST(SvgImageTest, EmbeddedPicturesOfTheRightKindAreDrawn)
{
    const auto bytes = embedded("png", encoded(plainImage(1, 1, Qt::red), "PNG"));
    const auto image = decodeImage({bytes.constData(), std::size_t(bytes.size())}, "test");
    EXPECT_EQ(image->pixel(0, 0), Color(1, 0, 0));
    QImage wide(16385, 1, QImage::Format_Mono);
    wide.fill(0);
    EXPECT_EQ(keyOfSvg(embedded("png", encoded(wide, "PNG"))), "TooLarge");
}

TEST(SvgImageTest, IsDrawnAnewAtEverySize)
{
    const auto bytes = svg("<rect x='0' width='10' height='10' fill='#00f'/>");
    const auto image = decodeImage({bytes.constData(), std::size_t(bytes.size())}, "test");
    ASSERT_TRUE(image->isVector());
    EXPECT_EQ(image->size(), (Size<int>{20, 10}));
    const auto large = image->rendered({2000, 1000});
    EXPECT_EQ(large->pixel(999, 999).packed(), 0xff0000ffu);
    EXPECT_EQ(large->pixel(1000, 0).packed(), 0u);
}

TEST(SvgImageTest, APartIsPaintedIntoItsTargetOnly)
{
    const auto bytes = svg("<rect width='10' height='10' fill='#00f'/>"
                           "<rect x='10' width='10' height='10' fill='#f00'/>");
    const auto image = decodeImage({bytes.constData(), std::size_t(bytes.size())}, "test");
    QImage sheet = plainImage(40, 40, Qt::white);
    {
        QPainter painter(&sheet);
        paint(painter, *image, {10, 10, 20, 20}, {10, 0, 10, 10});
    }
    QImage expected = plainImage(40, 40, Qt::white);
    QPainter(&expected).fillRect(10, 10, 20, 20, Qt::red);
    EXPECT_EQ(sheet, expected);
}

} // namespace
} // namespace Vetra
