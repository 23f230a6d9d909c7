#pragma once

#include <QRect>
#include <QRectF>
#include <QRgb>

#include <vector>

class QImage;

namespace Tova2 {

/// What an edge of the plane covers of the pixels on both its sides once it is softened.
class SoftEdge {
public:
    explicit SoftEdge(double deviation);

    /// Pixels to either side that softening reaches.
    int reach() const { return static_cast<int>(m_kernel.size()) - 1; }
    /// Of a pixel that begins `distance` before the edge, where all beyond the edge is covered.
    float at(double distance) const;
    /// The weight of the middle pixel and of those to either side.
    const std::vector<float>& kernel() const { return m_kernel; }

private:
    std::vector<float> m_kernel;
    std::vector<float> m_sums; ///< `at` of whole distances, from `-reach` on
};

/// A softened box on pixels, whose corners may be round.
class BoxCoverage {
public:
    struct Look {
        double radiusX, radiusY, deviationX, deviationY, gain;
        QRgb color;

        bool operator==(const Look&) const = default;
    };

    BoxCoverage(const QRectF& box, const Look& look);

    QRect reach() const; ///< every pixel that it may color
    QRect plain() const; ///< where all is of one color; may be empty
    QRgb plainColor() const;
    /// Premultiplied; null when there is no memory for it. A pixel does not depend on the part.
    QImage picture(const QRect& part) const;

private:
    class Rows;
    double insetAt(double y) const;
    bool isNearCorners(int y) const;
    float down(int y) const;

    QRectF m_box;
    Look m_look;
    SoftEdge m_across, m_down;
};

} // namespace Tova2
