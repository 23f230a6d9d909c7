#include "canvasview.h"

#include <tova/widget/glcanvas.h>

#include <algorithm>

namespace TovaView {
namespace {

constexpr unsigned resizeKey = 1;

} // namespace

CanvasView::CanvasView(Tova2::GLCanvas& canvas) : m_canvas(canvas)
{
    canvas.connectTo(&Tova2::GLCanvasEmitters::resized, this, [this](unsigned) { applyFit(); });
    canvas.connectTo(&Tova2::GLCanvasEmitters::viewChange, this,
                     [this](const Vetra::GLPoint<double>&) {
                         if (!m_isApplying && m_canvas.getSize() == m_size)
                             m_fit = Fit::None;
                     });
    canvas.registerResizeNotification(resizeKey);
}

CanvasView::~CanvasView()
{
    m_canvas.cancelResizeNotification(resizeKey);
}

void CanvasView::showAll()
{
    setFit(Fit::AtMostActualSize);
}

void CanvasView::fit()
{
    setFit(Fit::Whole);
}

void CanvasView::lookAt(const Vetra::GLRect<double>& area)
{
    setFit(Fit::None);
    m_canvas.showSceneRect(area);
}

void CanvasView::zoomTo(double scale)
{
    const Vetra::GLRect<double> shown = m_canvas.getSceneRectInView();
    m_canvas.setScaleAroundScenePointWithReason(scale, shown.center(),
                                                Tova2::ZoomReason::Source::Menu);
}

void CanvasView::step(Tova2::ZoomDirection direction)
{
    m_canvas.zoomByStep(direction, Tova2::ZoomReason::Source::Menu);
}

void CanvasView::actualSize()
{
    m_canvas.zoomToActualSize();
}

void CanvasView::setFit(Fit fit)
{
    m_fit = fit;
    applyFit();
}

void CanvasView::applyFit()
{
    if (m_fit == Fit::None)
        return;
    m_isApplying = true;
    m_size = m_canvas.getSize();
    m_canvas.zoomToSceneRect();
    if (m_fit == Fit::AtMostActualSize && m_canvas.getScale() > 1)
        m_canvas.setScale(1);
    m_isApplying = false;
}

} // namespace TovaView
