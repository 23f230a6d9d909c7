#include "selecttool.h"

#include <algorithm>
#include <cmath>

using Tova2::MouseEvent;
using Tova2::Node;
using Tova2::WeakRef;

std::vector<Node> SelectTool::selection() const
{
    std::vector<Node> blocks;
    for (const auto& [ref, selected] : m_selection) {
        if (const Node block = ref.getNode(); block.isValid())
            blocks.push_back(block);
    }
    return blocks;
}

void SelectTool::handleMousePressEvent(MouseEvent& event)
{
    const auto& input = event.asGLMouseEvent2();
    if (!isIdle() || input.button != Vetra::MouseButton::LeftButton)
        return;
    const Node block = blockAt(event);
    if (!input.modifiers.has(Vetra::Modifier::Shift) && !isSelected(block))
        clearSelection();
    select(block);
    m_isBanding = !block.isValid();
    m_press = event.scenePos();
    m_pressPixel = input.position;
    for (auto& [ref, selected] : m_selection)
        selected.start = ref.isValid() ? ref.getNode().getScenePosition() : Point();
    m_kept.clear();
    for (const auto& entry : m_selection)
        m_kept.push_back(entry.first);
    becomeAlert();
    event.consume();
}

void SelectTool::handleMouseMoveEvent(MouseEvent& event)
{
    // The release may have been lost, to a dialog for one.
    if (!isIdle() && !event.asGLMouseEvent2().buttons.has(Vetra::MouseButton::LeftButton))
        return endGesture();
    if (isAlert() && movedPastInteractionThreshold(m_pressPixel, event.asGLMouseEvent2().position))
        becomeActive();
    if (!isActive())
        return;
    const Point& pointer = event.scenePos();
    if (m_isBanding)
        stretchBand(pointer);
    else
        moveSelection({pointer.x - m_press.x, pointer.y - m_press.y});
}

void SelectTool::handleMouseReleaseEvent(MouseEvent& event)
{
    if (isIdle() || event.asGLMouseEvent2().button != Vetra::MouseButton::LeftButton)
        return;
    endGesture();
    event.consume();
}

void SelectTool::handleFocusOutEvent(Tova2::FocusEvent&)
{
    cancel(ECancelReason::AllToolsCancelled, nullptr);
}

void SelectTool::handleLeaveCanvasEvent(Tova2::WidgetEvent&)
{
    cancel(ECancelReason::AllToolsCancelled, nullptr);
}

void SelectTool::cancel(ECancelReason, const Tool*)
{
    if (isActive() && !m_isBanding)
        moveSelection({0, 0});
    endGesture();
}

void SelectTool::onRemoveFromStack()
{
    clearSelection();
}

Node SelectTool::blockAt(const MouseEvent& event) const
{
    Node node = scene()->getNodeAt(event.scenePos(), event.getViewportTransform());
    while (node.isValid() && !node.hasTag(blockTag()))
        node = node.getParent();
    return node;
}

bool SelectTool::isSelected(const Node& block) const
{
    return block.isValid() && m_selection.count(WeakRef(block)) != 0;
}

void SelectTool::select(const Node& block)
{
    if (!block.isValid() || isSelected(block))
        return;
    Node selected = block;
    m_selection[WeakRef(selected)] = {selected.getStroke(), selected.getScenePosition()};
    Tova2::Stroke stroke = selected.getStroke();
    stroke.setColor(Vetra::Color(0.13, 0.45, 0.85, 1));
    stroke.setLogicalWidth(2.5);
    selected.setStroke(stroke);
}

void SelectTool::clearSelection()
{
    for (const auto& [ref, selected] : m_selection) {
        if (Node block = ref.getNode(); block.isValid())
            block.setStroke(selected.stroke);
    }
    m_selection.clear();
}

void SelectTool::moveSelection(const Point& distance)
{
    for (const auto& [ref, selected] : m_selection) {
        if (Node block = ref.getNode(); block.isValid())
            block.setScenePosition({selected.start.x + distance.x, selected.start.y + distance.y});
    }
}

void SelectTool::stretchBand(const Point& corner)
{
    const Vetra::GLRect<double> rect{std::min(m_press.x, corner.x), std::min(m_press.y, corner.y),
                                     std::abs(corner.x - m_press.x),
                                     std::abs(corner.y - m_press.y)};
    m_band.setRect(rect);
    if (!m_band.getScene()) {
        m_band.setFill(Tova2::Fill(Vetra::Color(0.13, 0.45, 0.85, 0.12)));
        m_band.setStrokeColor(Vetra::Color(0.13, 0.45, 0.85, 0.8));
        scene()->addNode(m_band);
    }
    clearSelection();
    for (const WeakRef& kept : m_kept)
        select(kept.getNode());
    for (const Node& node : scene()->getNodesWithinRect(rect)) {
        if (node.hasTag(blockTag()))
            select(node);
    }
}

void SelectTool::endGesture()
{
    m_band.remove();
    becomeIdle();
}
