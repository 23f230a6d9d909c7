#include "nodes/pointthinner.h"

#include <algorithm>

namespace Tova2 {

namespace {

constexpr double kIndistinctPixels = 0.25;

} // namespace

// A strip is narrow in one direction only: along the other, what lies between its ends is on the
// line between them.
bool PointThinner::fits(const QPointF& device) const
{
    const double width = std::max(m_right, device.x()) - std::min(m_left, device.x());
    const double height = std::max(m_bottom, device.y()) - std::min(m_top, device.y());
    return !(width > kIndistinctPixels && height > kIndistinctPixels);
}

void PointThinner::begin(const QPointF& point, const QPointF& device)
{
    m_left = m_right = device.x();
    m_top = m_bottom = device.y();
    m_kept.fill({0, point});
    m_count = 1;
}

void PointThinner::take(const QPointF& point, const QPointF& device)
{
    const Kept kept{m_count++, point};
    if (device.x() < m_left)
        m_left = device.x(), m_kept[1] = kept;
    if (device.x() > m_right)
        m_right = device.x(), m_kept[2] = kept;
    if (device.y() < m_top)
        m_top = device.y(), m_kept[3] = kept;
    if (device.y() > m_bottom)
        m_bottom = device.y(), m_kept[4] = kept;
    m_kept[5] = kept;
}

std::array<PointThinner::Kept, 6> PointThinner::inOrder() const
{
    auto all = m_kept;
    std::ranges::sort(all, {}, &Kept::index);
    return all;
}

} // namespace Tova2
