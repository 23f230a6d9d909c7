#include "events/toolstackcore.h"

#include "events/firsterror.h"
#include "events/toolstackscopes.h"

namespace Tova2 {

void ToolStackCore::retire() noexcept
{
    const Use use(*this);
    m_isRetired = true;
    FirstError ignored; // There is nobody left to tell.
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
    FirstError errors;
    removeDoneTools(errors);
    const auto taken = m_tools.findRole(role);
    if ((tool->m_stack && !hasTool(tool)) || (taken != m_tools.end() && taken->tool == tool))
        return errors.rethrow();
    if (taken != m_tools.end())
        dismiss(*taken->tool, errors);
    errors.run([&] { enter(*tool, role); });
    settle(errors);
}

/// What callbacks did in the meantime stands: they may have brought the tool in, given the role to
/// another one, or destroyed the stack.
void ToolStackCore::enter(Tool& tool, const Vetra::StringID& role)
{
    auto place = m_tools.findRole(role);
    if ((tool.m_stack && !hasTool(&tool)) || m_isRetired)
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
    tool.onAddToStack();
}

bool ToolStackCore::removeTool(Tool* tool)
{
    if (!isListed(tool) || tool->m_membership != Tool::Membership::Member)
        return false;
    const Use use(*this);
    FirstError errors;
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
    FirstError errors;
    errors.run([&] { addTool(tool, tool->getDefaultRole()); });
    moveTool(tool, role, isAbove);
    settle(errors);
}

void ToolStackCore::clear()
{
    const Use use(*this);
    FirstError errors;
    forgetActive(m_active);
    ToolList::Walk walk(m_tools);
    while (Tool* tool = walk.next())
        expel(*tool, errors);
    settle(errors);
}

/// Cancels a tool whose role another one gets, and takes leave of it; it stays in its place.
void ToolStackCore::dismiss(Tool& tool, FirstError& errors)
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
    FirstError errors;
    errors.run([&] { tool.onRemoveFromStack(); });
    if (tool.m_membership != Tool::Membership::Member) // again
        tool.m_scene = nullptr;
    errors.rethrow();
}

/// Removes the tool without cancelling it.
void ToolStackCore::expel(Tool& tool, FirstError& errors)
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
        m_hasLostCursor = true;
    }
}

void ToolStackCore::removeDoneTools(FirstError& errors)
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

/// Ends an operation that may have removed the tool whose cursor is shown.
void ToolStackCore::settle(FirstError& errors)
{
    if (m_hasLostCursor && m_uses == 1)
        errors.run([this] { renewCursor(); });
    errors.rethrow();
}

} // namespace Tova2
