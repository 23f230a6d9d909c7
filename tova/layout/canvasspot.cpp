#include "layout/canvasspot.h"

#include "tova/widget/glcanvas.h"

namespace Tova2 {

namespace {

using Vetra::GLPoint;

constexpr double kMargin = 4; // view units

enum class Side { Near, Middle, Far };

struct Sides {
    Side x, y;
};

Sides sidesOf(CanvasAffinity affinity)
{
    switch (affinity) {
    case CanvasAffinity::Top:
        return {Side::Middle, Side::Near};
    case CanvasAffinity::TopRight:
        return {Side::Far, Side::Near};
    case CanvasAffinity::Right:
        return {Side::Far, Side::Middle};
    case CanvasAffinity::BottomRight:
        return {Side::Far, Side::Far};
    case CanvasAffinity::Bottom:
        return {Side::Middle, Side::Far};
    case CanvasAffinity::BottomLeft:
        return {Side::Near, Side::Far};
    case CanvasAffinity::Left:
        return {Side::Near, Side::Middle};
    default:
        return {Side::Near, Side::Near};
    }
}

/// Along one axis. A scroll bar lies at the far edge.
double startOf(Side side, double view, double panel, double scrollBar)
{
    if (side == Side::Middle)
        return (view - panel) / 2;
    return side == Side::Near ? kMargin : view - panel - kMargin - scrollBar;
}

} // namespace

void CanvasSpot::setCanvas(GLCanvas* canvas)
{
    m_canvas = canvas;
}

double CanvasSpot::viewScale() const
{
    const GLCanvas* const shown = canvas();
    return shown ? shown->getScale() : 1;
}

GLPoint<double> CanvasSpot::rootPosition(const Vetra::GLRect<double>& frame, double scale,
                                         const GLPoint<double>& position) const
{
    const GLCanvas* const shown = canvas();
    if (!shown)
        return position;
    if (affinity == CanvasAffinity::None)
        return shown->viewPointToScenePoint(position + offset);
    const double zoom = scale * shown->getScale();
    const auto corner = cornerInView({frame.width * zoom, frame.height * zoom});
    return shown->viewPointToScenePoint(corner + offset) - frame.topLeft() * scale;
}

GLPoint<double> CanvasSpot::cornerInView(const Vetra::Size<double>& panel) const
{
    const GLCanvas& shown = *canvas();
    const auto view = shown.getViewExtents();
    const Sides sides = sidesOf(affinity);
    const auto beside = shown.getScrollbarGeometry(Orientation::Vertical);
    const auto below = shown.getScrollbarGeometry(Orientation::Horizontal);
    return {startOf(sides.x, view.x, panel.width, beside.width),
            startOf(sides.y, view.y, panel.height, below.height)};
}

} // namespace Tova2
