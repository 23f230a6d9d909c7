#include "allocationcount.h"
#include "peers.h"

#include "events/toolstack.h"
#include "tova/events/mouseevent.h"
#include "tova/events/tool.h"

#include <benchmark/benchmark.h>

#include <QApplication>
#include <QGraphicsItem>
#include <QGraphicsSceneMouseEvent>

#include <array>

using namespace Tova2;

namespace {

/// Looks at where the pointer is, as an idle tool does, and has no cursor to show.
class IdleTool final : public Tool {
public:
    ModifyingType isModifyingTool() const override { return ModifyingType::NeverModifies; }
    void cancel(ECancelReason, const Tool*) override { becomeIdle(); }
    Vetra::StringID getDefaultRole() const override { return "IdleTool"; }
    void handleMouseMoveEvent(MouseEvent& event) override { m_lastX = event.scenePos().x; }

private:
    double m_lastX = 0;
};

class SixTools {
public:
    SixTools()
    {
        for (auto& tool : m_tools) {
            tool = new IdleTool;
            m_stack.addTool(tool.get(), m_stack.getUniqueToolRoleBasedOn("IdleTool"));
        }
    }
    ToolStack& stack() { return m_stack; }
    const std::array<Vetra::Holder<Tool>, 6>& tools() const { return m_tools; }

private:
    ToolStack m_stack{nullptr, nullptr};
    std::array<Vetra::Holder<Tool>, 6> m_tools;
};

MouseEvent makeMove()
{
    return {EventType::MouseMoveEvent,    nullptr, {3, 4}, {3, 4}, {3, 4}, 0,
            Vetra::MouseButton::NoButton, {},      {},     false,  true};
}

// What the stack costs over the calls it has to make: the event to each tool, and its cursor.
void BM_MoveThroughStack(benchmark::State& state)
{
    SixTools six;
    MouseEvent move = makeMove();
    const std::size_t before = allocationCount();
    for (auto _ : state)
        six.stack().handleMouseMoveEvent(move);
    if (allocationCount() != before)
        state.SkipWithError("a dispatched mouse move allocates");
}
BENCHMARK(BM_MoveThroughStack);

void BM_MoveByHand(benchmark::State& state)
{
    SixTools six;
    MouseEvent move = makeMove();
    for (auto _ : state) {
        for (const auto& tool : six.tools()) {
            move.accept(*tool);
            benchmark::DoNotOptimize(tool->overrideCursor());
        }
    }
}
BENCHMARK(BM_MoveByHand);

struct HoverCounter : Vemit::Listener {
    void listenTo(Node node)
    {
        node.connectTo(&NodeEmitters::hoverEnter, this, [this](auto&, auto&) { ++count; });
        node.connectTo(&NodeEmitters::hoverExit, this, [this](auto&, auto&) { ++count; });
    }
    int count = 0;
};

/// Two blocks in the middle of the grid, and the place of either's centre.
constexpr std::array places{QPointF(8.5 * kCell, 4.5 * kCell), QPointF(9.5 * kCell, 4.5 * kCell)};

// The pointer goes to and fro between two blocks that somebody listens to: what a move costs in a
// scene of so many nodes, the search for the topmost one included.
void BM_HoverInScene(benchmark::State& state)
{
    const auto scene = makeGrid(static_cast<int>(state.range(0)));
    HoverCounter hovers;
    std::vector<MouseEvent> moves;
    for (const QPointF& place : places) {
        const Vetra::GLPoint<double> at{place.x(), place.y()};
        hovers.listenTo(scene->getNodeAt(at));
        moves.emplace_back(EventType::MouseMoveEvent, nullptr, at, at, at, 0,
                           Vetra::MouseButton::NoButton, Vetra::MouseButtons(), Vetra::Modifiers(),
                           false, true);
        scene->handleMouseMoveEvent(moves.back());
    }
    std::size_t turn = 0;
    const std::size_t before = allocationCount();
    for (auto _ : state)
        scene->handleMouseMoveEvent(moves[++turn % 2]);
    if (allocationCount() != before)
        state.SkipWithError("a mouse move over nodes allocates");
    if (hovers.count < state.iterations())
        state.SkipWithError("nobody was hovered");
}
BENCHMARK(BM_HoverInScene)->Arg(200)->Arg(2000)->Arg(20000);

void BM_HoverInBareScene(benchmark::State& state)
{
    const auto scene = makeBareGrid(static_cast<int>(state.range(0)));
    for (const QPointF& place : places)
        scene->itemAt(place, {})->setAcceptHoverEvents(true);
    QGraphicsSceneMouseEvent move(QEvent::GraphicsSceneMouseMove);
    std::size_t turn = 0;
    for (auto _ : state) {
        move.setScenePos(places[++turn % 2]);
        QApplication::sendEvent(scene.get(), &move);
    }
}
BENCHMARK(BM_HoverInBareScene)->Arg(200)->Arg(2000)->Arg(20000);

} // namespace

int main(int argc, char** argv)
{
    return runBenchmarks(argc, argv);
}
