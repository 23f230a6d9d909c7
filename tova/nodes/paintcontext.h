#pragma once

#include "nodes/heldfigures.h"
#include "nodes/pixelarea.h"
#include "nodes/polylines.h"
#include "nodes/simplification.h"
#include "nodes/strokearea.h"
#include "nodes/strokepolygon.h"

#include "tova/nodes/paintoptions.h"
#include "tova/nodes/style/drawstyle.h"

#include <QPainterPath>
#include <QPointF>
#include <QTransform>

#include <limits>
#include <optional>
#include <span>
#include <utility>
#include <vector>

class QImage;
class QLineF;
class QPainter;
class QPoint;
class QRectF;

namespace Tova2 {

class StripFill;

/// A painter on its way through the nodes of a scene. It knows what the painter is set to, so that
/// nodes that look alike and only lie elsewhere cost no change of state: as long as a node is
/// merely moved, its geometry is moved instead of the painter.
///
/// The node under way is told by `enter`, then its look by `setStyle`. Whoever uses one of the
/// painters may change it at will, as long as it calls `forgetPainterState` afterwards: the next
/// one who asks gets it with the hints, opacity, pen and brush that are due, whatever was left
/// behind.
class PaintContext {
public:
    /// `view` maps the scene to what the painter's device calls a pixel; whatever transform the
    /// painter has is replaced.
    PaintContext(QPainter& painter, const QTransform& view, const PaintOptions& options);

    /// On devices of pixels a stroke may be drawn as the area that it covers: the same picture,
    /// without the toolkit's general stroker. Elsewhere a stroke has to stay one.
    void setFillsStrokes(bool on) { m_fillsStrokes = on; }
    bool isOnPixels() const { return m_fillsStrokes; }
    /// What the painter paints on, where some of it may be drawn past the painter.
    void setPixels(const std::optional<PixelArea>& pixels) { m_pixels = pixels; }

    /// Nodes then draw all that shows of them, and nothing else, in one colour. `cosmeticWidth` is
    /// that of lines of one pixel, in the node's units.
    void setSilhouette(double cosmeticWidth, const Vetra::Color& color);
    bool isSilhouette() const { return m_isSilhouette; }
    /// Of what a node draws with a colour that is not its style's.
    QColor ink(const QColor& color) const;

    const PaintOptions& options() const { return m_options; }
    const QTransform& view() const { return m_view; }

    void enter(const QPointF& sceneOffset);
    void enter(const QTransform& nodeToDevice);
    /// The node that `other` is in, under this context's own view.
    void enterLike(const PaintContext& other);
    void setOpacity(double opacity);
    double opacity() const { return m_opacity; }
    /// `extent` is that of the figure in local units, where there is one to be filled.
    void setStyle(const DrawStyle& style, double extent = std::numeric_limits<double>::infinity());

    /// That of the nodes to come.
    void setQuality(std::uint8_t quality);
    /// What the quality leaves out.
    const Simplification& simplification() const { return *m_simplification; }
    /// Draws a figure that is too small to be told from a box as one, of which it covers a share.
    /// False, and nothing drawn, where it is not too small.
    bool drawTiny(const QRectF& geometry, const DrawStyle& style, double share);
    /// By its exact coverage of pixels.
    void fillArea(const QRectF& area, const Vetra::Color& color);
    /// Draws what was held back in order to be drawn together. To be called before anything is done
    /// with the painter itself.
    void flush();

    void drawRect(const QRectF& rect);
    void drawRoundedRect(const QRectF& rect, double radius);
    void drawEllipse(const QRectF& rect);
    void drawLine(const QLineF& line);
    /// Its dashes go on after so much of a line.
    void drawPath(const QPainterPath& path, double lengthBefore = 0);
    // Of two points at least. A polyline has no inside; a polygon is filled by the odd-even rule.
    void drawPolyline(std::span<const QPointF> points);
    void drawPolygon(std::span<const QPointF> points);
    /// As one: where solid lines overlap, a translucent colour shows once. Any number of points.
    void drawPolylines(const Polylines& lines);
    /// The dashes of an outline, as what they are drawn along; `unit` and `width` are those of the
    /// stroke in local units. Without those that are not seen.
    void cutDashes(const QPainterPath& outline, StrokeStyle style, double unit, double width,
                   Polylines& dashes, double lengthBefore = 0) const;
    /// Of the node and stroke under way. Only where the width is not 0 may its areas be used.
    StrokeArea::Key strokeAreaKey() const;
    /// For the area's key, which has to be that of now.
    void layOut(StrokeArea& area, const Polylines& lines);
    void drawArea(const StrokeArea& area);
    /// As wide as the stroke and of its colour from `full` on; clear at the other end. Nothing is
    /// drawn beyond `end`, which lies between the two.
    void drawFade(const QPointF& clear, const QPointF& full, const QPointF& end);
    /// Empty, and nobody else's until `drawPolylines` returns: keeps its memory between nodes.
    Polylines& scratchLines();

    /// Pixel by pixel; `corner` is in the device's own pixels.
    void drawDeviceImage(const QPoint& corner, const QImage& image);
    /// The same as opaque as the node. Changes no state that nodes nearby would have to set again,
    /// where the view only moves by whole pixels.
    void drawPixels(const QPoint& corner, const QImage& image);

    /// In the node's coordinates, with the look of the last `setStyle` if it was called for this
    /// node.
    QPainter& localPainter();
    /// In the node's coordinates, for pictures, which have a look of their own.
    QPainter& picturePainter(bool isAntialiased);
    /// In the device's own pixels, for pictures as well.
    QPainter& pixelPainter();
    void forgetPainterState();

    /// Local to device, as the painter's transform is while the node draws.
    QTransform nodeToDevice() const;
    /// Local to the device's own pixels, of which a unit of `nodeToDevice` may have several.
    QTransform nodeToPixels() const;
    double pixelRatio() const { return m_pixelRatio; }
    /// How wide a line without a width is, in the device's own pixels: one of them, or on paper,
    /// whose dots nobody sees, what a pixel is at the same zoom.
    double hairline() const { return m_hairline; }
    /// What is to be painted, in the device's own pixels.
    QRectF exposedPixels() const;
    double pixelsAUnit() const;

private:
    void applyStyle(const DrawStyle& style, double extent);
    void useStyle(const Stroke& stroke, const Fill& fill);
    double pixelsOf(const Stroke& stroke) const;
    void setAntialiased(bool on);
    void setPenAndBrush();
    void useState();
    void useOpaqueBrush();
    QRectF seenWithin(double width) const;
    double dashUnit() const;
    bool isDashed() const;
    bool cutsDashes(double extent) const;
    bool drawAsLines(const QPainterPath& outline, double lengthBefore = 0);
    /// Draws the outline that `add` makes by lines where the toolkit's picture of its stroke would
    /// depend on what is exposed. False, and nothing drawn, elsewhere.
    template <class Add>
    bool drawAsLines(Add add)
    {
        if (!isDashed() && !holdsLines())
            return false;
        QPainterPath outline;
        add(outline);
        return drawAsLines(std::as_const(outline));
    }
    void drawCutDashes();
    void drawDashes(const Polylines& lines);
    QPainterPath placed(const QPainterPath& path) const;
    bool drawsShifted() const;
    bool canFillFrame() const;
    double frameWidth() const;
    void fillFrame(const QRectF& rect);
    void useStrokeBrush();
    bool fillStroke(std::span<const QPointF> points, bool isClosed);
    bool fillStrokes(const Polylines& lines);
    void fillArea(std::span<const QPointF> area);
    double strokePolygonWidth() const;
    void drawPoints(std::span<const QPointF> points, bool isClosed);
    void strokePath(const Polylines& lines, QPainter& painter);
    bool isHairline() const;
    bool isLong(std::size_t pointCount) const;
    bool strokesAsArea() const;
    void drawHairlines(const Polylines& lines);
    void fillInStrips(const Polylines& lines, bool areClosed);
    bool drawLongPolygon(std::span<const QPointF> points);
    QRectF seenOnDevice() const;
    StripFill stripsFor(std::size_t pointCount) const;
    void useView();
    void useNode();
    double widthOf(const Stroke& stroke) const;
    bool canHold() const;
    QRgb heldColor(const Vetra::Color& color) const;
    QRectF heldBox(const QRectF& area) const;
    void hold(const QRectF& area, const Vetra::Color& color);
    bool holdRect(const QRectF& rect);
    double widthAcross(const QLineF& pixels) const;
    bool holdsLines() const;
    bool holdLines(std::span<const QPointF> points);
    bool holdAll(const Polylines& lines);
    void holdLine(const QLineF& pixels, QRgb color, bool goesOn);
    QPointF heldPoint(const QPointF& point) const;
    void holdPath(const QPainterPath& path);
    QPainter& viewPainter();
    Stroke aligned(const Stroke& stroke) const;
    QRectF aligned(const QRectF& rect) const;
    QPointF aligned(const QPointF& point) const;

    QPainter& m_painter;
    QTransform m_view;
    PaintOptions m_options;
    const Simplification* m_simplification;

    QPointF m_offset;          ///< of a node that is only moved
    QTransform m_nodeToDevice; ///< of any other
    bool m_isMovedOnly = true;

    enum class Coordinates { Unknown, View, Node, Pixels } m_coordinates = Coordinates::Unknown;
    Stroke m_stroke{StrokeStyle::SolidLine};
    Fill m_fill;
    double m_pixelRatio; ///< of paper, its dots
    double m_hairline;
    double m_cosmeticWidth = 0; ///< of silhouettes
    Vetra::Color m_silhouetteColor;
    QTransform m_viewToPixels;
    bool m_isViewOnPixels; ///< moved by whole pixels, and no more
    bool m_isUpright;      ///< the view neither turns nor shears
    bool m_isUniformView;  ///< as long in all directions, and level
    double m_opacity = 1;
    double m_penWidth = 0; ///< in device pixels
    bool m_isOpacitySet = false;
    bool m_areHintsSet = false;
    bool m_isStyleKnown = false;
    bool m_arePenAndBrushSet = false;
    bool m_isFrameSet = false; ///< no pen, and a brush of the stroke's colour
    bool m_isAntialiased = false;
    bool m_isCut = false; ///< what is drawn are dashes
    bool m_isPixelAligned = false;
    bool m_fillsStrokes = false;
    bool m_isSilhouette = false;

    std::optional<PixelArea> m_pixels;
    HeldFigures m_held; ///< nothing has been drawn since; empty while there are pixels to draw on
    StrokePolygon m_strokePolygon;
    std::vector<QPointF> m_movedPoints;
    Polylines m_movedLines, m_scratchLines, m_dashes;
};

} // namespace Tova2
