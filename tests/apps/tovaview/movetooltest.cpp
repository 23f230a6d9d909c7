#include "movetool.h"

#include "diagramfile.h"
#include "plainreader.h"

#include <gtest/gtest.h>

#include <tova/events/eventtestdriver.h>
#include <tova/nodes/openlinearpathnode.h>

#include <QUndoStack>

namespace TovaView {
namespace {

/// The bundled state machine and a user.
class MoveToolTest : public testing::Test {
protected:
    MoveToolTest()
    {
        m_document->scene().addTool(m_tool.get());
        m_before = picture();
    }
    ~MoveToolTest() override { m_document->scene().removeTool(m_tool.get()); }

    int block(const char* name) const
    {
        for (const int index : m_document->blocks())
            if (m_document->nameOf(index) == QLatin1String(name))
                return index;
        ADD_FAILURE() << "no block " << name;
        return 0;
    }
    Point middleOf(const char* name) const { return m_document->frameOf(block(name)).center(); }
    Point topLeftOf(const char* name) const { return m_document->frameOf(block(name)).topLeft(); }
    QImage picture() const
    {
        QImage image(1120, 580, QImage::Format_ARGB32_Premultiplied);
        image.fill(Qt::white);
        m_document->scene().render(image, {0, 0, 1120, 580}, {0, 0, 1120, 580});
        return image;
    }

    QStringList m_notes;
    const std::unique_ptr<DiagramDocument> m_document =
        std::make_unique<DiagramDocument>(std::make_unique<const Diagram>(
            readDiagram(QStringLiteral(DIAGRAMS "/statemachine.dot"), m_notes)));
    Selection m_selection;
    QUndoStack m_history;
    const Vetra::Holder<MoveTool> m_tool{new MoveTool(*m_document, m_selection, m_history)};
    Tova2::EventTestDriver m_user{m_document->scene()};
    QImage m_before;
};

TEST_F(MoveToolTest, DragMovesAndUndoBringsEveryPixelBack)
{
    const Point start = topLeftOf("ba");
    m_user.drag(middleOf("ba"), middleOf("ba") + Point{80, 33});
    EXPECT_EQ(topLeftOf("ba"), start + (Point{80, 33}));
    const QImage after = picture();
    EXPECT_NE(after, m_before);
    m_history.undo();
    EXPECT_EQ(topLeftOf("ba"), start);
    EXPECT_EQ(picture(), m_before);
    m_history.redo();
    EXPECT_EQ(picture(), after);
}

TEST_F(MoveToolTest, EscapeInTheMiddleOfADragRestores)
{
    m_user.moveTo(middleOf("a"));
    m_user.press();
    m_user.moveTo(middleOf("a") + Point{120, 200});
    EXPECT_NE(picture(), m_before);
    m_user.typeKey(Vetra::Key::Escape);
    EXPECT_EQ(picture(), m_before);
    m_user.release();
    EXPECT_EQ(m_history.count(), 0);
    EXPECT_EQ(m_selection.blocks(), std::vector<int>{block("a")});
    m_user.typeKey(Vetra::Key::Escape);
    EXPECT_TRUE(m_selection.isEmpty());
}

TEST_F(MoveToolTest, ClicksSelectAndShiftTogglesAndTheGroundDeselects)
{
    m_user.click(middleOf("a"));
    m_user.click(middleOf("ba"));
    EXPECT_EQ(m_selection.blocks(), std::vector<int>{block("ba")});
    m_user.setModifiers(Vetra::Modifier::Shift);
    m_user.click(middleOf("a"));
    EXPECT_EQ(m_selection.blocks().size(), 2u);
    m_user.click(middleOf("ba"));
    EXPECT_EQ(m_selection.blocks(), std::vector<int>{block("a")});
    m_user.setModifiers({});
    m_user.click(Point{1100, 20});
    EXPECT_TRUE(m_selection.isEmpty());
    EXPECT_EQ(m_history.count(), 0);
}

TEST_F(MoveToolTest, BandSelectsWhatItTouchesAndAGroupMovesTogether)
{
    std::vector<Rect> bands;
    const Vemit::Connection connection =
        m_tool->banded().connect([&](const Rect& rect) { bands.push_back(rect); });
    m_user.drag(Point{300, 425}, Point{400, 548});
    EXPECT_EQ(m_selection.blocks().size(), 2u) << "bba and bbb";
    EXPECT_EQ(bands.back(), Rect());
    const Point distance = middleOf("bbb") - middleOf("bba");
    m_user.drag(middleOf("bba"), middleOf("bba") + Point{150, -20});
    EXPECT_EQ(middleOf("bbb") - middleOf("bba"), distance);
    EXPECT_EQ(m_history.count(), 1);
}

TEST_F(MoveToolTest, NudgesInARowAreOneStepAndNothingWhenTheyCancelOut)
{
    const Point start = topLeftOf("a");
    m_user.click(middleOf("a"));
    for (int i = 0; i < 3; ++i)
        m_user.typeKey(Vetra::Key::Right);
    m_user.setModifiers(Vetra::Modifier::Shift);
    m_user.typeKey(Vetra::Key::Down);
    EXPECT_EQ(topLeftOf("a"), start + (Point{15, 1}));
    EXPECT_EQ(m_history.count(), 1);
    m_history.undo();
    EXPECT_EQ(picture(), m_before);
    m_user.typeKey(Vetra::Key::Down);
    m_user.typeKey(Vetra::Key::Up);
    EXPECT_EQ(m_history.count(), 0);
}

TEST_F(MoveToolTest, UndoOfMovesOverEachOtherRestoresEachPictureOnTheWay)
{
    std::vector<QImage> pictures{m_before};
    const std::pair<const char*, Point> moves[] = {
        {"a", {200, 90}}, {"ba", {400, -60}}, {"caaa", {-500, 20}}, {"a", {-300, 260}}};
    for (const auto& [name, by] : moves) {
        m_user.drag(middleOf(name), middleOf(name) + by);
        pictures.push_back(picture());
    }
    for (int i = m_history.count(); i > 0; --i) {
        EXPECT_EQ(picture(), pictures[static_cast<std::size_t>(i)]) << "before undo " << i;
        m_history.undo();
    }
    EXPECT_EQ(picture(), m_before);
}

/// A block under a wire, which the wire has to run around when the block comes to lie on it.
TEST(MakingWayTest, WiresOfOthersRunAroundAMovedBlockAndComeBack)
{
    DiagramDocument document(std::make_unique<const Diagram>(
        readPlain(QStringLiteral("f.plain"), "graph 1 10 4\n"
                                             "node a 1 3 1 1 a solid box black white\n"
                                             "node b 9 3 1 1 b solid box black white\n"
                                             "node c 5 1 1 1 c solid box black white\n"
                                             "edge a b 4 1.5 3 4 3 6 3 8.5 3 solid black\n"
                                             "stop\n")));
    Selection selection;
    QUndoStack history;
    const Vetra::Holder<MoveTool> tool(new MoveTool(document, selection, history));
    document.scene().addTool(tool.get());
    const auto wiresThrough = [&](int block) {
        int count = 0;
        for (const Tova2::Node& node :
             document.scene().getNodesIntersectingRect(document.frameOf(block).grown(-2)))
            count += node.isVisible() && node.as<Tova2::OpenLinearPathNode>().isValid();
        return count;
    };
    const int block = 2;
    const Rect first = document.scene().getBounds();
    selection.set({block});
    for (int step = 1; step <= 60; ++step) {
        tool->nudge({0, -5});
        EXPECT_EQ(wiresThrough(block), 0) << "after step " << step;
    }
    EXPECT_EQ(history.count(), 1);
    history.undo();
    EXPECT_EQ(document.scene().getBounds(), first);
    Tova2::EventTestDriver user(document.scene());
    const Point from = document.frameOf(block).center();
    user.drag(from, from - Point{0, 144});
    EXPECT_EQ(wiresThrough(block), 0);
    user.drag(document.frameOf(block).center(), from);
    history.undo();
    history.undo();
    EXPECT_EQ(document.scene().getBounds(), first);
    document.scene().removeTool(tool.get());
}

TEST_F(MoveToolTest, AnotherGroundKeepsMovesAndTheirHistory)
{
    m_user.drag(middleOf("ba"), middleOf("ba") + Point{300, -90});
    const QImage moved = picture();
    m_document->scene().removeTool(m_tool.get());
    m_document->setGround(Vetra::Color::fromPacked(0xffeef0f2));
    EXPECT_NE(picture(), moved);
    m_document->setGround({});
    EXPECT_EQ(picture(), moved);
    m_history.undo();
    EXPECT_EQ(picture(), m_before);
}

} // namespace
} // namespace TovaView
