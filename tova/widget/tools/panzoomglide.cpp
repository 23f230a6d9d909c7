// The canvas that is moved, and how it glides on.

#include "widget/glcanvasprivate.h"

#include "tova/scene/scene.h"
#include "tova/widget/glcanvas.h"
#include "tova/widget/panzoomtool.h"
#include "vetra/qt.h"

#include <QScopedValueRollback>

#include <cmath>
#include <utility>

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
    stopGliding();
    disconnectAll();
    m_canvas = canvas;
    if (!canvas)
        return;
    canvas->getDestroyEmitter().connect(this, [this](Widgets::GLObject*) { onCanvasDestroy(); });
    canvas->connectTo(&GLCanvasEmitters::sceneChange, this, [this] { letGo(); });
    canvas->connectTo(&GLCanvasEmitters::viewChange, this, [this](Vetra::GLPoint<double>) {
        if (!m_isMoving)
            stopGliding();
    });
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

void PanZoomTool::follow(const Vetra::GLPoint<double>& way)
{
    if (!m_canvas)
        return;
    const auto whole = m_canvas->d_func()->wholePixels(way, m_behind);
    translateWithSoftLimits(whole.x, whole.y, false);
}

void PanZoomTool::translateWithSoftLimits(double dx, double dy, bool fromMomentum)
{
    if (!m_canvas)
        return;
    GLCanvas& canvas = *m_canvas;
    const Widgets::GLObject::Use use(canvas);
    const Vetra::Holder<Tool> self(referenceCount() > 0 ? this : nullptr);
    if (!canvas.mayUserMoveView() || use.hasEnded())
        return;
    const double scale = canvas.getScale();
    const Vetra::GLPoint<double> wanted{dx / scale, dy / scale};
    const auto before = canvas.getSceneRectInView();
    {
        const QScopedValueRollback moving(m_isMoving, true);
        canvas.translate(wanted);
    }
    if (!fromMomentum || use.hasEnded())
        return;
    const auto after = canvas.getSceneRectInView();
    // What the hand drags to the right is a view that goes to the left.
    if (std::abs(before.x - after.x - wanted.x) > kFarFromLimit)
        m_momentum.applyMultiplierOnReleaseMagnitude(kSlowingAtLimit);
    if (std::abs(before.y - after.y - wanted.y) > kFarFromLimit)
        m_momentum.applyMultiplierOnReleaseMagnitude(kSlowingAtLimit);
}

/// By a press, whoever takes it, or by another tool that begins something.
bool PanZoomTool::isInterrupted() const
{
    if (!m_canvas || !m_canvas->isEnabled() || !m_canvas->movingWithMomentum())
        return true;
    return isIdle() && scene() && scene()->hasActiveOrAlertTool();
}

/// At once, and where the view is.
void PanZoomTool::stopGliding()
{
    m_glideFrom.reset();
    m_momentum.endMomentumNotifications();
}

void PanZoomTool::onMomentumBeginningNotification()
{
    if (!m_canvas)
        return;
    m_glideFrom = m_canvas->scenePointToViewPoint({});
    m_canvas->setMovingWithMomentum(true);
}

void PanZoomTool::onMomentumNotification(Vetra::GLPoint<double> velocity)
{
    const Vetra::Holder<Tool> self(referenceCount() > 0 ? this : nullptr);
    if (isInterrupted())
        return stopGliding();
    try {
        translateWithSoftLimits(velocity.x, velocity.y, true);
    } catch (...) {
        stopGliding(); // no further step comes after what the timer reports
        throw;
    }
}

void PanZoomTool::onMomentumEndedNotification()
{
    if (!m_canvas)
        return;
    GLCanvas& canvas = *m_canvas;
    const Widgets::GLObject::Use use(canvas);
    try {
        settle(canvas);
    } catch (...) {
        canvas.setMovingWithMomentum(false);
        throw;
    }
    canvas.setMovingWithMomentum(false);
}

/// A glide that has run out ends whole device pixels from where it began: what was crisp is so
/// again, and the picture that moved need not be painted anew.
void PanZoomTool::settle(GLCanvas& canvas)
{
    if (!m_glideFrom)
        return;
    const auto way = canvas.scenePointToViewPoint({}) - *std::exchange(m_glideFrom, {});
    const auto rest = Vetra::fromQt(canvas.d_func()->wholePixels(Vetra::toQt(way))) - way;
    translateWithSoftLimits(rest.x, rest.y, false);
}

} // namespace Tova2
