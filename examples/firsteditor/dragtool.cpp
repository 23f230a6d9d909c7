#include "dragtool.h"

using Tova2::MouseEvent;
using Tova2::Node;

DragTool::DragTool(Tova2::GLCanvas& canvas) : m_canvas(&canvas)
{
    m_frame.setFill(Tova2::Fill::NoFill());
    m_frame.setStrokeColor(Vetra::Color(0.13, 0.45, 0.85));
}

void DragTool::handleMousePressEvent(MouseEvent& event)
{
    const auto& input = event.asGLMouseEvent2();
    const Node block = blockAt(event);
    if (input.button != Vetra::MouseButton::LeftButton || !block.isValid())
        return; // for the tools below: a press beside the blocks pans
    m_block = Tova2::WeakRef(block);
    m_start = block.getScenePosition();
    m_press = event.scenePos();
    m_pressPixel = input.position;
    becomeAlert();
    event.consume();
}

void DragTool::handleMouseMoveEvent(MouseEvent& event)
{
    if (isAlert() && movedPastInteractionThreshold(m_pressPixel, event.asGLMouseEvent2().position))
        becomeActive();
    Node block = m_block.getNode();
    if (!isActive() || !block.isValid())
        return;
    const auto way = event.scenePos() - m_press;
    block.setScenePosition({m_start.x + way.x, m_start.y + way.y});
    showFrame();
}

void DragTool::handleMouseReleaseEvent(MouseEvent& event)
{
    if (isIdle() || event.asGLMouseEvent2().button != Vetra::MouseButton::LeftButton)
        return;
    endDrag();
    event.consume();
}

void DragTool::cancel(ECancelReason, const Tool*)
{
    Node block = m_block.getNode();
    if (isActive() && block.isValid())
        block.setScenePosition(m_start);
    endDrag();
}

void DragTool::endDrag()
{
    m_frame.remove();
    becomeIdle();
}

void DragTool::showFrame()
{
    const Node block = m_block.getNode();
    auto* const canvas = m_canvas.get();
    if (!canvas)
        return;
    const auto rect = block.mapLocalToScene(block.getBoundingRect()).boundingRect();
    m_frame.setRect({rect.x - 4, rect.y - 4, rect.width + 8, rect.height + 8});
    canvas->getOverlayScene()->addNode(m_frame); // nothing when it is there already
}

void DragTool::handleHoverEnterEvent(MouseEvent& event)
{
    m_isOverBlock = event.canvas() == m_canvas.get() && blockAt(event).isValid();
}

void DragTool::handleHoverExitEvent(MouseEvent&)
{
    m_isOverBlock = false;
}

std::optional<Vetra::Cursor> DragTool::overrideCursor()
{
    if (isActive())
        return Vetra::Cursor(Vetra::CursorShape::ClosedHand);
    if (m_isOverBlock)
        return Vetra::Cursor(Vetra::CursorShape::OpenHand);
    return {};
}

void DragTool::handleKeyPressEvent(Tova2::KeyEvent& event)
{
    Node block = m_block.getNode();
    if (!isIdle() || !block.isValid())
        return;
    const auto key = event.key();
    const int right = (key == Vetra::Key::Right) - (key == Vetra::Key::Left);
    const int down = (key == Vetra::Key::Down) - (key == Vetra::Key::Up);
    if (right == 0 && down == 0)
        return;
    const auto place = block.getScenePosition();
    block.setScenePosition({place.x + 5 * right, place.y + 5 * down});
    event.consume();
}

Node DragTool::blockAt(const MouseEvent& event) const
{
    Node node = scene()->getNodeAt(event.scenePos(), event.getViewportTransform());
    while (node.isValid() && !node.hasTag(blockTag()))
        node = node.getParent(); // its label, for one
    return node;
}
