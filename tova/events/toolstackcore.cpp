#include "events/toolstackcore.h"

#include "events/toolstackhost.h"
#include "events/toolstackscopes.h"
#include "nodes/deferrederror.h"

namespace Tova2 {

void ToolStackCore::retire() noexcept
{
    const Use use(*this);
    m_isRetired = true;
    DeferredError ignored; // There is nobody left to tell.
    ignored.run([this] { clear(); });
    m_host = nullptr;
    m_scene = nullptr;
}

void ToolStackCore::setScene(Scene* scene)
{
    m_scene = scene;
    const Use use(*this);
    ToolList::Walk walk(m_tools);
    while (Tool* tool = walk.next())
        tool->m_scene = scene;
}

void ToolStackCore::addTool(Tool* tool, const Vetra::StringID& role)
{
    if (!tool || m_isRetired)
        return;
    const Use use(*this);
    const Vetra::Holder<Tool> alive(tool);
    DeferredError errors;
    removeDoneTools(errors);
    const auto taken = m_tools.findRole(role);
    if (!mayEnter(*tool) || (taken != m_tools.end() && taken->tool == tool))
        return errors.rethrow();
    if (taken != m_tools.end())
        dismiss(*taken->tool, errors);
    errors.run([&] { enter(*tool, role); });
    settle(errors);
}

/// Not a tool of another stack, nor one on its way out, which asks for a role in its own farewell.
bool ToolStackCore::mayEnter(const Tool& tool) const noexcept
{
    return !tool.m_stack || (hasTool(&tool) && tool.m_membership == Tool::Membership::Member);
}

/// What callbacks did in the meantime stands: they may have brought the tool in, given the role to
/// another one, or destroyed the stack.
void ToolStackCore::enter(Tool& tool, const Vetra::StringID& role)
{
    auto place = m_tools.findRole(role);
    if (!mayEnter(tool) || m_isRetired)
        return;
    if (place != m_tools.end() && (place->tool == &tool || place->tool->m_stateSink))
        return;
    const auto above = place != m_tools.end() ? place : m_tools.top();
    if (hasTool(&tool))
        m_tools.moveAbove(above, m_tools.find(&tool), role);
    else
        m_tools.insertAbove(above, tool, role);
    if (place != m_tools.end())
        unlink(*place->tool);
    if (!hasTool(&tool))
        join(tool);
}

void ToolStackCore::join(Tool& tool)
{
    tool.m_stack = this;
    tool.m_stateSink = this;
    tool.m_membership = Tool::Membership::Member;
    tool.m_scene = m_scene;
    noteState(tool);
    DeferredError errors;
    errors.run([&] { tool.onAddToStack(); });
    // One that was active before it came claims the interaction now.
    if (tool.isActive() && m_active != &tool && tool.m_stateSink == this)
        errors.run([&] { mayActivate(tool) ? activate(tool) : tool.becomeIdle(); });
    errors.rethrow();
}

bool ToolStackCore::removeTool(Tool* tool)
{
    if (!isListed(tool) || tool->m_membership != Tool::Membership::Member)
        return false;
    const Use use(*this);
    DeferredError errors;
    errors.run([&] { cancelForRemoval(*tool); });
    // Unless the cancellation has made it leave in another way.
    if (hasTool(tool) && tool->m_membership == Tool::Membership::Cancelled) {
        unlink(*tool);
        errors.run([&] { tool->onRemoveFromStack(); });
        if (!tool->m_stack)
            tool->m_scene = nullptr;
    }
    settle(errors);
    return true;
}

void ToolStackCore::moveTool(const Tool* tool, const Vetra::StringID& role, bool isAbove)
{
    const auto reference = m_tools.findRole(role);
    const auto moved = m_tools.find(tool);
    if (moved == m_tools.end() || reference == m_tools.end() || moved == reference)
        return;
    const Use use(*this);
    const Vetra::StringID own = moved->role;
    m_tools.moveAbove(isAbove ? reference : std::next(reference), moved, own);
}

void ToolStackCore::addToolBeside(Tool* tool, const Vetra::StringID& role, bool isAbove)
{
    if (!tool)
        return;
    const Use use(*this);
    DeferredError errors;
    errors.run([&] { addTool(tool, tool->getDefaultRole()); });
    moveTool(tool, role, isAbove);
    settle(errors);
}

void ToolStackCore::clear()
{
    const Use use(*this);
    DeferredError errors;
    forgetActive(m_active);
    ToolList::Walk walk(m_tools);
    while (Tool* tool = walk.next())
        expel(*tool, errors);
    settle(errors);
}

/// Cancels a tool whose role another one gets, and takes leave of it; it stays in its place.
void ToolStackCore::dismiss(Tool& tool, DeferredError& errors)
{
    errors.run([&] { cancelForRemoval(tool); });
    if (hasTool(&tool) && tool.m_membership != Tool::Membership::Member)
        errors.run([&] { tellRemoved(tool); });
}

void ToolStackCore::cancelForRemoval(Tool& tool)
{
    if (tool.m_membership != Tool::Membership::Member)
        return;
    tool.m_membership = Tool::Membership::Cancelled;
    tool.cancel(Tool::ECancelReason::RemovedFromStack, nullptr);
}

/// Takes leave of the tool, once only whoever removes it, and does not hear of its state any more.
void ToolStackCore::tellRemoved(Tool& tool)
{
    if (tool.m_membership == Tool::Membership::Leaving)
        return;
    tool.m_membership = Tool::Membership::Leaving;
    tool.m_stateSink = nullptr;
    forgetActive(&tool);
    DeferredError errors;
    errors.run([&] { tool.onRemoveFromStack(); });
    if (tool.m_membership != Tool::Membership::Member) // again
        tool.m_scene = nullptr;
    errors.rethrow();
}

/// Removes the tool without cancelling it.
void ToolStackCore::expel(Tool& tool, DeferredError& errors)
{
    errors.run([&] { tellRemoved(tool); });
    if (hasTool(&tool) && tool.m_membership == Tool::Membership::Leaving)
        unlink(tool);
}

void ToolStackCore::unlink(Tool& tool) noexcept
{
    forgetActive(&tool);
    m_tools.remove(m_tools.find(&tool));
    tool.m_stack = nullptr;
    tool.m_stateSink = nullptr;
    tool.m_membership = Tool::Membership::None;
    if (m_cursor.from == &tool) {
        m_cursor = {};
        m_isCursorStale = true;
    }
}

void ToolStackCore::removeDoneTools(DeferredError& errors)
{
    if (m_depth > 0 || !m_mayHaveDone)
        return;
    ToolList::Walk walk(m_tools);
    while (Tool* tool = walk.next()) {
        if (tool->isDone() && tool->m_membership != Tool::Membership::Leaving)
            expel(*tool, errors);
    }
    noteStates();
}

void ToolStackCore::noteStates()
{
    m_mayHaveDone = false;
    m_mayHaveDeferred = false;
    ToolList::Walk walk(m_tools);
    while (const Tool* tool = walk.next())
        noteState(*tool);
}

/// Ends an operation. The outermost one sees to it that the cursor is that of a tool which is here,
/// and tells the host once nobody owns the interaction.
void ToolStackCore::settle(DeferredError& errors)
{
    if (m_uses == 1 && !m_isRetired) {
        if (m_isCursorStale)
            errors.run([this] { renewCursor(); });
        if (!m_active && m_host)
            errors.run([this] { m_host->noToolActive(); });
    }
    errors.rethrow();
}

} // namespace Tova2
