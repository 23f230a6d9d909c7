#include "shapetool.h"

#include "shapes.h"

using Tova2::Node;

std::optional<Vetra::Cursor> ShapeTool::overrideCursor()
{
    if (!m_picked.isValid())
        return {};
    return Vetra::Cursor(Vetra::CursorShape::Cross);
}

void ShapeTool::handleMousePressEvent(Tova2::MouseEvent& event)
{
    if (event.asGLMouseEvent2().button != Vetra::MouseButton::LeftButton)
        return;
    const Node button = buttonAt(event.scenePos());
    if (button.isValid()) {
        pick(button == m_picked ? Node() : button);
    } else if (m_picked.isValid()) {
        const auto kind = std::any_cast<std::string>(m_picked.getTagValue(kindTag()));
        scene()->addNode(makeFigure(kind, event.scenePos(), kind));
        pick(Node());
    } else {
        return;
    }
    event.consume();
}

// The palette lies in the overlay, which has the scene's coordinates; input goes to the scene.
Node ShapeTool::buttonAt(const Vetra::GLPoint<double>& scenePoint) const
{
    const auto* const canvas = m_canvas.get();
    if (!canvas)
        return {};
    for (const Node& node : canvas->getOverlayScene()->getNodesAtScenePos(scenePoint)) {
        if (node.hasTag(kindTag()))
            return node;
    }
    return {};
}

void ShapeTool::pick(const Node& button)
{
    if (m_picked.isValid())
        m_picked.setFill(Tova2::Fill(Vetra::Color(1, 1, 1, 0.08)));
    m_picked = button;
    if (m_picked.isValid())
        m_picked.setFill(Tova2::Fill(Vetra::Color(0.35, 0.62, 0.95, 0.75)));
    if (button.isValid())
        becomeAlert(); // Escape takes it back
    else
        becomeIdle();
}

void ShapeTool::cancel(ECancelReason, const Tool*)
{
    pick(Node());
}
