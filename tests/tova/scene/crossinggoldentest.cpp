#include "support/goldenpicture.h"
#include "tova/tova.h"

#include <gmock/gmock.h>

#include <QImage>

using namespace Tova2;

namespace {

using Points = std::vector<Vetra::GLPoint<double>>;

void addLine(Scene& scene, const Points& points, double width, const Vetra::Color& color)
{
    OpenLinearPathNode path(points);
    DrawStyle style(Stroke(color, width, StrokeStyle::SolidLine, StrokeCapStyle::FlatCap,
                           StrokeJoinStyle::MiterJoin, nullptr),
                    Fill());
    style.setIsAntiAliased(true);
    path.setDrawStyle(style);
    path.setCornerStyle(CornerStyle::Rounded);
    path.setRoundedCornerRadius(8);
    scene.addNode(path);
}

/// Lines down and up, thin and wide, neighbours close enough to merge, a T-junction, crossings near
/// corners and ends, a path that crosses itself, a slanted line and equal z-values.
Vetra::Holder<Scene> makeScene(const char* decorator)
{
    auto scene = Scene::createScene();
    scene->setLODStrategyKey("tova2::fullquality");
    scene->usePathIntersectionsDecorator(decorator);
    const Vetra::Color blue(0.1, 0.2, 0.6), red(0.6, 0.2, 0.1), green(0.1, 0.5, 0.1), black;
    addLine(*scene, {{0, 30}, {200, 30}}, 1.5, blue);
    addLine(*scene, {{0, 60}, {200, 60}}, 3, red);
    addLine(*scene, {{0, 66}, {200, 66}}, 1, green);
    addLine(*scene, {{0, 72}, {80, 72}}, 1, green);
    addLine(*scene, {{30, 0}, {30, 100}}, 1.5, black);
    addLine(*scene, {{60, 100}, {60, 0}}, 1.5, black);
    addLine(*scene, {{90, 0}, {90, 60}}, 1.5, black);
    addLine(*scene, {{120, 0}, {120, 100}, {160, 100}, {160, 20}, {110, 20}}, 1, blue);
    addLine(*scene, {{180, 0}, {190, 100}}, 1.5, black);
    addLine(*scene, {{20, 45}, {175, 45}, {175, 10}, {140, 10}, {140, 80}}, 0, red);
    for (const Node& node : scene->getAllNodes())
        Node(node).setZValue(1);
    scene->findPathIntersections();
    return scene;
}

QImage draw(const char* decorator, double zoom)
{
    QImage image(static_cast<int>(220 * zoom), static_cast<int>(120 * zoom), QImage::Format_RGB32);
    image.fill(Qt::white);
    makeScene(decorator)->render(image, {}, {-10, -10, 220, 120});
    return image;
}

struct GoldenCase {
    const char* decorator;
    double zoom;
};
void PrintTo(const GoldenCase& c, std::ostream* out)
{
    *out << c.decorator << " at " << c.zoom;
}
class CrossingGoldenTest : public testing::TestWithParam<GoldenCase> {};

TEST_P(CrossingGoldenTest, LooksAsItDidWhenItWasLookedAt)
{
    TestSupport::expectGolden(draw(GetParam().decorator, GetParam().zoom),
                              QStringLiteral(TOVA_GOLDEN_FOLDER "/crossings_%1_%2.png")
                                  .arg(QLatin1String(GetParam().decorator))
                                  .arg(static_cast<int>(GetParam().zoom * 100)));
}

INSTANTIATE_TEST_SUITE_P(Scene, CrossingGoldenTest,
                         testing::Values(GoldenCase{"hop", 0.25}, GoldenCase{"hop", 1},
                                         GoldenCase{"hop", 3}, GoldenCase{"pin", 0.25},
                                         GoldenCase{"pin", 1}, GoldenCase{"pin", 3},
                                         GoldenCase{"grad_pin", 0.25}, GoldenCase{"grad_pin", 1},
                                         GoldenCase{"grad_pin", 3}, GoldenCase{"light_pin", 0.25},
                                         GoldenCase{"light_pin", 1}, GoldenCase{"light_pin", 3}));

} // namespace
