// How the picture of a canvas comes about and gets to the screen.

#include "widget/canvasdecor.h"
#include "widget/glcanvasprivate.h"
#include "widget/toolkitcanvas.h"

#include "tova/widget/glcanvas.h"
#include "vetra/errorreporter.h"

#include <QPainter>
#include <QScopedValueRollback>

#include <cmath>

namespace Tova2 {

namespace {

QSize devicePixels(const QSizeF& view, double ratio)
{
    return {static_cast<int>(std::ceil(view.width() * ratio)),
            static_cast<int>(std::ceil(view.height() * ratio))};
}

} // namespace

void GLCanvasPrivate::placePicture()
{
    const double ratio = this->ratio();
    const bool isResized = m_picture.setSize(devicePixels(view().size(), ratio), ratio);
    const QPointF offset = -m_view.origin() * (m_view.scale() * ratio);
    const bool isMoved = m_picture.place(m_view.scale(), offset, m_isMovingWithMomentum);
    if ((isResized || isMoved) && m_layers.hasFixedBackground())
        m_picture.markAll();
}

void GLCanvasPrivate::paint(const QRegion& exposed)
{
    if (m_surface) // covers it all
        return;
    const Widgets::GLObject::Use use(m_canvas);
    QRegion painted;
    if (m_isRenderingEnabled && !m_isPainting)
        painted = paintPicture();
    if (!m_widget)
        return;
    QPainter painter(m_widget);
    show(painter, exposed);
    paintDecor(painter);
    // What has become due after the toolkit was asked for the rest.
    if (const QRegion missed = painted - exposed; !missed.isEmpty())
        update(missed);
}

/// Answers what is new, in view pixels.
QRegion GLCanvasPrivate::paintPicture()
{
    const QScopedValueRollback painting(m_isPainting, true);
    placePicture();
    const QRegion due = m_picture.due();
    const QTransform view = m_picture.transform();
    const QRectF whole(QPointF(), m_view.size());
    const SceneGrid* const grid = m_grid ? &*m_grid : nullptr;
    m_picture.paintDue([&](QPainter& painter, const QRectF& part) {
        try {
            m_layers.paint(painter, view, part, whole, grid);
        } catch (...) {
            Vetra::reportError(std::current_exception(), "Node painter");
        }
    });
    return due;
}

void GLCanvasPrivate::show(QPainter& painter, const QRegion& exposed)
{
    const double ratio = m_picture.ratio();
    const QImage& pixels = m_picture.pixels();
    const QSizeF painted = QSizeF(pixels.size() - QSize(1, 1)) / ratio;
    // Only while rendering is off: the picture is that of a smaller view.
    if (painted.width() < m_widget->width() || painted.height() < m_widget->height())
        painter.fillRect(m_widget->rect(), m_widget->palette().window());
    painter.setClipRegion(exposed);
    painter.scale(1 / ratio, 1 / ratio);
    painter.drawImage(0, 0, pixels);
    painter.resetTransform();
}

void GLCanvasPrivate::paintDecor(QPainter& painter) const
{
    if (!m_marquee.isEmpty())
        paintMarquee(painter, m_view.toView(m_marquee), m_widget->palette());
    if (m_busy.isRunning())
        m_busy.paint(painter, m_view.toView(m_busy.scenePoint()));
    if (m_widget->showsFocus())
        paintFocusRing(painter, m_widget->rect(), m_widget->palette());
}

// By a surface, which repaints all of itself.
void GLCanvasPrivate::update(const QRegion& part)
{
    if (m_surface)
        m_surface->update();
    else
        m_widget->update(part);
}

bool GLCanvasPrivate::setOpenGL(bool on)
{
    if (on == hasOpenGL())
        return true;
    if (!m_widget || (on && !OpenGLSurface::isAvailable()))
        return false;
    if (on) {
        m_surface = new OpenGLSurface(*m_widget, [this](QPainter& painter) { paintOn(painter); });
    } else {
        delete m_surface;
        m_picture.markAll();
        m_widget->update();
    }
    return true;
}

void GLCanvasPrivate::paintOn(QPainter& painter)
{
    const Widgets::GLObject::Use use(m_canvas);
    const QRectF whole(QPointF(), view().size());
    m_layers.paint(painter, m_view.transform(), whole, whole, m_grid ? &*m_grid : nullptr);
    paintDecor(painter);
}

} // namespace Tova2
