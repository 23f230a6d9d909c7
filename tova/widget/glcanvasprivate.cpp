#include "widget/glcanvasprivate.h"

#include "nodes/values.h"
#include "widget/canvasdecor.h"
#include "widget/guarded.h"
#include "widget/toolkitcanvas.h"

#include "tova/nodes/node.h"
#include "tova/scene/scene.h"
#include "tova/widget/glcanvas.h"
#include "vetra/qt.h"

#include <QDrag>
#include <QMetaObject>

#include <algorithm>
#include <cmath>
#include <utility>

namespace Tova2 {

namespace {

/// Of the view, that still shows something of the scene when the user has moved it away.
constexpr double kLeastShown = 0.1;

constexpr char kListener[] = "Canvas listener";

} // namespace

GLCanvasPrivate::GLCanvasPrivate(GLCanvas& canvas, ToolkitCanvas* widget)
    : m_canvas(canvas)
    , m_widget(widget)
    , m_layers([this](const DirtyArea& area) { sceneDirty(area); })
    , m_busy([this] { repaintBusy(); })
{
    m_bars.emplace(*widget, [this](double dx, double dy) {
        guarded(kListener, [&] { scrollByBar(dx, dy); });
    });
}

void GLCanvasPrivate::beginInput()
{
    m_input.emplace(m_canvas, *m_widget);
    m_widget->setCanvas(this);
}

GLCanvasPrivate::~GLCanvasPrivate() = default;

void GLCanvasPrivate::end()
{
    if (m_widget)
        m_widget->setCanvas(nullptr);
    if (m_surface)
        m_surface->retire();
    m_surface = nullptr;
    m_widget = nullptr;
    if (isDragging)
        QDrag::cancel();
    m_input->dispatcher().close();
    webBlock.remove();
    m_busy.stop();
    m_layers.stack().removeAllLayers();
}

const ViewState& GLCanvasPrivate::view() const
{
    // A hidden widget hears of its size with a delay.
    if (m_widget)
        m_view.setSize(m_widget->size());
    return m_view;
}

double GLCanvasPrivate::ratio() const
{
    return m_widget ? m_widget->devicePixelRatioF() : 1;
}

QPointF GLCanvasPrivate::wholePixels(const QPointF& way) const
{
    const double ratio = this->ratio();
    return {std::round(way.x() * ratio) / ratio, std::round(way.y() * ratio) / ratio};
}

Vetra::GLPoint<double> GLCanvasPrivate::wholePixels(const Vetra::GLPoint<double>& way,
                                                    Vetra::GLPoint<double>& rest) const
{
    const auto wanted = rest + way;
    const auto whole = Vetra::fromQt(wholePixels(Vetra::toQt(wanted)));
    rest = wanted - whole;
    if (!(std::hypot(rest.x, rest.y) < 1)) // what no sum can hold, or no number
        rest = {};
    return whole;
}

QRectF GLCanvasPrivate::panLimits() const
{
    const QRectF scene = m_layers.sceneRect();
    if (scene.isEmpty())
        return {};
    const QSizeF beyond = view().shown().size() * (0.5 - kLeastShown);
    return view().withMargins(scene).adjusted(-beyond.width(), -beyond.height(), beyond.width(),
                                              beyond.height());
}

double GLCanvasPrivate::lowestUserScale() const
{
    const double limit = m_canvas.getMinScaleLimit();
    const double whole = view().wholeScale(m_layers.sceneRect());
    return whole > 0 ? std::min(limit, whole) : limit;
}

void GLCanvasPrivate::viewChanged(double scaleBefore, ZoomReason reason)
{
    const Widgets::GLObject::Use use(m_canvas);
    placePicture();
    if (m_widget)
        m_widget->update();
    webBlock.place(m_view);
    m_input->viewChanged();
    placeScrollbars();
    if (!use.hasEnded() && m_view.scale() != scaleBefore)
        m_emitters.scaleChange.send(m_view.scale(), reason);
    if (!use.hasEnded())
        m_emitters.viewChange.send(Vetra::fromQt(m_view.origin()));
}

void GLCanvasPrivate::viewResized()
{
    const Widgets::GLObject::Use use(m_canvas);
    if (m_surface)
        m_surface->setGeometry(m_widget->rect());
    viewChanged(view().scale(), ZoomReason());
    const auto keys = resizeKeys;
    for (const unsigned key : keys) {
        if (use.hasEnded())
            return;
        m_emitters.resized.send(key);
    }
}

void GLCanvasPrivate::setScrollbarsWanted(bool wanted)
{
    m_bars->setWanted(wanted);
    placeScrollbars();
}

void GLCanvasPrivate::placeScrollbars()
{
    if (!m_widget)
        return;
    const Widgets::GLObject::Use use(m_canvas);
    const QRectF scene = m_layers.sceneRect();
    const QRectF content = scene.isEmpty() ? QRectF() : view().withMargins(scene);
    const unsigned changed = m_bars->place(view().toView(content), view().size());
    for (const auto orientation : {Orientation::Horizontal, Orientation::Vertical}) {
        if ((changed & static_cast<unsigned>(orientation)) && !use.hasEnded())
            m_emitters.scrollbarGeometryChange.send(Vetra::fromQt(m_bars->geometry(orientation)),
                                                    orientation);
    }
}

void GLCanvasPrivate::scrollByBar(double dx, double dy)
{
    const Widgets::GLObject::Use use(m_canvas);
    setMovingWithMomentum(false);
    const bool mayMove = m_canvas.mayUserMoveView();
    if (use.hasEnded())
        return;
    if (mayMove)
        changeView([&](ViewState& view) {
            return view.setOrigin(view.toScene(wholePixels({dx, dy})));
        });
    else
        placeScrollbars();
}

void GLCanvasPrivate::sceneDirty(const DirtyArea& area)
{
    if (area.rect.isNull())
        m_picture.markAll();
    else
        m_picture.mark(area.at(m_view.scale()));
    settleLater();
}

void GLCanvasPrivate::repaintAll()
{
    m_picture.markAll();
    settleLater();
}

// Once a turn of the event loop, before the toolkit paints.
void GLCanvasPrivate::settleLater()
{
    if (!std::exchange(m_isSettling, true))
        QMetaObject::invokeMethod(
            &m_turn, [this] { guarded(kListener, [this] { settle(); }); }, Qt::QueuedConnection);
}

void GLCanvasPrivate::settle()
{
    m_isSettling = false;
    m_layers.followContents();
    if (m_grid)
        markGrid(m_grid->follow(m_layers.sceneRect()));
    if (m_widget && m_isRenderingEnabled)
        update(m_picture.due());
    followFocus();
    placeScrollbars();
}

void GLCanvasPrivate::renderNow()
{
    const Widgets::GLObject::Use use(m_canvas);
    settle();
    if (m_surface)
        m_surface->repaint();
    else if (m_widget)
        m_widget->repaint();
}

void GLCanvasPrivate::setRenderingEnabled(bool on)
{
    m_isRenderingEnabled = on;
    if (on && m_widget)
        update(m_widget->rect());
}

void GLCanvasPrivate::setGridVisible(bool on)
{
    if (on == m_grid.has_value())
        return;
    if (on)
        m_grid.emplace();
    else
        markGrid(std::exchange(m_grid, std::nullopt)->area());
    settleLater();
}

void GLCanvasPrivate::markGrid(const QRectF& sceneRect)
{
    if (!sceneRect.isEmpty())
        m_picture.mark(sceneRect);
}

bool GLCanvasPrivate::dispatch(QEvent& event)
{
    // What may give another node the keyboard. Later: a handler may end the canvas.
    const auto type = event.type();
    if (m_isFocusIndicated && (type == QEvent::MouseButtonPress || type == QEvent::KeyPress ||
                               type == QEvent::FocusIn || type == QEvent::FocusOut))
        settleLater();
    return m_input->dispatch(event);
}

void GLCanvasPrivate::setFocusIndicated(bool on)
{
    m_isFocusIndicated = on;
    followFocus();
}

QRectF GLCanvasPrivate::focusedNodeRect() const
{
    Scene* const scene = m_canvas.getScene();
    if (!m_isFocusIndicated || !scene || !m_widget->hasFocus())
        return {};
    const Node node = scene->getFocusedNode();
    if (!node.isValid() || !node.isVisibleToScene())
        return {};
    const QRectF rect = Vetra::toQt(node.mapLocalToScene(node.getBoundingRect()).boundingRect());
    return isFinite(rect) ? rect : QRectF();
}

void GLCanvasPrivate::followFocus()
{
    if (!m_widget)
        return;
    const QRectF before = std::exchange(m_focusedNode, focusedNodeRect());
    for (const QRectF& rect : {before, m_focusedNode}) {
        if (before != m_focusedNode && !rect.isNull())
            update(focusOutlineExtent(view().toView(rect)));
    }
}

void GLCanvasPrivate::setMovingWithMomentum(bool on)
{
    if (!std::exchange(m_isMovingWithMomentum, on) || on)
        return;
    // The exact place, which the moving picture was less than a pixel off.
    placePicture();
    m_input->viewChanged();
    if (m_widget)
        update(m_picture.due());
}

void GLCanvasPrivate::setMarquee(const QRectF& sceneRect)
{
    const QRectF before = std::exchange(
        m_marquee, isFinite(sceneRect) && !sceneRect.isEmpty() ? sceneRect : QRectF());
    if (!m_widget)
        return;
    for (const QRectF& rect : {before, m_marquee}) {
        if (!rect.isEmpty())
            update(marqueeExtent(view().toView(rect)));
    }
}

void GLCanvasPrivate::repaintBusy()
{
    if (m_widget)
        update(BusyAnimation::extent(view().toView(m_busy.scenePoint())));
}

} // namespace Tova2
