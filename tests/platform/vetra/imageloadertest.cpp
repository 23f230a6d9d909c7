#include "vetra/imageloader.h"

#include "support.h"

#include <filesystem>

#include <sys/stat.h>

namespace Vetra {
namespace {

std::string loadKey(const std::string& path, const ImagePolicy& policy = {})
{
    return keyOf([&] { loadImage(path, policy); });
}

Holder<Image> decode(const QByteArray& bytes)
{
    return decodeImage({bytes.constData(), std::size_t(bytes.size())}, "test");
}

struct FormatCase : NamedRow {
    const char* format;
    int tolerance;
};
class ImageFormatTest : public testing::TestWithParam<FormatCase> {};

TEST_P(ImageFormatTest, IsKnownByContentWhateverTheName)
{
    const Folder folder;
    const auto path = folder.write("a.txt", encoded(plainImage(5, 4, Qt::red), GetParam().format));
    const auto image = loadImage(path);
    EXPECT_EQ(image->size(), (Size<int>{5, 4}));
    EXPECT_NEAR(image->pixel(4, 3).red(), 255, GetParam().tolerance);
    EXPECT_FALSE(image->isVector());
}

INSTANTIATE_TEST_SUITE_P(ImageLoader, ImageFormatTest,
                         testing::Values(FormatCase{"Png", "PNG", 0}, FormatCase{"Jpeg", "JPEG", 3},
                                         FormatCase{"Bmp", "BMP", 0}),
                         rowName);

TEST(ImageLoaderTest, RefusesWhatIsNoOrdinaryFile)
{
    const Folder folder;
    ASSERT_EQ(::mkfifo(folder.path("fifo").c_str(), 0600), 0);
    std::filesystem::create_symlink(folder.path("fifo"), folder.path("link"));
    EXPECT_EQ(loadKey(folder.path("fifo")), "NotARegularFile");
    EXPECT_EQ(loadKey(folder.path("link")), "NotARegularFile");
    EXPECT_EQ(loadKey("/dev/zero"), "NotARegularFile");
    EXPECT_EQ(loadKey(folder.path()), "NotARegularFile");
    EXPECT_EQ(loadKey("/proc/self/mem"), "Empty");
    EXPECT_EQ(loadKey(folder.write("none", "")), "Empty");
    EXPECT_EQ(loadKey(folder.path("missing")), "NotFound");
    EXPECT_EQ(loadKey(std::string("a\0.png", 6)), "NotFound");
    EXPECT_EQ(loadKey(folder.write("words.png", "just words")), "UnknownFormat");
}

TEST(ImageLoaderTest, RefusesAFileBeyondTheLimitWithoutReadingIt)
{
    const Folder folder;
    const auto path = folder.write("sparse.png", "\x89PNG\r\n\x1a\n");
    std::filesystem::resize_file(path, ImageLimits::MaxFileBytes + 1);
    EXPECT_EQ(loadKey(path), "TooLarge");
    std::filesystem::resize_file(path, ImageLimits::MaxFileBytes);
    EXPECT_EQ(loadKey(path), "Damaged");
}

TEST(ImageLoaderTest, ARootHoldsBackPathsThatLeaveIt)
{
    const Folder outside, inside;
    const auto png = encoded(plainImage(1, 1, Qt::red), "PNG");
    outside.write("a.png", png);
    inside.write("a.png", png);
    std::filesystem::create_symlink(outside.path("a.png"), inside.path("link.png"));
    const ImagePolicy policy{ImagePolicy::Files::UnderRoot, inside.path()};
    const auto sibling = std::filesystem::path(outside.path()).filename().string();
    EXPECT_EQ(loadKey("a.png", policy), "");
    EXPECT_EQ(loadKey(inside.path("a.png"), policy), "");
    EXPECT_EQ(loadKey("link.png", policy), "OutsideRoot");
    EXPECT_EQ(loadKey("../" + sibling + "/a.png", policy), "OutsideRoot");
    EXPECT_EQ(loadKey(outside.path("a.png"), policy), "OutsideRoot");
    EXPECT_EQ(loadKey(inside.path("a.png"), {ImagePolicy::Files::None, {}}), "OutsideRoot");
}

QByteArray blankPng(int width, int height)
{
    QImage image(width, height, QImage::Format_Mono);
    image.fill(0);
    return encoded(image, "PNG");
}

TEST(ImageLoaderTest, TheHeaderDecidesOnTheSizeBeforeAnythingIsDecoded)
{
    // Cut after the header: decoding would find it damaged.
    EXPECT_EQ(keyOf([&] { decode(blankPng(16384, 4097).left(100)); }), "TooLarge");
    EXPECT_EQ(keyOf([&] { decode(blankPng(16385, 1)); }), "TooLarge");
    EXPECT_EQ(decode(blankPng(16384, 1))->width(), 16384);
}

TEST(ImageLoaderTest, AFileCutAnywhereGivesAnImageOrAnError)
{
    for (const char* format : {"PNG", "JPEG", "BMP"}) {
        const auto whole = encoded(plainImage(8, 8, Qt::blue), format);
        for (int length = 0; length < whole.size(); ++length) {
            const auto key = keyOf([&] { EXPECT_EQ(decode(whole.left(length))->width(), 8); });
            EXPECT_THAT(key, testing::AnyOf("", "Empty", "Damaged", "UnknownFormat", "TooLarge"));
        }
    }
}

} // namespace
} // namespace Vetra
