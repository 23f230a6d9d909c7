#include "tova/events/contextmenutool.h"

#include "tova/events/contextmenuevent.h"
#include "tova/events/eventcanvas.h"
#include "tova/scene/scene.h"

#include "nodes/deferrederror.h"

#include <utility>

namespace Tova2 {

ContextMenuTool::ContextMenuTool(std::unique_ptr<ContextMenuPresenter> presenter)
    : m_presenter(presenter ? std::move(presenter) : ContextMenuPresenter::asPopup())
{}

ContextMenuTool::~ContextMenuTool() = default;

Vetra::StringID ContextMenuTool::staticGetDefaultRole()
{
    static const Vetra::StringID role("ContextMenuTool");
    return role;
}

void ContextMenuTool::setActionProvider(ActionProvider provider)
{
    m_provider = std::move(provider);
}

void ContextMenuTool::cancel(ECancelReason, const Tool*)
{
    DeferredError errors;
    errors.run([this] { m_presenter->hide(); });
    errors.run([this] { becomeIdle(); });
    errors.rethrow();
}

void ContextMenuTool::onRemoveFromStack()
{
    m_presenter->hide();
}

void ContextMenuTool::handleContextMenuEvent(ContextMenuEvent& event)
{
    const auto provider = m_provider; // it may set another one
    if (!provider)
        return;
    const ContextMenuRequest request = requestOf(event);
    auto actions = provider(request);
    if (actions.empty() || !scene()) // the provider may have taken the tool out
        return;
    event.consume();
    // For a moment only: a menu ends every gesture under way, and then runs beside the stack.
    DeferredError errors;
    errors.run([&] {
        becomeActive();
        if (isActive() && scene()) // nobody has refused, or taken the tool out meanwhile
            m_presenter->show(std::move(actions), request.globalPos);
    });
    errors.run([this] { becomeIdle(); });
    errors.rethrow();
}

ContextMenuRequest ContextMenuTool::requestOf(const ContextMenuEvent& event)
{
    const auto& input = event.asGLContextMenuEvent2();
    ContextMenuRequest request;
    request.scenePos = event.scenePos();
    request.globalPos = input.globalPosition;
    request.isByKeyboard = input.reason == Vetra::ContextMenuReason::Keyboard;
    request.canvas = event.canvas();
    const auto view = request.canvas ? request.canvas->getViewportTransform() : Vetra::Transform();
    if (scene())
        request.node = scene()->getNodeAt(request.scenePos, view);
    return request;
}

} // namespace Tova2
