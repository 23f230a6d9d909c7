#include "tova/nodes/imagenode.h"

#include "contentsamples.h"

#include "support/rows.h"
#include "vetra/error.h"

#include <QBuffer>
#include <QFile>
#include <QTemporaryDir>

#include <sys/stat.h>

namespace Tova2 {
namespace {

QByteArray svg(const QByteArray& body)
{
    return "<svg xmlns='http://www.w3.org/2000/svg' xmlns:xlink='http://www.w3.org/1999/xlink' "
           "width='40' height='20'>" +
           body + "</svg>";
}

/// Left half red, right half blue.
QImage halves()
{
    QImage image(40, 20, QImage::Format_RGB32);
    image.fill(Qt::red);
    QPainter(&image).fillRect(20, 0, 20, 20, Qt::blue);
    return image;
}

QByteArray encoded(const char* format)
{
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    EXPECT_TRUE(halves().save(&buffer, format, 100));
    return buffer.data();
}

/// Header and checksum of a picture of 16000 by 16000 pixels, without any.
QByteArray pngBomb()
{
    return QByteArray::fromHex(
        "89504e470d0a1a0a0000000d4948445200003e8000003e8008060000001b4f42aa");
}

class ImageNodeTest : public testing::Test {
protected:
    std::string path(const char* name) const
    {
        return m_folder.filePath(QString::fromLatin1(name)).toStdString();
    }
    std::string write(const char* name, const QByteArray& bytes) const
    {
        QFile file(QString::fromStdString(path(name)));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size());
        return path(name);
    }
    ImageNode halvesNode() const { return ImageNode(write("halves.png", encoded("PNG"))); }

private:
    QTemporaryDir m_folder;
};

struct BadSourceCase : NamedRow {
    QByteArray bytes;
};
class BadImageSourceTest : public ImageNodeTest,
                           public testing::WithParamInterface<BadSourceCase> {};

void expectNull(const ImageNode& node)
{
    EXPECT_TRUE(node.isNull());
    EXPECT_EQ(node.getImageNaturalSize(), (Vetra::GLPoint<int>{0, 0}));
    EXPECT_EQ(node.getSize(), (Vetra::GLPoint<double>{0, 0}));
    EXPECT_TRUE(inkOf(shown(node, {50, 50}, {})).isNull());
}

TEST_P(BadImageSourceTest, MakesTheNodeNullAndTellsWhoAsks)
{
    ImageNode node(write("file", GetParam().bytes));
    expectNull(node);
    EXPECT_THROW(node.getSource()->load(), Vetra::Error);
    node.setSizeToImageNaturalSize();
    node.setSize(30, 30);
    EXPECT_TRUE(inkOf(shown(node, {50, 50}, {})).isNull());
    EXPECT_EQ(node.getWidth(), 30) << "a size that was set stays";
}

INSTANTIATE_TEST_SUITE_P(
    ImageNode, BadImageSourceTest,
    testing::Values(BadSourceCase{"NoBytes", ""}, BadSourceCase{"Words", "just words"},
                    BadSourceCase{"TruncatedPng", encoded("PNG").left(60)},
                    BadSourceCase{"BombHeader", pngBomb()},
                    BadSourceCase{"Script", svg("<script>1</script>")},
                    BadSourceCase{"EntityInDoctype", "<!DOCTYPE svg [<!ENTITY a 'b'>]>" + svg("")},
                    BadSourceCase{"FileReference",
                                  svg("<image xlink:href='file:///etc/passwd'/>")}),
    rowName);

TEST_F(ImageNodeTest, IsNullForWhatIsNoFile)
{
    ASSERT_EQ(::mkfifo(path("fifo").c_str(), 0600), 0);
    expectNull(ImageNode(path("fifo")));
    expectNull(ImageNode(path("")));
    expectNull(ImageNode(path("missing")));
    expectNull(ImageNode(ImageNode::Source()));
    expectNull(ImageNode());
}

struct FormatCase : NamedRow {
    QByteArray bytes;
    int tolerance;
};
class ImageFormatNodeTest : public ImageNodeTest, public testing::WithParamInterface<FormatCase> {};

TEST_P(ImageFormatNodeTest, FillsTheNodesSize)
{
    ImageNode node(write("image", GetParam().bytes));
    EXPECT_EQ(node.getSize(), (Vetra::GLPoint<double>{40, 20}));
    node.setSize(80, 100);
    const QImage image = shown(node, {200, 200}, QTransform::fromTranslate(10, 10));
    EXPECT_EQ(inkOf(image), QRect(10, 10, 80, 100));
    EXPECT_NEAR(qRed(image.pixel(15, 105)), 255, GetParam().tolerance);
    EXPECT_NEAR(qBlue(image.pixel(85, 15)), 255, GetParam().tolerance);
    EXPECT_TRUE(boundsCoverInk(node, QTransform(2.2, 0.7, -0.7, 2.2, 100.5, 20)));
}

INSTANTIATE_TEST_SUITE_P(
    ImageNode, ImageFormatNodeTest,
    testing::Values(FormatCase{"Png", encoded("PNG"), 0}, FormatCase{"Jpeg", encoded("JPEG"), 4},
                    FormatCase{"Svg",
                               svg("<rect width='20' height='20' fill='red'/>"
                                   "<rect x='20' width='20' height='20' fill='blue'/>"),
                               0}),
    rowName);

TEST_F(ImageNodeTest, DrawingsStaySharpWhenEnlarged)
{
    const ImageNode node(write("a", svg("<rect x='10' width='10' height='20'/>")));
    const QImage image = shown(node, {400, 200}, QTransform::fromScale(10, 10));
    EXPECT_EQ(inkOf(image), QRect(100, 0, 100, 200));
    EXPECT_EQ(image.pixel(100, 50), 0xff000000);
}

struct ViewBoxCase : NamedRow {
    Vetra::GLRect<double> box;
    QRgb left, right; ///< at a quarter and three quarters of the node's width
};
class ImageViewBoxTest : public ImageNodeTest, public testing::WithParamInterface<ViewBoxCase> {};

TEST_P(ImageViewBoxTest, ShowsThatPartInAllOfTheNode)
{
    ImageNode node = halvesNode();
    node.setViewBox(GetParam().box);
    EXPECT_EQ(node.getSize(), (Vetra::GLPoint<double>{40, 20}));
    const QImage image = shown(node, {60, 40}, {});
    EXPECT_EQ(image.pixel(10, 10), GetParam().left);
    EXPECT_EQ(image.pixel(30, 10), GetParam().right);
    node.removeViewBox();
    EXPECT_EQ(shown(node, {60, 40}, {}), shown(halvesNode(), {60, 40}, {}));
}

constexpr QRgb red = 0xffff0000, blue = 0xff0000ff, white = 0xffffffff;
INSTANTIATE_TEST_SUITE_P(
    ImageNode, ImageViewBoxTest,
    testing::Values(ViewBoxCase{"LeftHalf", {0, 0, 20, 20}, red, red},
                    ViewBoxCase{"AcrossTheMiddle", {15, 5, 10, 5}, red, blue},
                    ViewBoxCase{"BeyondTheLeftEdge", {-40, 0, 80, 20}, white, blue},
                    ViewBoxCase{"OutsideAltogether", {100, 100, 5, 5}, white, white},
                    ViewBoxCase{"WithoutAreaIsIgnored", {0, 0, 0, 20}, red, blue},
                    ViewBoxCase{"NotFiniteIsIgnored", {HUGE_VAL, 0, 5, 5}, red, blue}),
    rowName);

TEST_F(ImageNodeTest, SizeFollowsTheSourceUntilItIsSet)
{
    ImageNode node(path("missing"));
    EXPECT_EQ(node.getBoundingRect(), Vetra::GLRect<double>());
    node.setSource(write("halves.png", encoded("PNG")));
    EXPECT_EQ(node.getBoundingRect(), (Vetra::GLRect<double>{0, 0, 40, 20}));
    const double nan = std::numeric_limits<double>::quiet_NaN();
    node.setSize(nan, 5);
    node.setSize(-1, 5);
    node.setSize(5, HUGE_VAL);
    EXPECT_EQ(node.getSize(), (Vetra::GLPoint<double>{40, 20}));
    node.setSize(7, 8);
    node.setSource(write("b", svg("")));
    EXPECT_EQ(node.getSize(), (Vetra::GLPoint<double>{7, 8}));
    node.setSizeToImageNaturalSize();
    EXPECT_EQ(node.getSize(), (Vetra::GLPoint<double>{40, 20}));
    node.setSize(1e308, 1e308);
    shown(node, {10, 10}, {});
}

TEST_F(ImageNodeTest, TakesPathsAndCompositions)
{
    ImageNode node = halvesNode();
    EXPECT_EQ(node.getPath(), path("halves.png"));
    const auto source = node.getSource();
    node.setSource(path("halves.png"));
    EXPECT_EQ(node.getSource(), source) << "the same path is no change";
    const auto composed =
        Vetra::ImageCompositor::overlay({{source, {0, 0}, 1}, {source, {40, 5}, 1}});
    node.setSource(composed);
    EXPECT_EQ(node.getPath(), "");
    EXPECT_EQ(node.getSource(), composed);
    EXPECT_EQ(node.getImageNaturalSize(), (Vetra::GLPoint<int>{80, 25}));
    EXPECT_EQ(shown(node, {90, 30}, {}).pixel(45, 20), red);
    node.setSource(std::string());
    EXPECT_TRUE(node.isNull());
}

} // namespace
} // namespace Tova2
