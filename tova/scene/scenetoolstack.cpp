// A scene as a tool stack, all of which it hands to its own one.

#include "scene/scenetools.h"
#include "scene/sceneuse.h"

#include "tova/scene/scene.h"

namespace Tova2 {

using Vetra::StringID;

void Scene::addTool(Tool* tool, const StringID& role)
{
    SceneUse(*this)->tools().stack().addTool(tool, role);
}

void Scene::addTool(Tool* tool)
{
    SceneUse(*this)->tools().stack().addTool(tool);
}

void Scene::addToolAbove(Tool* tool, const StringID& role)
{
    SceneUse(*this)->tools().stack().addToolAbove(tool, role);
}

void Scene::addToolBelow(Tool* tool, const StringID& role)
{
    SceneUse(*this)->tools().stack().addToolBelow(tool, role);
}

Tool* Scene::addToolByRole(StringID role)
{
    return SceneUse(*this)->tools().addToolByRole(role);
}

void Scene::addToolConstructor(BaseToolConstructor* constructor)
{
    d->tools().factory().addToolConstructor(constructor);
}

void Scene::moveToolAbove(Tool* tool, const StringID& role)
{
    SceneUse(*this)->tools().stack().moveToolAbove(tool, role);
}

void Scene::moveToolBelow(Tool* tool, const StringID& role)
{
    SceneUse(*this)->tools().stack().moveToolBelow(tool, role);
}

bool Scene::removeTool(Tool* tool)
{
    return SceneUse(*this)->tools().stack().removeTool(tool);
}

bool Scene::removeToolByRole(const StringID& role)
{
    return SceneUse(*this)->tools().stack().removeToolByRole(role);
}

void Scene::clearToolStack()
{
    SceneUse(*this)->tools().stack().clearToolStack();
}

void Scene::cancelAllTools()
{
    SceneUse(*this)->tools().stack().cancelAllTools();
}

void Scene::delegateToTool(Tool* tool, Event& event)
{
    SceneUse(*this)->tools().stack().delegateToTool(tool, event);
}

Tool* Scene::getActiveTool()
{
    return d->tools().stack().getActiveTool();
}

bool Scene::hasActiveOrAlertTool() const
{
    return d->tools().stack().hasActiveOrAlertTool();
}

bool Scene::hasTool(Tool* tool) const
{
    return d->tools().stack().hasTool(tool);
}

Tool* Scene::getToolByRole(const StringID& role) const
{
    return d->tools().stack().getToolByRole(role);
}

StringID Scene::getRoleByTool(Tool* tool)
{
    return d->tools().stack().getRoleByTool(tool);
}

StringID Scene::getUniqueToolRoleBasedOn(const StringID& role)
{
    return d->tools().stack().getUniqueToolRoleBasedOn(role);
}

const std::vector<Vetra::Holder<Tool>>& Scene::listCurrentTools() const
{
    return d->tools().stack().listCurrentTools();
}

void Scene::sendMessageToTools(StringID id, const Vetra::any& payload)
{
    SceneUse(*this)->tools().sendMessage(id, payload);
}

ToolFactory& Scene::getToolFactory()
{
    return d->tools().factory();
}

bool Scene::getToolstackReadonly()
{
    return d->tools().stack().getToolstackReadonly();
}

void Scene::setToolstackReadonly(bool isReadonly)
{
    const SceneUse use(*this);
    // Whoever caches by the counter may answer differently for a scene that cannot be edited.
    use->incrementChangeCounter();
    use->tools().stack().setToolstackReadonly(isReadonly);
}

Vetra::Cursor Scene::getToolOverrideCursor()
{
    return d->tools().overrideCursor().value_or(Vetra::Cursor());
}

bool Scene::hasToolOverrideCursor() const
{
    return d->tools().overrideCursor().has_value();
}

Vemit::Emitter<>& Scene::getToolOverrideCursorEmitter()
{
    return d->tools().cursorEmitter();
}

Vemit::Emitter<const StringID&, const Vetra::any&>& Scene::getToolMessageEmitter()
{
    return d->tools().messageEmitter();
}

void Scene::addRolloverFactory(const std::string& name, RolloverFactory* factory)
{
    d->tools().addRolloverFactory(name, factory);
}

bool Scene::removeRolloverFactory(const std::string& name)
{
    return d->tools().removeRolloverFactory(name);
}

RolloverFactory* Scene::getRolloverFactoryFor(const Node& node) const
{
    return d->tools().rolloverFactoryFor(node);
}

} // namespace Tova2
