#pragma once

#include <QPoint>
#include <QSize>

#include <vector>

class QColor;
class QImage;

namespace Tova2 {

/// How much of each pixel a silhouette covers, from 0 to 1; fine enough to be multiplied by a gain
/// without showing steps.
class CoveragePlane {
public:
    explicit CoveragePlane(const QSize& size);

    /// From the alpha of a premultiplied picture, which lies inside the plane.
    void put(const QImage& sheet, const QPoint& corner);
    /// By a normal distribution that is cut off at three deviations, in pixels.
    void blur(double deviationX, double deviationY);
    /// Premultiplied.
    QImage colored(const QColor& color, double gain) const;

private:
    void blurRows(double deviation);
    void blurColumns(double deviation);
    float* row(int y) { return m_values.data() + static_cast<std::size_t>(y) * m_width; }
    const float* row(int y) const
    {
        return m_values.data() + static_cast<std::size_t>(y) * m_width;
    }

    std::size_t m_width;
    int m_height;
    std::vector<float> m_values;
};

} // namespace Tova2
