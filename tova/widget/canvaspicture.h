#pragma once

#include "widget/dirtytiles.h"

#include <QImage>
#include <QPoint>
#include <QPointF>
#include <QRegion>
#include <QTransform>

#include <functional>

class QPainter;

namespace Tova2 {

/// The pixels that a canvas shows, and which of them are due. A move by whole device pixels copies
/// what is there and leaves only the strip that came into view due; one by less, or another scale,
/// leaves everything due.
///
/// Marks and moves may come at any time, also while painting: they count for the next paint, and
/// nothing is copied or allocated before that.
class CanvasPicture {
public:
    /// In device pixels, at `ratio` of them a view pixel. Answers whether that is a change.
    bool setSize(const QSize& pixels, double ratio);
    const QSize& size() const { return m_size; }
    double ratio() const { return m_ratio; }

    /// `offset` is where the scene's origin lies, in device pixels; `scale` is in view pixels a
    /// scene unit. With `keepsPhase` the picture stays within half a pixel of `offset`, at a
    /// distance of whole pixels from where it was. Answers whether the picture changes.
    bool place(double scale, const QPointF& offset, bool keepsPhase);
    /// Scene to view pixels, as it is painted: at most 1/256 of a device pixel from what was asked
    /// for.
    QTransform transform() const;

    void markAll() { m_due.markAll(); }
    /// In scene coordinates.
    void mark(const QRectF& sceneRect);
    /// In view pixels.
    QRegion due() const;

    /// Paints what is due: calls back with a painter in view pixels, clipped to a part, and that
    /// part in view pixels.
    using PaintPart = std::function<void(QPainter&, const QRectF&)>;
    void paintDue(const PaintPart& paint);
    /// As painted last, with a pixel ratio of 1; the last row and column are no part of the view.
    const QImage& pixels() const { return m_pixels; }

private:
    QRectF inView(const QRect& part) const;
    void adoptSize();
    void copyShifted();
    void paintPart(const QRect& part, const PaintPart& paint);

    QSize m_size{0, 0};
    double m_ratio = 1;
    double m_scale = 1;
    QPointF m_offset{0, 0};
    QPoint m_shift{0, 0}; ///< by which the pixels are behind
    DirtyTiles m_due;
    QImage m_pixels;
};

} // namespace Tova2
