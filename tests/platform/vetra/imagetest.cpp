#include "vetra/image.h"

#include "support.h"

namespace Vetra {
namespace {

TEST(ImageTest, LimitsAreExact)
{
    EXPECT_TRUE(Image::isAcceptableSize({16384, 4096}));
    EXPECT_FALSE(Image::isAcceptableSize({16384, 4097}));
    EXPECT_FALSE(Image::isAcceptableSize({16385, 1}));
    EXPECT_FALSE(Image::isAcceptableSize({0, 1}));
    EXPECT_FALSE(Image::isAcceptableSize({-5, -5}));
}

TEST(ImageTest, PixelsOutsideAreTransparent)
{
    const auto image = fromQt(plainImage(2, 3, QColor(1, 2, 3, 4)));
    EXPECT_EQ(image->pixel(1, 2).packed(), 0x04010203u);
    for (const auto& p : {QPoint(2, 0), QPoint(0, 3), QPoint(-1, 0)})
        EXPECT_EQ(image->pixel(p.x(), p.y()).packed(), 0u);
    EXPECT_EQ(Holder<Image>(new Image)->pixel(0, 0).packed(), 0u);
}

TEST(ImageTest, SavesALosslessPng)
{
    const Folder folder;
    QImage pixels = plainImage(3, 2, QColor(10, 20, 30, 40));
    pixels.setPixelColor(2, 1, Qt::red);
    fromQt(pixels)->savePng(folder.path("a.png"));
    EXPECT_EQ(QImage(QString::fromStdString(folder.path("a.png"))), pixels);
    EXPECT_EQ(keyOf([&] { Holder<Image>(new Image)->savePng(folder.path("b.png")); }), "NullImage");
    EXPECT_FALSE(QFile::exists(QString::fromStdString(folder.path("b.png"))));
}

TEST(ImageTest, RendersAtOtherSizesOrGivesANullImage)
{
    const auto image = fromQt(plainImage(4, 4, Qt::green));
    EXPECT_EQ(image->rendered({9, 2})->size(), (Size<int>{9, 2}));
    EXPECT_EQ(image->rendered({9, 2})->pixel(8, 1), fromQt(QColor(Qt::green)));
    EXPECT_TRUE(image->rendered({0, 2})->isNull());
    EXPECT_TRUE(image->rendered({16385, 2})->isNull());
    EXPECT_TRUE(fromQt(QImage())->isNull());
}

TEST(PixmapTest, KeepsPixelsAndComparesByIdentity)
{
    const auto image = fromQt(plainImage(4, 5, Qt::green));
    const Pixmap pixmap(*image), copy = pixmap, other(*image);
    EXPECT_EQ(pixmap, copy);
    EXPECT_NE(pixmap, other);
    EXPECT_EQ(pixmap.toImage()->pixel(3, 4), image->pixel(3, 4));
    EXPECT_EQ(Pixmap(*Holder<Image>(new Image)), Pixmap());
    EXPECT_TRUE(Pixmap().toImage()->isNull());
}

} // namespace
} // namespace Vetra
