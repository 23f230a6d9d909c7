#include "tova/events/cursorchangetool.h"

#include "tova/events/mouseevent.h"
#include "tova/events/movecursorupdateblocker.h"
#include "tova/events/widgetevent.h"
#include "tova/scene/scene.h"

#include "events/tools/shownin.h"

namespace Tova2 {

namespace {

/// An empty handle when neither the node nor any ancestor has a cursor.
Node carrierOfCursor(Node node)
{
    while (node.isValid() && !node.hasCursor())
        node = node.getParent();
    return node;
}

} // namespace

Vetra::StringID CursorChangeTool::staticGetDefaultRole()
{
    static const Vetra::StringID role("CursorChangeTool");
    return role;
}

void CursorChangeTool::cancel(ECancelReason, const Tool*)
{
    becomeIdle();
}

void CursorChangeTool::onRemoveFromStack()
{
    m_hovered = {};
}

std::optional<Vetra::Cursor> CursorChangeTool::overrideCursor()
{
    const Node node = m_hovered.getNode();
    if (!isShownIn(node, scene()))
        return {};
    const Node carrier = carrierOfCursor(node);
    return carrier.isValid() ? std::optional(carrier.getCursor()) : std::nullopt;
}

void CursorChangeTool::handleMouseMoveEvent(MouseEvent& event)
{
    if (MoveCursorUpdateBlocker::isBlocked() || !scene())
        return;
    const Node node = scene()->getNodeAt(event.scenePos(), event.getViewportTransform());
    // A reference costs the node memory, so that nodes without a cursor get none.
    m_hovered = carrierOfCursor(node).isValid() ? WeakRef(node) : WeakRef();
}

/// Those who listen to the node may have given it a cursor since the move.
void CursorChangeTool::handleHoverEnterEvent(MouseEvent& event)
{
    CursorChangeTool::handleMouseMoveEvent(event);
}

void CursorChangeTool::handleLeaveCanvasEvent(WidgetEvent&)
{
    m_hovered = {};
}

} // namespace Tova2
