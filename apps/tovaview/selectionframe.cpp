#include "selectionframe.h"

#include <tova/nodes/style/lodscale.h>

#include <algorithm>

namespace TovaView {
namespace {

constexpr double gap = 3; ///< between block and outline, in points
// In pixels.
constexpr double lineWidth = 1, handleSize = 6;

Tova2::DrawStyle styleWith(const Vetra::Color& line, const Tova2::Fill& fill)
{
    return {Tova2::Stroke(line, lineWidth, Tova2::StrokeStyle::SolidLine,
                          Tova2::StrokeCapStyle::FlatCap, Tova2::StrokeJoinStyle::MiterJoin,
                          Tova2::ConstantLodScale::instance()),
            fill};
}

} // namespace

SelectionFrame::SelectionFrame(Tova2::Scene& overlay, const Vetra::Color& accent)
{
    m_outline.setDrawStyle(styleWith(accent, Tova2::Fill::NoFill()));
    overlay.addNode(m_outline);
    for (Tova2::RectNode& handle : m_handles) {
        handle.setRect({-handleSize / 2, -handleSize / 2, handleSize, handleSize});
        handle.setDrawStyle(styleWith(accent, Vetra::Color::fromPacked(0xffffffff)));
        handle.setIgnoresTransformations(true);
        overlay.addNode(handle);
    }
}

SelectionFrame::~SelectionFrame()
{
    m_outline.removeAndRelease();
    for (Tova2::RectNode& handle : m_handles)
        handle.removeAndRelease();
}

void SelectionFrame::place(const Rect& block, double viewScale)
{
    const bool hasRoom = std::min(block.width, block.height) * viewScale > 3 * handleSize;
    for (Tova2::RectNode& handle : m_handles)
        handle.setVisible(hasRoom);
    const Rect frame = block.grown(gap);
    m_outline.setRect(frame);
    m_handles[0].setPosition(frame.topLeft());
    m_handles[1].setPosition({frame.right(), frame.y});
    m_handles[2].setPosition({frame.right(), frame.bottom()});
    m_handles[3].setPosition({frame.x, frame.bottom()});
}

} // namespace TovaView
