#pragma once

#include <QPoint>

#include <chrono>

namespace Tova2 {

/// Whole notches of a wheel that tells of less than that. What is left over waits for more turn the
/// same way, but not for long.
class WheelNotches {
public:
    static constexpr int kNotch = 120; ///< in eighths of a degree
    static constexpr int kMostAtOnce = 16;
    static constexpr std::chrono::milliseconds kPause{500};

    /// How many are full with this turn, negative towards the user.
    int take(const QPoint& turn, std::chrono::nanoseconds now);

private:
    int m_rest = 0;
    bool m_isSideways = false;
    std::chrono::nanoseconds m_last{};
};

} // namespace Tova2
