#include "nodes/dashes.h"

#include "nodes/cubic.h"
#include "nodes/polylines.h"
#include "nodes/segmenttests.h"

#include <QPainterPath>

#include <algorithm>
#include <cmath>
#include <numeric>
#include <utility>
#include <vector>

namespace Tova2 {

namespace {

/// Of one straight piece. More than a screen shows, however thin the line is.
constexpr double kMostPeriods = 1 << 15;

std::span<const double> patternOf(StrokeStyle style)
{
    // The toolkit's.
    static constexpr double pattern[] = {4, 2, 1, 2, 1, 2};
    switch (style) {
    case StrokeStyle::DotLine:
        return std::span(pattern).subspan(2, 2);
    case StrokeStyle::DashDotLine:
        return std::span(pattern).first(4);
    case StrokeStyle::DashDotDotLine:
        return pattern;
    default:
        return std::span(pattern).first(2);
    }
}

} // namespace

Dashes::Dashes(StrokeStyle style, double unit, const QRectF& seen, double flatness, Polylines& out)
    : m_pattern(patternOf(style))
    , m_unit(unit)
    , m_period(std::accumulate(m_pattern.begin(), m_pattern.end(), 0.0) * unit)
    , m_seen(seen)
    , m_flatness(flatness)
    , m_out(out)
{}

void Dashes::moveTo(const QPointF& point, double lengthBefore)
{
    m_at = point;
    m_length = lengthBefore;
    m_isOpen = false;
}

void Dashes::lineTo(const QPointF& point)
{
    const double length = std::hypot(point.x() - m_at.x(), point.y() - m_at.y());
    if (!(length > 0))
        return;
    const auto part = Segments::partWithin(m_at, point, m_seen);
    if (part && m_period > 0 && std::isfinite(length))
        addDashes(point, length, part->first * length, part->second * length);
    else
        m_isOpen = false;
    m_at = point;
    m_length += length;
}

/// Of the straight piece to `end`, those that reach into the part between two lengths of it.
/// All is measured from the piece's own start, so that another part gives the same dashes.
void Dashes::addDashes(const QPointF& end, double length, double first, double last)
{
    const QPointF start = m_at, step = end - start;
    const bool wasOpen = std::exchange(m_isOpen, false);
    const double before = std::fmod(m_length, m_period);
    const double firstPeriod = std::floor((first + before) / m_period);
    const double count =
        std::min(std::floor((last + before) / m_period) - firstPeriod, kMostPeriods);
    for (double i = 0; i <= count; ++i) {
        double from = (firstPeriod + i) * m_period - before;
        for (std::size_t k = 0; k < m_pattern.size(); k += 2) {
            const double to = from + m_pattern[k] * m_unit;
            if (to > 0 && from < length && to >= first && from <= last) {
                if (from > 0 || !wasOpen)
                    m_out.moveTo(from > 0 ? start + step * (from / length) : start);
                m_isOpen = to >= length;
                m_out.lineTo(m_isOpen ? end : start + step * (to / length));
            }
            from = to + m_pattern[k + 1] * m_unit;
        }
    }
}

void Dashes::addLine(std::span<const QPointF> points, double lengthBefore)
{
    moveTo(points.front(), lengthBefore);
    for (const QPointF& point : points.subspan(1))
        lineTo(point);
}

void Dashes::addPath(const QPainterPath& path, double lengthBefore)
{
    for (int i = 0; i < path.elementCount(); ++i) {
        const auto element = path.elementAt(i);
        if (element.isMoveTo()) {
            moveTo(element, lengthBefore);
        } else if (element.isLineTo()) {
            lineTo(element);
        } else {
            const QPointF end = path.elementAt(i + 2);
            addCurve({{m_at, element, path.elementAt(i + 1), end}});
            i += 2;
        }
    }
}

// In parts, of which each is flat enough.
void Dashes::addCurve(Cubic rest)
{
    std::vector<QPointF> chords;
    for (double parts = rest.chordRuns(m_flatness); parts > 0; --parts) {
        const auto [part, others] = rest.splitAt(1 / parts);
        chords.clear();
        part.appendChordsWithin(m_flatness, chords);
        for (const QPointF& chord : chords)
            lineTo(chord);
        rest = others;
    }
}

} // namespace Tova2
