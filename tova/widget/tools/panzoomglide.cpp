// The canvas that is moved, and how it glides on.

#include "tova/scene/scene.h"
#include "tova/widget/glcanvas.h"
#include "tova/widget/panzoomtool.h"

#include <cmath>

namespace Tova2 {

namespace {

constexpr double kFarFromLimit = 0.25; // scene units that a step may fall short by
constexpr double kSlowingAtLimit = 0.6;

} // namespace

void PanZoomTool::setCanvas(GLCanvas* canvas)
{
    if (canvas && canvas->hasEnded())
        canvas = nullptr;
    if (canvas == m_canvas)
        return;
    m_momentum.endMomentumNotifications();
    disconnectAll();
    m_canvas = canvas;
    if (!canvas)
        return;
    canvas->getDestroyEmitter().connect(this, [this](Widgets::GLObject*) { onCanvasDestroy(); });
    canvas->connectTo(&GLCanvasEmitters::sceneChange, this, [this] { letGo(); });
    const auto stop = [this] { m_momentum.endMomentumNotifications(); };
    canvas->connectTo(&GLCanvasEmitters::userZoom, this,
                      [stop](Vetra::GLPoint<int>, double) { stop(); });
    canvas->connectTo(&GLCanvasEmitters::scrollRequest, this, [stop](int, int) { stop(); });
}

void PanZoomTool::onCanvasDestroy()
{
    letGo();
}

void PanZoomTool::letGo()
{
    setCanvas(nullptr);
    cancel(ECancelReason::AllToolsCancelled, nullptr);
}

void PanZoomTool::translateWithSoftLimits(double dx, double dy, bool fromMomentum)
{
    if (!m_canvas)
        return;
    GLCanvas& canvas = *m_canvas;
    const Widgets::GLObject::Use use(canvas);
    const double scale = canvas.getScale();
    const Vetra::GLPoint<double> wanted{dx / scale, dy / scale};
    const auto before = canvas.getSceneRectInView();
    canvas.translate(wanted);
    if (!fromMomentum || use.hasEnded())
        return;
    const auto after = canvas.getSceneRectInView();
    // What the hand drags to the right is a view that goes to the left.
    if (std::abs(before.x - after.x - wanted.x) > kFarFromLimit)
        m_momentum.applyMultiplierOnReleaseMagnitude(kSlowingAtLimit);
    if (std::abs(before.y - after.y - wanted.y) > kFarFromLimit)
        m_momentum.applyMultiplierOnReleaseMagnitude(kSlowingAtLimit);
}

/// Tools above may have taken the press that should have stopped it.
bool PanZoomTool::isInterrupted() const
{
    if (!m_canvas || !m_canvas->isEnabled())
        return true;
    return isIdle() && scene() && scene()->hasActiveOrAlertTool();
}

void PanZoomTool::onMomentumBeginningNotification()
{
    if (m_canvas)
        m_canvas->setMovingWithMomentum(true);
}

void PanZoomTool::onMomentumNotification(Vetra::GLPoint<double> velocity)
{
    const Vetra::Holder<Tool> self(referenceCount() > 0 ? this : nullptr);
    if (isInterrupted())
        return m_momentum.endMomentumNotifications();
    try {
        translateWithSoftLimits(velocity.x, velocity.y, true);
    } catch (...) {
        m_momentum.endMomentumNotifications(); // no further step comes after what the timer reports
        throw;
    }
}

void PanZoomTool::onMomentumEndedNotification()
{
    if (m_canvas)
        m_canvas->setMovingWithMomentum(false);
}

} // namespace Tova2
