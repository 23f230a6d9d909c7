#include "nodes/crossings/pathxsegmentdecorator.h"

#include <cmath>

namespace Tova2 {

double CrossingContext::widthOfCrossed(const PathIntersection& crossing) const
{
    return widthOf && crossing.other.isValid() ? widthOf(crossing.other) : 0.0;
}

double CrossingContext::scale() const
{
    return viewScale > 0 && std::isfinite(viewScale) ? viewScale : 1.0;
}

PathXSegmentDecorator::PathXSegmentDecorator(const CrossingContext& context, QPointF current,
                                             QPointF next)
    : m_context(context), m_current(current), m_next(next)
{}

PathXSegmentDecorator::~PathXSegmentDecorator() = default;

PathXSegmentDecorator::Clearance PathXSegmentDecorator::baseClearance(bool) const
{
    return {};
}

PathXSegmentDecorator::Clearance PathXSegmentDecorator::clearance(double widthA, double widthB,
                                                                  bool vertical) const
{
    const double along = (vertical ? widthB : widthA) / 2;
    const double across = (vertical ? widthA : widthB) / 2;
    const auto [a, b, c, d] = baseClearance(vertical);
    return damped({a + along, b + across, c + along, d + across});
}

PathXSegmentDecorator::Clearance PathXSegmentDecorator::damped(Clearance clearance) const
{
    const double scale = m_context.scale();
    for (double& side : clearance)
        side /= scale > 1 ? scale - (scale - 1) * 0.5 : scale;
    return clearance;
}

PathXSegmentDecorator::Clearance
PathXSegmentDecorator::requiredBy(const PathIntersection& crossing) const
{
    const double crossed = m_context.widthOfCrossed(crossing);
    if (isHorizontal())
        return clearance(crossed, m_context.ownWidth, true);
    return clearance(m_context.ownWidth, crossed, isVertical());
}

bool PathXSegmentDecorator::runsForward() const
{
    return isHorizontal() ? m_next.x() > m_current.x() : m_next.y() > m_current.y();
}

QPointF PathXSegmentDecorator::along(const PathIntersection& crossing, double distance) const
{
    return {crossing.x, runsForward() ? crossing.y + distance : crossing.y - distance};
}

std::array<QPointF, 2> PathXSegmentDecorator::gap(const PathIntersection& crossing,
                                                  const Clearance& clearance) const
{
    const QPointF upper(crossing.x, crossing.y - clearance[0]);
    const QPointF lower(crossing.x, crossing.y + clearance[2]);
    if (runsForward())
        return {upper, lower};
    return {lower, upper};
}

} // namespace Tova2
