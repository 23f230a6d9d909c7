#include "nodes/cachebudget.h"

#include "support/pictures.h"
#include "tova/tova.h"
#include "vetra/imagecompositor.h"

#include <gmock/gmock.h>

#include <QPicture>
#include <QTemporaryDir>

#include <sys/stat.h>

using namespace Tova2;
using TestSupport::difference;
using TestSupport::largestDifference;
using CoordinateMode = Vetra::Gradient::CoordinateMode;

namespace {

constexpr QRgb kRed = 0xffff0000, kBlue = 0xff0000ff, kGreen = 0xff00ff00;

Vetra::Gradient ramp(const Vetra::GLPoint<double>& end, CoordinateMode mode, double alpha = 1)
{
    auto gradient = Vetra::Gradient::linear({}, end);
    gradient.addStop(0, Vetra::Color(0, 0, 0, alpha));
    gradient.addStop(1, Vetra::Color(1, 1, 1, alpha));
    gradient.setCoordinateMode(mode);
    return gradient;
}

class BackgroundPixelsTest : public testing::Test {
protected:
    /// Of two colours side by side.
    std::string imageFile(const QSize& size, QRgb left, QRgb right)
    {
        QImage image(size, QImage::Format_ARGB32);
        image.fill(QColor::fromRgba(left));
        for (int y = 0; y < size.height(); ++y) {
            for (int x = size.width() / 2; x < size.width(); ++x)
                image.setPixel(x, y, right);
        }
        const QString path = m_folder.filePath(QStringLiteral("%1.png").arg(m_files++));
        EXPECT_TRUE(image.save(path));
        return path.toStdString();
    }
    QImage render(const QSize& size, double ratio = 1, const QRegion& part = {}, double zoom = 1)
    {
        QImage image(size * ratio, QImage::Format_RGB32);
        image.setDevicePixelRatio(ratio);
        image.fill(Qt::white);
        m_scene->setBackground(m_background);
        QPainter painter(&image);
        if (!part.isEmpty())
            painter.setClipRegion(part);
        m_scene->render(painter, {0, 0, double(size.width()), double(size.height())},
                        {0, 0, size.width() / zoom, size.height() / zoom});
        return image;
    }

    QTemporaryDir m_folder;
    int m_files = 0;
    Background m_background;
    Vetra::Holder<Scene> m_scene = Scene::createScene();
};

TEST_F(BackgroundPixelsTest, LayersComposeFromColourToImage)
{
    m_background.setColor(Vetra::Color(1, 0, 0, 0.5));
    EXPECT_LE(difference(render({40, 20}).pixel(5, 5), 0xffff8080), 1);
    m_background.setGradient(ramp({1, 0}, CoordinateMode::ObjectBounding, 0.5));
    EXPECT_LE(difference(render({40, 20}).pixel(39, 5), 0xffffbfbf), 4);
    m_background.setImage(imageFile({4, 2}, kGreen, 0x800000ff));
    const QImage all = render({40, 20});
    EXPECT_EQ(all.pixel(5, 5), kGreen);
    EXPECT_LE(difference(all.pixel(39, 5), 0xff7f5fdf), 4);
}

TEST_F(BackgroundPixelsTest, ImageCoversFromItsMiddle)
{
    m_background.setImage(imageFile({40, 40}, kRed, kBlue));
    for (const QSize size : {QSize(100, 20), QSize(20, 100), QSize(40, 40), QSize(300, 299)}) {
        const QImage image = render(size);
        const int middle = size.width() / 2;
        for (const int y : {0, size.height() - 1}) {
            EXPECT_EQ(image.pixel(0, y), kRed);
            EXPECT_EQ(image.pixel(size.width() - 1, y), kBlue);
            EXPECT_EQ(image.pixel(middle - 5, y), kRed);
            EXPECT_EQ(image.pixel(middle + 5, y), kBlue);
        }
    }
}

TEST_F(BackgroundPixelsTest, GradientLiesInTheSceneOnlyWhenLogical)
{
    m_background.setGradient(ramp({40, 0}, CoordinateMode::Logical));
    EXPECT_LE(difference(render({80, 10}, 1, {}, 2).pixel(40, 5), 0xff808080), 4);
    EXPECT_EQ(render({80, 10}).pixel(60, 5), 0xffffffff);
    for (const auto mode : {CoordinateMode::ObjectBounding, CoordinateMode::StretchToDevice}) {
        m_background.setGradient(ramp({1, 0}, mode));
        EXPECT_LE(difference(render({80, 10}, 1, {}, 2).pixel(40, 5), 0xff808080), 4);
    }
}

using RatioInterface = testing::WithParamInterface<double>;
class BackgroundRatioTest : public BackgroundPixelsTest, public RatioInterface {};

TEST_P(BackgroundRatioTest, PartsAreAsInTheWhole)
{
    m_background.setGradient(ramp({0.7, 0.4}, CoordinateMode::ObjectBounding));
    m_background.setImage(imageFile({90, 70}, 0x80ff0000, 0x400000ff));
    const QImage whole = render({61, 47}, GetParam());
    for (const QRect part : {QRect(0, 0, 8, 8), QRect(20, 12, 16, 24), QRect(52, 40, 4, 4)}) {
        const QRect pixels(part.topLeft() * GetParam(), part.size() * GetParam());
        EXPECT_EQ(render({61, 47}, GetParam(), part).copy(pixels), whole.copy(pixels)) << part.x();
    }
}

TEST_P(BackgroundRatioTest, ImageIsDrawnInTheScreensOwnPixels)
{
    const QSize size = QSize(40, 20) * GetParam();
    const auto file = imageFile(size, kRed, kBlue);
    m_background.setImage(file);
    EXPECT_LE(largestDifference(render({40, 20}, GetParam()), QImage(QString::fromStdString(file))),
              3);
}

INSTANTIATE_TEST_SUITE_P(Scene, BackgroundRatioTest, testing::Values(1, 1.25, 1.5, 2, 3));

TEST_F(BackgroundPixelsTest, AnotherImageTakesTheCachedOnesPlace)
{
    const std::size_t before = CacheBudget::bytes();
    m_background.setImage(imageFile({8, 8}, kRed, kRed));
    for (int side = 10; side < 20; ++side)
        render({side, side});
    EXPECT_LE(CacheBudget::bytes() - before, 3u * 4 * 19 * 19);
    m_background.setImage(imageFile({8, 8}, kBlue, kBlue));
    EXPECT_EQ(render({19, 19}).pixel(9, 9), kBlue);
    m_background.clearImage();
    EXPECT_EQ(render({19, 19}).pixel(9, 9), 0xffffffff);
    EXPECT_EQ(CacheBudget::bytes(), before);
}

TEST_F(BackgroundPixelsTest, WhatCannotOrMustNotBeReadLeavesTheColour)
{
    const auto pipe = m_folder.filePath(QStringLiteral("pipe")).toStdString();
    ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
    const auto image = imageFile({4, 4}, kRed, kRed);
    auto& manager = Vetra::ImageCompositor::Manager::instance();
    manager.setPolicy({Vetra::ImagePolicy::Files::UnderRoot, "/usr"});
    m_background.setColor(Vetra::Color(0, 0, 1));
    for (const auto& path : {pipe, image, std::string("/nowhere.png"), std::string("/dev/zero")}) {
        m_background.setImage(path);
        EXPECT_EQ(render({10, 10}).pixel(5, 5), kBlue) << path;
    }
    manager.setPolicy({});
}

TEST_F(BackgroundPixelsTest, RecordedPictureShowsTheSame)
{
    m_background.setGradient(ramp({1, 0}, CoordinateMode::ObjectBounding));
    m_background.setImage(imageFile({60, 20}, 0, kBlue));
    const QImage direct = render({60, 20});
    QPicture picture;
    m_scene->render(picture, {}, {0, 0, 60, 20});
    QImage replayed(60, 20, QImage::Format_RGB32);
    replayed.fill(Qt::white);
    QPainter(&replayed).drawPicture(0, 0, picture);
    EXPECT_LE(largestDifference(replayed, direct), 8);
}

} // namespace
