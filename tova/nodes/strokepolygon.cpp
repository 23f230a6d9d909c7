#include "nodes/strokepolygon.h"

#include <cmath>

namespace Tova2 {

namespace {

/// Of the toolkit's pens, in widths.
constexpr double kMiterLimit = 2;

double cross(const QPointF& a, const QPointF& b)
{
    return a.x() * b.y() - a.y() * b.x();
}

bool isAlmostSame(const QPointF& a, const QPointF& b)
{
    return qFuzzyCompare(a.x(), b.x()) && qFuzzyCompare(a.y(), b.y());
}

} // namespace

bool StrokePolygon::canDraw(const Stroke& stroke)
{
    return stroke.style() == StrokeStyle::SolidLine &&
           stroke.capStyle() != StrokeCapStyle::RoundCap &&
           (stroke.joinStyle() == StrokeJoinStyle::MiterJoin ||
            stroke.joinStyle() == StrokeJoinStyle::BevelJoin);
}

bool StrokePolygon::build(std::span<const QPointF> points, bool isClosed, double width,
                          const Stroke& stroke)
{
    m_half = width / 2;
    m_isMitred = stroke.joinStyle() == StrokeJoinStyle::MiterJoin;
    m_isSquare = stroke.capStyle() == StrokeCapStyle::SquareCap;
    collect(points, isClosed);
    if (m_pieces.empty() || turnsBack(isClosed))
        return false;
    m_points.clear();
    m_points.reserve(m_pieces.size() * 8 + 8);
    addSide(true, isClosed);
    if (isClosed) {
        // Back and forth between the two rings covers nothing.
        const QPointF bridge = m_points.front();
        m_points.push_back(bridge);
        addSide(false, true);
        m_points.push_back(bridge);
    } else {
        addSide(false, false);
    }
    return true;
}

void StrokePolygon::collect(std::span<const QPointF> points, bool isClosed)
{
    m_pieces.clear();
    m_pieces.reserve(points.size());
    const auto add = [this](const QPointF& start, const QPointF& end) {
        const QPointF step = end - start;
        if (start == end) // as near as the toolkit asks for
            return false;
        // Right angles, the common case, need no root.
        const double length = step.y() == 0   ? std::abs(step.x())
                              : step.x() == 0 ? std::abs(step.y())
                                              : std::sqrt(QPointF::dotProduct(step, step));
        m_pieces.push_back({start, end, step / length});
        return true;
    };
    QPointF last = points.front();
    for (const QPointF& p : points.subspan(1)) {
        if (add(last, p))
            last = p;
    }
    if (isClosed)
        add(last, points.front());
}

bool StrokePolygon::turnsBack(bool isClosed) const
{
    const auto isBack = [](const QPointF& in, const QPointF& out) {
        return QPointF::dotProduct(in, out) < 0 && std::abs(cross(in, out)) < 1e-4;
    };
    for (std::size_t i = 1; i < m_pieces.size(); ++i) {
        if (isBack(m_pieces[i - 1].along, m_pieces[i].along))
            return true;
    }
    return isClosed && isBack(m_pieces.back().along, m_pieces.front().along);
}

QPointF StrokePolygon::aside(const QPointF& along) const
{
    return {along.y() * m_half, -along.x() * m_half};
}

void StrokePolygon::addSide(bool isForward, bool isClosed)
{
    const std::size_t count = m_pieces.size();
    const auto piece = [&](std::size_t i) {
        const Piece& p = m_pieces[isForward ? i : count - 1 - i];
        return isForward ? p : Piece{p.end, p.start, -p.along};
    };
    const std::size_t ringStart = m_points.size();
    Piece before = piece(0);
    m_points.push_back(before.start + aside(before.along));
    m_points.push_back(before.end + aside(before.along));
    for (std::size_t i = 1; i < count; ++i) {
        const Piece next = piece(i);
        addJoin(next.start, before.along, next.along);
        m_points.push_back(next.end + aside(next.along));
        before = next;
    }
    if (isClosed) {
        addJoin(before.end, before.along, piece(0).along);
        m_points.push_back(m_points[ringStart]);
    } else {
        addCap(before.end, before.along);
    }
}

void StrokePolygon::addJoin(const QPointF& corner, const QPointF& in, const QPointF& out)
{
    const QPointF from = corner + aside(in), to = corner + aside(out);
    if (isAlmostSame(from, to))
        return;
    const double turn = cross(in, out);
    if (turn <= 0) { // the inner side
        m_points.push_back(corner);
    } else if (m_isMitred) {
        const double toTip = m_half * turn / (1 + QPointF::dotProduct(in, out));
        const double most = kMiterLimit * 2 * m_half;
        m_points.push_back(from + in * std::min(toTip, most));
        if (toTip > most)
            m_points.push_back(to - out * most);
    }
    m_points.push_back(to);
}

// The other side begins with what the cap ends at.
void StrokePolygon::addCap(const QPointF& end, const QPointF& along)
{
    if (!m_isSquare)
        return;
    const QPointF beyond = end + along * m_half;
    m_points.push_back(beyond + aside(along));
    m_points.push_back(beyond - aside(along));
}

} // namespace Tova2
