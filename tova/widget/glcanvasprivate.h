#pragma once

#include "widget/busyanimation.h"
#include "widget/canvasinput.h"
#include "widget/canvaslayers.h"
#include "widget/canvaspicture.h"
#include "widget/canvasscrollbars.h"
#include "widget/canvaswebblock.h"
#include "widget/openglsurface.h"
#include "widget/scenegrid.h"
#include "widget/toolkitcanvas.h"
#include "widget/viewstate.h"

#include "tova/widget/glcanvasemitters.h"
#include "vetra/glmimedata.h"

#include <QObject>
#include <QPointer>
#include <QRegion>

#include <memory>
#include <optional>
#include <utility>
#include <vector>

namespace Tova2 {

class GLCanvas;

/// What a canvas consists of: layers, the state of the view, the picture of both, and the toolkit's
/// widget that shows it.
class GLCanvasPrivate {
public:
    GLCanvasPrivate(GLCanvas& canvas, ToolkitCanvas* widget);
    ~GLCanvasPrivate();

    /// The toolkit may have deleted it.
    ToolkitCanvas* widget() const { return m_widget; }
    CanvasLayers& layers() { return m_layers; }
    /// With the widget's size as it is now.
    const ViewState& view() const;
    GLCanvasEmitters& emitters() { return m_emitters; }
    /// The end has begun: no more of the toolkit's events, timers or repaints.
    void end();

    /// Changes the view by `change(ViewState&)`, which answers whether it did, and tells of it.
    template <class Change>
    void changeView(ZoomReason reason, Change&& change)
    {
        view();
        const double scale = m_view.scale();
        if (change(m_view))
            viewChanged(scale, reason);
    }
    template <class Change>
    void changeView(Change&& change)
    {
        changeView(ZoomReason(), std::forward<Change>(change));
    }
    /// Where the middle of the view may be moved to; null for anywhere.
    QRectF panLimits() const;
    /// Down to which a user may zoom.
    double lowestUserScale() const;

    /// Once the canvas can answer what input asks of it.
    void beginInput();
    CanvasInput& input() { return *m_input; }

    // Of the toolkit's widget
    bool dispatch(QEvent& event);
    void viewResized();
    void paint(const QRegion& exposed);

    void repaintAll();
    void renderNow();
    bool isRenderingEnabled() const { return m_isRenderingEnabled; }
    void setRenderingEnabled(bool on);
    bool isGridVisible() const { return m_grid.has_value(); }
    void setGridVisible(bool on);
    bool isFocusIndicated() const { return m_isFocusIndicated; }
    void setFocusIndicated(bool on);
    /// Brings the outline of the focused node to where that is now.
    void followFocus();
    bool isMovingWithMomentum() const { return m_isMovingWithMomentum; }
    void setMovingWithMomentum(bool on);
    void setMarquee(const QRectF& sceneRect);
    BusyAnimation& busyAnimation() { return m_busy; }
    bool hasOpenGL() const { return m_surface; }
    bool setOpenGL(bool on);
    CanvasScrollbars* scrollbars() { return m_widget ? &*m_bars : nullptr; }
    void setScrollbarsWanted(bool wanted);
    void placeScrollbars();
    double ratio() const;
    /// The nearest way in view pixels that is one of whole device pixels: the picture of a view
    /// that goes it is copied, not painted anew.
    QPointF wholePixels(const QPointF& way) const;
    /// The same for one way of many: `rest`, less than a pixel, is what the others have left over.
    Vetra::GLPoint<double> wholePixels(const Vetra::GLPoint<double>& way,
                                       Vetra::GLPoint<double>& rest) const;

    Vetra::GLMimeData mimeData;
    std::vector<std::string> dropFormats{"text/plain", "text/html",  "text/uri-list",
                                         "image/png",  "image/jpeg", "image/svg+xml"};
    std::vector<unsigned> resizeKeys;
    CanvasWebBlock webBlock;
    bool hasToolInteraction = false;
    bool isDragging = false; ///< what was begun here

private:
    void viewChanged(double scaleBefore, ZoomReason reason);
    void sceneDirty(const DirtyArea& area);
    void settleLater();
    void settle();
    void markGrid(const QRectF& sceneRect);
    QRectF focusedNodeRect() const;
    void scrollByBar(double dx, double dy);
    void repaintBusy();

    void update(const QRegion& part);
    void paintOn(QPainter& painter);
    void paintLayers(QPainter& painter, const QRectF& part);
    void placePicture();
    QRegion paintPicture();
    void show(QPainter& painter, const QRegion& exposed);
    void paintDecor(QPainter& painter) const;

    GLCanvas& m_canvas;
    QPointer<ToolkitCanvas> m_widget;
    QPointer<OpenGLSurface> m_surface; ///< a child of the widget; null unless it is asked for
    mutable ViewState m_view;
    CanvasLayers m_layers;
    CanvasPicture m_picture;
    std::optional<CanvasScrollbars> m_bars;
    std::optional<SceneGrid> m_grid;
    BusyAnimation m_busy;
    std::optional<CanvasInput> m_input;
    QRectF m_marquee;     ///< in the scene
    QRectF m_focusedNode; ///< in the scene, as its outline is shown; null without one
    GLCanvasEmitters m_emitters;
    QObject m_turn; ///< receives what waits for the next turn of the event loop
    bool m_isSettling = false;
    bool m_isPainting = false;
    bool m_isRenderingEnabled = true;
    bool m_isFocusIndicated = false;
    bool m_isMovingWithMomentum = false;
};

} // namespace Tova2
