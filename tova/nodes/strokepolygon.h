#pragma once

#include "nodes/polylines.h"

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
    /// The same for any solid stroke and any line, for lines that the toolkit would take long for.
    /// `unit` is how much nobody sees. False where there is no line.
    bool buildAny(std::span<const QPointF> points, bool isClosed, double width,
                  const Stroke& stroke, double unit);
    /// Of lines that follow each other, with short gaps, and with their tapers where caps are flat.
    /// Straight back or not.
    bool buildAll(const Polylines& lines, double width, const Stroke& stroke);
    const std::vector<QPointF>& points() const { return m_points; }

private:
    struct Piece {
        QPointF start, end, along;
        double length;
    };
    using Pieces = std::span<const Piece>;

    void start(double width, const Stroke& stroke);
    std::size_t collect(std::span<const QPointF> points, bool isClosed);
    bool turnsBack(bool isClosed) const;
    QPointF aside(const QPointF& along) const;
    void addSides(bool isClosed);
    void addSide(Pieces pieces, bool isForward, bool isClosed);
    void addJoin(const Piece& before, const Piece& next);
    void addArc(const QPointF& centre, const QPointF& from, double angle);
    void addCap(const QPointF& end, const QPointF& along);

    std::vector<Piece> m_pieces;
    struct Line {
        std::size_t end; ///< in the pieces
        Polylines::Tapers tapers;
    };
    std::vector<Line> m_lines;
    std::vector<QPointF> m_points;
    std::vector<QPointF> m_bridges; ///< from each line to the next
    double m_half = 0;
    double m_taper = 0;   ///< at the end of the side under way
    double m_arcStep = 0; ///< in radians
    bool m_isMitred = true;
    bool m_isSquare = false;
    bool m_isRoundJoined = false, m_isRoundCapped = false;
};

} // namespace Tova2
