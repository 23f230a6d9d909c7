// Who is active: state changes, cancel walks, read-only mode and the cursor that follows from it.

#include "events/autoscrollcontrol.h"
#include "events/toolstackcore.h"
#include "events/toolstackhost.h"
#include "events/toolstackscopes.h"
#include "nodes/deferrederror.h"

#include <algorithm>

namespace Tova2 {

namespace {

using State = Tool::EInteractionState;

/// Of nested cancel walks; deeper ones do nothing, so that tools that fight for activity come to an
/// end.
constexpr int kMostCancelWalks = 3;

void stopAutoScroll()
{
    if (auto* control = AutoScrollControl::current())
        control->stop();
}

} // namespace

bool ToolStackCore::mayActivate(const Tool& tool) const
{
    return m_cancelWalks < kMostCancelWalks && (!m_activating || m_activating == &tool) &&
           !isShutOut(tool);
}

void ToolStackCore::toolStateChanged(Tool& tool, State old, State now)
{
    const Use use(*this);
    DeferredError errors;
    if (old == State::Active)
        errors.run([&] { deactivate(tool); });
    if (now == State::Active)
        errors.run([&] { activate(tool); });
    // An operation under way asks for the cursor itself; by a timer there is none.
    m_isCursorStale = m_isCursorStale || m_uses == 1;
    settle(errors);
}

void ToolStackCore::deactivate(Tool& tool)
{
    // Another tool may have taken over from one that had not told.
    if (m_active != &tool)
        return;
    m_active = nullptr;
    // Whatever the tool says by now.
    if (std::exchange(m_isScrolling, false) ||
        tool.autoScrollTypeDuringDrag() != Tool::EAutoScrollType::None)
        stopAutoScroll();
}

void ToolStackCore::forgetActive(const Tool* tool) noexcept
{
    if (!m_active || m_active != tool)
        return;
    m_active = nullptr;
    m_isScrolling = false;
    stopAutoScroll();
}

void ToolStackCore::activate(Tool& tool)
{
    DeferredError errors;
    const Tool* const outer = std::exchange(m_activating, &tool);
    cancelTools(&tool, Tool::ECancelReason::OtherToolActivated, errors);
    m_activating = outer;
    auto type = Tool::EAutoScrollType::None;
    errors.run([&] { type = tool.autoScrollTypeDuringDrag(); });
    // Any of these callbacks may have ended it already.
    if (tool.isActive() && tool.m_stateSink == this) {
        if (auto* control = AutoScrollControl::current())
            control->start(type);
        m_active = &tool;
        m_isScrolling = type != Tool::EAutoScrollType::None;
        m_hasActivated = true;
        ++m_activations;
    }
    errors.rethrow();
}

void ToolStackCore::cancelAllTools()
{
    const Use use(*this);
    DeferredError errors;
    cancelTools(nullptr, Tool::ECancelReason::AllToolsCancelled, errors);
    settle(errors);
}

int ToolStackCore::cancelTools(const Tool* exempt, Tool::ECancelReason reason,
                               DeferredError& errors)
{
    if (m_cancelWalks == kMostCancelWalks)
        return 0;
    const Use use(*this);
    int result = 0;
    {
        const Inside inside(*this);
        ++m_cancelWalks;
        ToolList::Walk walk(m_tools);
        while (Tool* tool = walk.next()) {
            if (tool != exempt)
                result = std::max(result, cancelOne(*tool, exempt, reason, errors));
        }
        --m_cancelWalks;
    }
    removeDoneTools(errors);
    errors.run([this] { renewCursor(); });
    return result;
}

int ToolStackCore::cancelOne(Tool& tool, const Tool* exempt, Tool::ECancelReason reason,
                             DeferredError& errors)
{
    int result = 0;
    if (!serves(tool))
        return result;
    if (tool.isActive() || tool.isAlert())
        errors.run([&] { result = tool.cancelsTransparently() ? 1 : 2; });
    errors.run([&] { tool.cancel(reason, exempt); });
    // One active tool at most, and none that is shut out, whatever the tool thinks of it.
    errors.run([&] {
        const bool hasTo = reason == Tool::ECancelReason::OtherToolActivated || isShutOut(tool);
        if (hasTo && tool.isActive() && hasTool(&tool))
            tool.becomeIdle();
    });
    return result;
}

void ToolStackCore::setReadonly(bool isReadonly)
{
    if (isReadonly == m_isReadonly)
        return;
    m_isReadonly = isReadonly;
    // A gesture that has begun would not hear of its end.
    const Use use(*this);
    DeferredError errors;
    {
        const Inside inside(*this);
        ToolList::Walk walk(m_tools);
        while (Tool* tool = walk.next()) {
            errors.run([&] {
                if (isShutOut(*tool) && !tool->isIdle())
                    cancelOne(*tool, nullptr, Tool::ECancelReason::AllToolsCancelled, errors);
            });
        }
    }
    removeDoneTools(errors);
    errors.run([this] { renewCursor(); });
    settle(errors);
}

void ToolStackCore::renewCursor()
{
    const Use use(*this);
    m_cursor = {};
    m_isCursorStale = false;
    DeferredError errors;
    if (m_active)
        errors.run([this] { collectCursor(*m_active); });
    ToolList::Walk walk(m_tools);
    while (Tool* tool = m_cursor.cursor ? nullptr : walk.next()) {
        errors.run([&] {
            if (!isShutOut(*tool))
                collectCursor(*tool);
        });
    }
    errors.run([this] { showCursor(); });
    errors.rethrow();
}

void ToolStackCore::showCursor()
{
    if (!m_host)
        return;
    if (m_cursor.cursor)
        m_host->showToolCursor(*m_cursor.cursor);
    else
        m_host->restoreCursor();
}

} // namespace Tova2
