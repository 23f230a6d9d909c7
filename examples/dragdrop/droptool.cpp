#include "droptool.h"

#include "blocks.h"

#include <cmath>

using namespace Tova2;

namespace {

Vetra::GLPoint<double> snapped(const Vetra::GLPoint<double>& point)
{
    constexpr double grid = 10;
    return {std::round(point.x / grid) * grid, std::round(point.y / grid) * grid};
}

bool isBlock(const DragEvent& event)
{
    return event.asGLDragEvent2().mimeData.hasFormat(kBlockFormat);
}

} // namespace

void DropTool::cancel(ECancelReason, const Tool*)
{
    hide();
    becomeIdle();
}

void DropTool::hide()
{
    if (m_outline.isValid() && m_outline.getScene())
        m_outline.getScene()->removeNode(m_outline);
    m_outline = {};
}

void DropTool::handleDragEvent(DragEvent& event)
{
    GLCanvas* const canvas = GLCanvas::of(event);
    if (!canvas || !isBlock(event))
        return;
    event.consume();
    event.setDropAction(Vetra::DropAction::Copy);
    if (!m_outline.isValid()) {
        RoundedRectNode outline({-45, -22, 90, 44}, 6);
        outline.setDrawStyle(outlined(Fill::NoFill(), StrokeStyle::DashLine));
        m_outline = canvas->getOverlayScene()->addNode(outline);
    }
    m_outline.setPosition(snapped(event.scenePos()));
}

void DropTool::handleDropEvent(DragEvent& event)
{
    hide();
    if (!isBlock(event))
        return;
    event.consume();
    event.setDropAction(Vetra::DropAction::Copy);
    const auto& data = event.asGLDragEvent2().mimeData;
    scene()->addNode(makeBlock(std::string(data.data(kBlockFormat)), snapped(event.scenePos())));
}

void DropTool::handleDragLeaveEvent(WidgetEvent&)
{
    hide();
}
