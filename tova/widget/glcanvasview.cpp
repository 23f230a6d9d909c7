// What part of the scene a canvas shows.

#include "nodes/values.h"
#include "widget/glcanvasprivate.h"
#include "widget/zoomsteps.h"

#include "tova/widget/glcanvas.h"
#include "vetra/qt.h"
#include "vetra/saturate.h"

#include <algorithm>
#include <cmath>

namespace Tova2 {

using Point = Vetra::GLPoint<double>;
using Rect = Vetra::GLRect<double>;
using Vetra::fromQt;
using Vetra::toQt;

namespace {

// Of the view. A notch of the wheel is 17 steps, and so about three lines.
constexpr double kStep = CanvasScrollbars::kLine / 6;

/// Where a user's zoom ends up who is held to the limits but may already be beyond them.
double limited(double scale, double from, double low, double high)
{
    const double kept = std::clamp(scale, std::min(low, high), high);
    return (kept - from) * (scale - from) >= 0 ? kept : from;
}

double stepLength(double extent)
{
    return std::max(1.0, extent * kStep);
}

} // namespace

// Scale

double GLCanvas::getScale() const
{
    return d->view().scale();
}

void GLCanvas::setScale(double scale)
{
    const bool showsNothing = d->layers().stack().getNumLayers() == 0 || d->view().size().isEmpty();
    setScaleAroundScenePoint(scale, showsNothing ? Point() : fromQt(d->view().shown().center()));
}

void GLCanvas::setScaleAroundScenePoint(double scale, const Point& scenePoint)
{
    setScaleAroundScenePointWithReason(scale, scenePoint, ZoomReason());
}

void GLCanvas::setScaleAroundScenePointWithReason(double scale, const Point& scenePoint,
                                                  ZoomReason reason)
{
    const double before = getScale();
    const Use use(*this);
    if (reason.isByUser()) {
        if (!mayUserMoveView() || use.hasEnded())
            return;
        scale = limited(scale, before, d->lowestUserScale(), getMaxScaleLimit());
    }
    d->changeView(reason,
                  [&](ViewState& view) { return view.scaleAbout(scale, toQt(scenePoint)); });
    if (reason.isByUser() && !use.hasEnded() && getScale() != before) {
        d->emitters().userZoom.send(Vetra::saturatedInts(scenePointToViewPoint(scenePoint)),
                                    getScale() / before);
    }
}

double GLCanvas::getMinScaleLimit() const
{
    const QRectF scene = d->layers().sceneRect();
    if (scene.isEmpty())
        return 1;
    const double fit = d->view().longerSideScale(scene);
    return fit > 0 ? std::min(0.5, fit) : 0.5;
}

double GLCanvas::getMaxScaleLimit() const
{
    return d->layers().sceneRect().isEmpty() ? 1 : d->view().maximumScale();
}

void GLCanvas::setMaxScaleLimit(double scale)
{
    d->changeView([&](ViewState& view) {
        view.setMaximumScale(scale);
        return false;
    });
}

double GLCanvas::getNextZoomScale(ZoomDirection direction) const
{
    const ViewState& view = d->view();
    return nextZoomStep(view.scale(), direction, view.preferredScale());
}

void GLCanvas::zoomByStep(ZoomDirection direction, ZoomReason reason)
{
    setScaleAroundScenePointWithReason(getNextZoomScale(direction),
                                       fromQt(d->view().shown().center()), reason);
}

void GLCanvas::zoomToActualSize()
{
    if (!d->layers().sceneRect().isEmpty() && !d->view().size().isEmpty())
        setScale(1);
}

void GLCanvas::zoomToSceneRect()
{
    showSceneRectWithMargins(fromQt(d->layers().sceneRect()));
}

// Position

void GLCanvas::translate(const Point& offset)
{
    const QRectF limits = d->panLimits();
    d->changeView([&](ViewState& view) { return view.moveBy(-toQt(offset), limits); });
}

void GLCanvas::translateScenePointToViewPoint(const Point& scenePoint, const Point& viewPoint)
{
    showScenePointAtViewPointAtScale(scenePoint, viewPoint, getScale());
}

void GLCanvas::showScenePointAtViewPointAtScale(const Point& scenePoint, const Point& viewPoint,
                                                double scale)
{
    d->changeView(
        [&](ViewState& view) { return view.place(toQt(scenePoint), toQt(viewPoint), scale); });
}

void GLCanvas::showSceneRect(const Rect& rect)
{
    showSceneRectAtViewRect(rect, fromQt(QRectF(QPointF(), d->view().size())));
}

void GLCanvas::showSceneRectWithMargins(const Rect& rect)
{
    showSceneRectAtViewRect(rect, fromQt(d->view().roomWithinMargins()));
}

void GLCanvas::showSceneRectAtViewRect(const Rect& sceneRect, const Rect& viewRect)
{
    if (sceneRect.isValid())
        d->changeView([&](ViewState& view) { return view.fit(toQt(sceneRect), toQt(viewRect)); });
}

void GLCanvas::ensureVisible(const Rect& rect)
{
    d->changeView([&](ViewState& view) { return view.reveal(toQt(rect)); });
}

Rect GLCanvas::getSceneRect()
{
    return fromQt(d->layers().sceneRect());
}

Rect GLCanvas::getSceneRectInView() const
{
    return fromQt(d->view().shown());
}

Point GLCanvas::getViewExtents() const
{
    const QSizeF& size = d->view().size();
    return {size.width(), size.height()};
}

Point GLCanvas::getViewExtentsSizeForZoom(double scale) const
{
    if (!(scale > 0) || !std::isfinite(scale))
        return {};
    const QSizeF& size = d->view().size();
    const QPointF extents(size.width() / scale, size.height() / scale);
    return isFinite(extents) ? fromQt(extents) : Point();
}

void GLCanvas::setPreferredExtents(const Point& extents)
{
    d->changeView([&](ViewState& view) {
        view.setPreferredExtents({extents.x, extents.y});
        return false;
    });
}

Rect GLCanvas::getMargins() const
{
    const QMarginsF& m = d->view().margins();
    return {m.left(), m.top(), m.right(), m.bottom()};
}

void GLCanvas::setMargins(const Rect& margins)
{
    bool isChanged = false;
    d->changeView([&](ViewState& view) {
        isChanged = view.setMargins({margins.x, margins.y, margins.width, margins.height});
        return false;
    });
    if (isChanged)
        d->placeScrollbars();
}

Vetra::Transform GLCanvas::getViewportTransform() const
{
    return fromQt(d->view().transform());
}

Point GLCanvas::getPixelAlignedScenePoint(const Point& point) const
{
    if (!isFinite(toQt(point)))
        return point;
    const double ratio = d->ratio();
    const QPointF pixel = d->view().toView(toQt(point)) * ratio;
    return fromQt(d->view().toScene(QPointF(std::round(pixel.x()), std::round(pixel.y())) / ratio));
}

Point GLCanvas::scenePointToViewPoint(const Point& point) const
{
    return fromQt(d->view().toView(toQt(point)));
}

Point GLCanvas::viewPointToScenePoint(const Point& point) const
{
    return fromQt(d->view().toScene(toQt(point)));
}

Rect GLCanvas::sceneRectToViewRect(const Rect& rect) const
{
    return fromQt(d->view().toView(toQt(rect)));
}

Rect GLCanvas::viewRectToSceneRect(const Rect& rect) const
{
    return fromQt(d->view().toScene(toQt(rect)));
}

// Scrolling

void GLCanvas::requestScrollInPages(int dx, int dy)
{
    if (!mayUserMoveView())
        return;
    const QSizeF shown = d->view().shown().size() * CanvasScrollbars::kPage;
    translate(-1.0 * dx * shown.width(), -1.0 * dy * shown.height());
}

void GLCanvas::requestScrollInSteps(int dx, int dy)
{
    const Use use(*this);
    if (!mayUserMoveView() || use.hasEnded())
        return;
    d->emitters().scrollRequest.send(dx, dy);
    if (use.hasEnded())
        return;
    const ViewState& view = d->view();
    const QPointF way = d->wholePixels({-1.0 * dx * stepLength(view.size().width()),
                                        -1.0 * dy * stepLength(view.size().height())});
    translate(way.x() / view.scale(), way.y() / view.scale());
}

bool GLCanvas::mayUserMoveView()
{
    bool mayMove = true;
    d->emitters().userMoveQuery.send(mayMove);
    return mayMove;
}

void GLCanvas::showScrollbars()
{
    d->setScrollbarsWanted(true);
}

void GLCanvas::hideScrollbars()
{
    d->setScrollbarsWanted(false);
}

bool GLCanvas::isHorizontalScrollbarVisible() const
{
    const CanvasScrollbars* const bars = d->scrollbars();
    return bars && bars->isVisible(Orientation::Horizontal);
}

bool GLCanvas::isVerticalScrollbarVisible() const
{
    const CanvasScrollbars* const bars = d->scrollbars();
    return bars && bars->isVisible(Orientation::Vertical);
}

Vetra::GLRect<int> GLCanvas::getScrollbarGeometry(Orientation orientation) const
{
    const CanvasScrollbars* const bars = d->scrollbars();
    return bars ? fromQt(bars->geometry(orientation)) : Vetra::GLRect<int>();
}

bool GLCanvas::movingWithMomentum() const
{
    return d->isMovingWithMomentum();
}

void GLCanvas::setMovingWithMomentum(bool on)
{
    d->setMovingWithMomentum(on);
}

} // namespace Tova2
