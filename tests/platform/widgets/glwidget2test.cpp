#include "support.h"

#include "support/rows.h"

#include "vetra/errorreporter.h"
#include "widgets/glwindow2.h"
#include "widgets/objectwatch.h"

#include <QApplication>
#include <QPointer>

#include <stdexcept>

namespace Widgets {
namespace {

using Rect = Vetra::GLRect<int>;

TEST(GLWidget2Test, DoesNothingOnceTheToolkitHasDeletedItsWidget)
{
    auto* const plain = new Plain("plain");
    plain->setToolTip(u"tip");
    delete toQt(*plain);

    plain->setGeometry({1, 2, 30, 40});
    plain->show();
    plain->setToolTip(u"late");
    plain->setCursor(Vetra::CursorShape::Cross);
    EXPECT_EQ(plain->getGeometry(), Rect());
    EXPECT_FALSE(plain->isVisible() || plain->isEnabled() || plain->hasFocus());
    EXPECT_EQ(plain->getCursor(), Vetra::Cursor());
    plain->destroy();
}

TEST(GLWidget2Test, StandsForTheToolkitsWidget)
{
    auto* const window = new GLWindow2("window", nullptr);
    auto* const part = new Plain("part", window);
    window->setGeometry({100, 200, 90, 80});
    part->setGeometry({10, 20, 30, 40});
    EXPECT_EQ(part->getGlobalPosition(), Rect(110, 220, 30, 40));
    EXPECT_EQ(part->getPosition(), (Vetra::GLPoint<int>{10, 20}));
    window->setTitle(u"title");
    EXPECT_EQ(window->getTitle(), u"title");
    window->setCursor(Vetra::CursorShape::Cross);
    EXPECT_EQ(part->getCursor(), Vetra::CursorShape::Cross);
    part->setCursor(Vetra::CursorShape::IBeam);
    part->unsetCursor();
    EXPECT_EQ(part->getCursor(), Vetra::CursorShape::Cross);
    window->setEnabled(false);
    EXPECT_FALSE(part->isEnabled());
    window->setEnabled(true);
    window->show();
    QApplication::setActiveWindow(toQt(*window));
    part->setFocus();
    EXPECT_TRUE(part->hasFocus());
    part->clearFocus();
    EXPECT_FALSE(part->hasFocus());
    EXPECT_TRUE(window->isa("Widgets.Widget") && !part->isa("Widgets.Window"));
    window->destroy();
}

TEST(GLWidget2Test, KeepsItsGeometryWithinReach)
{
    constexpr int huge = std::numeric_limits<int>::max();
    auto* const plain = new Plain("plain");
    plain->setGeometry({huge, -huge, huge, -8});
    EXPECT_EQ(plain->getGeometry(), Rect(1 << 24, -(1 << 24), 4096, 0)) << "a window's";
    auto* const part = new Plain("part", plain);
    part->setSize({huge, huge});
    EXPECT_EQ(part->getSize(), Vetra::Size<int>(32767, 32767));
    plain->destroy();
}

TEST(GLWidget2Test, MarkupInAToolTipIsText)
{
    auto* const plain = new Plain("plain");
    const std::u16string tip = u"<img src='/etc/passwd'>";
    plain->setToolTip(tip);
    EXPECT_EQ(plain->getToolTip(), tip);
    EXPECT_FALSE(toQt(*plain)->toolTip().contains(QStringLiteral("<img")));
    plain->destroy();
}

/// How to hear, and to cause, the emission under test.
struct EmissionCase : NamedRow {
    void (*listen)(GLWidgetEmitters&, std::function<void()>);
    void (*cause)(GLWindow2&);
};
template <auto emitter>
void hear(GLWidgetEmitters& emitters, std::function<void()> call)
{
    (emitters.*emitter).connect([call](const auto&) { call(); });
}
class EmissionTest : public testing::TestWithParam<EmissionCase> {
protected:
    EmissionTest()
    {
        m_window->setContent(m_content);
        m_window->setGeometry({10, 10, 100, 100});
        m_window->show();
        QCoreApplication::processEvents();
    }
    ~EmissionTest() override
    {
        if (m_watch)
            m_window->destroy();
        m_content->destroy();
        finishDeletions();
    }

    GLWindow2* const m_window = new GLWindow2("window", nullptr);
    Plain* const m_content = new Plain("content");
    const ObjectWatch<GLWindow2> m_watch{m_window};
    const QPointer<QWidget> m_toolkitWindow{toQt(*m_window)};
};

TEST_P(EmissionTest, AListenerMayEndTheWindowAndThrow)
{
    int reports = 0;
    Vetra::setErrorReporter([&](std::exception_ptr) { ++reports; });
    GetParam().listen(m_window->getGLWidgetEmitters(), [&] {
        m_window->destroy();
        EXPECT_TRUE(m_toolkitWindow) << "its event is still being delivered";
        throw std::runtime_error("no");
    });
    EXPECT_NO_THROW(GetParam().cause(*m_window));
    Vetra::setErrorReporter({});
    EXPECT_EQ(reports, 1);
    EXPECT_FALSE(m_watch);
    finishDeletions();
    EXPECT_FALSE(m_toolkitWindow);
    EXPECT_TRUE(toQt(*m_content)) << "the content has another owner";
}

using Emitters = GLWidgetEmitters;
INSTANTIATE_TEST_SUITE_P(
    GLWidget2, EmissionTest,
    testing::Values(
        EmissionCase{{"Close"}, hear<&Emitters::close>, [](GLWindow2& w) { w.close(); }},
        EmissionCase{{"Hide"}, hear<&Emitters::hide>, [](GLWindow2& w) { w.hide(); }},
        EmissionCase{{"Resize"},
                     hear<&Emitters::resize>,
                     [](GLWindow2& w) {
                         w.setSize({9, 9});
                     }},
        EmissionCase{{"Move"},
                     hear<&Emitters::move>,
                     [](GLWindow2& w) {
                         w.setPosition({5, 6});
                     }}),
    rowName);

TEST(GLWindow2Test, ItsContentFillsItAndCanMoveOn)
{
    auto* const first = new GLWindow2("first", nullptr);
    auto* const second = new GLWindow2("second", nullptr);
    auto* const content = new Plain("content", first);
    first->setContent(content);
    first->setSize({120, 90});
    first->show();
    EXPECT_TRUE(content->isVisible());
    EXPECT_EQ(content->getGeometry(), Rect(0, 0, 120, 90));

    second->setContent(content);
    EXPECT_EQ(first->getContent(), nullptr);
    EXPECT_EQ(second->getContent(), content);
    second->setContent(second);
    EXPECT_EQ(second->getContent(), nullptr) << "a window cannot fill itself";
    second->destroy();
    EXPECT_TRUE(toQt(*content));
    first->destroy();
}

TEST(GLWindow2Test, TheHostMayDeleteTheToolkitsWindowWhileItCloses)
{
    auto* const window = new GLWindow2("window", nullptr);
    auto* const content = new Plain("content");
    window->setContent(content);
    window->getGLWidgetEmitters().close.connect([&](auto) { delete toQt(*window); });
    window->close();
    EXPECT_FALSE(toQt(*content)) << "the host's own deletion takes along what is inside";
    window->show();
    window->destroy();
    content->destroy();
}

// The event loop deletes the widget later: until then it must not reach its dead owner.
TEST(GLWidget2Test, NoEventComesThroughAfterTheEnd)
{
    struct Counter : QWidget {
        explicit Counter(int& count) : m_count(count) {}
        bool event(QEvent* event) override { return ++m_count, QWidget::event(event); }
        int& m_count;
    };
    struct Owner : GLWidget2 {
        explicit Owner(QWidget* widget) : GLWidget2("owner", nullptr, widget) {}
    };
    int count = 0;
    const QPointer<QWidget> widget = new Counter(count);
    auto* const owner = new Owner(widget);
    {
        const GLObject::Use use(*owner);
        owner->destroy();
    }
    count = 0;
    QEvent event(QEvent::User);
    QCoreApplication::sendEvent(widget, &event);
    EXPECT_EQ(count, 0);
    finishDeletions();
    EXPECT_FALSE(widget);
}

} // namespace
} // namespace Widgets
