#include "widget/canvasinput.h"

#include "widget/glcanvasprivate.h"
#include "widget/guarded.h"
#include "widget/tools/viewkeys.h"

#include "tova/events/keyevent.h"
#include "tova/widget/glcanvas.h"
#include "vetra/qt.h"
#include "vetra/qtevents.h"

#include <QKeyEvent>
#include <QMetaObject>
#include <QMouseEvent>

#include <utility>

namespace Tova2 {

namespace {

/// The view stands still under a finger or a pressed button, whoever takes the press.
bool isPress(QEvent::Type type)
{
    return type == QEvent::MouseButtonPress || type == QEvent::MouseButtonDblClick ||
           type == QEvent::TouchBegin;
}

constexpr char kListener[] = "Canvas listener";

} // namespace

CanvasInput::CanvasInput(GLCanvas& canvas, QWidget& widget)
    : m_canvas(canvas), m_dispatcher(widget, canvas, *this)
{}

bool CanvasInput::dispatch(QEvent& event)
{
    const Widgets::GLObject::Use use(m_canvas);
    if (isPress(event.type()))
        m_canvas.setMovingWithMomentum(false);
    if (event.type() == QEvent::MouseMove) {
        const auto place = Vetra::fromQt(static_cast<const QMouseEvent&>(event).pos());
        guarded(kListener, [&] { m_canvas.d_func()->emitters().pointerMove.send(place); });
    }
    if (use.hasEnded() || m_dispatcher.dispatch(event))
        return true;
    if (event.type() != QEvent::KeyPress || use.hasEnded() || !takesInput())
        return false;
    bool isTaken = false;
    const KeyEvent key(EventType::KeyPressEvent,
                       Vetra::fromQt(static_cast<const QKeyEvent&>(event), &m_canvas));
    guarded(kListener, [&] { isTaken = moveViewByKey(m_canvas, key); });
    if (isTaken) // otherwise it is for the toolkit to say, which moves the focus by keys
        event.accept();
    return isTaken;
}

void CanvasInput::viewChanged()
{
    if (!std::exchange(m_isHoverDue, true))
        QMetaObject::invokeMethod(
            &m_turn, [this] { hoverAnew(); }, Qt::QueuedConnection);
}

void CanvasInput::hoverAnew()
{
    m_isHoverDue = false;
    const Widgets::GLObject::Use use(m_canvas);
    // While it glides, what passes under the pointer is not meant.
    if (!use.hasEnded() && !m_canvas.movingWithMomentum())
        m_dispatcher.viewChanged();
}

bool CanvasInput::takesInput() const
{
    return !m_canvas.hasEnded() && m_canvas.isEnabled();
}

Vetra::GLRect<double> CanvasInput::autoscrollArea() const
{
    const auto extents = m_canvas.getViewExtents();
    return {0, 0, extents.x, extents.y};
}

bool CanvasInput::scrollBy(const Vetra::GLPoint<double>& step)
{
    const Widgets::GLObject::Use use(m_canvas);
    if (!m_canvas.mayUserMoveView() || use.hasEnded())
        return false;
    const auto before = m_canvas.getSceneRectInView();
    const double scale = m_canvas.getScale();
    const auto whole = m_canvas.d_func()->wholePixels(step, m_scrollRest);
    m_canvas.translate({-whole.x / scale, -whole.y / scale});
    return m_canvas.getSceneRectInView() != before;
}

std::vector<std::string> CanvasInput::dropFormats() const
{
    return m_canvas.d_func()->dropFormats;
}

Vetra::GLMimeData CanvasInput::dragData() const
{
    return m_canvas.getMimeData();
}

void CanvasInput::setDragData(const Vetra::GLMimeData& data)
{
    m_canvas.setMimeData(data);
}

} // namespace Tova2
