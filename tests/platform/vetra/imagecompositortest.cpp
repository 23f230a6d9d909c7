#include "vetra/imagecompositor.h"

#include "imagecache.h"
#include "support.h"

namespace Vetra {
namespace {

using Compositor = ImageCompositor;

Holder<Image> solid(int width, int height, const QColor& color)
{
    return fromQt(plainImage(width, height, color));
}

class CompositorTest : public testing::Test {
protected:
    CompositorTest() { m_manager.clearCache(); }
    ~CompositorTest() override
    {
        m_manager.setPolicy({});
        m_manager.setCacheLimit(Compositor::Manager::DefaultCacheLimit);
    }
    std::string writePng(const char* name, const QColor& color) const
    {
        return m_folder.write(name, encoded(plainImage(2, 2, color), "PNG"));
    }

    Folder m_folder;
    Compositor::Manager& m_manager = Compositor::Manager::instance();
};

TEST_F(CompositorTest, LayersAreBlendedAtTheirOffsets)
{
    const auto red = Compositor::fromImage(solid(4, 4, Qt::red));
    const auto blue = Compositor::fromImage(solid(4, 4, Qt::blue));
    const auto node = Compositor::overlay({{red, {0, 0}, 1}, {blue, {-2, 3}, 0.5}});
    ASSERT_EQ(node->naturalSize(), (Size<int>{6, 7}));
    const auto image = node->image();
    EXPECT_EQ(image->pixel(5, 0).packed(), 0xffff0000u);
    EXPECT_EQ(image->pixel(0, 0).packed(), 0u);
    EXPECT_NEAR(image->pixel(0, 6).alpha(), 128, 1);
    EXPECT_NEAR(image->pixel(2, 3).blue(), 128, 1);
    EXPECT_EQ(node->image({12, 14})->pixel(11, 0).packed(), 0xffff0000u);
}

TEST_F(CompositorTest, BadLayersAreLeftOut)
{
    const auto red = Compositor::fromImage(solid(4, 4, Qt::red));
    const auto node = Compositor::overlay(
        {{red, {NaN, 0}, 1}, {red, {0, 0}, NaN}, {{}, {0, 0}, 1}, {red, {1e300, 0}, 1}});
    EXPECT_EQ(node->naturalSize(), (Size<int>{}));
    EXPECT_TRUE(node->image()->isNull());
    EXPECT_EQ(keyOf([&] { node->load(); }), "Empty");
    EXPECT_EQ(keyOf([&] { Compositor::fromImage({})->load(); }), "NullImage");
}

TEST_F(CompositorTest, TreesAreBoundedInDepthAndLeaves)
{
    auto doubled = Compositor::fromImage(solid(1, 1, Qt::red));
    for (int i = 0; i < 12; ++i)
        doubled = Compositor::overlay({{doubled, {}, 1}, {doubled, {}, 1}});
    EXPECT_EQ(doubled->image()->pixel(0, 0), Color(1, 0, 0));
    EXPECT_EQ(keyOf([&] {
                  Compositor::overlay({{doubled, {}, 1}, {doubled, {}, 1}});
              }),
              "TooComplex");
    auto deep = Compositor::fromImage(solid(1, 1, Qt::red));
    for (int i = 1; i < Compositor::MaxDepth; ++i)
        deep = Compositor::overlay({{deep, {}, 1}});
    EXPECT_EQ(deep->naturalSize(), (Size<int>{1, 1}));
    EXPECT_EQ(keyOf([&] { Compositor::overlay({{deep, {}, 1}}); }), "TooComplex");
}

TEST_F(CompositorTest, AFileIsReadOnceUntilTheCacheIsCleared)
{
    const auto path = writePng("a.png", Qt::red);
    const auto node = Compositor::fromFile(path);
    EXPECT_EQ(node->image()->pixel(0, 0), Color(1, 0, 0));
    QFile::remove(QString::fromStdString(path));
    EXPECT_FALSE(node->isNull());
    m_manager.clearCache();
    EXPECT_TRUE(node->isNull());
    EXPECT_EQ(keyOf([&] { node->load(); }), "NotFound");
    writePng("a.png", Qt::blue);
    EXPECT_TRUE(node->isNull());
    m_manager.clearCache();
    EXPECT_EQ(node->image()->pixel(0, 0), Color(0, 0, 1));
}

TEST_F(CompositorTest, ANewPolicyHoldsForOldNodes)
{
    const auto node = Compositor::fromFile(writePng("a.png", Qt::red));
    EXPECT_FALSE(node->isNull());
    m_manager.setPolicy({ImagePolicy::Files::None, {}});
    EXPECT_EQ(keyOf([&] { node->load(); }), "OutsideRoot");
    m_manager.setPolicy({ImagePolicy::Files::UnderRoot, m_folder.path()});
    EXPECT_EQ(Compositor::fromFile("a.png")->image()->pixel(0, 0), Color(1, 0, 0));
}

TEST_F(CompositorTest, AChangedFileIsReadAgainByTheManager)
{
    const auto path = writePng("a.png", Qt::red);
    EXPECT_EQ(m_manager.load(path), m_manager.load(path));
    const auto old = m_manager.load(path);
    QFile::remove(QString::fromStdString(path));
    m_folder.write("a.png", encoded(plainImage(3, 3, Qt::blue), "PNG"));
    EXPECT_EQ(m_manager.load(path)->width(), 3);
    EXPECT_EQ(m_manager.cachedBytes(), 36u);
}

TEST(ImageCacheTest, TheLeastRecentlyUsedLeavesFirst)
{
    ImageCache cache(8);
    const auto image = solid(1, 1, Qt::red);
    cache.insert("a", {}, image);
    cache.insert("b", {}, image);
    EXPECT_TRUE(cache.find("a", {}));
    cache.insert("c", {}, image);
    EXPECT_FALSE(cache.find("b", {}));
    EXPECT_TRUE(cache.find("a", {}));
    EXPECT_EQ(cache.bytes(), 8u);
    cache.insert("d", {}, solid(3, 1, Qt::red));
    EXPECT_FALSE(cache.find("d", {}));
    EXPECT_TRUE(cache.find("c", {}));
    cache.setLimit(3);
    EXPECT_EQ(cache.bytes(), 0u);
}

} // namespace
} // namespace Vetra
