#include "support/rows.h"

#include "scene/sceneprivate.h"

#include "tova/events/mouseevent.h"
#include "tova/nodes/nodeemitters.h"
#include "tova/nodes/rectnode.h"
#include "tova/scene/scene.h"
#include "tova/widget/glcanvas.h"
#include "tova/widget/layerstack.h"
#include "vetra/errorreporter.h"
#include "vetra/qt.h"
#include "widgets/qt.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QImage>
#include <QPixmap>
#include <QScrollBar>

#include <cmath>
#include <functional>
#include <limits>
#include <memory>

namespace {

using namespace Tova2;
using Point = Vetra::GLPoint<double>;
using Rect = Vetra::GLRect<double>;

/// A canvas over a scene with one rectangle.
class GLCanvasTest : public testing::Test {
protected:
    GLCanvasTest() { canvas.setSize({400, 300}); }
    ~GLCanvasTest() override { canvas.destroy(); }

    void fill(const Rect& rect)
    {
        RectNode block(rect);
        block.setDrawStyle(DrawStyle(Stroke::NoStroke(), Fill(Vetra::Color(0.5, 0.5, 0.5))));
        scene->addNode(block);
        canvas.setScene(scene.get());
    }
    QImage picture() { return toQt(canvas)->grab().toImage(); }

    Vetra::Holder<Scene> scene = Scene::createScene();
    GLCanvas& canvas = *new GLCanvas(Vetra::StringID("canvas"));
};

// Zoom steps

struct Step : NamedRow {
    double scale;
    ZoomDirection direction;
    double preferred; ///< 0 for none
    double next;
};

class ZoomStepTest : public GLCanvasTest, public testing::WithParamInterface<Step> {};

TEST_P(ZoomStepTest, IsAsStated)
{
    const Step& step = GetParam();
    canvas.setScale(step.scale);
    if (step.preferred > 0)
        canvas.setPreferredExtents({400 / step.preferred, 0});
    EXPECT_DOUBLE_EQ(canvas.getNextZoomScale(step.direction), step.next);
}

constexpr auto in = ZoomDirection::In, out = ZoomDirection::Out;
const Step kSteps[] = {
    {{"InFromActualSize"}, 1, in, 0, 1.25},
    {{"OutFromActualSize"}, 1, out, 0, 0.8},
    {{"InFromNearlyActualSize"}, 1.0004, in, 0, 1.25},
    {{"OutFromNearlyActualSize"}, 1.0004, out, 0, 0.8},
    {{"OutFromBetweenSteps"}, 1.1, out, 0, 1},
    {{"InBeyondTheTable"}, 12.5, in, 0, 16.25},
    {{"InFarBeyondRoundsToHalves"}, 20, in, 0, 26},
    {{"OutBeyondTheTable"}, 0.009, out, 0, 0.009 / 1.3},
    {{"LastStepIsNoneByTable"}, 10, in, 0, 13}, // the table's ends are left by the factor
    {{"PreferredOnTheWayIn"}, 1, in, 1.1, 1.1},
    {{"PreferredOnTheWayOut"}, 1, out, 0.9, 0.9},
    {{"PreferredElsewhere"}, 1, in, 0.9, 1.25},
    {{"PreferredIsTheScale"}, 1, in, 1, 1.25},
    {{"AnyOtherDirectionIsOut"}, 1, static_cast<ZoomDirection>(7), 0, 0.8},
};
INSTANTIATE_TEST_SUITE_P(Steps, ZoomStepTest, testing::ValuesIn(kSteps), rowName);

// Limits and fits

struct Limits : NamedRow {
    Rect scene;
    double low, high;
};

class ScaleLimitTest : public GLCanvasTest, public testing::WithParamInterface<Limits> {};

TEST_P(ScaleLimitTest, FollowsTheScene)
{
    fill(GetParam().scene);
    EXPECT_DOUBLE_EQ(canvas.getMinScaleLimit(), GetParam().low);
    EXPECT_DOUBLE_EQ(canvas.getMaxScaleLimit(), GetParam().high);
}

const Limits kLimits[] = {
    {{"Empty"}, {}, 1, 1},
    {{"WideSceneFitsByWidth"}, {0, 0, 1000, 10}, 0.4, 64},
    {{"HighSceneFitsByHeight"}, {0, 0, 10, 1000}, 0.3, 64},
    {{"SquareSceneFitsByHeight"}, {5, 5, 1200, 1200}, 0.25, 64},
    {{"SmallScene"}, {0, 0, 100, 10}, 0.5, 64},
};
INSTANTIATE_TEST_SUITE_P(Scenes, ScaleLimitTest, testing::ValuesIn(kLimits), rowName);

TEST_F(GLCanvasTest, FitsTheSceneIntoTheMargins)
{
    canvas.setSize({220, 120});
    canvas.setMargins({10, 10, 10, 10});
    fill({30, 40, 100, 100});
    canvas.zoomToSceneRect();
    EXPECT_DOUBLE_EQ(canvas.getScale(), 1);
    EXPECT_EQ(canvas.sceneRectToViewRect({30, 40, 100, 100}), Rect({60, 10, 100, 100}));
    canvas.setMargins({200, 10, 30, 10});
    canvas.zoomToSceneRect();
    EXPECT_DOUBLE_EQ(canvas.getScale(), 1) << "no room is left";
}

TEST_F(GLCanvasTest, BindsTheUserToTheLimitsAndNotTheHost)
{
    fill({0, 0, 100, 100});
    canvas.setScale(500);
    EXPECT_EQ(canvas.getScale(), 500);
    canvas.zoomByStep(in, ZoomReason::Source::Wheel);
    EXPECT_EQ(canvas.getScale(), 500) << "in must not lead out";
    canvas.zoomByStep(out, ZoomReason::Source::Wheel);
    EXPECT_EQ(canvas.getScale(), 64);
    canvas.setScaleAroundScenePointWithReason(0.001, {}, ZoomReason::Source::Pinch);
    EXPECT_EQ(canvas.getScale(), 0.5);
    scene->addNode(RectNode(Rect{0, 0, 1000, 900}));
    canvas.setScaleAroundScenePointWithReason(0.001, {}, ZoomReason::Source::Pinch);
    EXPECT_NEAR(canvas.getScale(), 300 / canvas.getSceneRect().height, 1e-9) << "shows it all";
    EXPECT_GT(canvas.getMinScaleLimit(), canvas.getScale());
}

TEST_F(GLCanvasTest, ScalesAboutTheOriginWithoutALayer)
{
    canvas.translateScenePointToViewPoint({0, 0}, {30, 40});
    canvas.setScale(3);
    EXPECT_EQ(canvas.scenePointToViewPoint({0, 0}), Point({30, 40}));
}

TEST_F(GLCanvasTest, KeepsTheScenePointUnderThePointer)
{
    fill({-1e6, -1e6, 2e6, 2e6});
    canvas.showScenePointAtViewPointAtScale({123456.789, -98765.4321}, {311.5, 17.25}, 3);
    const Point pointed = canvas.viewPointToScenePoint({311.5, 17.25});
    for (int i = 0; i < 400; ++i)
        canvas.setScaleAroundScenePointWithReason(canvas.getNextZoomScale(i / 20 % 2 ? in : out),
                                                  pointed, ZoomReason::Source::Wheel);
    const Point at = canvas.scenePointToViewPoint(pointed);
    EXPECT_NEAR(at.x, 311.5, 0.01);
    EXPECT_NEAR(at.y, 17.25, 0.01);
}

// Moving

TEST_F(GLCanvasTest, AddsUpSmallMovesExactly)
{
    fill({-5000, -5000, 10000, 10000});
    canvas.setScale(0.7);
    const Point before = canvas.scenePointToViewPoint({0, 0});
    for (int i = 0; i < 1000; ++i)
        canvas.translate(0.3 / 0.7, 0.1 / 0.7);
    const Point after = canvas.scenePointToViewPoint({0, 0});
    EXPECT_NEAR(after.x - before.x, 300, 1e-6);
    EXPECT_NEAR(after.y - before.y, 100, 1e-6);
}

TEST_F(GLCanvasTest, StopsWhereOnlyATenthOfTheViewShowsTheScene)
{
    fill({0, 0, 1000, 800});
    canvas.setMargins({50, 0, 0, 0});
    canvas.translate(1e9, -1e9);
    const Rect shown = canvas.getSceneRectInView();
    EXPECT_EQ(shown.right(), -50 + 40);
    EXPECT_EQ(shown.y, 800 - 30);
    // From a place farther out there is a way back, and none farther out.
    canvas.translateScenePointToViewPoint({0, 0}, {5000, 0});
    canvas.translate(10, 0);
    EXPECT_EQ(canvas.scenePointToViewPoint({0, 0}).x, 5000);
    canvas.translate(-10, 0);
    EXPECT_EQ(canvas.scenePointToViewPoint({0, 0}).x, 4990);
}

TEST_F(GLCanvasTest, ScrollsByStepsAndPages)
{
    fill({0, 0, 10000, 10000});
    canvas.translateScenePointToViewPoint({5000, 5000}, {0, 0});
    canvas.requestScrollInSteps(12, -6);
    EXPECT_EQ(canvas.viewPointToScenePoint({0, 0}), Point({5040, 4985}));
    canvas.requestScrollInPages(0, 1);
    EXPECT_EQ(canvas.viewPointToScenePoint({0, 0}), Point({5040, 5255}));
    canvas.requestScrollInPages(std::numeric_limits<int>::min(), std::numeric_limits<int>::min());
    EXPECT_EQ(canvas.getSceneRectInView(), Rect({-360, -270, 400, 300}));
    const auto bar = toQt(canvas)->findChildren<QScrollBar*>().back();
    canvas.translateScenePointToViewPoint({5000, 5000}, {0, 0});
    canvas.connectTo(&GLCanvasEmitters::viewChange, [](Point) { throw 1; });
    int reported = 0;
    Vetra::setErrorReporter([&](std::exception_ptr) { ++reported; });
    bar->triggerAction(QScrollBar::SliderPageStepAdd);
    Vetra::setErrorReporter({});
    EXPECT_EQ(canvas.viewPointToScenePoint({0, 0}), Point({5000, 5270})) << "as a page";
    EXPECT_EQ(reported, 1) << "not for the toolkit";
}

TEST_F(GLCanvasTest, RevealsByTheLeastMove)
{
    canvas.ensureVisible({390, 10, 30, 30});
    EXPECT_EQ(canvas.getSceneRectInView(), Rect({20, 0, 400, 300}));
    canvas.ensureVisible({30, 20, 10, 10});
    EXPECT_EQ(canvas.getSceneRectInView(), Rect({20, 0, 400, 300})) << "it was in view";
    canvas.ensureVisible({100, 100, 5000, 10});
    EXPECT_EQ(canvas.getSceneRectInView(), Rect({100, 0, 400, 300})) << "the top left of the large";
}

// Scroll bars

TEST_F(GLCanvasTest, ShowsScrollbarsOnlyWhileTheSceneDoesNotFit)
{
    fill({0, 0, 390, 290});
    EXPECT_FALSE(canvas.isHorizontalScrollbarVisible() || canvas.isVerticalScrollbarVisible());
    canvas.setMargins({8, 0, 8, 0});
    EXPECT_TRUE(canvas.isHorizontalScrollbarVisible());
    EXPECT_FALSE(canvas.isVerticalScrollbarVisible()) << "the other bar takes no room";
    EXPECT_EQ(canvas.getScale(), 1);
    const auto bar = canvas.getScrollbarGeometry(Orientation::Horizontal);
    EXPECT_EQ(bar.width, 400);
    EXPECT_EQ(bar.bottom(), 300);
    canvas.hideScrollbars();
    EXPECT_FALSE(canvas.isHorizontalScrollbarVisible());
    EXPECT_EQ(canvas.getScrollbarGeometry(Orientation::Horizontal), Vetra::GLRect<int>());
    scene->addNode(RectNode({0, 0, 10, 2000}));
    canvas.showScrollbars();
    canvas.setScale(1e12); // the toolkit's bars end at 2^31
    EXPECT_TRUE(canvas.isVerticalScrollbarVisible());
    EXPECT_FALSE(picture().isNull());
}

// Painting

TEST_F(GLCanvasTest, ShowsTheOverlayOverTheBaseAndTheGridUnderIt)
{
    RectNode block({0, 0, 200, 200});
    block.setDrawStyle(DrawStyle(Stroke::NoStroke(), Fill(Vetra::Color(1, 0, 0))));
    scene->addNode(block);
    canvas.setScene(scene.get());
    RectNode band({50, 50, 20, 20});
    band.setDrawStyle(DrawStyle(Stroke::NoStroke(), Fill(Vetra::Color(0, 0, 1))));
    canvas.getOverlayScene()->addNode(band);
    const QImage plain = picture();
    EXPECT_EQ(plain.pixelColor(10, 10), QColor(Qt::red));
    EXPECT_EQ(plain.pixelColor(60, 60), QColor(Qt::blue));
    EXPECT_EQ(plain.pixelColor(300, 200), QColor(Qt::white));

    block.setRect({0, 0, 30, 200});
    scene->addNode(RectNode({299, 199, 1, 1}));
    const auto bounds = canvas.getSceneRect();
    canvas.setGridVisible(true);
    QCoreApplication::processEvents();
    const QImage gridded = picture();
    EXPECT_EQ(gridded.pixelColor(10, 10), QColor(Qt::red));
    EXPECT_NE(gridded.pixelColor(100, 120), QColor(Qt::white));
    EXPECT_EQ(canvas.getSceneRect(), bounds);
    EXPECT_EQ(scene->getAllNodesCount(), 2u);
    canvas.setGridVisible(false);
    QCoreApplication::processEvents();
    EXPECT_EQ(picture().pixelColor(100, 120), QColor(Qt::white));
}

TEST_F(GLCanvasTest, OutlinesTheNodeThatHasTheKeyboard)
{
    struct Ears : Vemit::Listener {
    } ears;
    RectNode block({50, 50, 40, 40});
    scene->addNode(block);
    block.connectTo(&NodeEmitters::keyPress, &ears, [](auto&&, auto&&) {});
    MouseEvent press(EventType::MousePressEvent, nullptr, {70, 70}, {}, {}, 0, {}, {}, {}, false,
                     true);
    scene->passMousePressEventToNode(press);
    canvas.setScene(scene.get());
    QWidget& widget = *toQt(canvas);
    widget.show();
    QApplication::setActiveWindow(&widget);
    widget.setFocus();
    const auto isOutlinedAt = [&](int x) {
        canvas.renderNow();
        return picture().pixelColor(x, 70) != QColor(Qt::white);
    };
    EXPECT_FALSE(isOutlinedAt(47)) << "unless the host wants it";
    canvas.setFocusIndicatorVisible(true);
    EXPECT_TRUE(isOutlinedAt(47));
    block.setPosition({block.getPosition().x + 100, block.getPosition().y});
    EXPECT_TRUE(isOutlinedAt(147) && !isOutlinedAt(47)) << "follows the node";
    block.setPosition({block.getPosition().x + 100, block.getPosition().y});
    const QImage snapshot = toQt(canvas.getCanvasSnapshotWithWebBlock()).toImage();
    EXPECT_NE(snapshot.pixelColor(247, 70), QColor(Qt::white)) << "as of now";
    widget.clearFocus();
    EXPECT_FALSE(isOutlinedAt(247));
}

TEST_F(GLCanvasTest, MovesThePictureWithTheScene)
{
    for (int i = 0; i < 60; ++i)
        scene->addNode(RectNode({i * 37.0, i % 7 * 41.0, 23, 17}));
    canvas.setScene(scene.get());
    canvas.hideScrollbars();
    for (const double ratio : {1.0, 0.37}) {
        canvas.setScale(ratio);
        const QImage before = picture();
        canvas.translate(-24 / ratio, 11 / ratio);
        const QImage after = picture();
        EXPECT_EQ(after.copy(0, 11, 376, 289), before.copy(24, 0, 376, 289));
        canvas.renderNow();
        EXPECT_EQ(picture(), after);
    }
}

TEST_F(GLCanvasTest, TouchesNoNodeToPanAndZoom)
{
    for (int i = 0; i < 60; ++i)
        scene->addNode(RectNode({i * 37.0, i % 7 * 41.0, 23, 17}));
    canvas.setScene(scene.get());
    picture();
    const auto edits = scene->d_func()->editCounter();
    for (int i = 0; i < 20; ++i) {
        canvas.translate(5, -3);
        canvas.zoomByStep(i % 2 ? in : out, ZoomReason::Source::Wheel);
        picture();
    }
    EXPECT_EQ(scene->d_func()->editCounter(), edits);
}

TEST_F(GLCanvasTest, ShowsItsSceneWhetherOrNotThePlatformHasOpenGL)
{
    fill({20, 20, 300, 200});
    EXPECT_EQ(canvas.setOpenGLViewport(true), canvas.hasOpenGLViewport());
    EXPECT_NE(picture().pixelColor(100, 100), QColor(Qt::white));
    EXPECT_TRUE(canvas.setOpenGLViewport(false));
    EXPECT_NE(picture().pixelColor(100, 100), QColor(Qt::white));
}

TEST_F(GLCanvasTest, ShowsPartsOfAViewThatIsTooLargeForAPicture)
{
    fill({20000, 20000, 30, 30});
    QWidget area;
    toQt(canvas)->setParent(&area);
    canvas.setSize({32767, 32767});
    const QImage part = toQt(canvas)->grab({19990, 19990, 20, 20}).toImage();
    EXPECT_EQ(part.pixelColor(part.width() - 2, part.height() - 2).red(), 128);
    EXPECT_EQ(part.pixelColor(2, 2), QColor(Qt::white));
    toQt(canvas)->setParent(nullptr);
}

TEST_F(GLCanvasTest, KeepsItsPictureWhileRenderingIsOff)
{
    fill({20, 20, 100, 100});
    const QImage before = picture();
    canvas.setRenderingEnabled(false);
    scene->addNode(RectNode({200, 30, 50, 50}));
    canvas.translate(10, 10);
    EXPECT_EQ(picture(), before);
    canvas.setRenderingEnabled(true);
    EXPECT_NE(picture(), before);
}

// What it is given, and how it ends

TEST_F(GLCanvasTest, RefusesWhatIsNoNumber)
{
    fill({0, 0, 1000, 1000});
    canvas.translate(-30, -20);
    constexpr double values[] = {std::numeric_limits<double>::quiet_NaN(),
                                 std::numeric_limits<double>::infinity(),
                                 -std::numeric_limits<double>::infinity(),
                                 0.0,
                                 -1.0,
                                 std::numeric_limits<double>::denorm_min(),
                                 std::numeric_limits<double>::max(),
                                 -std::numeric_limits<double>::max()};
    const std::function<void(double)> calls[] = {
        [&](double v) { canvas.setScale(v); },
        [&](double v) {
            canvas.setScaleAroundScenePoint(2, {v, v});
        },
        [&](double v) {
            canvas.setScaleAroundScenePoint(v, {3, v});
        },
        [&](double v) { canvas.setMaxScaleLimit(v); },
        [&](double v) { canvas.translate(v, 0); },
        [&](double v) {
            canvas.translateScenePointToViewPoint({v, 0}, {0, v});
        },
        [&](double v) {
            canvas.showScenePointAtViewPointAtScale({0, 0}, {v, v}, v);
        },
        [&](double v) {
            canvas.showSceneRect({v, v, v, v});
        },
        [&](double v) {
            canvas.showSceneRectAtViewRect({0, 0, 1, 1}, {v, v, v, v});
        },
        [&](double v) {
            canvas.ensureVisible({v, 0, v, 1});
        },
        [&](double v) {
            canvas.setPreferredExtents({v, v});
        },
        [&](double v) {
            canvas.setMargins({v, v, v, v});
        },
        [&](double v) {
            canvas.setMarquee({v, v, v, v});
        },
        [&](double v) {
            canvas.showInCanvasBusyAnimation({v, v});
        },
        [&](double v) { canvas.getViewExtentsSizeForZoom(v); },
        [&](double v) { canvas.zoomByStep(v > 0 ? in : out, ZoomReason::Source::Menu); },
    };
    for (std::size_t call = 0; call < std::size(calls); ++call) {
        for (const double value : values) {
            calls[call](value);
            const Rect shown = canvas.getSceneRectInView();
            ASSERT_TRUE(canvas.getScale() > 0 && std::isfinite(canvas.getScale()) &&
                        std::isfinite(shown.x) && std::isfinite(shown.y))
                << "call " << call << " with " << value;
            canvas.zoomToSceneRect();
            ASSERT_FALSE(picture().isNull());
        }
    }
}

TEST_F(GLCanvasTest, OutlivesTheToolkitsWidget)
{
    auto window = std::make_unique<QWidget>();
    fill({0, 0, 1000, 1000});
    toQt(canvas)->setParent(window.get());
    window.reset();
    canvas.setScale(2);
    canvas.translate(5, 5);
    canvas.hideScrollbars();
    canvas.setGridVisible(true);
    scene->addNode(RectNode({0, 0, 1, 1}));
    canvas.renderNow();
    QCoreApplication::processEvents();
    EXPECT_EQ(canvas.getScale(), 2);
    EXPECT_FALSE(canvas.isHorizontalScrollbarVisible());
    EXPECT_EQ(canvas.getScene(), scene.get());
}

TEST_F(GLCanvasTest, MayEndInAnyOfItsCallbacks)
{
    const std::function<void(GLCanvas&, const std::function<void()>&)> ways[] = {
        [](GLCanvas& c, const auto& end) {
            c.connectTo(&GLCanvasEmitters::scaleChange, [&end](double, ZoomReason) { end(); });
        },
        [](GLCanvas& c, const auto& end) {
            c.connectTo(&GLCanvasEmitters::viewChange, [&end](Point) { end(); });
        },
        [](GLCanvas& c, const auto& end) {
            c.connectTo(&GLCanvasEmitters::scrollbarGeometryChange,
                        [&end](Vetra::GLRect<int>, Orientation) { end(); });
        },
        [](GLCanvas& c, const auto& end) {
            c.getLayerStack().getRemovalEmitter().connect([&end](int) { end(); });
        },
        [](GLCanvas& c, const auto& end) {
            c.connectTo(&GLCanvasEmitters::sceneChange, [&end] { end(); });
        },
    };
    fill({0, 0, 1000, 1000});
    for (const auto& way : ways) {
        auto& doomed = *new GLCanvas(Vetra::StringID("doomed"));
        doomed.setSize({100, 100});
        doomed.setScene(scene.get());
        const Widgets::GLObject::Use use(doomed);
        const std::function<void()> end = [&doomed] { doomed.destroy(); };
        way(doomed, end);
        doomed.zoomByStep(in, ZoomReason::Source::Wheel);
        doomed.setScale(3);
        doomed.setScene(nullptr);
        EXPECT_TRUE(use.hasEnded());
    }
    EXPECT_EQ(scene->getAllNodesCount(), 1u);
}

} // namespace
