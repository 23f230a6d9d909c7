#include "tova/tova.h"

#include "host/diagnosticscounter.h"
#include "vetra/qt.h"

#include <gmock/gmock.h>

#include <QImage>
#include <QPainter>
#include <QPicture>

#include <cmath>

using namespace Tova2;

namespace {

using Points = std::vector<Vetra::GLPoint<double>>;

OpenLinearPathNode addLine(Scene& scene, const Points& points, double width = 1.5)
{
    OpenLinearPathNode path(points);
    DrawStyle style(Stroke(Vetra::Color(0, 0, 0), width, StrokeStyle::SolidLine,
                           StrokeCapStyle::FlatCap, StrokeJoinStyle::MiterJoin, nullptr),
                    Fill());
    style.setIsAntiAliased(true);
    path.setDrawStyle(style);
    scene.addNode(path);
    return path;
}

QImage paint(Scene& scene, const Vetra::GLRect<double>& from, QSize size = {200, 200})
{
    QImage image(size, QImage::Format_RGB32);
    image.fill(Qt::white);
    scene.render(image, {}, from);
    return image;
}

class Counted {
public:
    explicit Counted(const char* name)
        : m_counter(Host::DiagnosticsCounter::counter(name)), m_before(m_counter.value())
    {}
    std::int64_t since() const { return m_counter.value() - m_before; }

private:
    Host::DiagnosticsCounter& m_counter;
    const std::int64_t m_before;
};

class CrossingPaintTest : public testing::TestWithParam<const char*> {
protected:
    CrossingPaintTest()
    {
        m_scene->usePathIntersectionsDecorator(GetParam());
        m_round.setCornerStyle(CornerStyle::Rounded);
        m_scene->findPathIntersections();
    }

    Vetra::Holder<Scene> m_scene = Scene::createScene();
    OpenLinearPathNode m_across = addLine(*m_scene, {{0, 50}, {100, 50}});
    OpenLinearPathNode m_round = addLine(*m_scene, {{50, 0}, {50, 80}, {90, 80}});
};

// Marks have their size on the device, so a new zoom lays them out anew; nothing else follows it.
TEST_P(CrossingPaintTest, PanZoomSelectAndHoverBuildNoOutline)
{
    paint(*m_scene, {0, 0, 100, 100});
    m_scene->getNodesAtScenePos({50, 50});
    const Counted outlines("Paths:Outlines built"), passes("Paths:Crossing passes");
    {
        const Counted marks("Paths:Crossing marks laid out");
        for (double x = -40; x < 40; x += 10)
            paint(*m_scene, {x, x / 2, 100, 100});
        EXPECT_EQ(marks.since(), 0);
        for (const double zoom : {0.1, 0.5, 3.0, 50.0})
            paint(*m_scene, {0, 0, 100 / zoom, 100 / zoom});
        EXPECT_GT(marks.since(), 0);
    }
    Stroke selected = m_round.getStroke();
    selected.setColor(Vetra::Color(0, 0, 1));
    m_round.setStroke(selected);
    for (double y = 0; y < 100; ++y)
        m_scene->getNodesAtScenePos({50, y});
    paint(*m_scene, {0, 0, 100, 100});
    EXPECT_TRUE(m_scene->pathIntersectionsAllFound());
    EXPECT_EQ(outlines.since(), 0);
    EXPECT_EQ(passes.since(), 0);
}

TEST_P(CrossingPaintTest, MarksFollowTheWidthOfTheLineThatIsCrossed)
{
    paint(*m_scene, {0, 0, 100, 100});
    Stroke wide = m_across.getStroke();
    wide.setLogicalWidth(12);
    m_across.setStroke(wide);
    m_scene->findPathIntersections();
    const QImage kept = paint(*m_scene, {0, 0, 100, 100});
    m_scene->usePathIntersectionsDecorator(GetParam()); // drops what is kept
    EXPECT_EQ(paint(*m_scene, {0, 0, 100, 100}), kept);
}

TEST_P(CrossingPaintTest, MarksFollowAContainerThatMoves)
{
    ContainerNode group;
    m_scene->addNode(group);
    m_across.setParent(group);
    m_round.setParent(group);
    m_scene->findPathIntersections();
    const QImage before = paint(*m_scene, {0, 0, 100, 100});
    group.setPosition({30, 20});
    m_scene->findPathIntersections();
    EXPECT_EQ(paint(*m_scene, {30, 20, 100, 100}), before);
}

TEST_P(CrossingPaintTest, WhatLiesBelowShowsThrough)
{
    RectNode below({-10, -10, 120, 120});
    below.setDrawStyle(DrawStyle(Stroke::NoStroke(), Fill(Vetra::Color(0.2, 0.9, 0.2))));
    below.setZValue(-1);
    m_scene->addNode(below);
    const QImage image = paint(*m_scene, {0, 0, 100, 100});
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x)
            ASSERT_LE(qBlue(image.pixel(x, y)), 51) << x << ',' << y;
    }
}

// What a line covers is kept for its marks' scale; nothing drawn before may show in the picture.
TEST_P(CrossingPaintTest, WhatWasDrawnBeforeLeavesNoTrace)
{
    const auto line = addLine(*m_scene, {{20, 90}, {20, 10}, {80, 10}});
    const auto look = [&](double width, StrokeCapStyle cap, double zoom) {
        DrawStyle style = line.getDrawStyle();
        Stroke stroke = style.stroke();
        stroke.setLogicalWidth(width);
        stroke.setCapStyle(cap);
        style.setStroke(stroke);
        OpenLinearPathNode(line).setDrawStyle(style);
        return paint(*m_scene, {0, 0, 100 / zoom, 100 / zoom});
    };
    const QImage first = look(1.5, StrokeCapStyle::FlatCap, 1);
    EXPECT_NE(look(4, StrokeCapStyle::FlatCap, 1), first);
    EXPECT_NE(look(1.5, StrokeCapStyle::SquareCap, 1), first);
    EXPECT_NE(look(1.5, StrokeCapStyle::FlatCap, 0.5), first);
    EXPECT_EQ(look(1.5, StrokeCapStyle::FlatCap, 1), first);
}

class FadeTest : public testing::TestWithParam<double> {};

// From the line to where the other passes, row by row, wherever the pixels lie.
TEST_P(FadeTest, NeverGrowsDarkerOnItsWay)
{
    const auto scene = Scene::createScene();
    scene->usePathIntersectionsDecorator("grad_pin");
    addLine(*scene, {{10, 0}, {10, 40}}, 4);
    addLine(*scene, {{0, 20}, {20, 20}});
    scene->findPathIntersections();
    const QImage image = paint(*scene, {0, GetParam(), 20, 40}, {20, 40});
    EXPECT_EQ(qGray(image.pixel(10, 11)), 0);
    for (int y = 12; y <= 17; ++y)
        EXPECT_GE(qGray(image.pixel(10, y)), qGray(image.pixel(10, y - 1))) << y;
    EXPECT_GT(qGray(image.pixel(10, 17)), 150);
}

INSTANTIATE_TEST_SUITE_P(Scene, FadeTest, testing::Values(0, 0.25, 0.5, 0.8));

// Of the long one most is not seen.
TEST_P(CrossingPaintTest, ALongLineIsMarkedAsAShortOne)
{
    Points meander;
    for (int i = 0; i < 20000; ++i)
        meander.push_back({200 + i / 2 * 30.0, (i + 1) / 2 % 2 * 100.0});
    const Points start(meander.begin(), meander.begin() + 12);
    std::vector<QImage> images;
    for (const Points& points : {meander, start}) {
        const auto scene = Scene::createScene();
        scene->usePathIntersectionsDecorator(GetParam());
        addLine(*scene, points);
        addLine(*scene, {{0, 40}, {1e6, 40}});
        scene->findPathIntersections();
        images.push_back(paint(*scene, {190, 0, 120, 120}));
    }
    EXPECT_EQ(images[0], images[1]);
}

TEST_P(CrossingPaintTest, APartHasThePixelsOfTheWhole)
{
    for (const double width : {0.0, 1.0, 1.5, 5.0}) {
        const auto scene = Scene::createScene();
        scene->usePathIntersectionsDecorator(GetParam());
        addLine(*scene, {{50, 0}, {50, 1990}}, width);
        addLine(*scene, {{10, 1970}, {1990, 1970}}, width);
        for (double at = 7.3; at < 1960; at += 13 + std::fmod(at, 17)) {
            addLine(*scene, {{20, at}, {80, at}});
            addLine(*scene, {{at, 1950}, {at, 1990}});
        }
        scene->findPathIntersections();
        const QImage whole = paint(*scene, {0, 0, 2000, 2000}, {2000, 2000});
        for (const QRect part : {QRect(0, 707, 100, 111), QRect(1234, 1900, 99, 100)}) {
            const auto rect = Vetra::fromQt(QRectF(part));
            QImage image(2000, 2000, QImage::Format_RGB32);
            image.fill(Qt::white);
            scene->render(image, rect, rect);
            EXPECT_EQ(image.copy(part), whole.copy(part)) << width;
        }
    }
}

QImage magnified(Scene& scene)
{
    QPicture picture;
    scene.render(picture, {}, {0, 0, 100, 100});
    QImage image(500, 500, QImage::Format_RGB32);
    image.fill(Qt::white);
    QPainter painter(&image);
    painter.scale(25, 25);
    painter.translate(-42, -40);
    painter.drawPicture(0, 0, picture);
    return image;
}

// As the rounded line's have to.
TEST_P(CrossingPaintTest, RecordedArcsStayCurves)
{
    const QImage curved = magnified(*m_scene);
    m_round.setCornerStyle(CornerStyle::Sharp);
    EXPECT_EQ(magnified(*m_scene), curved);
}

TEST(CrossingPaint, ArcsOfDashedLinesAreWhole)
{
    for (const CornerStyle corners : {CornerStyle::Sharp, CornerStyle::Rounded}) {
        const auto inkOf = [corners](StrokeStyle dashes) {
            const auto scene = Scene::createScene();
            scene->usePathIntersectionsDecorator("hop");
            OpenLinearPathNode line = addLine(*scene, {{50, 0}, {50, 80}, {90, 80}}, 2);
            Stroke stroke = line.getStroke();
            stroke.setStyle(dashes);
            line.setStroke(stroke);
            line.setCornerStyle(corners);
            addLine(*scene, {{0, 50}, {100, 50}});
            scene->findPathIntersections();
            const QImage arc = paint(*scene, {52, 30, 20, 40}, {20, 40});
            int ink = 0;
            for (int i = 0; i < 20 * 40; ++i)
                ink += 255 - qGray(arc.pixel(i % 20, i / 20));
            return ink;
        };
        EXPECT_GT(inkOf(StrokeStyle::SolidLine), 2000);
        EXPECT_NEAR(inkOf(StrokeStyle::DashLine), inkOf(StrokeStyle::SolidLine), 500);
    }
}

INSTANTIATE_TEST_SUITE_P(Scene, CrossingPaintTest,
                         testing::Values("hop", "pin", "grad_pin", "light_pin"),
                         [](const auto& row) { return std::string(row.param); });

} // namespace
