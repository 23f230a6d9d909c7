#include "support.h"

#include "widgets/gllayout2.h"
#include "widgets/glwindow2.h"
#include "widgets/objectwatch.h"

namespace Widgets {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using Rect = Vetra::GLRect<int>;

class GLLayout2Test : public testing::Test {
protected:
    ~GLLayout2Test() override
    {
        m_window->destroy();
        finishDeletions();
    }
    template <class T>
    T* serve(T* layout)
    {
        layout->setSpacing(0);
        layout->setMargins({});
        m_window->setLayout(layout);
        m_window->setSize({300, 100});
        m_window->show();
        return layout;
    }

    GLWindow2* const m_window = new GLWindow2("window", nullptr);
    Plain* const m_a = new Plain("a", m_window);
    Plain* const m_b = new Plain("b", m_window);
};

TEST_F(GLLayout2Test, ARowGivesTheRestByStretch)
{
    auto* const row = new GLBoxLayout2(GLBoxLayout2::Direction::Horizontal, "row", nullptr);
    row->addWidget(m_b, 2);
    row->insertWidget(0, m_a, 1);
    serve(row)->setMargins({10, 20, 30, 40});
    row->setSpacing(20);
    m_window->setSize({360, 100});
    QCoreApplication::processEvents();
    EXPECT_EQ(m_a->getGeometry(), Rect(10, 20, 100, 40));
    EXPECT_EQ(m_b->getGeometry(), Rect(130, 20, 200, 40));
}

TEST_F(GLLayout2Test, AGridRefusesWhatLiesOutside)
{
    auto* const grid = serve(new GLGridLayout2("grid", nullptr));
    grid->addWidget(m_a, 0, 0, 1, 2);
    grid->addWidget(m_b, 1, 1);
    grid->setColumnStretch(0, 1);
    grid->setRowStretch(0, 3);
    grid->setRowStretch(1, 1);
    grid->addWidget(m_b, std::numeric_limits<int>::max(), 0);
    grid->addWidget(m_b, 0, 1, 1, std::numeric_limits<int>::max());
    grid->setRowStretch(-1, 5);
    QCoreApplication::processEvents();
    EXPECT_EQ(m_a->getGeometry(), Rect(0, 0, 300, 75));
    EXPECT_EQ(m_b->getGeometry().y, 75);
}

TEST_F(GLLayout2Test, ForgetsWidgetsThatEndAtAnyTime)
{
    auto* const row = new GLBoxLayout2(GLBoxLayout2::Direction::Vertical, "row", nullptr);
    auto* const never = new Plain("never placed");
    row->addWidget(never);
    row->addWidget(m_a);
    row->addWidget(m_a);
    row->addWidget(m_b);
    delete toQt(*never);
    EXPECT_THAT(row->getWidgets(), ElementsAre(m_a, m_b));
    serve(row);
    m_a->destroy();
    EXPECT_THAT(row->getWidgets(), ElementsAre(m_b));
    never->destroy();
}

TEST_F(GLLayout2Test, RefusesAWidgetAroundTheOneItServes)
{
    auto* const row = new GLBoxLayout2(GLBoxLayout2::Direction::Horizontal, "row", nullptr);
    m_a->setLayout(row);
    row->addWidget(m_window);
    row->addWidget(m_a);
    EXPECT_THAT(row->getWidgets(), IsEmpty());

    auto* const around = new GLBoxLayout2(GLBoxLayout2::Direction::Horizontal, "r", m_window);
    around->addWidget(m_a);
    m_a->setLayout(around);
    EXPECT_EQ(m_a->getLayout(), row);
}

} // namespace
} // namespace Widgets
