#include "nodes/cachebudget.h"

#include "support/pictures.h"
#include "tova/nodes/geometry/limits.h"
#include "tova/tova.h"

#include <gmock/gmock.h>

#include <list>

using namespace Tova2;

namespace {

struct AdmitCase {
    const char* name;
    QSize pixels;
    bool isAdmitted;
};
void PrintTo(const AdmitCase& c, std::ostream* out)
{
    *out << c.name;
}
class CacheBudgetAdmitTest : public testing::TestWithParam<AdmitCase> {};

TEST_P(CacheBudgetAdmitTest, KnowsTheLimitOfOnePicture)
{
    EXPECT_EQ(CacheBudget::admits(GetParam().pixels), GetParam().isAdmitted);
}

INSTANTIATE_TEST_SUITE_P(Nodes, CacheBudgetAdmitTest,
                         testing::Values(AdmitCase{"Empty", {0, 5}, false},
                                         AdmitCase{"Negative", {-5, -5}, false},
                                         AdmitCase{"AtLimit", {4096, 4096}, true},
                                         AdmitCase{"APixelMore", {4096 * 4096 + 1, 1}, false},
                                         AdmitCase{"BeyondInt", {1'000'000, 1'000'000}, false}));

TEST(CacheBudgetTest, LetsGoWhatWasUsedLongestAgoUntilTheNewOneFits)
{
    // What other tests have left goes first.
    {
        const CacheBudget::Share everything(Limits::allCachesBytes, [] {});
    }
    ASSERT_EQ(CacheBudget::bytes(), 0u);
    std::list<CacheBudget::Share> shares;
    std::vector<int> gone;
    const auto add = [&](int name) {
        shares.emplace_back(Limits::nodeCacheBytes, [&, name] {
            gone.push_back(name);
            shares.pop_front();
        });
    };
    for (int name = 0; name < 4; ++name)
        add(name);
    EXPECT_THAT(gone, testing::IsEmpty());
    EXPECT_EQ(CacheBudget::bytes(), Limits::allCachesBytes);
    // The first has been used since, so that the second goes.
    shares.front().touch();
    shares.splice(shares.end(), shares, shares.begin());
    add(4);
    EXPECT_THAT(gone, testing::ElementsAre(1));
    shares.clear();
    EXPECT_EQ(CacheBudget::bytes(), 0u);
}

QImage renderPart(Scene& scene, const Vetra::GLRect<double>& part, double scale)
{
    QImage image(static_cast<int>(part.width * scale), static_cast<int>(part.height * scale),
                 QImage::Format_RGB32);
    image.fill(Qt::white);
    scene.render(image, {}, part);
    return image;
}

OpenLinearPathNode longPath()
{
    std::vector<Vetra::GLPoint<double>> points;
    for (int i = 0; i < 400; ++i)
        points.push_back({i * 2.0, i % 2 ? 30.0 : 0.0});
    return OpenLinearPathNode(points);
}

// A path paints only what is exposed of it; its picture has to be whole all the same.
TEST(NodeCacheTest, PictureMadeOfAPartServesTheRest)
{
    const auto scene = Scene::createScene(), plain = Scene::createScene();
    OpenLinearPathNode cached = longPath();
    cached.setCacheType(CacheType::DeviceCoordinateCache);
    scene->addNode(cached);
    plain->addNode(longPath());
    renderPart(*scene, {0, 0, 40, 40}, 1);
    EXPECT_LE(TestSupport::largestDifference(renderPart(*scene, {600, 0, 200, 40}, 1),
                                             renderPart(*plain, {600, 0, 200, 40}, 1)),
              3);
}

RectNode blockOf(double size, CacheType type)
{
    RectNode node({0, 0, size, size * 0.75});
    DrawStyle style(Stroke(Vetra::Color(0.2, 0, 0.5), size / 50, StrokeStyle::SolidLine,
                           StrokeCapStyle::FlatCap, StrokeJoinStyle::RoundJoin, nullptr),
                    Fill(Vetra::Color(0.9, 0.8, 0.2, 0.8)));
    style.setIsAntiAliased(true);
    node.setDrawStyle(style);
    node.setCacheType(type);
    return node;
}

class CacheZoomTest : public testing::TestWithParam<CacheType> {};

TEST_P(CacheZoomTest, StaysWithinTheBudgetAndLooksTheSame)
{
    const auto scene = Scene::createScene(), plain = Scene::createScene();
    for (double size = 1; size <= 1e6; size *= 2.15) {
        scene->addNode(blockOf(size, GetParam()));
        plain->addNode(blockOf(size, CacheType::NoCache));
    }
    std::size_t most = 0;
    for (double zoom = 0.009; zoom <= 12.5; zoom *= 1.6) {
        const Vetra::GLRect<double> part{-10, -10, 320 / zoom, 240 / zoom};
        EXPECT_LE(TestSupport::largestDifference(renderPart(*scene, part, zoom),
                                                 renderPart(*plain, part, zoom)),
                  12)
            << zoom;
        most = std::max(most, CacheBudget::bytes());
    }
    EXPECT_GT(most, Limits::nodeCacheBytes);
    EXPECT_LE(most, Limits::allCachesBytes);
}

INSTANTIATE_TEST_SUITE_P(Scene, CacheZoomTest,
                         testing::Values(CacheType::ItemCoordinateCache,
                                         CacheType::DeviceCoordinateCache),
                         [](const auto& row) {
                             return row.param == CacheType::ItemCoordinateCache ? "Item" : "Device";
                         });

} // namespace
