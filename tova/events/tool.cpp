#include "tova/events/tool.h"

#include "events/toolstackcore.h"
#include "nodes/deferrederror.h"
#include "tova/events/event.h"
#include "tova/events/mouseevent.h"

#include <cmath>

namespace Tova2 {

namespace {

constexpr double kInteractionThreshold = 2; // pixels

} // namespace

Tool::Tool() = default;
Tool::~Tool() = default;

void Tool::onAddToStack() {}

void Tool::onRemoveFromStack() {}

Tool::EAutoScrollType Tool::autoScrollTypeDuringDrag()
{
    return EAutoScrollType::Default;
}

bool Tool::cancelsTransparently() const
{
    return false;
}

bool Tool::requiresKeyAutoRepeat() const
{
    return false;
}

std::optional<Vetra::Cursor> Tool::overrideCursor()
{
    return {};
}

void Tool::deferredActivate(Event&, bool)
{
    becomeActive();
}

void Tool::onAppModelChange(EAppModelChangePhase phase)
{
    if (phase == EAppModelChangePhase::PreSync)
        cancel(ECancelReason::AppModelChange, nullptr);
}

void Tool::receiveMessage(Vetra::StringID id, const Vetra::any&)
{
    static const Vetra::StringID preSync("AppModelChanged_PreSyncFromRoot");
    static const Vetra::StringID postSync("AppModelChanged_PostSyncFromRoot");
    if (id == preSync)
        onAppModelChange(EAppModelChangePhase::PreSync);
    else if (id == postSync)
        onAppModelChange(EAppModelChangePhase::PostSync);
}

void Tool::setInteractionState(EInteractionState state)
{
    if (state == m_state || state > EInteractionState::Done)
        return;
    if (m_stateSink && state == EInteractionState::Active && !m_stateSink->mayActivate(*this))
        return;
    // Who hears of it may drop the last reference, but a tool that nobody holds yet has none.
    const Vetra::Holder<Tool> alive(referenceCount() > 0 ? this : nullptr);
    const EInteractionState old = std::exchange(m_state, state);
    if (m_stack)
        m_stack->noteState(*this);
    DeferredError errors;
    errors.run([&] {
        if (m_stateSink)
            m_stateSink->toolStateChanged(*this, old, state);
    });
    errors.run([&] { m_stateChange.send(this, old, state); });
    errors.rethrow();
}

const char* Tool::interactionStateName(EInteractionState state) noexcept
{
    switch (state) {
    case EInteractionState::Idle:
        return "idle";
    case EInteractionState::Alert:
        return "alert";
    case EInteractionState::Active:
        return "active";
    case EInteractionState::DeferredActive:
        return "deferred active";
    case EInteractionState::Done:
        return "done";
    }
    return "invalid";
}

bool Tool::isContextMenuEvent(const Event& event) noexcept
{
    return event.type() == EventType::ContextMenuEvent;
}

bool Tool::movedPastInteractionThreshold(const Vetra::GLPoint<int>& from,
                                         const Vetra::GLPoint<int>& to) noexcept
{
    // Cut off to an integer or not, it reaches an integral threshold at the same place.
    return std::hypot(double(to.x) - from.x, double(to.y) - from.y) >= kInteractionThreshold;
}

bool Tool::movedPastInteractionThreshold(const MouseEvent& from, const MouseEvent& to)
{
    return movedPastInteractionThreshold(from.asGLMouseEvent2().position,
                                         to.asGLMouseEvent2().position);
}

} // namespace Tova2
