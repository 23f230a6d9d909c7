// How the picture of a canvas comes about and gets to the screen.

#include "widget/canvasdecor.h"
#include "widget/glcanvasprivate.h"
#include "widget/guarded.h"
#include "widget/toolkitcanvas.h"

#include "tova/widget/glcanvas.h"

#include <QPainter>
#include <QScopedValueRollback>

#include <cmath>

namespace Tova2 {

namespace {

/// More than the screens of a desk show together; of a larger view, as in an area that scrolls, no
/// picture is kept.
constexpr double kMostPixels = 64e6;

/// In device pixels.
QSize pictureSize(const QSizeF& view, double ratio)
{
    const double width = std::ceil(view.width() * ratio), height = std::ceil(view.height() * ratio);
    return width * height > kMostPixels ? QSize()
                                        : QSize(static_cast<int>(width), static_cast<int>(height));
}

} // namespace

void GLCanvasPrivate::placePicture()
{
    const double ratio = this->ratio();
    const bool isResized = m_picture.setSize(pictureSize(view().size(), ratio), ratio);
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
    if (m_picture.size().isEmpty() && m_isRenderingEnabled)
        paintLayers(painter, exposed.boundingRect());
    else
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
        guarded("Node painter", [&] { m_layers.paint(painter, view, part, whole, grid); });
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
    if (!m_focusedNode.isNull())
        paintFocusOutline(painter, m_view.toView(m_focusedNode), m_widget->palette());
    if (m_widget->showsFocus())
        paintFocusRing(painter, m_widget->rect(), m_widget->palette());
}

// A surface repaints all of itself, and without a picture nobody knows which part is due.
void GLCanvasPrivate::update(const QRegion& part)
{
    if (m_surface)
        m_surface->update();
    else if (m_picture.size().isEmpty())
        m_widget->update();
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
    paintLayers(painter, QRectF(QPointF(), view().size()));
    paintDecor(painter);
}

void GLCanvasPrivate::paintLayers(QPainter& painter, const QRectF& part)
{
    const QRectF whole(QPointF(), view().size());
    m_layers.paint(painter, m_view.transform(), part, whole, m_grid ? &*m_grid : nullptr);
}

} // namespace Tova2
