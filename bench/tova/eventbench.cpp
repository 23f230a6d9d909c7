#include "allocationcount.h"

#include "events/toolstack.h"
#include "tova/events/mouseevent.h"
#include "tova/events/tool.h"

#include <benchmark/benchmark.h>

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

} // namespace

BENCHMARK_MAIN();
