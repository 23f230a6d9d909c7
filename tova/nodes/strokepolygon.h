#pragma once

#include "tova/nodes/style/stroke.h"

#include <QPointF>

#include <span>
#include <vector>

namespace Tova2 {

/// The area that a stroke covers as one polygon, filled by the winding rule: corner by corner what
/// the toolkit's stroker makes, so that the antialiased picture is the same, at a fraction of its
/// time.
class StrokePolygon {
public:
    /// Round joins and caps, and dashes, are left to the toolkit.
    static bool canDraw(const Stroke& stroke);

    /// False where the toolkit's result depends on rounding: the line turns straight back.
    bool build(std::span<const QPointF> points, bool isClosed, double width, const Stroke& stroke);
    const std::vector<QPointF>& points() const { return m_points; }

private:
    struct Piece {
        QPointF start, end, along;
    };

    void collect(std::span<const QPointF> points, bool isClosed);
    bool turnsBack(bool isClosed) const;
    QPointF aside(const QPointF& along) const;
    void addSide(bool isForward, bool isClosed);
    void addJoin(const QPointF& corner, const QPointF& in, const QPointF& out);
    void addCap(const QPointF& end, const QPointF& along);

    std::vector<Piece> m_pieces;
    std::vector<QPointF> m_points;
    double m_half = 0;
    bool m_isMitred = true;
    bool m_isSquare = false;
};

} // namespace Tova2
