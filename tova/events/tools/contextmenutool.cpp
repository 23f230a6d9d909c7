#include "tova/events/contextmenutool.h"

#include "tova/events/contextmenuevent.h"
#include "tova/events/eventcanvas.h"
#include "tova/scene/scene.h"
#include "vetra/saturate.h"

#include "events/tools/shownin.h"
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

void ContextMenuTool::setKeyboardNodeProvider(NodeProvider provider)
{
    m_keyboardNode = std::move(provider);
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
    if (request.isByKeyboard) {
        aimByKeyboard(request, event);
        return request;
    }
    const auto view = request.canvas ? request.canvas->getViewportTransform() : Vetra::Transform();
    if (scene())
        request.node = scene()->getNodeAt(request.scenePos, view);
    return request;
}

/// What lies in the middle of the canvas, where such an event comes from, is not what is meant.
void ContextMenuTool::aimByKeyboard(ContextMenuRequest& request, const ContextMenuEvent& event)
{
    const auto provider = m_keyboardNode; // it may set another one
    request.node = provider ? provider() : Node();
    if (!request.node.isValid() && scene())
        request.node = scene()->getFocusedNode();
    if (!isShownIn(request.node, scene())) {
        request.node = {};
        return;
    }
    request.scenePos = request.node.mapLocalToScene(request.node.getBoundingRect().center());
    if (!request.canvas)
        return;
    const auto& input = event.asGLContextMenuEvent2();
    const auto place = request.canvas->scenePointToViewPoint(request.scenePos);
    request.globalPos = Vetra::saturatedInts(
        Vetra::GLPoint<double>{place.x + input.globalPosition.x - input.position.x,
                               place.y + input.globalPosition.y - input.position.y});
}

} // namespace Tova2
