// Who is active: state changes, cancel walks, read-only mode and the cursor that follows from it.

#include "events/autoscrollcontrol.h"
#include "events/firsterror.h"
#include "events/toolstackcore.h"
#include "events/toolstackhost.h"
#include "events/toolstackscopes.h"

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

bool ToolStackCore::mayActivate(const Tool& tool) const noexcept
{
    return m_cancelWalks < kMostCancelWalks && (!m_activating || m_activating == &tool);
}

void ToolStackCore::toolStateChanged(Tool& tool, State old, State now)
{
    const Use use(*this);
    FirstError errors;
    if (old == State::Active)
        errors.run([&] { deactivate(tool); });
    if (now == State::Active)
        errors.run([&] { activate(tool); });
    settle(errors);
}

void ToolStackCore::deactivate(Tool& tool)
{
    // Another tool may have taken over from one that had not told.
    if (m_active != &tool)
        return;
    m_active = nullptr;
    if (tool.autoScrollTypeDuringDrag() != Tool::EAutoScrollType::None)
        stopAutoScroll();
}

void ToolStackCore::forgetActive(const Tool* tool) noexcept
{
    if (!m_active || m_active != tool)
        return;
    m_active = nullptr;
    stopAutoScroll();
}

void ToolStackCore::activate(Tool& tool)
{
    FirstError errors;
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
        m_hasActivated = true;
        ++m_activations;
    }
    errors.rethrow();
}

int ToolStackCore::cancelTools(const Tool* exempt, Tool::ECancelReason reason, FirstError& errors)
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
                             FirstError& errors)
{
    int result = 0;
    if (tool.isActive() || tool.isAlert())
        errors.run([&] { result = tool.cancelsTransparently() ? 1 : 2; });
    errors.run([&] { tool.cancel(reason, exempt); });
    // One active tool at most, whatever the tool thinks of it.
    if (reason == Tool::ECancelReason::OtherToolActivated && tool.isActive() && hasTool(&tool))
        errors.run([&] { tool.becomeIdle(); });
    return result;
}

void ToolStackCore::setReadonly(bool isReadonly)
{
    if (isReadonly == m_isReadonly)
        return;
    m_isReadonly = isReadonly;
    if (!m_active)
        return;
    const Use use(*this);
    FirstError errors;
    bool isCancelled = false;
    errors.run([&] {
        const Inside inside(*this);
        isCancelled = isShutOut(*m_active);
        if (isCancelled)
            m_active->cancel(Tool::ECancelReason::AllToolsCancelled, nullptr);
    });
    if (isCancelled) {
        removeDoneTools(errors);
        errors.run([this] { renewCursor(); });
    }
    settle(errors);
}

void ToolStackCore::renewCursor()
{
    m_cursor = {};
    m_hasLostCursor = false;
    FirstError errors;
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
