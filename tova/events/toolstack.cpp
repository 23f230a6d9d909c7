#include "events/toolstack.h"

#include "events/toolstackcore.h"

#include <string>

namespace Tova2 {

IToolStack::~IToolStack() = default;

ToolStack::ToolStack(Scene* scene, ToolStackHost* host) : m_core(new ToolStackCore(scene, host)) {}

ToolStack::~ToolStack()
{
    m_core->retire();
}

void ToolStack::setScene(Scene* scene)
{
    m_core->setScene(scene);
}

void ToolStack::addTool(Tool* tool, const Vetra::StringID& role)
{
    m_core->addTool(tool, role);
}

void ToolStack::addTool(Tool* tool)
{
    if (tool)
        m_core->addTool(tool, tool->getDefaultRole());
}

void ToolStack::delegateToTool(Tool* tool, Event& event)
{
    m_core->delegateToTool(tool, event);
}

Vetra::StringID ToolStack::getUniqueToolRoleBasedOn(const Vetra::StringID& role)
{
    Vetra::StringID unique = role;
    for (int number = 2; getToolByRole(unique); ++number)
        unique = role.str() + std::to_string(number);
    return unique;
}

bool ToolStack::hasTool(Tool* tool) const
{
    return m_core->isListed(tool);
}

bool ToolStack::removeTool(Tool* tool)
{
    return m_core->removeTool(tool);
}

bool ToolStack::removeToolByRole(const Vetra::StringID& role)
{
    return m_core->removeTool(getToolByRole(role));
}

Tool* ToolStack::getToolByRole(const Vetra::StringID& role) const
{
    const auto place = m_core->tools().findRole(role);
    return place == m_core->tools().end() ? nullptr : place->tool.get();
}

Vetra::StringID ToolStack::getRoleByTool(Tool* tool)
{
    const auto place = m_core->tools().find(tool);
    return place == m_core->tools().end() ? Vetra::StringID() : place->role;
}

void ToolStack::clearToolStack()
{
    m_core->clear();
}

void ToolStack::cancelAllTools()
{
    m_core->cancelAllTools();
}

void ToolStack::sendMessageToTools(Vetra::StringID id, const Vetra::any& payload)
{
    m_core->sendMessage(id, payload);
}

void ToolStack::moveToolAbove(Tool* tool, const Vetra::StringID& role)
{
    m_core->moveTool(tool, role, true);
}

void ToolStack::moveToolBelow(Tool* tool, const Vetra::StringID& role)
{
    m_core->moveTool(tool, role, false);
}

void ToolStack::addToolAbove(Tool* tool, const Vetra::StringID& role)
{
    m_core->addToolBeside(tool, role, true);
}

void ToolStack::addToolBelow(Tool* tool, const Vetra::StringID& role)
{
    m_core->addToolBeside(tool, role, false);
}

Tool* ToolStack::getActiveTool()
{
    return m_core->activeTool();
}

bool ToolStack::hasActiveOrAlertTool() const
{
    // Not by the list handed out: a caller may be walking it.
    ToolList::Walk walk(m_core->tools());
    while (const Tool* tool = walk.next()) {
        if (tool->isActive() || tool->isDeferredActive() || tool->isAlert())
            return true;
    }
    return false;
}

const std::vector<Vetra::Holder<Tool>>& ToolStack::listCurrentTools() const
{
    return m_core->tools().current();
}

bool ToolStack::getToolstackReadonly() const
{
    return m_core->isReadonly();
}

void ToolStack::renewCursor()
{
    m_core->renewCursor();
}

void ToolStack::setToolstackReadonly(bool readonly)
{
    m_core->setReadonly(readonly);
}

const std::optional<Vetra::Cursor>& ToolStack::overrideCursor() const
{
    return m_core->overrideCursor();
}

} // namespace Tova2
