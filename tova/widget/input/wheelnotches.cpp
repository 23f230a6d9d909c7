#include "widget/input/wheelnotches.h"

#include <algorithm>

namespace Tova2 {

int WheelNotches::take(const QPoint& turn, std::chrono::nanoseconds now)
{
    const bool isSideways = turn.y() == 0;
    const int most = kMostAtOnce * kNotch;
    const int angle = std::clamp(isSideways ? turn.x() : turn.y(), -most, most);
    const bool hasTurnedBack = m_rest != 0 && (angle < 0) != (m_rest < 0);
    if (isSideways != m_isSideways || hasTurnedBack || now - m_last > kPause)
        m_rest = 0;
    m_isSideways = isSideways;
    m_last = now;
    m_rest += angle;
    const int notches = m_rest / kNotch;
    m_rest %= kNotch;
    return notches;
}

} // namespace Tova2
