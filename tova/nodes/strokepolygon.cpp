#include "nodes/strokepolygon.h"

#include "nodes/polylines.h"

#include <algorithm>
#include <cmath>
#include <numbers>

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
    start(width, stroke);
    collect(points, isClosed);
    if (m_pieces.empty() || turnsBack(isClosed))
        return false;
    addSides(isClosed);
    return true;
}

bool StrokePolygon::buildAny(std::span<const QPointF> points, bool isClosed, double width,
                             const Stroke& stroke, double unit)
{
    start(width, stroke);
    m_isMitred = m_isMitred || stroke.joinStyle() == StrokeJoinStyle::SvgMiterJoin;
    m_isRoundJoined = stroke.joinStyle() == StrokeJoinStyle::RoundJoin;
    m_isRoundCapped = stroke.capStyle() == StrokeCapStyle::RoundCap;
    // As far as a chord of that angle is off the circle.
    m_arcStep = 2 * std::acos(std::clamp(1 - unit / m_half, 0.5, 0.999));
    collect(points, isClosed);
    if (m_pieces.empty())
        return false;
    addSides(isClosed);
    return true;
}

// Forth along all lines and back along all of them: the way across a gap is gone both ways, and
// covers nothing.
bool StrokePolygon::buildAll(const Polylines& lines, double width, const Stroke& stroke)
{
    start(width, stroke);
    m_lines.clear();
    for (std::size_t i = 0; i < lines.lineCount(); ++i) {
        if (collect(lines.line(i), false) > 0)
            m_lines.push_back({m_pieces.size(), lines.tapers(i)});
    }
    const auto select = [&](std::size_t i, double taper) {
        const std::size_t first = i > 0 ? m_lines[i - 1].end : 0;
        m_half = width / 2 * m_lines[i].tapers.share;
        m_taper = taper;
        return Pieces(m_pieces).subspan(first, m_lines[i].end - first);
    };
    m_bridges.clear();
    for (std::size_t i = 0; i < m_lines.size(); ++i) {
        const Pieces line = select(i, m_lines[i].tapers.end);
        m_bridges.push_back(line.front().start + aside(line.front().along));
        addSide(line, true, false);
        m_bridges.push_back(m_points.back());
    }
    for (std::size_t i = m_lines.size(); i-- > 0;) {
        if (i + 1 < m_lines.size())
            m_points.push_back(m_bridges[2 * i + 1]);
        addSide(select(i, m_lines[i].tapers.start), false, false);
        m_points.push_back(m_bridges[2 * i]);
    }
    return !m_lines.empty();
}

void StrokePolygon::start(double width, const Stroke& stroke)
{
    m_half = width / 2;
    m_taper = 0;
    m_isMitred = stroke.joinStyle() == StrokeJoinStyle::MiterJoin;
    m_isSquare = stroke.capStyle() == StrokeCapStyle::SquareCap;
    m_isRoundJoined = m_isRoundCapped = false;
    m_points.clear();
    m_pieces.clear();
}

void StrokePolygon::addSides(bool isClosed)
{
    m_points.reserve(m_pieces.size() * 8 + 8);
    addSide(m_pieces, true, isClosed);
    if (isClosed) {
        // Back and forth between the two rings covers nothing.
        const QPointF bridge = m_points.front();
        m_points.push_back(bridge);
        addSide(m_pieces, false, true);
        m_points.push_back(bridge);
    } else {
        addSide(m_pieces, false, false);
    }
}

std::size_t StrokePolygon::collect(std::span<const QPointF> points, bool isClosed)
{
    const std::size_t before = m_pieces.size();
    const auto add = [this](const QPointF& start, const QPointF& end) {
        const QPointF step = end - start;
        if (start == end) // as near as the toolkit asks for
            return false;
        // Right angles, the common case, need no root.
        const double length = step.y() == 0   ? std::abs(step.x())
                              : step.x() == 0 ? std::abs(step.y())
                                              : std::sqrt(QPointF::dotProduct(step, step));
        m_pieces.push_back({start, end, step / length, length});
        return true;
    };
    QPointF last = points.front();
    for (const QPointF& p : points.subspan(1)) {
        if (add(last, p))
            last = p;
    }
    if (isClosed)
        add(last, points.front());
    return m_pieces.size() - before;
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

void StrokePolygon::addSide(Pieces pieces, bool isForward, bool isClosed)
{
    const std::size_t count = pieces.size();
    const auto piece = [&](std::size_t i) {
        const Piece& p = pieces[isForward ? i : count - 1 - i];
        return isForward ? p : Piece{p.end, p.start, -p.along, p.length};
    };
    const std::size_t ringStart = m_points.size();
    Piece before = piece(0);
    m_points.push_back(before.start + aside(before.along));
    for (std::size_t i = 1; i < count; ++i) {
        const Piece next = piece(i);
        addJoin(before, next);
        before = next;
    }
    if (isClosed) {
        addJoin(before, piece(0));
        m_points.push_back(m_points[ringStart]);
    } else {
        m_points.push_back(before.end + aside(before.along));
        addCap(before.end, before.along);
    }
}

/// From the end of one piece's side to the start of the next one's.
void StrokePolygon::addJoin(const Piece& before, const Piece& next)
{
    const QPointF &corner = next.start, &in = before.along, &out = next.along;
    const QPointF from = corner + aside(in), to = corner + aside(out);
    const double turn = cross(in, out), straight = QPointF::dotProduct(in, out);
    // Between chords of a curve one point stands for all.
    constexpr double kGentle = 0.8;
    if (straight > kGentle && !m_isRoundJoined && (m_isMitred || straight > 0.99)) {
        const double toTip = m_half * turn / (1 + straight);
        if (std::abs(toTip) < before.length && std::abs(toTip) < next.length) {
            m_points.push_back(from + in * toTip);
            return;
        }
    }
    m_points.push_back(from);
    if (isAlmostSame(from, to))
        return;
    if (m_isRoundJoined && (turn > 0 || straight < -0.999999)) {
        addArc(corner, from, std::abs(std::atan2(turn, straight)));
    } else if (turn <= 0) { // the inner side
        m_points.push_back(corner);
    } else if (m_isMitred) {
        const double toTip = m_half * turn / (1 + straight);
        const double most = kMiterLimit * 2 * m_half;
        m_points.push_back(from + in * std::min(toTip, most));
        if (toTip > most)
            m_points.push_back(to - out * most);
    }
    m_points.push_back(to);
}

// Without its ends.
void StrokePolygon::addArc(const QPointF& centre, const QPointF& from, double angle)
{
    const double count = std::ceil(angle / m_arcStep);
    const QPointF radius = from - centre;
    for (double i = 1; i < count; ++i) {
        const double c = std::cos(angle * i / count), s = std::sin(angle * i / count);
        m_points.push_back(
            centre + QPointF(radius.x() * c - radius.y() * s, radius.x() * s + radius.y() * c));
    }
}

// The other side begins with what the cap ends at.
void StrokePolygon::addCap(const QPointF& end, const QPointF& along)
{
    if (m_isRoundCapped)
        return addArc(end, end + aside(along), std::numbers::pi);
    if (m_taper > 0)
        m_points.push_back(end + along * m_taper);
    if (!m_isSquare)
        return;
    const QPointF beyond = end + along * m_half;
    m_points.push_back(beyond + aside(along));
    m_points.push_back(beyond - aside(along));
}

} // namespace Tova2
