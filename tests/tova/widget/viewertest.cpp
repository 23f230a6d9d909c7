#include "tova/widget/viewer.h"

#include "support/rows.h"

#include "tova/events/tool.h"
#include "tova/scene/scene.h"
#include "tova/widget/glcanvas.h"

#include "host/displayquery.h"
#include "vetra/errorreporter.h"
#include "widgets/qt.h"

#include <QApplication>
#include <QEventLoop>
#include <QMouseEvent>
#include <QTimer>
#include <QWindow>

#include <stdexcept>

namespace Tova2 {
namespace {

using Rect = Vetra::GLRect<int>;

class Counted : public Viewer {
public:
    Counted(Scene* scene, int& deletions) : Viewer(scene), m_deletions(deletions) {}
    ~Counted() override { ++m_deletions; }

private:
    int& m_deletions;
};

class ViewerTest : public testing::Test {
protected:
    ~ViewerTest() override
    {
        Viewer::closeOpenViewers();
        finishDeletions();
    }

    static void finishDeletions()
    {
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
    static QWidget* windowOf(const Viewer& viewer)
    {
        return Widgets::toQt(*viewer.getCanvas())->window();
    }
    Counted* shown()
    {
        auto* const viewer = new Counted(m_scene.get(), m_deletions);
        viewer->show();
        return viewer;
    }

    const Vetra::Holder<Scene> m_scene = Scene::createScene();
    int m_deletions = 0;
};

TEST_F(ViewerTest, ShowsTheSceneInAWindowAtTheStandardPlace)
{
    const Counted* const viewer = shown();
    EXPECT_EQ(windowOf(*viewer)->geometry(), QRect(200, 200, 400, 400));
    EXPECT_EQ(viewer->getCanvas()->getGeometry(), Rect(0, 0, 400, 400));
    EXPECT_TRUE(viewer->getCanvas()->isVisible());
    EXPECT_EQ(viewer->getScene(), m_scene.get());
}

TEST_F(ViewerTest, ManagesItselfWhileItIsShown)
{
    Counted* const viewer = shown();
    QWidget* const window = windowOf(*viewer);
    EXPECT_TRUE(viewer->isCppManagingLifespan());
    viewer->hide();
    EXPECT_FALSE(viewer->isCppManagingLifespan() || window->isVisible());
    viewer->showAt({10.9, 20, 300, 100});
    viewer->showAt({0, std::nan(""), 1, 1});
    EXPECT_TRUE(viewer->isCppManagingLifespan() && window->isVisible());
    EXPECT_EQ(window->geometry(), QRect(10, 20, 300, 100));
}

TEST_F(ViewerTest, DoesNothingWithoutADisplay)
{
    const Host::ScopedDisplayQuery none([] { return false; });
    const auto before = QGuiApplication::allWindows().size();
    Viewer viewer(m_scene.get());
    viewer.setScene(m_scene.get());
    viewer.show();
    viewer.hide();
    viewer.close();
    Viewer::closeOpenViewers();
    EXPECT_EQ(viewer.getCanvas(), nullptr);
    EXPECT_EQ(viewer.getScene(), nullptr);
    EXPECT_FALSE(viewer.isCppManagingLifespan());
    EXPECT_EQ(QGuiApplication::allWindows().size(), before);
}

/// Brings a shown viewer to its end.
struct EndCase : NamedRow {
    void (*act)(Viewer&, QWidget& window);
};
class ViewerEndTest : public ViewerTest, public testing::WithParamInterface<EndCase> {};

void whenHidden(Viewer& viewer, void (*act)(Viewer&))
{
    viewer.getCanvas()->getGLWidgetEmitters().hide.connect([&viewer, act](auto) { act(viewer); });
}

/// Does something to a viewer when the button is pressed.
class PressTool : public Tool {
public:
    PressTool(Viewer& viewer, void (*act)(Viewer&)) : m_viewer(viewer), m_act(act) {}
    void handleMousePressEvent(MouseEvent&) override { m_act(m_viewer); }
    void cancel(ECancelReason, const Tool*) override { becomeIdle(); }
    ModifyingType isModifyingTool() const override { return ModifyingType::NeverModifies; }
    Vetra::StringID getDefaultRole() const override { return "PressTool"; }

private:
    Viewer& m_viewer;
    void (*m_act)(Viewer&);
};

void press(Viewer& viewer, void (*act)(Viewer&))
{
    viewer.getScene()->addTool(new PressTool(viewer, act));
    QMouseEvent event(QEvent::MouseButtonPress, {9, 9}, Qt::LeftButton, Qt::LeftButton, {});
    QCoreApplication::sendEvent(toQt(*viewer.getCanvas()), &event);
}

TEST_P(ViewerEndTest, DeletesEachOnceAndLeavesTheScene)
{
    const int countBefore = m_scene->referenceCount();
    const auto widgetsBefore = QApplication::allWidgets().size();
    Counted* const viewer = shown();
    viewer->show();
    viewer->hide();
    viewer->show();
    GetParam().act(*viewer, *windowOf(*viewer));
    EXPECT_EQ(m_deletions, 1);
    finishDeletions();
    EXPECT_EQ(QApplication::allWidgets().size(), widgetsBefore);
    EXPECT_EQ(m_scene->referenceCount(), countBefore);
    Viewer::closeOpenViewers();
    EXPECT_EQ(m_deletions, 1);
}

INSTANTIATE_TEST_SUITE_P(
    Viewer, ViewerEndTest,
    testing::Values(
        EndCase{{"Close"}, [](Viewer& v, QWidget&) { v.close(); }},
        EndCase{{"ClosedByTheUser"}, [](Viewer&, QWidget& w) { w.close(); }},
        EndCase{{"Deleted"}, [](Viewer& v, QWidget&) { delete &v; }},
        EndCase{{"WhileHidden"},
                [](Viewer& v, QWidget&) {
                    v.hide();
                    Viewer::closeOpenViewers();
                }},
        EndCase{{"ClosedInItsCloseEvent"},
                [](Viewer& v, QWidget& w) {
                    whenHidden(v, [](Viewer& viewer) {
                        viewer.close();
                        EXPECT_FALSE(viewer.isCppManagingLifespan()) << "not deleted yet";
                    });
                    w.close();
                }},
        EndCase{{"DeletedInItsCloseEvent"},
                [](Viewer& v, QWidget& w) {
                    whenHidden(v, [](Viewer& viewer) { delete &viewer; });
                    w.close();
                }},
        EndCase{{"AllClosedWhileItCloses"},
                [](Viewer& v, QWidget&) {
                    whenHidden(v, [](Viewer&) { Viewer::closeOpenViewers(); });
                    v.close();
                }},
        EndCase{{"ClosedByATool"},
                [](Viewer& v, QWidget&) { press(v, [](Viewer& viewer) { viewer.close(); }); }},
        EndCase{{"DeletedByATool"},
                [](Viewer& v, QWidget&) { press(v, [](Viewer& viewer) { delete &viewer; }); }},
        EndCase{{"ClosedByAToolInANestedLoop"},
                [](Viewer& v, QWidget&) {
                    press(v, [](Viewer& viewer) {
                        QEventLoop loop;
                        viewer.close();
                        QTimer::singleShot(0, &loop, &QEventLoop::quit);
                        loop.exec();
                    });
                }},
        EndCase{{"ShownAgainWhileItCloses"},
                [](Viewer& v, QWidget& w) {
                    whenHidden(v, [](Viewer& viewer) { viewer.show(); });
                    w.close();
                }}),
    rowName);

TEST_F(ViewerTest, ClosingAllMayDeleteOthersAndShowNewOnes)
{
    Counted* const first = shown();
    static Counted* second;
    second = shown();
    shown();
    int added = 0;
    whenHidden(*first, [](Viewer&) { delete second; });
    first->getCanvas()->getGLWidgetEmitters().hide.connect(
        [&](auto) { (new Counted(m_scene.get(), added))->show(); });
    Viewer::closeOpenViewers();
    EXPECT_EQ(m_deletions, 3);
    EXPECT_EQ(added, 0);
    Viewer::closeOpenViewers();
    EXPECT_EQ(added, 1);
}

} // namespace
} // namespace Tova2
