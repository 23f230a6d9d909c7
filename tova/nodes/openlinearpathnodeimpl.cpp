#include "nodes/openlinearpathnodeimpl.h"

#include "nodes/cubic.h"
#include "nodes/deferrederror.h"
#include "nodes/destruction.h"
#include "nodes/effects/silhouettekey.h"
#include "nodes/linearoutline.h"
#include "nodes/paintcontext.h"
#include "nodes/values.h"

#include <algorithm>
#include <cstring>
#include <limits>

namespace Tova2 {

/// What takes the place of a corner.
struct OpenLinearPathNodeImpl::CutCorner {
    Cubic curve;
    bool isStraight;
};

bool OpenLinearPathNodeImpl::isa(const char* name) const
{
    return LinearPathNodeImpl::isa(name) ||
           (name && std::strcmp(name, LinearPathNodeImpl::kTypeName) == 0);
}

void OpenLinearPathNodeImpl::setCornerStyle(CornerStyle style)
{
    if (style == m_cornerStyle || style > CornerStyle::Bevel)
        return;
    m_cornerStyle = style;
    reportChange(ChangeLevel::Geometry);
}

void OpenLinearPathNodeImpl::setCornerRadius(double radius)
{
    // Not `radius < 0`: NaN has to be dropped as well.
    if (!(radius >= 0) || !std::isfinite(radius) || radius == m_cornerRadius)
        return;
    m_cornerRadius = radius;
    reportChange(ChangeLevel::Geometry);
}

void OpenLinearPathNodeImpl::setUsesPathForEffect(bool uses)
{
    if (uses == m_usesPathForEffect)
        return;
    m_usesPathForEffect = uses;
    reportChange(ChangeLevel::Appearance);
}

void OpenLinearPathNodeImpl::setDecoration(LineEnds::Which which,
                                           const LineEndDecoration& decoration)
{
    finishDecorations(m_ends.set(which, decoration, *this));
}

void OpenLinearPathNodeImpl::applyDecorations()
{
    finishDecorations(m_ends.apply(*this));
}

void OpenLinearPathNodeImpl::finishDecorations(bool isDrawnElsewhere)
{
    const DestructionDelay delay;
    DeferredError error;
    if (isDrawnElsewhere)
        error.run([this] { reportChange(ChangeLevel::Geometry); });
    error.run([this] { placeDecorations(); });
    error.rethrow();
}

// One after the other, from the points as they are then: whoever is told of a move may edit them.
void OpenLinearPathNodeImpl::placeDecorations()
{
    if (m_ends.isEmpty())
        return;
    const DestructionDelay delay;
    for (const auto which : {LineEnds::Which::Start, LineEnds::Which::End}) {
        if (!points().empty())
            m_ends.place(which, tip(which), *this);
    }
}

LineTip OpenLinearPathNodeImpl::tip(LineEnds::Which which) const
{
    const auto isOther = [](const QPointF& end) {
        return [end](const QPointF& p) { return !isSame(p, end); };
    };
    if (which == LineEnds::Which::Start) {
        const QPointF end = points().front();
        const auto from = std::find_if(points().begin(), points().end(), isOther(end));
        return LineTip::between(from == points().end() ? end : *from, end);
    }
    const QPointF end = points().back();
    const auto from = std::find_if(points().rbegin(), points().rend(), isOther(end));
    return LineTip::between(from == points().rend() ? end : *from, end);
}

bool OpenLinearPathNodeImpl::hasCutCorners() const
{
    return m_cornerStyle != CornerStyle::Sharp && m_cornerRadius > 0 && points().size() > 2;
}

bool OpenLinearPathNodeImpl::isCurved() const
{
    return m_cornerStyle == CornerStyle::Rounded && hasCutCorners();
}

// Arcs as wide as the line have no corners; those of short pieces, and of turns nearly straight
// back, are narrower. No root is taken, since this asks for every corner of long paths.
bool OpenLinearPathNodeImpl::hasSmoothCorners(double width) const
{
    constexpr double kBack = 0.5; // the cosine
    if (!isCurved() || m_cornerRadius < width || m_ends.backoff(LineEnds::Which::Start) > 0 ||
        m_ends.backoff(LineEnds::Which::End) > 0)
        return false;
    const auto squared = [](const QPointF& v) { return QPointF::dotProduct(v, v); };
    const double shortest = std::max(4 * width * width, std::numeric_limits<double>::min());
    QPointF in = points()[1] - points()[0];
    for (std::size_t i = 2; i < points().size(); ++i) {
        const QPointF out = points()[i] - points()[i - 1];
        const double straight = QPointF::dotProduct(in, out);
        const double lengths = squared(in) * squared(out);
        if (!(std::min(squared(in), squared(out)) >= shortest) ||
            (straight < 0 && straight * straight > kBack * kBack * lengths))
            return false;
        in = out;
    }
    return true;
}

std::span<const QPointF> OpenLinearPathNodeImpl::plainPoints() const
{
    const bool isShortened =
        m_ends.backoff(LineEnds::Which::Start) > 0 || m_ends.backoff(LineEnds::Which::End) > 0;
    return hasCutCorners() || isShortened ? std::span<const QPointF>() : points();
}

std::optional<DrawnPart> OpenLinearPathNodeImpl::drawnPart() const
{
    const auto& p = points();
    if (p.size() < 2)
        return {};
    DrawnPart part{0, p.size() - 2, p.front(), p.back()};
    double rest = m_ends.backoff(LineEnds::Which::Start);
    for (; rest > 0; ++part.firstSegment) {
        if (part.firstSegment == p.size() - 1)
            return {};
        const QPointF& next = p[part.firstSegment + 1];
        if (const double length = LineTip::distance(part.start, next); length > rest) {
            part.start += (next - part.start) * (rest / length);
            break;
        } else {
            rest -= length;
            part.start = next;
        }
    }
    if (part.firstSegment > part.lastSegment)
        return {};
    rest = m_ends.backoff(LineEnds::Which::End);
    while (rest > 0) {
        const bool isSameSegment = part.lastSegment == part.firstSegment;
        const QPointF& before = isSameSegment ? part.start : p[part.lastSegment];
        if (const double length = LineTip::distance(part.end, before); length > rest) {
            part.end += (before - part.end) * (rest / length);
            break;
        } else {
            if (isSameSegment)
                return {};
            rest -= length;
            part.end = before;
            --part.lastSegment;
        }
    }
    return part;
}

QPointF OpenLinearPathNodeImpl::vertex(const DrawnPart& part, std::size_t index) const
{
    if (index == part.firstSegment)
        return part.start;
    return index == part.lastSegment + 1 ? part.end : points()[index];
}

// Corners where the stroke changes stay sharp: neither line could draw the cut.
std::optional<OpenLinearPathNodeImpl::CutCorner>
OpenLinearPathNodeImpl::corner(const DrawnPart& part, std::size_t index) const
{
    if (!hasCutCorners() || index <= part.firstSegment || index > part.lastSegment ||
        strokeOf(index - 1) != strokeOf(index))
        return {};
    const QPointF at = vertex(part, index);
    const LineTip in = LineTip::between(vertex(part, index - 1), at);
    const LineTip out = LineTip::between(at, vertex(part, index + 1));
    const double shorter = std::min(LineTip::distance(at, vertex(part, index - 1)),
                                    LineTip::distance(at, vertex(part, index + 1)));
    const double cut = std::min(m_cornerRadius, shorter / 2);
    if (!(cut > 0))
        return {};
    return CutCorner{cornerArc(at, in.direction, out.direction, cut),
                     m_cornerStyle == CornerStyle::Bevel};
}

PathNodeImpl::Flattened OpenLinearPathNodeImpl::flattened() const
{
    const auto part = drawnPart();
    if (!part)
        return {};
    Flattened flat;
    flat.firstSegment = static_cast<std::uint32_t>(part->firstSegment);
    flat.points.push_back(part->start);
    for (std::size_t segment = part->firstSegment; segment <= part->lastSegment; ++segment) {
        if (const auto cut = corner(*part, segment + 1)) {
            flat.points.push_back(cut->curve.points.front());
            if (cut->isStraight)
                flat.points.push_back(cut->curve.points.back());
            else
                cut->curve.appendChords(flat.points);
        } else {
            flat.points.push_back(vertex(*part, segment + 1));
        }
        if (hasCutCorners())
            flat.segments.resize(flat.points.size() - 1, static_cast<std::uint32_t>(segment));
    }
    flat.points.shrink_to_fit();
    flat.segments.shrink_to_fit();
    return flat;
}

LinearPathNodeImpl::DrawnSegment
OpenLinearPathNodeImpl::drawnSegment(const std::optional<DrawnPart>& part,
                                     std::size_t segment) const
{
    if (!part || segment < part->firstSegment || segment > part->lastSegment)
        return {points()[segment], points()[segment], {}, false}; // given way to a decoration
    const auto before = corner(*part, segment), after = corner(*part, segment + 1);
    DrawnSegment drawn{before ? before->curve.points.back() : vertex(*part, segment),
                       after ? after->curve.points.front() : vertex(*part, segment + 1),
                       {},
                       false};
    if (after) {
        drawn.corner = after->curve;
        drawn.isCornerStraight = after->isStraight;
    }
    return drawn;
}

QPainterPath OpenLinearPathNodeImpl::pathOf(const Range& range) const
{
    const auto part = drawnPart();
    if (!part)
        return {};
    LinearOutline outline(vertex(*part, range.first));
    for (std::size_t segment = range.first; segment <= range.last; ++segment) {
        const auto cut = segment < range.last ? corner(*part, segment + 1) : std::nullopt;
        outline.addSegment(cut ? cut->curve.points.front() : vertex(*part, segment + 1));
        if (cut)
            outline.addCorner(cut->curve, cut->isStraight);
    }
    return outline.main();
}

// Without dashes, and without the marks of crossings.
void OpenLinearPathNodeImpl::paintSilhouette(PaintContext& context) const
{
    if (!m_usesPathForEffect)
        return LinearPathNodeImpl::paintSilhouette(context);
    DrawStyle style(Stroke::NoStroke(), Fill(drawStyle().stroke().color()));
    style.setIsAntiAliased(drawStyle().isAntiAliased());
    context.setStyle(style);
    context.drawPath(outline().asQPainterPath());
}

QByteArray OpenLinearPathNodeImpl::silhouetteKey() const
{
    const QByteArray picture = LinearPathNodeImpl::silhouetteKey();
    return picture.isEmpty() ? picture : picture + char(m_usesPathForEffect);
}

} // namespace Tova2
