#include "selectionframe.h"

#include <tova/nodes/style/lodscale.h>

namespace TovaView {
namespace {

constexpr double gap = 3;       ///< between block and outline, in points
constexpr double radius = 4;    ///< of its corners, in points
constexpr double lineWidth = 2; ///< in pixels

} // namespace

SelectionFrame::SelectionFrame(Tova2::Scene& overlay, const Vetra::Color& accent)
{
    m_outline.setRadius(radius);
    m_outline.setDrawStyle(
        {Tova2::Stroke(accent, lineWidth, Tova2::StrokeStyle::SolidLine,
                       Tova2::StrokeCapStyle::FlatCap, Tova2::StrokeJoinStyle::MiterJoin,
                       Tova2::ConstantLodScale::instance()),
         Tova2::Fill::NoFill()});
    overlay.addNode(m_outline);
}

SelectionFrame::~SelectionFrame()
{
    m_outline.removeAndRelease();
}

void SelectionFrame::place(const Rect& block)
{
    m_outline.setRect(block.grown(gap));
}

} // namespace TovaView
