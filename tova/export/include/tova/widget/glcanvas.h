#pragma once

#include "tova/events/eventcanvas.h"
#include "tova/tova_export.h"
#include "tova/typename.h"
#include "tova/widget/glcanvasemitters.h"
#include "tova/widget/orientation.h"
#include "tova/widget/zoomdirection.h"
#include "tova/widget/zoomreason.h"
#include "vetra/glmimedata.h"
#include "vetra/glpoint.h"
#include "vetra/glrect.h"
#include "vetra/image.h"
#include "vetra/inputenums.h"
#include "vetra/pixmap.h"
#include "vetra/stringid.h"
#include "vetra/transform.h"
#include "widgets/glwidget2.h"

#include <memory>
#include <string>
#include <vector>

namespace Tova2 {

struct DragPreview;
class Event;
class GLCanvasPrivate;
class LayerStack;
class Scene;
class ToolkitCanvas;

/// The view: a widget that shows the layers of a `LayerStack`, one scene each, at a scale and a
/// position, and hands input to the base layer's scene.
///
/// View coordinates are device-independent pixels of the widget, y growing downwards; a scene unit
/// is `getScale()` of them. Scale and position are kept exactly: what is mapped to the view and
/// back stays where it was, and many small moves add up to the large one.
///
/// Values that are not finite are refused. A canvas ends by `destroy()`, with its parent, or with
/// the host's widget that it was put into; its scenes live on. While disabled it is shown, and
/// takes no input. GUI thread only.
class TOVA_EXPORT GLCanvas : public Widgets::GLWidget2, public EventCanvas {
public:
    explicit GLCanvas(Vetra::StringID name, Widgets::GLObject* parent = nullptr);

    /// That an event arrived on; null for an event that was made up without one.
    static GLCanvas* of(const Event& event);

    // Scene and layers

    Scene* getScene() const override;
    /// Puts the scene into the layer tagged "base", at the bottom; null takes that layer away. What
    /// the user was doing in the scene before is cancelled. Scale and position stay.
    void setScene(Scene* scene);
    /// For the feedback of tools: shown over the base, in the same coordinates. Made with the first
    /// call.
    Scene* getOverlayScene() const;
    LayerStack& getLayerStack();

    // Scale

    double getScale() const;
    /// About the middle of the view, or about the scene's origin while there is no layer or no
    /// view. A scale that is not positive and finite is ignored; limits bind the user, not the
    /// host.
    void setScale(double scale);
    void setScaleAroundScenePoint(double scale, const Vetra::GLPoint<double>& scenePoint);
    /// The scene point stays where it is in the view. For a user's reason the scale is kept within
    /// the limits, and never goes the other way to get there; the lower limit gives way to a scale
    /// at which the whole scene fits within the margins.
    void setScaleAroundScenePointWithReason(double scale, const Vetra::GLPoint<double>& scenePoint,
                                            ZoomReason reason);
    /// The smaller of 0.5 and the scale that fits the scene's longer side; 1 for an empty scene.
    double getMinScaleLimit() const;
    /// 64 unless set; 1 for an empty scene.
    double getMaxScaleLimit() const;
    void setMaxScaleLimit(double scale);
    /// The next of the fixed steps, or the scale that fits the preferred extents when that comes
    /// first. Beyond the steps by a factor of 1.3.
    double getNextZoomScale(ZoomDirection direction) const;
    /// One such step about the middle of the view, on behalf of the user.
    void zoomByStep(ZoomDirection direction, ZoomReason reason);
    void zoomToActualSize();
    /// Fits the scene into the view within the margins; nothing for an empty scene.
    void zoomToSceneRect();

    // Position

    /// Moves the scene under the view by an offset in scene units: to the right and down when
    /// positive. Stops where no more than a tenth of the view would show the scene with its
    /// margins.
    void translate(const Vetra::GLPoint<double>& offset);
    void translate(double dx, double dy) { translate({dx, dy}); }
    void translateScenePointToViewPoint(const Vetra::GLPoint<double>& scenePoint,
                                        const Vetra::GLPoint<double>& viewPoint);
    void showScenePointAtViewPointAtScale(const Vetra::GLPoint<double>& scenePoint,
                                          const Vetra::GLPoint<double>& viewPoint, double scale);
    /// The rectangle as large as it fits into the view, in its middle.
    void showSceneRect(const Vetra::GLRect<double>& rect);
    void showSceneRectWithMargins(const Vetra::GLRect<double>& rect);
    /// As large as it fits into that part of the view, in its middle.
    void showSceneRectAtViewRect(const Vetra::GLRect<double>& sceneRect,
                                 const Vetra::GLRect<double>& viewRect);
    /// Moves by as little as brings the rectangle into view; of one that is larger than the view,
    /// the top left.
    void ensureVisible(const Vetra::GLRect<double>& rect);
    /// Of the base scene; empty without one.
    Vetra::GLRect<double> getSceneRect();
    Vetra::GLRect<double> getSceneRectInView() const;
    Vetra::GLPoint<double> getViewExtents() const;
    /// How much of the scene the view would show at that scale; empty for a scale that is none.
    Vetra::GLPoint<double> getViewExtentsSizeForZoom(double scale) const;
    /// The part of a scene, in scene units, that its user most wants to see at once: the scale that
    /// fits it becomes a zoom step. Zero for none.
    void setPreferredExtents(const Vetra::GLPoint<double>& extents);
    /// Left, top, right and bottom, in view pixels, in the fields of that order.
    Vetra::GLRect<double> getMargins() const;
    void setMargins(const Vetra::GLRect<double>& margins);
    Vetra::Transform getViewportTransform() const override;
    /// The scene point nearest to `point` that lies on a corner of device pixels.
    Vetra::GLPoint<double> getPixelAlignedScenePoint(const Vetra::GLPoint<double>& point) const;

    Vetra::GLPoint<double>
    scenePointToViewPoint(const Vetra::GLPoint<double>& point) const override;
    Vetra::GLPoint<double>
    viewPointToScenePoint(const Vetra::GLPoint<double>& point) const override;
    Vetra::GLRect<double> sceneRectToViewRect(const Vetra::GLRect<double>& rect) const override;
    Vetra::GLRect<double> viewRectToSceneRect(const Vetra::GLRect<double>& rect) const override;

    // Scrolling. Positive values show what lies to the right or below.

    /// By the view less a tenth, as a click beside a scroll bar's handle.
    void requestScrollInPages(int dx, int dy);
    /// By a 120th of the view each, at least a pixel: 6 are a line, 17 a notch of the wheel.
    void requestScrollInSteps(int dx, int dy);
    /// Asks those who listen to `userMoveQuery`; yes without any. What a user does to the view is
    /// held to the answer, requests to scroll included; what the host does is not.
    bool mayUserMoveView();
    /// They lie over the view's edges, and only while the scene with its margins does not fit.
    void showScrollbars();
    void hideScrollbars();
    bool isHorizontalScrollbarVisible() const;
    bool isVerticalScrollbarVisible() const;
    /// In view pixels; empty while it is not visible.
    Vetra::GLRect<int> getScrollbarGeometry(Orientation orientation) const;
    /// Whether the view is gliding; the pan tool says so, and ends its glide once somebody else has
    /// said that it is over. Meanwhile what is shown keeps to whole device pixels.
    bool movingWithMomentum() const;
    void setMovingWithMomentum(bool on);

    // Painting and state

    /// Paints what is due at once, instead of with the next turn of the event loop.
    void renderNow();
    bool getRenderingEnabled() const;
    /// While off, the view keeps its last picture.
    void setRenderingEnabled(bool on);
    /// Lets the graphics processor paint, the whole view each time, instead of the parts that have
    /// changed being painted by the processor. False, and all stays as it is, where the platform
    /// has no OpenGL.
    bool setOpenGLViewport(bool on);
    bool hasOpenGLViewport() const;
    /// Lines behind the bounds of the scene and 5 units around, 10 units apart; twice as far, and
    /// so on, where that would be less than 10 pixels, half as far where it would be 20 or more.
    /// Each fifth is darker. No part of the scene, its bounds, queries or pictures.
    bool gridVisible() const;
    void setGridVisible(bool on);
    /// An outline around the scene's focused node while the canvas has the keyboard; off at first.
    /// No part of the scene either.
    bool focusIndicatorVisible() const;
    void setFocusIndicatorVisible(bool on);
    /// A rubber band in scene coordinates; an empty rectangle takes it away.
    void setMarquee(const Vetra::GLRect<double>& rect);
    /// A turning wheel at the scene point.
    void showInCanvasBusyAnimation(Vetra::GLPoint<double> scenePoint);
    void hideInCanvasBusyAnimation();
    bool isShowingInCanvasBusyAnimation() const;
    /// Device pixels a view pixel.
    double getBackingScaleFactor() const;
    /// Tells canvases apart for as long as they live.
    const void* getKey() const;
    /// Of child widgets that lie over the scene.
    void setLayout(Widgets::GLLayout2* layout) override;
    void setToolInteraction(bool on) override;
    bool getToolInteraction() const;

    // Drag data: of the drag in progress, from outside or begun here

    Vetra::GLMimeData getMimeData() const;
    void setMimeData(Vetra::GLMimeData data);
    void clearMimeData();
    /// Lets the user drag the data of `setMimeData` on from here, best called by a tool at a
    /// `UserDragInitEvent`. Returns when that is over, with what the target has done, and the data
    /// given up. Meanwhile events come in; the gesture that led here is cancelled, since its
    /// release is not among them. Nothing without data, or inside another drag of this canvas.
    Vetra::DropAction startDrag(Vetra::DropActions possible, const DragPreview& preview);
    /// The formats that are read of what comes from elsewhere, 8 MiB of each at most; at first
    /// text, HTML, lists of URIs, PNG, JPEG and SVG. A format in which another canvas of this
    /// process drags is read as well.
    std::vector<std::string> getDropFormats() const;
    void setDropFormats(std::vector<std::string> formats);

    // Resize notifications, by the emitter `resized`

    void registerResizeNotification(unsigned key);
    void cancelResizeNotification(unsigned key);

    // A page of HTML over a part of the scene; only with an engine (`WebBlock`)

    /// Shows `html`, UTF-8, over the rectangle, which moves and zooms with the scene and takes no
    /// focus. Replaces the page before. Refused, with the answer false: any page when there is no
    /// engine, text beyond `Limits::textBytes`, a rectangle that is not valid. Hidden while its
    /// side is more than 16384 pixels.
    bool setWebBlock(const Vetra::GLRect<double>& sceneRect, const std::string& html);
    void removeWebBlock();
    bool hasBrowser() const;
    /// Names the toolkit's widget of the page "webblock" and the key, after making an empty page
    /// over all of the view if there is none. Key 0 takes the page away.
    void associateBrowserForTesting(unsigned key);

    // Snapshots, in device pixels

    /// What the canvas shows, as of now.
    Vetra::Pixmap getCanvasSnapshotWithWebBlock();
    /// The part of the page that lies in the view; null when there is none.
    Vetra::Pixmap getPixmapOfBrowserInView();
    /// That part of the view, scene and page; never an empty holder.
    Vetra::Holder<Vetra::Image> getSceneImageWithWebblocksForTesting(Vetra::GLRect<int> viewRect);

    /// Tells listeners to `canvasReplacement` that the other canvas has come into this one's place.
    void announceReplacement(GLCanvas& successor);

    /// Connects to one of the canvas's emitters with the arguments of `Vemit::Emitter::connect`:
    /// `canvas.connectTo(&GLCanvasEmitters::scaleChange, listener, callback)`.
    template <class Emitter, class... Arguments>
    auto connectTo(Emitter GLCanvasEmitters::*emitter, Arguments&&... arguments)
    {
        return (getGLCanvasEmitters().*emitter).connect(std::forward<Arguments>(arguments)...);
    }

    GLCanvasPrivate* d_func() const noexcept { return d.get(); }

protected:
    ~GLCanvas() override;
    void doEnd() override;
    GLCanvasEmitters& getGLCanvasEmitters();

private:
    GLCanvas(const Vetra::StringID& name, Widgets::GLObject* parent, ToolkitCanvas* widget);

    const std::unique_ptr<GLCanvasPrivate> d;

    TOVA_DERIVED_TYPE("Tova2.GLCanvas", Widgets::GLWidget2, EventCanvas);
};

} // namespace Tova2
