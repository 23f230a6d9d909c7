#pragma once

#include <QMarginsF>
#include <QPointF>
#include <QRectF>
#include <QSizeF>
#include <QTransform>

namespace Tova2 {

/// Which part of a scene a view shows: a scale, and the scene point in its top left corner. All of
/// it is finite, the scale positive; a change that would not be is refused. Operations answer
/// whether anything has changed.
class ViewState {
public:
    double scale() const { return m_scale; }
    double maximumScale() const { return m_maximumScale; }
    bool setMaximumScale(double scale);
    const QPointF& origin() const { return m_origin; }
    bool setOrigin(const QPointF& scenePoint);
    /// In view pixels.
    const QSizeF& size() const { return m_size; }
    bool setSize(const QSizeF& size);
    const QMarginsF& margins() const { return m_margins; }
    bool setMargins(const QMarginsF& margins);
    const QSizeF& preferredExtents() const { return m_preferredExtents; }
    bool setPreferredExtents(const QSizeF& extents);
    /// At which the preferred extents fit; zero when there are none.
    double preferredScale() const;

    QPointF toView(const QPointF& scenePoint) const { return (scenePoint - m_origin) * m_scale; }
    QPointF toScene(const QPointF& viewPoint) const { return inScene(viewPoint) + m_origin; }
    QRectF toView(const QRectF& r) const { return {toView(r.topLeft()), r.size() * m_scale}; }
    QRectF toScene(const QRectF& r) const { return {toScene(r.topLeft()), inScene(r.size())}; }
    QRectF shown() const { return {m_origin, inScene(m_size)}; }
    QTransform transform() const;

    /// `scenePoint` stays where it is in the view.
    bool scaleAbout(double scale, const QPointF& scenePoint);
    bool place(const QPointF& scenePoint, const QPointF& viewPoint, double scale);
    /// As large as it fits into `viewRect`, in its middle.
    bool fit(const QRectF& sceneRect, const QRectF& viewRect);
    /// By as little as shows all of it, or its top left when there is not the room.
    bool reveal(const QRectF& sceneRect);
    /// Moves what is shown over the scene. The middle of the view stays within `limits`, or comes
    /// no farther from them than it is; null for no limits.
    bool moveBy(QPointF sceneOffset, const QRectF& limits);
    /// The scene with the margins around it, in scene units.
    QRectF withMargins(const QRectF& sceneRect) const;
    QRectF roomWithinMargins() const;
    /// At which the longer side of `sceneRect`, which is not empty, fills the view.
    double longerSideScale(const QRectF& sceneRect) const;
    /// At which all of `sceneRect` fits within the margins; zero when they leave no room.
    double wholeScale(const QRectF& sceneRect) const;

private:
    // By hand: the toolkit's own division asserts that the scale is not small.
    QPointF inScene(const QPointF& p) const { return {p.x() / m_scale, p.y() / m_scale}; }
    QSizeF inScene(const QSizeF& s) const { return {s.width() / m_scale, s.height() / m_scale}; }

    double m_scale = 1;
    double m_maximumScale = 64;
    QPointF m_origin{0, 0};
    QSizeF m_size{0, 0};
    QMarginsF m_margins;
    QSizeF m_preferredExtents{0, 0};
};

} // namespace Tova2
