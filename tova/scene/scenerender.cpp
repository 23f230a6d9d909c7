#include "nodes/destruction.h"
#include "nodes/values.h"
#include "scene/backgroundpainter.h"
#include "scene/offscreensize.h"
#include "scene/renderpipeline.h"
#include "scene/sceneprivate.h"

#include "tova/scene/scene.h"
#include "vetra/qt.h"

#include <QCoreApplication>
#include <QImage>
#include <QPagedPaintDevice>
#include <QPainter>
#include <QPicture>
#include <QPrinter>

#include <cmath>

namespace Tova2 {

using Rect = Vetra::GLRect<double>;

namespace {

/// Whole pixels, with what rounding has added taken off again.
double pixels(double length)
{
    return std::ceil(length - 1e-6);
}

QTransform mapping(const QRectF& source, const QRectF& target)
{
    return QTransform::fromTranslate(-source.x(), -source.y()) *
           QTransform::fromScale(target.width() / source.width(),
                                 target.height() / source.height()) *
           QTransform::fromTranslate(target.x(), target.y());
}

bool hasPixels(const QPainter& painter)
{
    switch (painter.device()->devType()) {
    case QInternal::Widget:
    case QInternal::Pixmap:
    case QInternal::Image:
    case QInternal::OpenGL:
        return true;
    default:
        return false;
    }
}

/// Has a painter count in what a zoom counts in: points on paper, whose dots would make a zoom of
/// 1200 dpi else. A window and viewport of the painter's own become part of its transform.
class ZoomUnits {
public:
    explicit ZoomUnits(QPainter& painter) : m_painter(painter)
    {
        painter.save();
        const auto* const page = dynamic_cast<const QPagedPaintDevice*>(painter.device());
        if (!page && !painter.viewTransformEnabled())
            return;
        const int dotsAnInch = page ? page->logicalDpiX() : kPointsAnInch;
        const double unit =
            dotsAnInch * painter.device()->devicePixelRatioF() / double(kPointsAnInch);
        const QTransform toUnits =
            painter.combinedTransform() * QTransform::fromScale(1 / unit, 1 / unit);
        painter.setViewTransformEnabled(page);
        if (page) {
            painter.setWindow(0, 0, kPointsAnInch, kPointsAnInch);
            painter.setViewport(0, 0, dotsAnInch, dotsAnInch);
        }
        painter.setWorldTransform(toUnits);
    }
    ~ZoomUnits() { m_painter.restore(); }
    ZoomUnits(const ZoomUnits&) = delete;
    ZoomUnits& operator=(const ZoomUnits&) = delete;

private:
    static constexpr int kPointsAnInch = 72;
    QPainter& m_painter;
};

/// `whole` stands in for an empty target.
void paint(ScenePrivate& scene, QPainter& painter, const Rect& target, const Rect& source,
           const QRectF& whole, bool isPixelDevice)
{
    const QRectF to = target.isValid() ? Vetra::toQt(target) : whole;
    const QRectF from = source.isValid() ? Vetra::toQt(source) : scene.bounds();
    if (to.isEmpty() || from.isEmpty() || !isFinite(to) || !isFinite(from))
        return;
    RenderRequest request;
    request.view = mapping(from, to);
    request.exposed = from;
    request.isOffScreen = true;
    request.isPixelDevice = isPixelDevice;
    // What comes from a device without pixels of its own can be looked at from nearby.
    request.keepsAll = !hasPixels(painter);
    const ZoomUnits units(painter);
    scene.backgroundPainter().paint(scene.settings.background, painter, to, request.view);
    renderScene(scene, painter, request);
}

/// Statics may outlive the application object, without which the toolkit's painters crash.
bool isToolkitGone()
{
    return QCoreApplication::closingDown();
}

void paintImage(ScenePrivate& scene, QImage& image, const Rect& target, const Rect& source)
{
    if (image.isNull() || isToolkitGone())
        return;
    QPainter painter(&image);
    const QSizeF size = QSizeF(image.size()) / image.devicePixelRatioF();
    paint(scene, painter, target, source, QRectF(QPointF(), size), true);
}

} // namespace

Vetra::Holder<Vetra::Image> Scene::render(int margin, const Rect& area, double scale)
{
    const DestructionDelay delay;
    ScenePrivate& content = *d; // outlives this handle, which a host may drop
    const QRectF drawn = area.isValid() ? Vetra::toQt(area) : content.bounds();
    const int border = std::max(margin, 0);
    const QSizeF size(pixels(drawn.width() * scale) + 2.0 * border,
                      pixels(drawn.height() * scale) + 2.0 * border);
    if (!(scale > 0) || !std::isfinite(scale) || !isFinite(drawn) || !isRenderable(size))
        return Vetra::fromQt(QImage());
    QImage image(size.toSize(), QImage::Format_RGB32);
    image.fill(0xffffffff);
    if (!image.isNull()) {
        const double inset = border / scale;
        const Rect source{drawn.x() - inset, drawn.y() - inset, size.width() / scale,
                          size.height() / scale};
        paintImage(content, image, Vetra::fromQt(QRectF(QPointF(), size)), source);
    }
    return Vetra::fromQt(image);
}

void Scene::render(QImage& image, const Rect& target, const Rect& source)
{
    const DestructionDelay delay;
    paintImage(*d, image, target, source);
}

void Scene::render(QPainter& painter, const Rect& target, const Rect& source)
{
    if (!painter.isActive())
        return;
    const DestructionDelay delay;
    paint(*d, painter, target, source, QRectF(painter.viewport()), false);
}

void Scene::render(QPicture& picture, const Rect& target, const Rect& source)
{
    if (isToolkitGone())
        return;
    const DestructionDelay delay;
    ScenePrivate& content = *d;
    QPainter painter(&picture);
    // A picture has no size of its own: unscaled unless the caller says otherwise.
    const QRectF natural = source.isValid() ? QRectF(QPointF(), Vetra::toQt(source).size())
                                            : QRectF(QPointF(), content.bounds().size());
    paint(content, painter, target, source, natural, false);
}

void Scene::render(QPrinter& printer, const Rect& target, const Rect& source)
{
    const DestructionDelay delay;
    ScenePrivate& content = *d;
    QPainter painter;
    if (!painter.begin(&printer))
        return;
    // As large as the page allows, and no circle is stretched.
    const QSizeF page = printer.pageLayout().paintRectPixels(printer.resolution()).size();
    const QSizeF shown = source.isValid() ? Vetra::toQt(source).size() : content.bounds().size();
    paint(content, painter, target, source,
          QRectF(QPointF(), shown.scaled(page, Qt::KeepAspectRatio)), false);
}

} // namespace Tova2
