#include "rubberband/selecttool.h"

#include <gtest/gtest.h>

#include <functional>

namespace {

using namespace Tova2;
using Point = Vetra::GLPoint<double>;
using Vetra::Key;
using Vetra::MouseButton;

/// A scene with one block, and a gesture that has come so far.
class SelectToolTest : public testing::Test {
protected:
    void SetUp() override
    {
        m_block.addTag(SelectTool::blockTag());
        m_scene->addNode(m_block);
        m_scene->addTool(m_tool.get());
    }
    void begin(const Point& from, bool moves)
    {
        m_user.moveTo(from);
        m_user.press();
        if (moves)
            m_user.moveTo(Point{from.x + 30, from.y + 20});
    }
    std::size_t bands() { return m_scene->getAllNodesCount() - (m_block.getScene() ? 1 : 0); }

    Vetra::Holder<Scene> m_scene = Scene::createScene();
    RectNode m_block{{0, 0, 50, 50}};
    Vetra::Holder<SelectTool> m_tool{new SelectTool};
    EventTestDriver m_user{*m_scene};
};

TEST_F(SelectToolTest, EveryStateEndsIdleWhateverHappens)
{
    const Point onBlock{25, 25}, beside{-200, -200};
    const std::pair<const char*, std::function<void()>> states[] = {
        {"alert on a block", [&] { begin(onBlock, false); }},
        {"alert beside", [&] { begin(beside, false); }},
        {"moving", [&] { begin(onBlock, true); }},
        {"banding", [&] { begin(beside, true); }},
    };
    const std::pair<const char*, std::function<void()>> ends[] = {
        {"release", [&] { m_user.release(); }},
        {"lost release", [&] { EventTestDriver(*m_scene).moveTo(onBlock); }},
        {"escape", [&] { m_user.typeKey(Key::Escape); }},
        {"focus out", [&] { m_user.focusOut(); }},
        {"leave", [&] { m_user.leaveCanvas(); }},
        {"all cancelled", [&] { m_scene->cancelAllTools(); }},
        {"removed", [&] { m_scene->removeTool(m_tool.get()); }},
        {"replaced", [&] { m_scene->addTool(new SelectTool); }},
        {"target gone", [&] { m_block.remove(), m_user.release(); }},
    };
    for (const auto& [state, reach] : states) {
        for (const auto& [event, end] : ends) {
            SCOPED_TRACE(std::string(state) + ", " + event);
            m_scene->addNode(m_block);
            m_block.setPosition({0, 0});
            m_scene->addTool(m_tool.get());
            reach();
            ASSERT_FALSE(m_tool->isIdle());
            end();
            EXPECT_TRUE(m_tool->isIdle());
            EXPECT_EQ(bands(), 0u);
            EXPECT_FALSE(m_scene->hasActiveOrAlertTool());
            m_user.release();
        }
    }
}

TEST_F(SelectToolTest, CancellingPutsBlocksBackWhereTheMoveFoundThem)
{
    m_block.setPosition({7, 9});
    begin({25, 25}, true);
    EXPECT_EQ(m_block.getPosition(), (Point{37, 29}));
    m_user.typeKey(Key::Escape);
    EXPECT_EQ(m_block.getPosition(), (Point{7, 9}));
}

} // namespace
