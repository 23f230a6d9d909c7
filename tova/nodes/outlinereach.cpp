#include "nodes/outlinereach.h"

#include "nodes/pen.h"

#include "tova/nodes/style/stroke.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace Tova2 {

namespace {

// The toolkit's pens have a mitre limit of 2. A plain mitre beyond it is cut off two widths from
// where the outer edges end; an SVG mitre longer than the limit, from its inner to its outer
// corner, is a bevel.
constexpr double kMiterLimit = 2.0;
constexpr double kSquareCapReach = std::numbers::sqrt2 / 2;
// A curve is dashed as chords, whose directions differ from the curve's by up to this, in radians.
constexpr double kChordDeviation = 0.5;

bool isDashed(const Stroke& stroke)
{
    return stroke.style() != StrokeStyle::SolidLine;
}

double dot(const QPointF& a, const QPointF& b)
{
    return a.x() * b.x() + a.y() * b.y();
}

double cross(const QPointF& a, const QPointF& b)
{
    return a.x() * b.y() - a.y() * b.x();
}

QPointF turned(const QPointF& direction)
{
    return {-direction.y(), direction.x()};
}

QPointF rotated(const QPointF& v, double angle)
{
    const double c = std::cos(angle), s = std::sin(angle);
    return {v.x() * c - v.y() * s, v.x() * s + v.y() * c};
}

class ExtentBuilder {
public:
    ExtentBuilder(const QRectF& geometry, const Stroke& stroke)
        : m_join(stroke.joinStyle()), m_width(2 * halfStroke(stroke))
    {
        // Dashes end anywhere, and the squares on their ends stand at any angle.
        m_extent.reach = smoothStrokeReach(stroke);
        const double around = m_extent.reach * m_width;
        m_extent.rect = geometry.adjusted(-around, -around, around, around);
        m_isDashed = isDashed(stroke);
        m_hasSquareEnds = stroke.capStyle() == StrokeCapStyle::SquareCap && !m_isDashed;
    }

    void add(const OutlineSubpath& subpath)
    {
        const auto& pieces = subpath.pieces;
        for (std::size_t i = 1; i < pieces.size(); ++i)
            addJoin(pieces[i - 1], pieces[i]);
        for (const auto& piece : pieces)
            addCusps(piece);
        if (subpath.isClosed())
            addJoin(pieces.back(), pieces.front());
        else if (m_hasSquareEnds && !pieces.empty())
            addSquareEnds(pieces.front(), pieces.back());
    }

    const StrokeExtent& extent() const { return m_extent; }

private:
    /// `offset` in widths.
    void include(const QPointF& anchor, const QPointF& offset)
    {
        const QPointF p = anchor + offset * m_width;
        QRectF& rect = m_extent.rect;
        rect.setCoords(std::min(rect.left(), p.x()), std::min(rect.top(), p.y()),
                       std::max(rect.right(), p.x()), std::max(rect.bottom(), p.y()));
        m_extent.reach = std::max({m_extent.reach, std::abs(offset.x()), std::abs(offset.y())});
    }

    void addSquareEnds(const OutlinePiece& first, const OutlinePiece& last)
    {
        addSquareEnd(first.start(), -first.startDirection());
        addSquareEnd(last.end(), last.endDirection());
    }

    void addSquareEnd(const QPointF& end, const QPointF& outwards)
    {
        include(end, (outwards + turned(outwards)) / 2);
        include(end, (outwards - turned(outwards)) / 2);
    }

    void addJoin(const OutlinePiece& before, const OutlinePiece& after)
    {
        const QPointF in = before.endDirection(), out = after.startDirection();
        addMiter(after.start(), in, out);
        if (!m_isDashed || !(before.isCurve || after.isCurve))
            return;
        const double sharper = cross(in, out) > 0 ? kChordDeviation : -kChordDeviation;
        addMiter(after.start(), before.isCurve ? rotated(in, -sharper) : in,
                 after.isCurve ? rotated(out, sharper) : out);
    }

    void addMiter(const QPointF& corner, const QPointF& in, const QPointF& out)
    {
        if (m_join != StrokeJoinStyle::MiterJoin && m_join != StrokeJoinStyle::SvgMiterJoin)
            return;
        const double turn = cross(in, out), ahead = 1 + dot(in, out);
        const QPointF outer = turned(turn > 0 ? -in : in) / 2;
        // From the end of the outer edge to the tip, along the edge.
        // Straight back, both are no more than rounding.
        const double toTip = ahead > 1e-12 ? std::abs(turn) / ahead / 2 : kMiterLimit + 1;
        if (m_join == StrokeJoinStyle::SvgMiterJoin) {
            // A little above the limit, since the curves' directions are the toolkit's only nearly.
            if (std::hypot(0.5, toTip) <= 1.05 * kMiterLimit / 2)
                include(corner, outer + in * toTip);
            return;
        }
        const double drawn = std::min(toTip, kMiterLimit);
        include(corner, outer + in * drawn);
        include(corner, turned(turn > 0 ? -out : out) / 2 - out * drawn);
        if (std::abs(turn) < 1e-6 && ahead < 1) // straight back: either side may be the outer one
            include(corner, in * drawn - outer);
    }

    /// A curve that turns sharply within itself is dashed as chords, with a mitre between two.
    void addCusps(const OutlinePiece& piece);

    StrokeExtent m_extent;
    StrokeJoinStyle m_join;
    double m_width;
    bool m_isDashed;
    bool m_hasSquareEnds;
};

void ExtentBuilder::addCusps(const OutlinePiece& piece)
{
    if (!piece.isCurve || m_join != StrokeJoinStyle::MiterJoin)
        return;
    const auto& p = piece.points;
    const QPointF leg1 = p[1] - p[0], leg2 = p[2] - p[1], leg3 = p[3] - p[2];
    // Legs that do not turn back by more than a right angle in all leave no room for a cusp.
    if (dot(leg1, leg2) >= 0 && dot(leg2, leg3) >= 0 && dot(leg1, leg3) >= 0)
        return;
    constexpr int kSamples = 16;
    for (int i = 1; i < kSamples; ++i) {
        const double t = double(i) / kSamples, s = 1 - t;
        const QPointF at =
            s * s * s * p[0] + 3 * s * s * t * p[1] + 3 * s * t * t * p[2] + t * t * t * p[3];
        const QPointF slope = s * s * leg1 + 2 * s * t * leg2 + t * t * leg3;
        const QPointF change = s * (leg2 - leg1) + t * (leg3 - leg2);
        // Slow against its change: the direction turns round between two samples.
        if (dot(slope, slope) * 64 > dot(change, change))
            continue;
        const double far = std::hypot(0.5, kMiterLimit);
        for (const QPointF& offset : {QPointF(far, far), QPointF(-far, -far)})
            include(at, offset);
    }
}

} // namespace

double halfStroke(const Stroke& stroke)
{
    return drawnWidth(stroke, 1) / 2;
}

QRectF strokedHull(const QRectF& rect, const Stroke& stroke)
{
    const double half = halfStroke(stroke);
    return rect.adjusted(-half, -half, half, half);
}

double smoothStrokeReach(const Stroke& stroke)
{
    return stroke.capStyle() == StrokeCapStyle::SquareCap && isDashed(stroke) ? kSquareCapReach
                                                                              : 0.5;
}

double rightAngleStrokeReach(const Stroke& stroke)
{
    const bool isMitred = stroke.joinStyle() == StrokeJoinStyle::MiterJoin ||
                          stroke.joinStyle() == StrokeJoinStyle::SvgMiterJoin;
    const double smooth = smoothStrokeReach(stroke);
    if (!isMitred || !isDashed(stroke))
        return smooth;
    return std::max(smooth, std::tan(std::numbers::pi / 4 + kChordDeviation / 2) / 2);
}

StrokeExtent strokeExtentOf(const std::vector<OutlineSubpath>& subpaths, const QRectF& geometry,
                            const Stroke& stroke)
{
    if (stroke.isNoStroke())
        return {geometry, 0.5};
    ExtentBuilder builder(geometry, stroke);
    for (const auto& subpath : subpaths)
        builder.add(subpath);
    return builder.extent();
}

} // namespace Tova2
