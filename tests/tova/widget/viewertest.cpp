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

TEST_F(ViewerTest, ShowsTheSceneInAWindowAndManagesItselfMeanwhile)
{
    Counted* const viewer = shown();
    const QWidget* const window = windowOf(*viewer);
    EXPECT_EQ(window->geometry(), QRect(200, 200, 400, 400));
    EXPECT_EQ(viewer->getCanvas()->getGeometry(), Rect(0, 0, 400, 400));
    EXPECT_EQ(viewer->getScene(), m_scene.get());
    EXPECT_TRUE(viewer->isCppManagingLifespan());
    viewer->hide();
    EXPECT_FALSE(viewer->isCppManagingLifespan() || window->isVisible());
    viewer->showAt({10.9, 20, 300, 100});
    viewer->showAt({0, std::nan(""), 1, 1});
    EXPECT_TRUE(viewer->isCppManagingLifespan() && viewer->getCanvas()->isVisible());
    EXPECT_EQ(window->geometry(), QRect(10, 20, 300, 100));
    viewer->hide();
    viewer->showAt({0, 0, 1e300, 1e300});
    EXPECT_EQ(window->size(), QSize(4096, 4096)) << "no screen shows more";
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

using Act = void (*)(Viewer&);

/// What is done to a shown viewer, and from where.
struct EndCase : NamedRow {
    void (*from)(Viewer&, Act);
    Act act;
};
class ViewerEndTest : public ViewerTest, public testing::WithParamInterface<EndCase> {};

void directly(Viewer& viewer, Act act)
{
    act(viewer);
}

void fromItsCloseEvent(Viewer& viewer, Act act)
{
    viewer.getCanvas()->getGLWidgetEmitters().hide.connect([&viewer, act](auto) { act(viewer); });
    toQt(*viewer.getCanvas())->window()->close();
}

class PressTool : public Tool {
public:
    PressTool(Viewer& viewer, Act act) : m_viewer(viewer), m_act(act) {}
    void handleMousePressEvent(MouseEvent&) override { m_act(m_viewer); }
    void cancel(ECancelReason, const Tool*) override { becomeIdle(); }
    ModifyingType isModifyingTool() const override { return ModifyingType::NeverModifies; }
    Vetra::StringID getDefaultRole() const override { return "PressTool"; }

private:
    Viewer& m_viewer;
    Act m_act;
};

void fromATool(Viewer& viewer, Act act)
{
    viewer.getScene()->addTool(new PressTool(viewer, act));
    QMouseEvent event(QEvent::MouseButtonPress, {9, 9}, Qt::LeftButton, Qt::LeftButton, {});
    QCoreApplication::sendEvent(toQt(*viewer.getCanvas()), &event);
}

void close(Viewer& viewer)
{
    viewer.close();
}

void closeAll(Viewer&)
{
    Viewer::closeOpenViewers();
}

void remove(Viewer& viewer)
{
    delete &viewer;
}

void hideAndCloseAll(Viewer& viewer)
{
    viewer.hide();
    Viewer::closeOpenViewers();
}

void closeAndLoop(Viewer& viewer)
{
    QEventLoop loop;
    viewer.close();
    QTimer::singleShot(0, &loop, &QEventLoop::quit);
    loop.exec();
}

TEST_P(ViewerEndTest, DeletesEachOnceAndLeavesTheScene)
{
    const int countBefore = m_scene->referenceCount();
    const auto widgetsBefore = QApplication::allWidgets().size();
    Counted* const viewer = shown();
    viewer->show();
    viewer->hide();
    viewer->show();
    GetParam().from(*viewer, GetParam().act);
    EXPECT_EQ(m_deletions, 1);
    finishDeletions();
    EXPECT_EQ(QApplication::allWidgets().size(), widgetsBefore);
    EXPECT_EQ(m_scene->referenceCount(), countBefore);
    Viewer::closeOpenViewers();
    EXPECT_EQ(m_deletions, 1);
}

INSTANTIATE_TEST_SUITE_P(
    Viewer, ViewerEndTest,
    testing::Values(EndCase{{"Close"}, directly, close}, EndCase{{"Delete"}, directly, remove},
                    EndCase{{"CloseAllWhileHidden"}, directly, hideAndCloseAll},
                    EndCase{{"CloseInItsCloseEvent"}, fromItsCloseEvent, close},
                    EndCase{{"DeleteInItsCloseEvent"}, fromItsCloseEvent, remove},
                    EndCase{{"CloseAllInItsCloseEvent"}, fromItsCloseEvent, closeAll},
                    EndCase{
                        {"ShowInItsCloseEvent"}, fromItsCloseEvent, [](Viewer& v) { v.show(); }},
                    EndCase{{"CloseFromATool"}, fromATool, close},
                    EndCase{{"DeleteFromATool"}, fromATool, remove},
                    EndCase{{"CloseFromAToolThatLoops"}, fromATool, closeAndLoop}),
    rowName);

TEST_F(ViewerTest, ClosingAllMayDeleteOthersAndShowNewOnes)
{
    Counted* const first = shown();
    Counted* const second = shown();
    shown();
    int added = 0;
    first->getCanvas()->getGLWidgetEmitters().hide.connect([&](auto) {
        delete second;
        (new Counted(m_scene.get(), added))->show();
    });
    Viewer::closeOpenViewers();
    EXPECT_EQ(m_deletions, 3);
    EXPECT_EQ(added, 0);
    Viewer::closeOpenViewers();
    EXPECT_EQ(added, 1);
}

} // namespace
} // namespace Tova2
