#pragma once

#include <QPointF>
#include <QTransform>

#include <array>
#include <cstddef>

namespace Tova2 {

/// Leaves out what no pixel tells apart of the points of a line that are fed to it: of a path
/// zoomed out far, thousands lie on one.
class PointThinner {
public:
    /// `toDevice` maps the points to pixels.
    explicit PointThinner(const QTransform& toDevice) : m_toDevice(toDevice) {}

    /// `keep(point)` is called for each that is left, later, in order.
    template <class Keep>
    void add(const QPointF& point, Keep keep)
    {
        const QPointF device = m_toDevice.map(point);
        if (m_count > 0 && fits(device)) {
            take(point, device);
            return;
        }
        finish(keep);
        begin(point, device);
    }
    /// After the last point of a line.
    template <class Keep>
    void finish(Keep keep)
    {
        if (m_count > 0) {
            const auto all = inOrder();
            for (std::size_t i = 0; i < all.size(); ++i) {
                if (i == 0 || all[i].index != all[i - 1].index)
                    keep(all[i].point);
            }
        }
        m_count = 0;
    }

private:
    struct Kept {
        std::size_t index;
        QPointF point;
    };

    bool fits(const QPointF& device) const;
    void begin(const QPointF& point, const QPointF& device);
    void take(const QPointF& point, const QPointF& device);
    /// The first point of the strip, the outermost ones and the last.
    std::array<Kept, 6> inOrder() const;

    QTransform m_toDevice;
    std::size_t m_count = 0; ///< points of the strip so far; they lie too close to tell apart
    double m_left = 0, m_right = 0, m_top = 0, m_bottom = 0;
    std::array<Kept, 6> m_kept{}; ///< first, left, right, top, bottom, last
};

} // namespace Tova2
