#include "nodes/opencurvedpathnodeimpl.h"

#include "nodes/destruction.h"
#include "nodes/values.h"

#include <cstring>

namespace Tova2 {

using Which = LineEnds::Which;

namespace {

/// The parameter at which so much of the curve lies behind; `rest` is left with what is missing
/// where the curve is shorter. Measured along chords.
std::optional<double> parameterAfter(const Cubic& curve, double& rest)
{
    std::vector<QPointF> chords{curve.points.front()};
    curve.appendChords(chords);
    const double count = static_cast<double>(chords.size() - 1);
    for (std::size_t i = 1; i < chords.size(); ++i) {
        const double length = LineTip::distance(chords[i - 1], chords[i]);
        if (length > rest)
            return (static_cast<double>(i - 1) + rest / length) / count;
        rest -= length;
    }
    return {};
}

Cubic reversed(const Cubic& curve)
{
    const auto& p = curve.points;
    return {{p[3], p[2], p[1], p[0]}};
}

OutlinePiece pieceOf(const Cubic& curve)
{
    return {curve.points, true};
}

bool hasExtent(const Cubic& curve)
{
    const auto& p = curve.points;
    return !(isSame(p[0], p[1]) && isSame(p[0], p[2]) && isSame(p[0], p[3]));
}

} // namespace

bool OpenCurvedPathNodeImpl::isa(const char* name) const
{
    return CurvedPathNodeImpl::isa(name) ||
           (name && std::strcmp(name, CurvedPathNodeImpl::kTypeName) == 0);
}

void OpenCurvedPathNodeImpl::dropCaches(ChangeLevel level)
{
    CurvedPathNodeImpl::dropCaches(level);
    if (level == ChangeLevel::Geometry)
        m_start = m_end = std::nullopt;
}

void OpenCurvedPathNodeImpl::setDecoration(Which which, const LineEndDecoration& decoration)
{
    finishDecorations(m_ends.set(which, decoration, *this));
}

void OpenCurvedPathNodeImpl::applyDecorations()
{
    finishDecorations(m_ends.apply(*this));
}

void OpenCurvedPathNodeImpl::finishDecorations(bool isDrawnElsewhere)
{
    const DestructionDelay delay;
    if (isDrawnElsewhere)
        reportChange(ChangeLevel::Geometry);
    placeDecorations();
}

// One after the other, from the vertices as they are then: whoever is told of a move may edit them.
void OpenCurvedPathNodeImpl::placeDecorations()
{
    if (m_ends.isEmpty())
        return;
    const DestructionDelay delay;
    for (const auto which : {Which::Start, Which::End}) {
        if (vertexCount() > 1)
            m_ends.place(which, tip(which), *this);
    }
}

LineTip OpenCurvedPathNodeImpl::tip(Which which) const
{
    const std::size_t count = segmentCount();
    std::size_t i = 0;
    if (which == Which::Start) {
        while (i + 1 < count && !hasExtent(curve(i)))
            ++i;
        return {curve(0).points[0],
                hasExtent(curve(i)) ? -pieceOf(curve(i)).startDirection() : QPointF()};
    }
    while (i + 1 < count && !hasExtent(curve(count - 1 - i)))
        ++i;
    const Cubic last = curve(count - 1 - i);
    return {curve(count - 1).points[3], hasExtent(last) ? pieceOf(last).endDirection() : QPointF()};
}

OpenCurvedPathNodeImpl::Cut OpenCurvedPathNodeImpl::cut(Which which) const
{
    auto& known = which == Which::Start ? m_start : m_end;
    if (known)
        return *known;
    const std::size_t count = segmentCount();
    double rest = m_ends.backoff(which);
    known = which == Which::Start ? Cut{count, 0} : Cut{0, 0};
    for (std::size_t i = 0; i < count; ++i) {
        const std::size_t segment = which == Which::Start ? i : count - 1 - i;
        const Cubic own = curve(segment);
        if (const auto t = parameterAfter(which == Which::Start ? own : reversed(own), rest)) {
            known = Cut{segment, which == Which::Start ? *t : 1 - *t};
            break;
        }
    }
    return *known;
}

CurvedPathNodeImpl::Range OpenCurvedPathNodeImpl::drawnRange() const
{
    if (m_ends.backoff(Which::Start) == 0 && m_ends.backoff(Which::End) == 0)
        return CurvedPathNodeImpl::drawnRange();
    const Cut start = cut(Which::Start), end = cut(Which::End);
    if (start.segment > end.segment || (start.segment == end.segment && start.t >= end.t))
        return {1, 0};
    return {start.segment, end.segment};
}

Cubic OpenCurvedPathNodeImpl::drawnCurve(std::size_t segment) const
{
    Cubic drawn = curve(segment);
    const bool isEnd = m_ends.backoff(Which::End) > 0 && cut(Which::End).segment == segment;
    const double end = isEnd ? cut(Which::End).t : 1;
    if (isEnd)
        drawn = drawn.splitAt(end).first;
    if (m_ends.backoff(Which::Start) > 0 && cut(Which::Start).segment == segment)
        drawn = drawn.splitAt(cut(Which::Start).t / end).second;
    return drawn;
}

} // namespace Tova2
