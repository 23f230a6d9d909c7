#pragma once

#include <QPainterPath>
#include <QRectF>

#include <span>
#include <vector>

class QPainter;

namespace Tova2 {

/// Fills an area of very many corners. The toolkit's time for a row of pixels grows with the square
/// of the edges that pass it, so the area is cut into upright strips first. They meet between
/// pixels: none is covered twice, and the picture is that of the whole.
class StripFill {
public:
    /// What is seen, and the width of a strip, in the unit of the rings; both whole pixels.
    StripFill(const QRectF& seen, double stripWidth);

    /// A closed line of the area.
    void addRing(std::span<const QPointF> points);
    /// In the coordinates of the rings, with the painter's brush.
    void paint(QPainter& painter, Qt::FillRule rule);

private:
    struct Strip {
        QPainterPath path;
        bool isInRing = false;
    };

    void addEdge(const QPointF& from, const QPointF& to);
    void addWithin(std::size_t strip, const QPointF& from, const QPointF& to);
    void addPoint(Strip& strip, const QPointF& point);

    QRectF m_seen;
    double m_width;
    std::vector<Strip> m_strips;
    std::vector<std::size_t> m_touched; ///< strips that the ring under way has come into
};

} // namespace Tova2
