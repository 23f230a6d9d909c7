#include "support.h"

#include "widgets/gllayout2.h"
#include "widgets/glwindow2.h"

#include <gtest/gtest.h>

#include <QApplication>

namespace Widgets {
namespace {

void useInEveryWay(GLWindow2& window, GLWindow2& content)
{
    auto* const layout = new GLBoxLayout2(GLBoxLayout2::Direction::Vertical, "layout", nullptr);
    layout->setSpacing(3);
    layout->addWidget(&content);
    window.setLayout(layout);
    layout->destroy();
    window.setContent(&content);
    window.setTitle(u"title");
    window.setSize({10, 10});
    window.show();
    window.close();
}

// A process has one application at most, and this suite's main() makes none: one test for all.
TEST(ApplicationLifetimeTest, WindowsLiveBeforeAndAfterIt)
{
    auto* const early = new GLWindow2("early", nullptr);
    useInEveryWay(*early, *early);
    EXPECT_FALSE(early->isVisible());

    auto* late = early;
    auto* content = early;
    {
        int argc = 1;
        char name[] = "test";
        char* argv[] = {name, nullptr};
        qputenv("QT_QPA_PLATFORM", "offscreen");
        const QApplication application(argc, argv);
        late = new GLWindow2("late", nullptr);
        content = new GLWindow2("content", nullptr);
        late->setContent(content);
        late->show();
        QCoreApplication::processEvents();
        EXPECT_TRUE(content->isVisible());
    }
    useInEveryWay(*late, *content);
    EXPECT_FALSE(late->isVisible());
    for (GLWindow2* const window : {late, content, early})
        window->destroy();
}

} // namespace
} // namespace Widgets
